#include "board/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <typename Convert>
void ExpectOverflow(Convert convert, double value) {
  try {
    convert(value);
    ADD_FAILURE() << value << " was taken";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kOverflow);
    EXPECT_EQ(error.Number(), 6);
  }
}

TEST(ToByteConversion, RoundsAHalfToTheEvenNumber) {
  EXPECT_EQ(ToByte(0.5), 0);
  EXPECT_EQ(ToByte(1.5), 2);
  EXPECT_EQ(ToByte(2.5), 2);
  EXPECT_EQ(ToByte(2.51), 3);
  EXPECT_EQ(ToByte(-0.5), 0);
}

TEST(ToByteConversion, RefusesWhatRoundsBeyondItsBounds) {
  EXPECT_EQ(ToByte(0), 0);
  EXPECT_EQ(ToByte(255), 255);
  EXPECT_EQ(ToByte(255.49), 255);
  for (const double value : {255.5, 256.0, -0.51, -1.0, 1e300, kNan, kInfinity, -kInfinity}) {
    ExpectOverflow(ToByte, value);
  }
}

TEST(ToInt16Conversion, RoundsAHalfToTheEvenNumber) {
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(-3.5), -4);
  EXPECT_EQ(ToInt16(32766.5), 32766);
}

TEST(ToInt16Conversion, RefusesWhatRoundsBeyondItsBounds) {
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  for (const double value :
       {32767.5, 32768.0, -32768.51, -32769.0, -1e300, kNan, kInfinity, -kInfinity}) {
    ExpectOverflow(ToInt16, value);
  }
}

TEST(ToInt32Conversion, RoundsAHalfToTheEvenNumber) {
  EXPECT_EQ(ToInt32(100000.5), 100000);
  EXPECT_EQ(ToInt32(100001.5), 100002);
}

TEST(ToInt32Conversion, RefusesWhatRoundsBeyondItsBounds) {
  EXPECT_EQ(ToInt32(2147483647.25), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<int32_t>::min());
  for (const double value : {2147483647.5, 2147483648.0, -2147483648.75, -2147483649.0, 1e300, kNan,
                             kInfinity, -kInfinity}) {
    ExpectOverflow(ToInt32, value);
  }
}

TEST(PowersOfTen, AreExactForDecimalsAndOverflowBehindTheLargestDouble) {
  EXPECT_EQ(PowerOfTen(0), 1);
  EXPECT_EQ(PowerOfTen(4), 10000);
  EXPECT_EQ(PowerOfTen(308), 1e308);
  ExpectOverflow([](double exponent) { return PowerOfTen(static_cast<int>(exponent)); }, 309);
}

}  // namespace
}  // namespace sorvane
