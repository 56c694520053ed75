#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

#include "board/reply.h"
#include "outside/port.h"

namespace sorvane {

// Where a value stands in the board, and the command by which it is read. The command's low nibble
// is the value's size in bytes minus 1.
struct Address {
  uint8_t command = 0;
  uint8_t address1 = 0;
  uint8_t address2 = 0;
  uint8_t address3 = 0;

  bool operator==(const Address&) const = default;
};

// Lets the events of the line happen until done gives true or limit has passed; gives what done
// gave last. Whoever makes an Exchange brings it along: an event loop, or the clock of a test.
using WaitFor =
    std::function<bool(std::chrono::milliseconds limit, const std::function<bool()>& done)>;

// What one try of an exchange came to.
enum class TryOutcome {
  kGood,
  kSilent,       // no answer within a second, or a part of one
  kWrongAnswer,  // a wrong sum, or bytes too many
  kLost,         // the device of the port has vanished, or the port is closed
};

// One frame in flight at a time, each with its answer before the next goes out: a command line's
// way to the board. Nothing is repeated behind the caller's back but within a call, and a call ends
// with what the board has answered rightly, or with nothing.
class Exchange {
 public:
  // The port is open, and its events belong to this class from here on.
  Exchange(Port& port, WaitFor wait);
  ~Exchange();
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  // Tells of each try: the frame that went out, the bytes that came, and what that was taken for.
  std::function<void(const Bytes& sent, const Bytes& received, TryOutcome outcome)> on_try;

  // The value at an address, size bytes long (1 to 16), least significant byte first. Empty where
  // no right answer came in three tries.
  std::optional<Bytes> Read(const Address& address, int size);

  // Writes a value as long as the address's size. Whether the board has acknowledged it; where it
  // hasn't, the board may hold either value.
  bool Write(const Address& address, const Bytes& value);

  // Whether all answers since the last call were those of their frames. An answer names no
  // parameter, and a byte too many behind one is taken for the first of the next; where values are
  // 0 sums tell nothing, and each answer may be that of the frame before. So answers count only
  // once the line has been silent behind them, for as long as adapters keep bytes back. Lets the
  // line fall silent, so that the next answer is its frame's.
  bool InStep();

  // Whether the port's device has vanished. Further calls find nothing then, and at once.
  bool IsLost() const { return lost_; }

 private:
  // The answer of exactly length bytes that accepts takes for right, in three tries.
  std::optional<Bytes> Ask(const Bytes& frame, std::size_t length,
                           const std::function<bool(const Bytes&)>& accepts);
  TryOutcome Try(const Bytes& frame, std::size_t length,
                 const std::function<bool(const Bytes&)>& accepts);
  void Take();
  void EmptyLine();

  Port& port_;
  WaitFor wait_;
  Bytes received_;
  bool lost_ = false;
  bool unclean_ = false;   // bytes that nobody asked for may still be on their way
  bool doubtful_ = false;  // since the last InStep: bytes came that were no answer
};

}  // namespace sorvane
