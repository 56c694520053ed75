// The parser of typed amounts.

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "board/formats.h"
#include "typed_text.h"

namespace sorvane::fuzz {
namespace {

constexpr int kMostShownDecimals = 4;

Outcome Parsed(const Typed& typed) {
  return OutcomeOf([&] { return ParseFieldValue(typed.text, typed.decimals, typed.separators); });
}

void Run(Typed typed) {
  const Outcome outcome = Parsed(typed);
  Require(outcome == FieldOutcome(typed), "an amount is read by the rules");
  if (!outcome || outcome->kind != Entry::Kind::kValue) {
    Require(!outcome || outcome->value == 0, "what is refused has no value");
    return;
  }
  Require(outcome->value >= 0 && outcome->value <= 65535, "an amount fits two bytes");
  if (typed.decimals > kMostShownDecimals) return;
  const std::string shown = FormatMoney(outcome->value / std::pow(10, typed.decimals),
                                        static_cast<uint8_t>(typed.decimals), typed.separators);
  typed.text.assign(shown.begin(), shown.end());
  Require(Parsed(typed) == outcome, "an amount that is shown and typed again is the same");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run(sorvane::fuzz::ReadTyped({data, size}));
  return 0;
}
