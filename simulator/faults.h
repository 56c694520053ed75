#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sorvane::simulator {

// What can be wrong with the board or its cable.
enum class Fault {
  kNone,
  kSilent,         // requests are neither obeyed nor answered
  kWrongChecksum,  // the last byte of the reply is 1 too high
  kShortReply,     // the last byte of the reply is missing
  kExtraByte,      // a byte 0 follows the reply
  kSlow,           // the reply comes byte by byte, 20 ms apart
  kLateReply,      // the reply comes after 1200 ms
  kRefusesDay0,    // a write of 0 to the day of the clock is not obeyed and wrongly acknowledged
  kUnplugged,      // the line is gone
};

// A fault, and how many requests it hits; without a count it lasts until it is lifted.
struct FaultOrder {
  Fault fault = Fault::kNone;
  std::optional<int> count;
};

// Reads a fault in words, such as "silent 3", "silent once", "refuses day 0" or "none". Throws
// CommandError for words that name no fault and for a count below 1 or where none fits.
FaultOrder ParseFault(std::string_view words);

// The words of ParseFault for an order.
std::string FaultWords(const FaultOrder& order);

// The names of all faults, in one line.
std::string FaultNames();

// The fault in force. There is one at a time: a new one takes the place of the old.
class Faults {
 public:
  void Set(const FaultOrder& order) { order_ = order; }
  const FaultOrder& Current() const { return order_; }

  // The fault that hits the request that has just come, counted down by it. zeroes_day: the request
  // writes 0 to the day of the clock, the only one that kRefusesDay0 hits.
  Fault HitRequest(bool zeroes_day);

 private:
  FaultOrder order_;
};

}  // namespace sorvane::simulator
