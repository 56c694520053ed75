#include "bench/board_program.h"

#include <QAction>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <stdexcept>
#include <utility>

#include "pages/frm_info.h"
#include "pages/program_pages.h"
#include "platform/com_port_path.h"
#include "shell/gate/qt_timer.h"

namespace sorvane::bench {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kTick{40};
constexpr std::chrono::seconds kPatience{60};

// The folder, once the program has been copied into it.
const std::filesystem::path& Filled(const ProgramFolder& folder) {
  folder.CopyProgram();
  return folder.Path();
}

std::vector<std::string> BoardArguments(const ProgramFolder& folder,
                                        const std::vector<std::string>& more) {
  const std::filesystem::path& path = Filled(folder);
  std::vector<std::string> arguments = {"--index", path, "--link", path / "COM1", "--quiet"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

TimerMaker TimersWithTick(ProgramGate& gate, milliseconds tick) {
  return [make = MakeQtTimers(gate), tick](milliseconds interval, std::function<void()> handler) {
    return make(interval == kTick ? tick : interval, std::move(handler));
  };
}

}  // namespace

BoardProgram::BoardProgram(const Setup& setup)
    : board_(BoardArguments(folder_, setup.board)),
      gate_({.report = [this](const std::string& text,
                              const std::function<void()>&) { trouble_ = text; },
             .leave = [this](int) { trouble_ += "(the program has ended)"; }}),
      port_(MakeSerialPort([this](int number) { return ComPortPath(folder_.Path(), number); },
                           [this](const std::function<void()>& handler) { gate_.Run(handler); })),
      link_({.tables = tables,
             .port = *port_,
             .lamps = lamps_,
             .dialogs = boxes_,
             .make_timer = TimersWithTick(gate_, setup.tick),
             .folder = folder_.Path(),
             .end_program = [this] { gate_.End(0); }}),
      frame_({.gate = gate_,
              .dialogs = boxes_,
              .tables = tables,
              .access = access_,
              .lamps = lamps_,
              .link = link_,
              .separators = {'.', ','},
              .locale = QLocale(QLocale::English, QLocale::UnitedKingdom),
              .make_timer = MakeQtTimers(gate_),
              .now = [] { return QDateTime::currentDateTime(); },
              .settings_file = folder_.Path() / "Sorvane.ini",
              .pages = ProgramPages("Sorvane", Version{1, 0, 0}),
              .find_usb_port = [] { return std::string(); },
              .start_program = [](const std::filesystem::path&) {}}) {
  board_.NextLine();  // the line is up
  link_.reply_notice = [this, tell = link_.reply_notice](const Reply& reply) {
    if (on_reply) on_reply(reply);
    tell(reply);
  };
  gate_.Run([this] { frame_.Load(); });
  RunUntil([this] { return Entry("mnuConnect").isEnabled() && frame_.isActiveWindow(); });
}

void BoardProgram::RunUntil(const std::function<bool()>& condition) const {
  QEventLoop loop;
  QTimer patience;  // wakes a loop in which nothing happens any more
  patience.start(kPatience);
  const QDeadlineTimer deadline(kPatience);
  while (!condition()) {
    if (trouble_.empty() && deadline.hasExpired()) throw std::runtime_error("it takes too long");
    if (!trouble_.empty()) throw std::runtime_error(trouble_);
    loop.processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void BoardProgram::Choose(const QString& entry) const { Entry(entry).trigger(); }

void BoardProgram::Connect() const {
  Choose("mnuConnect");
  RunUntil([this] { return Entry("MnuAllarmi").isEnabled(); });
}

void BoardProgram::Notify(const Reply& reply) {
  gate_.Run([&] { link_.reply_notice(reply); });
  if (!trouble_.empty()) throw std::runtime_error(trouble_);
}

QAction& BoardProgram::Entry(const QString& name) const {
  auto* action = frame_.findChild<QAction*>(name);
  if (action == nullptr) throw std::logic_error("no entry " + name.toStdString());
  return *action;
}

}  // namespace sorvane::bench
