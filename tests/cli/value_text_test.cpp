#include "cli/value_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/failure.h"

namespace sorvane::cli {
namespace {

using testing::ElementsAre;

const Catalogue& TheCatalogue() {
  static const Catalogue catalogue;
  return catalogue;
}

std::string Shown(const char* name, const Bytes& raw, const NumberStyle& style = {.decimals = 2}) {
  return ShownValue(*TheCatalogue().Find(name), raw, style);
}

uint32_t Typed(const char* name, const char* typed, int decimals = 2) {
  return TypedValue(*TheCatalogue().Find(name), typed, {.decimals = decimals});
}

std::string Refusal(const char* name, const char* typed, int decimals = 2) {
  try {
    Typed(name, typed, decimals);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    return failure.what();
  }
  ADD_FAILURE() << typed << " was taken";
  return {};
}

TEST(ShownValues, AmountsHaveTheDecimalsOfTheBoard) {
  EXPECT_EQ(Shown("price.1", {150, 0}), "1.50");
  EXPECT_EQ(Shown("price.1", {150, 0}, {.decimals = 0}), "150");
  EXPECT_EQ(Shown("price.1", {150, 0}, {.decimals = 4}), "0.0150");
  EXPECT_EQ(Shown("price.1", {150, 0}, {.decimals = 5}), "150");
  EXPECT_EQ(Shown("price.1", {150, 0}, {.decimals = 2, .mark = ','}), "1,50");
  EXPECT_EQ(Shown("takings.total", {255, 255, 255, 255}), "42949672.95");
}

TEST(ShownValues, TenthsAreSeconds) {
  EXPECT_EQ(Shown("motor.timeout", {125}), "12.5");
  EXPECT_EQ(Shown("motor.timeout", {120}), "12");
}

TEST(ShownValues, CountsHaveNoDecimals) {
  EXPECT_EQ(Shown("item.1", {0, 1}), "256");
  EXPECT_EQ(Shown("options", {104}), "104");
}

TEST(ShownValues, TextsLoseTheBlanksBehindThem) {
  EXPECT_EQ(Shown("language.name.0", {'F', 'R', ' ', 0xC0, ' ', ' ', 0, 0}), "FR \xC3\x80");
  EXPECT_EQ(Shown("language.name.0", {' ', 0}), "");
}

TEST(ShownValues, NumbersOfMoreThanFourBytesStandAsTheirBytes) {
  EXPECT_EQ(Shown("price.1", {1, 2, 3, 4, 255}), "01020304ff");
}

TEST(TypedValues, AmountsMayHaveFewerDecimals) {
  EXPECT_EQ(Typed("price.1", "1.50"), 150U);
  EXPECT_EQ(Typed("price.1", "1,5"), 150U);
  EXPECT_EQ(Typed("price.1", "1"), 100U);
  EXPECT_EQ(Typed("price.1", "655.35"), 65535U);
  EXPECT_EQ(Typed("price.1", "0001.5"), 150U);
  EXPECT_EQ(Typed("price.1", "0000000001.5000", 4), 15000U);
  EXPECT_EQ(Typed("price.1", "7", 0), 7U);
  EXPECT_EQ(Typed("price.1", "7", 5), 7U);
}

TEST(TypedValues, WhatIsNoSuchNumberIsRefusedWithItsRange) {
  EXPECT_EQ(Refusal("price.1", "655.36"), "price.1: \"655.36\" is not 0.00 to 655.35");
  EXPECT_EQ(Refusal("motor.timeout", "4.9"), "motor.timeout: \"4.9\" is not 5 to 25");
  for (const char* wrong : {"", ".", "1.", ".5", "1.505", "1.5.0", "-1", "+1", " 1", "1 ", "1e2",
                            "0x1", "99999999999999999999", "1,234.50"}) {
    Refusal("price.1", wrong);
  }
  Refusal("price.1", "1.5", 0);
  Refusal("item.1", "1.5");
}

TEST(TypedValues, BitsAreOnOrOff) {
  const CatalogueBit& bit = *TheCatalogue().FindBit("option.free-vend");
  for (const char* on : {"on", "yes", "1"}) EXPECT_TRUE(TypedBit(bit, on));
  for (const char* off : {"off", "no", "0"}) EXPECT_FALSE(TypedBit(bit, off));
  EXPECT_THROW(TypedBit(bit, "ON"), Failure);
  EXPECT_THROW(TypedBit(bit, ""), Failure);
}

TEST(RawValues, StandLeastSignificantByteFirst) {
  EXPECT_EQ(NumberOf({1, 2, 3, 4}), 0x04030201U);
  EXPECT_EQ(NumberOf({1, 2, 3, 4, 5}), 0x04030201U);
  EXPECT_EQ(NumberOf({}), 0U);
  EXPECT_THAT(BytesOf(0x0201, 3), ElementsAre(1, 2, 0));
}

}  // namespace
}  // namespace sorvane::cli
