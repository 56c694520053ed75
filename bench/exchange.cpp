#include <QEventLoop>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/clocks.h"
#include "bench/measures.h"
#include "bench/modbus.h"
#include "bench/partner.h"
#include "bench/program_folder.h"
#include "board/board_tables.h"
#include "link/frame.h"
#include "link/link_engine.h"
#include "link/sweep.h"
#include "platform/com_port_path.h"
#include "platform/serial_port.h"
#include "shell/gate/program_gate.h"
#include "shell/gate/qt_timer.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.0;
constexpr int kRepeats = 61;
constexpr int kExchanges = 400;  // of a sample

// What is read, two bytes.
constexpr uint8_t kLow = 0x2a;
constexpr uint8_t kHigh = 0x17;

double PerExchange(double from) { return (ThreadTime() - from) / kExchanges * 1e6; }

// The program's own engine, timers, gate and serial port, on Qt's event loop. The next frame goes
// out when the last exchange has ended, and waits for no tick.
class Ours {
 public:
  Ours() {
    folder_.LinkPort(board_.Device());
    state_.ExchangeCommand = 1;  // read two bytes
    state_.ExchangeAddress1 = 0;
    state_.ExchangeAddress2 = 17;
    state_.ExchangeAddress3 = 4;
    state_.ExchangeSize = 1;
    port_->on_comm = [this](int comm_event) { engine_.ReceiveReply(comm_event); };
    // During identification the engine alone is at work, and hands no reply to the sweep.
    state_.Identifying = true;
    engine_.on_line_free = [this] { OnFinished(); };
    port_->SetCommPort(1);
    port_->Open();
  }

  double Run() {
    good_ = 0;
    done_ = 0;
    const double from = ThreadTime();
    Ask();
    loop_.exec();
    const double each = PerExchange(from);
    if (good_ != kExchanges) throw std::runtime_error("an exchange of ours failed");
    return each;
  }

 private:
  void Ask() {
    state_.ReplyValue.clear();
    engine_.SendFrame();
  }

  void OnFinished() {
    if (state_.ReplyValue == Bytes{kLow, kHigh}) ++good_;
    if (++done_ < kExchanges) {
      Ask();
    } else {
      loop_.quit();
    }
  }

  Partner board_{5, [](const Bytes&) { return Bytes{kLow, kHigh, Checksum({kLow, kHigh})}; }};
  ProgramFolder folder_;
  QEventLoop loop_;
  LinkState state_;
  BoardTables tables_;
  LinkLamps lamps_;
  ProgramGate gate_{
      {.report = [this](const std::string&, const std::function<void()>&) { loop_.quit(); },
       .leave = [this](int) { loop_.quit(); }}};
  std::unique_ptr<Port> port_ =
      MakeSerialPort([this](int number) { return ComPortPath(folder_.Path(), number); },
                     [this](const std::function<void()>& handler) { gate_.Run(handler); });
  std::function<void(const Reply&)> reply_notice_;
  Sweep sweep_{state_, tables_, reply_notice_};
  LinkEngine engine_{state_, tables_, *port_, lamps_, sweep_, MakeQtTimers(gate_)};
  int done_ = 0;
  int good_ = 0;
};

double Theirs(Modbus& modbus) {
  const double from = ThreadTime();
  for (int i = 0; i < kExchanges; ++i) modbus.ReadRegister();
  return PerExchange(from);
}

}  // namespace

std::vector<Result> MeasureExchange() {
  Ours ours;
  Modbus modbus;
  const auto samples = Interleave(
      kRepeats, [&] { return ours.Run(); }, [&] { return Theirs(modbus); });
  return {{"exchange", "one register by libmodbus", kAim, "us", samples}};
}

}  // namespace sorvane::bench
