#pragma once

#include <cstdint>
#include <string>

namespace sorvane {

// The marks by which the system's locale writes numbers. What is typed is read as characters, since
// the western single-byte set lacks the marks of some locales; what is shown is of that set.
struct Separators {
  char decimal = '.';  // that amounts show
  char16_t group = u',';
  char16_t typed_decimal = u'.';  // the locale's own; "," and "." are taken everywhere
};

// value with exactly the given number of decimals (0 to 4), at least one digit before the
// separator, and no group marks; a half is rounded away from zero. Empty for any other number of
// decimals. Callers pass the raw value divided by 10 to the power of decimals.
std::string FormatMoney(double value, uint8_t decimals, const Separators& separators);

// raw tenths as a number with one decimal, or with none where that would be 0: 125 gives "12.5",
// and 120 gives "12".
std::string FormatTenths(double raw, const Separators& separators);

// Days of a date counted as the platform's date type does: 1 January 1900 is 2, 1 January 2000 is
// 36526. year is 1900 or later; month 0 counts as no month before the day; the day isn't checked.
// Throws RuntimeError kSubscriptOutOfRange for a month above 12.
int32_t DayNumber(int32_t day, uint8_t month, int16_t year);

}  // namespace sorvane
