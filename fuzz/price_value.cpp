// The parser of typed prices: amounts, but not 2 with a separator.

#include <cstddef>
#include <cstdint>

#include "typed_text.h"

namespace sorvane::fuzz {
namespace {

Outcome Expected(const Typed& typed) {
  const bool separated = typed.text.find_first_of(u",.") != std::u16string::npos;
  const bool two =
      separated && Passes(typed.text, typed.separators) && IsTwo(typed.text, typed.separators);
  return two ? kRefused : FieldOutcome(typed);
}

void Run(const Typed& typed) {
  const Outcome outcome =
      OutcomeOf([&] { return ParsePriceValue(typed.text, typed.decimals, typed.separators); });
  Require(outcome == Expected(typed), "a price is an amount, or refused for being 2");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run(sorvane::fuzz::ReadTyped({data, size}));
  return 0;
}
