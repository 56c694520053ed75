#include "shell/program.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "pages/frm_info.h"
#include "pages/program_pages.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

const char* const kLanguages[] = {"Alfa",    "Bravo", "Charlie", "Delta", "Echo",
                                  "Foxtrot", "Golf",  "Hotel",   "India", "Lima"};
constexpr int kLines = 102;

std::string LanguageText(const std::string& name) {
  std::string text;
  for (int line = 1; line <= kLines; ++line) {
    text += line == 16 ? ";-- " + name : name + " " + std::to_string(line);
    text += "\r\n";
  }
  return text;
}

// The program's pages, with those of a test in place of the ones behind the same entries.
std::vector<PageRow> PagesOf(const Program::Setup& setup) {
  std::vector<PageRow> pages = ProgramPages("Sorvane", Version{1, 0, 0});
  for (const PageRow& own : setup.pages) {
    for (PageRow& row : pages) {
      if (row.entry == own.entry) row = own;
    }
  }
  return pages;
}

}  // namespace

Program::Program(const Setup& setup)
    : link({.parameters = MachineRows(), .timers = setup.timers}),
      gate({.report = [this](const std::string& text,
                             const std::function<void()>&) { reports.push_back(text); },
            .leave = [this](int exit_code) { exits.push_back(exit_code); }}) {
  if (setup.language_files) {
    for (const char* name : kLanguages) {
      WriteText(std::string(name) + ".lng", LanguageText(name));
    }
  }
  if (!setup.settings.empty()) WriteText("Sorvane.ini", setup.settings);
  frame = std::make_unique<MainFrame>(MainFrame::Outside{
      .gate = gate,
      .dialogs = link.dialogs,
      .tables = link.tables,
      .access = link.access,
      .lamps = link.lamps,
      .link = link.ser,
      .separators = setup.separators,
      .locale = setup.locale,
      .make_timer = link.clock.Maker(),
      .now = [this] { return now(); },
      .settings_file = link.folder.Path() / "Sorvane.ini",
      .pages = PagesOf(setup),
      .find_usb_port = [port = setup.usb_port] { return port; },
      .start_program = [this](const std::filesystem::path& path) { started.push_back(path); }});
  link.board.SetDelay(0);
}

Program::~Program() = default;

void Program::Start() {
  gate.Run([this] { frame->Load(); });
  if (frame->isVisible()) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  }
}

void Program::Connect() {
  if (!frame->isVisible()) Start();
  Choose("mnuConnect");
  gate.Run([this] { link.clock.Advance(0); });
  link.wire.Forget();
}

void Program::Choose(const QString& entry) {
  QAction& action = Entry(entry);
  ASSERT_TRUE(action.isEnabled()) << entry.toStdString() << " is disabled";
  action.trigger();
}

void Program::Open(const QString& entry) {
  Choose(entry);
  Sweep();
}

void Program::Sweep(int n) {
  gate.Run([this, n] { link.Tick(n); });
}

void Program::Close() { frame->close(); }

bool Program::IsOpen(const QString& form) const {
  return frame->findChild<ChildForm*>(form) != nullptr;
}

QAction& Program::Entry(const QString& name) {
  auto* action = frame->findChild<QAction*>(name);
  if (action == nullptr) throw std::logic_error("no menu entry " + name.toStdString());
  return *action;
}

QWidget& Program::FindWidget(const QString& form, const QString& control) {
  auto* page = frame->findChild<ChildForm*>(form);
  if (page == nullptr) throw std::logic_error(form.toStdString() + " isn't open");
  auto* widget = page->findChild<QWidget*>(control);
  if (widget == nullptr) throw std::logic_error("no control " + control.toStdString());
  return *widget;
}

void Program::TypeOnly(const QString& form, const QString& field, const QString& text) {
  auto& box = Find<QLineEdit>(form, field);
  ASSERT_TRUE(box.isEnabled()) << field.toStdString() << " is closed";
  QTest::mouseClick(&box, Qt::LeftButton);
  QTest::keyClicks(&box, text);
}

void Program::Type(const QString& form, const QString& field, const QString& text) {
  TypeOnly(form, field, text);
  Press(form, field, Qt::Key_Return);
}

void Program::Press(const QString& form, const QString& control, int key) {
  QTest::keyClick(&FindWidget(form, control), static_cast<Qt::Key>(key));
}

QString Program::Text(const QString& form, const QString& field) {
  return Find<QLineEdit>(form, field).text();
}

int Program::Position(const QString& form, const QString& bar) {
  return FindWidget(form, bar).property("position").toInt();
}

std::string Program::File(const std::string& name) const {
  std::ifstream in(link.folder.Path() / name, std::ios::binary);
  if (!in) return "none";
  return {std::istreambuf_iterator<char>(in), {}};
}

void Program::WriteText(const std::string& name, const std::string& text) const {
  link.folder.WriteFile(name, Bytes(text.begin(), text.end()));
}

}  // namespace sorvane::test
