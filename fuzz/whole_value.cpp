// The parser of typed whole numbers.

#include <cstddef>
#include <cstdint>

#include "typed_text.h"

namespace sorvane::fuzz {
namespace {

Outcome Parsed(const Typed& typed) {
  return OutcomeOf([&] { return ParseWholeValue(typed.text, typed.separators); });
}

Outcome Expected(const Typed& typed) {
  if (typed.text.empty()) return kRefused;
  if (!Passes(typed.text, typed.separators)) return kNotNumeric;
  const bool whole = typed.text.find_first_not_of(u"0123456789") == std::u16string::npos;
  return whole ? Scaled(typed.text, 0) : kRefused;
}

void Run(Typed typed) {
  const Outcome outcome = Parsed(typed);
  Require(outcome == Expected(typed), "a whole number is read by the rules");
  if (!outcome || outcome->kind != Entry::Kind::kValue) {
    Require(!outcome || outcome->value == 0, "what is refused has no value");
    return;
  }
  const std::string shown = std::to_string(outcome->value);
  typed.text.assign(shown.begin(), shown.end());
  Require(Parsed(typed) == outcome, "a number that is shown and typed again is the same");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run(sorvane::fuzz::ReadTyped({data, size}));
  return 0;
}
