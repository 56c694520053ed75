#include <modbus/modbus.h>

#include <QEventLoop>
#include <cstdint>
#include <memory>
#include <stdexcept>

#include "bench/clocks.h"
#include "bench/measures.h"
#include "bench/partner.h"
#include "bench/program_folder.h"
#include "board/board_tables.h"
#include "link/frame.h"
#include "link/link_engine.h"
#include "platform/com_port_path.h"
#include "platform/serial_port.h"
#include "shell/program_gate.h"
#include "shell/qt_timer.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.0;
constexpr int kRepeats = 61;
constexpr int kExchanges = 400;  // of a sample

// Both sides read this value, two bytes.
constexpr uint8_t kLow = 0x2a;
constexpr uint8_t kHigh = 0x17;
constexpr int kValue = 256 * kHigh + kLow;

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
    engine_.on_finished = [this] { OnFinished(); };
    port_->SetCommPort(1);
    port_->SetCommPort(1);
    port_->Open();
  }

  double Run() {
    good_ = 0;
    done_ = 0;
    const double from = ThreadTime();
    engine_.SendFrame();
    loop_.exec();
    const double each = PerExchange(from);
    if (good_ != kExchanges) throw std::runtime_error("an exchange of ours failed");
    return each;
  }

 private:
  void OnFinished() {
    if (state_.ReplyValue == Bytes{kLow, kHigh}) ++good_;
    if (++done_ < kExchanges) {
      engine_.SendFrame();
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
  LinkEngine engine_{state_, tables_, *port_, lamps_, MakeQtTimers(gate_)};
  int done_ = 0;
  int good_ = 0;
};

uint16_t ModbusSum(const Bytes& bytes) {
  unsigned sum = 0xffff;
  for (const uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? (sum >> 1) ^ 0xa001 : sum >> 1;
  }
  return static_cast<uint16_t>(sum);
}

// The answer of a slave to the reading of one holding register.
Bytes RegisterReply() {
  Bytes reply = {1, 3, 2, kHigh, kLow};
  const uint16_t sum = ModbusSum(reply);
  reply.push_back(static_cast<uint8_t>(sum & 255));
  reply.push_back(static_cast<uint8_t>(sum >> 8));
  return reply;
}

class Modbus {
 public:
  Modbus() {
    if (!context_ || modbus_set_slave(context_.get(), 1) != 0 ||
        modbus_connect(context_.get()) != 0) {
      throw std::runtime_error("libmodbus doesn't connect");
    }
  }
  ~Modbus() { modbus_close(context_.get()); }
  Modbus(const Modbus&) = delete;
  Modbus& operator=(const Modbus&) = delete;

  double Run() {
    int good = 0;
    const double from = ThreadTime();
    for (int i = 0; i < kExchanges; ++i) {
      uint16_t value = 0;
      if (modbus_read_registers(context_.get(), 0, 1, &value) == 1 && value == kValue) ++good;
    }
    const double each = PerExchange(from);
    if (good != kExchanges) throw std::runtime_error("an exchange of libmodbus failed");
    return each;
  }

 private:
  struct Free {
    void operator()(modbus_t* context) const { modbus_free(context); }
  };

  Partner slave_{8, [reply = RegisterReply()](const Bytes&) { return reply; }};
  std::unique_ptr<modbus_t, Free> context_{
      modbus_new_rtu(slave_.Device().c_str(), 19200, 'N', 8, 1)};
};

}  // namespace

std::vector<Result> MeasureExchange() {
  Ours ours;
  Modbus modbus;
  const auto samples = Interleave(
      kRepeats, [&] { return ours.Run(); }, [&] { return modbus.Run(); });
  return {{"exchange", "one register by libmodbus", kAim, "us", samples}};
}

}  // namespace sorvane::bench
