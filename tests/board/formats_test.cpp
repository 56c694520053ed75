#include "board/formats.h"

#include <gtest/gtest.h>

#include <array>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr Separators kPoint{'.', ','};
constexpr Separators kComma{',', '.'};

TEST(FormatMoneyText, HasTheDecimalsOfItsPattern) {
  EXPECT_EQ(FormatMoney(12.5, 2, kPoint), "12.50");
  EXPECT_EQ(FormatMoney(12, 0, kPoint), "12");
  EXPECT_EQ(FormatMoney(12.5, 1, kPoint), "12.5");
  EXPECT_EQ(FormatMoney(12.5, 3, kPoint), "12.500");
  EXPECT_EQ(FormatMoney(12.5, 4, kPoint), "12.5000");
}

TEST(FormatMoneyText, IsEmptyForMoreThanFourDecimals) {
  EXPECT_EQ(FormatMoney(12.5, 5, kPoint), "");
  EXPECT_EQ(FormatMoney(12.5, 255, kPoint), "");
}

TEST(FormatMoneyText, HasADigitBeforeTheSeparator) {
  EXPECT_EQ(FormatMoney(0, 0, kPoint), "0");
  EXPECT_EQ(FormatMoney(0, 2, kPoint), "0.00");
  EXPECT_EQ(FormatMoney(0.05, 2, kPoint), "0.05");
  EXPECT_EQ(FormatMoney(0.0001, 4, kPoint), "0.0001");
}

TEST(FormatMoneyText, TakesTheSeparatorOfTheLocaleAndNoGroupMarks) {
  EXPECT_EQ(FormatMoney(1234567.5, 2, kComma), "1234567,50");
  EXPECT_EQ(FormatMoney(429496.7295, 4, kPoint), "429496.7295");
}

TEST(FormatMoneyText, RoundsToItsDecimalsWithAHalfAwayFromZero) {
  EXPECT_EQ(FormatMoney(0.114, 2, kPoint), "0.11");
  EXPECT_EQ(FormatMoney(0.125, 2, kPoint), "0.13");
  EXPECT_EQ(FormatMoney(2.5, 0, kPoint), "3");
  EXPECT_EQ(FormatMoney(9.995, 2, kPoint), "10.00");
  EXPECT_EQ(FormatMoney(-2.5, 0, kPoint), "-3");
}

TEST(FormatMoneyText, TakesAHalfThatNoDoubleHoldsForAHalf) {
  EXPECT_EQ(FormatMoney(1.005, 2, kPoint), "1.01");
  EXPECT_EQ(FormatMoney(0.265, 2, kPoint), "0.27");
  EXPECT_EQ(FormatMoney(1.185, 2, kPoint), "1.19");
}

// The first day of each month.
using Year = std::array<int32_t, 12>;

void ExpectMonths(int16_t year, const Year& days) {
  uint8_t month = 0;
  for (const int32_t day : days) {
    ++month;
    EXPECT_EQ(DayNumber(1, month, year), day) << "month " << int{month} << " of " << year;
  }
}

TEST(DayNumbers, CountFromTheOriginOfTheDateType) {
  EXPECT_EQ(DayNumber(1, 1, 1900), 2);
  EXPECT_EQ(DayNumber(1, 1, 1904), 1462);
  EXPECT_EQ(DayNumber(1, 1, 1905), 1828);
  EXPECT_EQ(DayNumber(1, 1, 2000), 36526);
}

TEST(DayNumbers, The29thOfFebruary2000Is36585) { EXPECT_EQ(DayNumber(29, 2, 2000), 36585); }

TEST(DayNumbers, TheFirstOfMarch1900Is61) { EXPECT_EQ(DayNumber(1, 3, 1900), 61); }

TEST(DayNumbers, FollowEveryMonthOfACommonYear) {
  ExpectMonths(
      2001, {36892, 36923, 36951, 36982, 37012, 37043, 37073, 37104, 37135, 37165, 37196, 37226});
}

TEST(DayNumbers, FollowEveryMonthOfALeapYear) {
  ExpectMonths(
      2004, {37987, 38018, 38047, 38078, 38108, 38139, 38169, 38200, 38231, 38261, 38292, 38322});
}

TEST(FormatTenthsText, HasADecimalOnlyWhereItIsNotZero) {
  EXPECT_EQ(FormatTenths(125, {'.', ','}), "12.5");
  EXPECT_EQ(FormatTenths(125, {',', '.'}), "12,5");
  EXPECT_EQ(FormatTenths(120, {'.', ','}), "12");
  EXPECT_EQ(FormatTenths(5, {'.', ','}), "0.5");
  EXPECT_EQ(FormatTenths(0, {'.', ','}), "0");
}

TEST(DayNumbers, KnowThatACenturyIsNoLeapYearUnlessTheFourthOne) {
  EXPECT_EQ(DayNumber(1, 3, 2000) - DayNumber(28, 2, 2000), 2);
  EXPECT_EQ(DayNumber(1, 1, 2001), 36892);
  EXPECT_EQ(DayNumber(28, 2, 2100), 73109);
  EXPECT_EQ(DayNumber(1, 3, 2100), 73110);
  EXPECT_EQ(DayNumber(1, 1, 2101), 73416);
}

TEST(DayNumbers, DontCheckTheDayAgainstTheMonth) {
  EXPECT_EQ(DayNumber(31, 2, 2001), 36953);
  EXPECT_EQ(DayNumber(0, 1, 2000), 36525);
}

TEST(DayNumbers, TakeMonthZeroForNoMonthBeforeTheDay) { EXPECT_EQ(DayNumber(5, 0, 2000), 36530); }

TEST(DayNumbers, RefuseAMonthAboveTwelve) {
  try {
    DayNumber(1, 13, 2000);
    ADD_FAILURE() << "month 13 was taken";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kSubscriptOutOfRange);
  }
}

}  // namespace
}  // namespace sorvane
