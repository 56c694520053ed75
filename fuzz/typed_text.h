#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "board/errors.h"
#include "input.h"
#include "texts/text_entry.h"

// What the targets of the typed texts share: how an input is one, and a second reading of the rules
// that shares no code with the program.
namespace sorvane::fuzz {

struct Typed {
  Separators separators;
  int16_t decimals = 0;
  std::u16string text;
};

// The first byte chooses a locale, the second a number of decimals, all else is the text.
Typed ReadTyped(Input input);

// Whether the text passes for a number at large.
bool Passes(std::u16string_view text, const Separators& separators);

// Whether a text that passes and isn't based is exactly 2 in the locale.
bool IsTwo(std::u16string_view text, const Separators& separators);

// What becomes of a text: an entry, or none for an overflow of 32 bits.
using Outcome = std::optional<Entry>;

inline constexpr Entry kRefused{Entry::Kind::kRefused, 0};
inline constexpr Entry kNotNumeric{Entry::Kind::kNotNumeric, 0};

// A whole number as typed, and the entry that it makes when scaled by 10 to the power of zeros.
Outcome Scaled(std::u16string_view digits, int zeros);

// The rules of an amount with decimals, up to 65535.
Outcome FieldOutcome(const Typed& typed);

// What the program's parser makes of a text. Any error but an overflow ends the run.
template <typename Parse>
Outcome OutcomeOf(const Parse& parse) {
  try {
    return parse();
  } catch (const RuntimeError& error) {
    Require(error.Code() == ErrorCode::kOverflow, "a typed text raises no error but an overflow");
    return std::nullopt;
  }
}

}  // namespace sorvane::fuzz
