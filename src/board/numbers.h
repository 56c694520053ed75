#pragma once

#include <cstdint>

namespace sorvane {

// Conversions into the widths in which values are stored. Each takes any double, rounds it to the
// nearest whole number (a half to the even one) and throws RuntimeError kOverflow where the result
// doesn't fit; not-a-number and the infinities never fit. Every 32-bit whole number passes through
// a double unharmed, so these serve for whole numbers too.
uint8_t ToByte(double value);
int16_t ToInt16(double value);
int32_t ToInt32(double value);

// 10 to the power of exponent. Throws RuntimeError kOverflow where a double can't hold it.
double PowerOfTen(int exponent);

}  // namespace sorvane
