// The parser of numbers that are typed with one decimal.

#include <cstddef>
#include <cstdint>

#include "board/formats.h"
#include "typed_text.h"

namespace sorvane::fuzz {
namespace {

Outcome Parsed(const Typed& typed) {
  return OutcomeOf([&] { return ParseTenthsValue(typed.text, typed.separators); });
}

// Digits alone count tenfold; else digits, a separator, one digit that counts, and whatever stands
// behind it.
Outcome Expected(const Typed& typed) {
  const std::u16string& text = typed.text;
  if (text.empty()) return kRefused;
  if (!Passes(text, typed.separators)) return kNotNumeric;
  const std::size_t end = text.find_first_not_of(u"0123456789");
  if (end == std::u16string::npos) return Scaled(text, 1);
  const bool separator = text[end] == ',' || text[end] == '.';
  if (!separator || end + 1 == text.size() || text[end + 1] < '0' || text[end + 1] > '9') {
    return kRefused;
  }
  return Scaled(text.substr(0, end) + text[end + 1], 0);
}

void Run(Typed typed) {
  const Outcome outcome = Parsed(typed);
  Require(outcome == Expected(typed), "tenths are read by the rules");
  if (!outcome || outcome->kind != Entry::Kind::kValue) {
    Require(!outcome || outcome->value == 0, "what is refused has no value");
    return;
  }
  const std::string shown = FormatTenths(outcome->value, typed.separators);
  typed.text.assign(shown.begin(), shown.end());
  Require(Parsed(typed) == outcome, "tenths that are shown and typed again are the same");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run(sorvane::fuzz::ReadTyped({data, size}));
  return 0;
}
