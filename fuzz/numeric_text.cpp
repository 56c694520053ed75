// The test whether a typed text passes for a number.

#include <cstddef>
#include <cstdint>

#include "typed_text.h"

namespace sorvane::fuzz {
namespace {

void Run(const Typed& typed) {
  const bool passes = IsNumeric(typed.text, typed.separators);
  Require(passes == Passes(typed.text, typed.separators), "a text passes by its shape");
  Require(IsNumeric(u" \t\u00A0" + typed.text + u"\u00A0 ", typed.separators) == passes,
          "blanks on either side count for nothing");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run(sorvane::fuzz::ReadTyped({data, size}));
  return 0;
}
