#include "board/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "board/errors.h"

namespace sorvane {
namespace {

template <typename Whole>
Whole Checked(double value) {
  const double rounded = std::nearbyint(value);
  // Written so that not-a-number fails the test.
  if (!(rounded >= std::numeric_limits<Whole>::min() &&
        rounded <= std::numeric_limits<Whole>::max())) {
    throw RuntimeError(ErrorCode::kOverflow);
  }
  return static_cast<Whole>(rounded);
}

}  // namespace

uint8_t ToByte(double value) { return Checked<uint8_t>(value); }
int16_t ToInt16(double value) { return Checked<int16_t>(value); }
int32_t ToInt32(double value) { return Checked<int32_t>(value); }

double PowerOfTen(int exponent) {
  // Reading a number is exact on every system; the power function is not.
  const std::string text = "1e" + std::to_string(exponent);
  double power = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), power);
  if (error != std::errc()) throw RuntimeError(ErrorCode::kOverflow);
  return power;
}

}  // namespace sorvane
