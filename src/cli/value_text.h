#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "board/reply.h"
#include "catalogue/catalogue.h"

namespace sorvane::cli {

// How amounts and tenths are written.
struct NumberStyle {
  int decimals = 0;  // of the board's amounts; above 4 amounts are written as whole numbers
  char mark = '.';
};

// The number that bytes hold, least significant first; at most four of them.
uint32_t NumberOf(const Bytes& raw);

// A number as a value of size bytes, 1 to 4. The number fits.
Bytes BytesOf(uint32_t number, int size);

// A value as a person reads it: "1.50", "12.5", "7", a text in UTF-8 without the blanks behind it.
// Values of more than four bytes that aren't texts stand in hexadecimal digits.
std::string ShownValue(const CatalogueEntry& entry, const Bytes& raw, const NumberStyle& style);

// A bit as a person reads it.
inline std::string_view ShownBit(bool on) { return on ? "on" : "off"; }

// What a person typed for a parameter, as a raw number. Both "." and "," are taken for the decimal
// mark. Throws Failure kUsage, which names the parameter, for what isn't a number of the
// parameter's form and range.
uint32_t TypedValue(const CatalogueEntry& entry, std::string_view typed, const NumberStyle& style);

// "on", "yes", "1", "off", "no" or "0". Throws Failure kUsage for anything else.
bool TypedBit(const CatalogueBit& bit, std::string_view typed);

// Whether a raw number may be written to a parameter.
bool IsInRange(const CatalogueEntry& entry, uint32_t number);

// "0 to 655.35".
std::string ShownRange(const CatalogueEntry& entry, const NumberStyle& style);

}  // namespace sorvane::cli
