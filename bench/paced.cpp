#include <QEventLoop>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "bench/clocks.h"
#include "bench/measures.h"
#include "bench/modbus.h"
#include "bench/partner.h"
#include "bench/program_folder.h"
#include "board/board_tables.h"
#include "board/parameter.h"
#include "board/parameter_access.h"
#include "link/frm_ser.h"
#include "link/link_lamps.h"
#include "platform/com_port_path.h"
#include "platform/serial_port.h"
#include "shell/gate/program_gate.h"
#include "shell/gate/qt_timer.h"
#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.1;
constexpr int kRepeats = 15;
constexpr std::chrono::milliseconds kTick{40};
constexpr std::size_t kRequestSize = 5;  // of a read

// Prices, items and discounts: two bytes each, one behind the other.
constexpr int32_t kFirst = parameter::kPrices;
constexpr int kExchanges = 3 * parameter::kSelectionRows;  // of a sample

double PerExchange(double from) { return (ThreadTime() - from) / kExchanges * 1e6; }

// A board that answers at once.
class QuickBoard {
 public:
  explicit QuickBoard(const std::filesystem::path& index_folder)
      : board_(index_folder, {}, {}), line_(board_) {}

  Bytes Answer(const Bytes& request) {
    line_.Receive(request, simulator::Micros{});
    line_.Serve(simulator::Micros{});
    return line_.TakeSent(simulator::Micros{});
  }

 private:
  simulator::SimulatedBoard board_;
  simulator::SerialLine line_;
};

// The connection as the program has it, with tick, sweep, engine, timers, gate and serial port, on
// Qt's event loop.
class Ours : private Dialogs {
 public:
  Ours() {
    SetBoardDefaults(tables_);
    folder_.CopyProgram();
    partner_.emplace(kRequestSize, [board = std::make_shared<QuickBoard>(folder_.Path())](
                                       const Bytes& request) { return board->Answer(request); });
    folder_.LinkPort(partner_->Device());
    link_.emplace(FrmSer::Outside{.tables = tables_,
                                  .port = *port_,
                                  .lamps = lamps_,
                                  .dialogs = *this,
                                  .make_timer = MakeQtTimers(gate_),
                                  .folder = folder_.Path(),
                                  .end_program = [this] { loop_.exit(kFailed); }});
    link_->on_loaded = [this] { loop_.quit(); };
    link_->reply_notice = [this](const Reply& reply) { OnReply(reply); };
    link_->Load();
    if (loop_.exec() != 0) throw std::runtime_error("our side doesn't connect");
  }

  // Has the sweep read the parameters, one with each tick.
  double Run() {
    answered_ = 0;
    const double start = WallTime();
    const double from = ThreadTime();
    for (int i = 0; i < kExchanges; ++i) access_.WatchParameter(kFirst + i);
    if (loop_.exec() != 0) throw std::runtime_error("a paced exchange of ours failed");
    const double each = PerExchange(from);
    // The first tick may have been due already.
    const std::chrono::duration<double> least = (kExchanges - 1) * kTick;
    if (WallTime() - start < least.count()) throw std::runtime_error("our side wasn't paced");
    for (int i = 0; i < kExchanges; ++i) access_.UnwatchParameter(kFirst + i);
    return each;
  }

 private:
  static constexpr int kFailed = 1;

  void Show(const MessageBox&, std::function<void(Answer)>) override { loop_.exit(kFailed); }

  void OnReply(const Reply& reply) {
    if (reply.index != kFirst + answered_ || reply.bytes.size() != 2) loop_.exit(kFailed);
    if (++answered_ == kExchanges) loop_.quit();
  }

  ProgramFolder folder_;
  QEventLoop loop_;
  std::optional<Partner> partner_;
  BoardTables tables_;
  ParameterAccess access_{tables_};
  LinkLamps lamps_;
  ProgramGate gate_{
      {.report = [this](const std::string&, const std::function<void()>&) { loop_.exit(kFailed); },
       .leave = [this](int) { loop_.exit(kFailed); }}};
  std::unique_ptr<Port> port_ =
      MakeSerialPort([this](int number) { return ComPortPath(folder_.Path(), number); },
                     [this](const std::function<void()>& handler) { gate_.Run(handler); });
  std::optional<FrmSer> link_;
  int answered_ = 0;
};

double Theirs(Modbus& modbus) {
  const double from = ThreadTime();
  for (int i = 0; i < kExchanges; ++i) {
    std::this_thread::sleep_for(kTick);
    modbus.ReadRegister();
  }
  return PerExchange(from);
}

}  // namespace

std::vector<Result> MeasurePaced() {
  Ours ours;
  Modbus modbus;
  const auto samples = Interleave(
      kRepeats, [&] { return ours.Run(); }, [&] { return Theirs(modbus); });
  return {{"paced", "libmodbus, a register in 40 ms", kAim, "us", samples}};
}

}  // namespace sorvane::bench
