#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sorvane {

using Bytes = std::vector<uint8_t>;

// What the link tells every open page: the board's answer to one exchange.
struct Reply {
  int32_t index = 0;  // the parameter's number
  uint8_t size = 0;   // of the exchange: bytes of the value minus 1, 0 to 15
  Bytes bytes;        // the value, least significant byte first

  // A value of more than 4 bytes is a text; all others are numbers.
  bool IsText() const { return size > 3; }

  // The value as a whole number without sign; bytes that are missing count as 0. Throws
  // RuntimeError kTypeMismatch for a text: an index file gives a parameter more bytes than its page
  // can take.
  int64_t Number() const;

  // The value as a text: that of a text as it stands, that of a number in decimal digits.
  std::string AsText() const;

  // The value as it stands, in the board's single-byte character set.
  std::string Text() const;
};

}  // namespace sorvane
