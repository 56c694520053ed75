#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/bytes.h"

namespace sorvane::simulator {

// Cuts the first word off text, which keeps what follows it, without the blanks between.
std::string_view TakeWord(std::string_view& text);

// A whole decimal number from lowest to highest. Throws CommandError, which begins with what, for
// anything else.
uint32_t ParseNumber(std::string_view text, uint32_t lowest, uint32_t highest,
                     const std::string& what);

// A value as people read it: up to 4 bytes a number, least significant byte first, beyond that a
// text in double quotes. In a text, letters of the western single-byte set stand in UTF-8, a quote
// and a backslash behind a backslash, and what can't be printed as \x and two digits.
std::string ShowValue(const Bytes& value);

// The value of the given size that ShowValue would show so. A text may stand without its quotes,
// and is padded with blanks to its size. Throws CommandError for what doesn't fit.
Bytes ParseValue(std::string_view text, std::size_t size);

// Bytes in plain decimal with blanks between.
std::string ShowBytes(const Bytes& bytes);

}  // namespace sorvane::simulator
