#include "simulator/faults.h"

#include <array>
#include <limits>

#include "simulator/command_error.h"
#include "simulator/words.h"

namespace sorvane::simulator {
namespace {

struct FaultName {
  Fault fault;
  std::string_view name;
};

constexpr std::array<FaultName, 9> kFaultNames = {{
    {Fault::kNone, "none"},
    {Fault::kSilent, "silent"},
    {Fault::kWrongChecksum, "wrong checksum"},
    {Fault::kShortReply, "short reply"},
    {Fault::kExtraByte, "extra byte"},
    {Fault::kSlow, "slow"},
    {Fault::kLateReply, "late reply"},
    {Fault::kRefusesDay0, "refuses day 0"},
    {Fault::kUnplugged, "unplugged"},
}};

constexpr std::string_view kOnce = "once";

// The same words with one blank between any two.
std::string Squeeze(std::string_view words) {
  std::string squeezed;
  for (std::string_view word = TakeWord(words); !word.empty(); word = TakeWord(words)) {
    if (!squeezed.empty()) squeezed += ' ';
    squeezed += word;
  }
  return squeezed;
}

std::optional<int> ParseCount(Fault fault, std::string_view words) {
  if (words.empty()) return std::nullopt;
  if (fault == Fault::kNone || fault == Fault::kUnplugged) {
    throw CommandError("none and unplugged take no count");
  }
  if (words == kOnce) return 1;
  constexpr int kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(ParseNumber(words, 1, kHighest, "the count of a fault"));
}

}  // namespace

FaultOrder ParseFault(std::string_view words) {
  const std::string squeezed = Squeeze(words);
  for (const FaultName& known : kFaultNames) {
    std::string_view rest = squeezed;
    if (!rest.starts_with(known.name)) continue;
    rest.remove_prefix(known.name.size());
    if (!rest.empty() && rest.front() != ' ') continue;
    if (!rest.empty()) rest.remove_prefix(1);
    return {known.fault, ParseCount(known.fault, rest)};
  }
  throw CommandError("a fault is one of: " + FaultNames());
}

std::string FaultWords(const FaultOrder& order) {
  std::string words;
  for (const FaultName& known : kFaultNames) {
    if (known.fault == order.fault) words = known.name;
  }
  if (order.count) words += ' ' + std::to_string(*order.count);
  return words;
}

std::string FaultNames() {
  std::string names;
  for (const FaultName& known : kFaultNames) {
    if (!names.empty()) names += ", ";
    names += known.name;
  }
  return names;
}

Fault Faults::HitRequest(bool zeroes_day) {
  const Fault fault = order_.fault;
  if (fault == Fault::kRefusesDay0 && !zeroes_day) return Fault::kNone;
  if (order_.count && --*order_.count == 0) order_ = {};
  return fault;
}

}  // namespace sorvane::simulator
