#include "board/formats.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "board/errors.h"
#include "board/numbers.h"

namespace sorvane {
namespace {

constexpr int kMostDecimals = 4;

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

}  // namespace

std::string FormatMoney(double value, uint8_t decimals, const Separators& separators) {
  if (decimals > kMostDecimals) return {};
  // A double carries 15 decimal digits for certain. They are taken as what the scaled value is, so
  // that 1.005 rounds up although the nearest double lies below it.
  char digits[64];
  std::snprintf(digits, sizeof digits, "%.15g", value * PowerOfTen(decimals));
  const double rounded = std::round(std::strtod(digits, nullptr));
  const int width = decimals + 1;
  char whole[512];
  std::snprintf(whole, sizeof whole, "%0*.0f", width, std::fabs(rounded));
  std::string text = whole;
  if (decimals > 0) text.insert(text.size() - decimals, 1, separators.decimal);
  return rounded < 0 ? "-" + text : text;
}

std::string FormatTenths(double raw, const Separators& separators) {
  const bool whole = std::fmod(raw, 10) == 0;
  return FormatMoney(raw / 10, whole ? 0 : 1, separators);
}

int32_t DayNumber(int32_t day, uint8_t month, int16_t year) {
  static constexpr std::array<int32_t, 12> kDaysBefore = {0,   31,  59,  90,  120, 151,
                                                          181, 212, 243, 273, 304, 334};
  int32_t number = (year - 1900) * 365 + 1;
  for (int y = 1900; y < year; y += 4) {
    if (IsLeapYear(y)) ++number;
  }
  if (month > kDaysBefore.size()) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
  if (month > 0) number += kDaysBefore[month - 1U];
  number += day;
  if (IsLeapYear(year) && month > 2) ++number;
  return number;
}

}  // namespace sorvane
