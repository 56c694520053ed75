#pragma once

#include <cstdint>
#include <string_view>

#include "board/formats.h"

namespace sorvane {

// What became of a typed text. value is 0 unless the kind is kValue.
struct Entry {
  enum class Kind {
    kValue,
    kRefused,     // the old text comes back, without a word
    kNotNumeric,  // the field turns red, and a box says so
  };

  Kind kind = Kind::kRefused;
  int32_t value = 0;

  bool operator==(const Entry&) const = default;
};

// Whether text passes for a number at large: digits with the locale's separators, "," and "." in
// every locale, a sign or a currency mark on either side, parentheses, an exponent, blanks around,
// or a hexadecimal or octal number behind "&". A sign or separator alone passes. What passes here
// is by no means taken; it is refused without a word.
bool IsNumeric(std::u16string_view text, const Separators& separators);

// The raw value of a typed amount: digits, and behind "," or "." up to decimals digits more; what
// stands behind those is dropped unread. decimals is 0 or more. An amount above 65535 is refused.
// Throws RuntimeError kOverflow for one that 32 bits don't hold, as typed or once scaled.
Entry ParseFieldValue(std::u16string_view text, int16_t decimals, const Separators& separators);

// The same for a price. An amount of exactly 2 that is typed with a separator is refused: the
// number is that which the locale reads in the whole text.
Entry ParsePriceValue(std::u16string_view text, int16_t decimals, const Separators& separators);

// The tenths of a typed number: exactly one digit counts behind "," or ".", and there must be one.
// Throws RuntimeError kOverflow for what 32 bits don't hold.
Entry ParseTenthsValue(std::u16string_view text, const Separators& separators);

// A typed whole number, without any limit but the 32 bits: RuntimeError kOverflow above them.
Entry ParseWholeValue(std::u16string_view text, const Separators& separators);

}  // namespace sorvane
