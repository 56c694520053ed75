// The conversions into the widths in which values are stored, the powers of ten, and money and
// tenths as texts. An input is a double, an exponent, a whole number and a number of decimals.

#include "board/numbers.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include "board/errors.h"
#include "board/formats.h"
#include "input.h"

namespace sorvane::fuzz {
namespace {

constexpr Separators kSeparators{',', '.'};

template <typename Convert>
auto ResultOf(const Convert& convert) -> std::optional<decltype(convert())> {
  try {
    return convert();
  } catch (const RuntimeError& error) {
    Require(error.Code() == ErrorCode::kOverflow, "a conversion raises no error but an overflow");
    return std::nullopt;
  }
}

// The nearest whole number, the even one of two.
std::optional<int64_t> Rounded(double value) {
  constexpr double kFarOut = 1e12;
  if (!(value > -kFarOut && value < kFarOut)) return std::nullopt;
  const double below = std::floor(value);
  const auto whole = static_cast<int64_t>(below);
  const double part = value - below;
  const bool up = part > 0.5 || (part == 0.5 && whole % 2 != 0);
  return up ? whole + 1 : whole;
}

template <typename Whole>
void CheckConversion(double value, Whole (*convert)(double)) {
  const std::optional<Whole> result = ResultOf([&] { return convert(value); });
  std::optional<int64_t> expected = Rounded(value);
  if (expected && (*expected < std::numeric_limits<Whole>::min() ||
                   *expected > std::numeric_limits<Whole>::max())) {
    expected.reset();
  }
  Require(result.has_value() == expected.has_value(), "a number is stored where it fits, only");
  if (result) Require(*result == *expected, "a number is rounded to the nearest, or the even one");
}

void CheckPower(int exponent) {
  const std::optional<double> power = ResultOf([&] { return PowerOfTen(exponent); });
  const double expected = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
  const bool fits = std::isfinite(expected) && expected > 0;
  Require(power.has_value() == fits, "a power of ten is there where a double holds it");
  if (power) Require(*power == expected, "a power of ten is exact");
}

// raw with its last digits behind the separator.
std::string Placed(uint32_t raw, std::size_t decimals) {
  std::string digits = std::to_string(raw);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  if (decimals > 0) digits.insert(digits.size() - decimals, 1, kSeparators.decimal);
  return digits;
}

void CheckFormats(uint32_t raw, uint8_t decimals) {
  const std::string money = FormatMoney(raw / std::pow(10, decimals), decimals, kSeparators);
  Require(money == (decimals > 4 ? "" : Placed(raw, decimals)),
          "money has the digits of its value");
  const std::string tenths = raw % 10 == 0 ? Placed(raw / 10, 0) : Placed(raw, 1);
  Require(FormatTenths(raw, kSeparators) == tenths, "tenths lose a 0");
}

// The text of any double at all: digits, or none where there are no digits to show.
void CheckShape(double value, uint8_t decimals) {
  const std::string money = FormatMoney(value, decimals, kSeparators);
  Require(money.empty() == (decimals > 4), "money has up to 4 decimals");
  if (!std::isfinite(value * 1e4) || decimals > 4) return;
  const std::size_t start = money[0] == '-' ? 1 : 0;
  const std::size_t whole = money.size() - start - (decimals > 0 ? decimals + 1U : 0U);
  Require(whole >= 1, "a digit stands before the separator");
  Require(money.find_first_not_of("0123456789", start) ==
              (decimals > 0 ? start + whole : std::string::npos),
          "money is digits and one separator");
}

void Run(Input input) {
  uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) bits = bits << 8U | input.Byte();
  const auto value = std::bit_cast<double>(bits);
  CheckConversion<uint8_t>(value, ToByte);
  CheckConversion<int16_t>(value, ToInt16);
  CheckConversion<int32_t>(value, ToInt32);
  CheckPower(static_cast<int16_t>(input.Word()) % 512);
  const uint8_t decimals = input.Byte() % 8;
  const uint32_t low = input.Word();
  CheckFormats(low + 65536U * input.Word(), decimals);
  CheckShape(value, decimals);
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run({data, size});
  return 0;
}
