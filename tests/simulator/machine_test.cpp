#include <gtest/gtest.h>

#include "simulator/board_clock.h"
#include "simulator/index_folder.h"
#include "simulator/recorder.h"
#include "simulator/simulated_board.h"

namespace sorvane::simulator {
namespace {

class Machine : public testing::Test {
 protected:
  void SetClockTo(const DateTime& time) { SetClock(board_.Contents(), time); }
  std::string Clock() const { return ShowClock(board_.Contents()); }
  uint32_t Number(int parameter) const { return board_.Contents().Number(Parameter(parameter)); }
  void Set(int parameter, uint32_t value) {
    ASSERT_TRUE(board_.Contents().SetNumber(Parameter(parameter), value));
  }

  IndexFolder folder_;
  SimulatedBoard board_{folder_.Path(), {}, {2024, 5, 3, 12, 30, 50}};
  Memory& memory_ = board_.Contents();
};

TEST_F(Machine, TheClockTicksWithTheSecondsOfThePc) {
  board_.PassSeconds(9);
  EXPECT_EQ(Clock(), "2024-05-03 12:30");
  board_.PassSeconds(1);
  EXPECT_EQ(Clock(), "2024-05-03 12:31");
  board_.PassSeconds(120);
  EXPECT_EQ(Clock(), "2024-05-03 12:33");
}

TEST_F(Machine, TheClockTurnsHoursDaysMonthsAndYears) {
  struct Turn {
    DateTime before;
    const char* after;
  };
  const Turn turns[] = {
      {{2024, 5, 3, 12, 59, 0}, "2024-05-03 13:00"},
      {{2024, 5, 3, 23, 59, 0}, "2024-05-04 00:00"},
      {{2024, 4, 30, 23, 59, 0}, "2024-05-01 00:00"},
      {{2024, 2, 28, 23, 59, 0}, "2024-02-29 00:00"},
      {{2024, 2, 29, 23, 59, 0}, "2024-03-01 00:00"},
      {{2023, 2, 28, 23, 59, 0}, "2023-03-01 00:00"},
      {{2024, 12, 31, 23, 59, 0}, "2025-01-01 00:00"},
      {{2099, 12, 31, 23, 59, 0}, "2000-01-01 00:00"},
  };
  for (const Turn& turn : turns) {
    SetClockTo(turn.before);
    TickMinute(memory_);
    EXPECT_EQ(Clock(), turn.after);
  }
}

TEST_F(Machine, AClockThatWasWrittenGoesOnFromThere) {
  Set(54, 23);
  Set(55, 58);
  board_.PassSeconds(10);
  EXPECT_EQ(Clock(), "2024-05-03 23:59");
  board_.PassSeconds(60);
  EXPECT_EQ(Clock(), "2024-05-04 00:00");
}

TEST_F(Machine, ADay0StandsUntilMidnight) {
  Set(56, 0);
  board_.PassSeconds(10);
  EXPECT_EQ(Clock(), "2024-05-00 12:31");
  SetClockTo({2024, 5, 0, 23, 59, 0});
  TickMinute(memory_);
  EXPECT_EQ(Clock(), "2024-05-01 00:00");
}

TEST_F(Machine, AMonthOutOfTheCalendarHas31DaysAndEnds) {
  SetClockTo({2024, 14, 31, 23, 59, 0});
  TickMinute(memory_);
  EXPECT_EQ(Clock(), "2025-01-01 00:00");
}

// The ring starts with its newest record 7, at 174 to 181; record 8 follows at 182.
TEST_F(Machine, AnAlarmIsTheNewestOfTheRing) {
  EXPECT_EQ(LogAlarm(memory_, 17), 278);
  EXPECT_EQ(Number(278), 8u);
  const uint32_t record[] = {0, 30, 12, 3, 5, 24, 17, 0};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(Number(182 + i), record[i]) << i;
}

TEST_F(Machine, TheRingOfAlarmsWraps) {
  Set(278, 19);
  LogAlarm(memory_, 9);
  EXPECT_EQ(Number(278), 0u);
  EXPECT_EQ(Number(118 + 6), 9u);
}

TEST_F(Machine, ABlockedMotorIsCounted) {
  Set(330, 4);
  Set(339, 5);
  LogAlarm(memory_, 33);
  LogAlarm(memory_, 42);
  LogAlarm(memory_, 32);
  LogAlarm(memory_, 43);
  EXPECT_EQ(Number(330), 5u);
  EXPECT_EQ(Number(339), 6u);
  EXPECT_EQ(Number(329), 64u);
  EXPECT_EQ(Number(340), 12u);
}

class Vending : public Machine {
 protected:
  void SetUp() override {
    Set(3, 0);
    Set(25, 150);
    Set(45, 40);
    SetClockTo({2024, 5, 3, 9, 59, 0});
    for (int i = 279; i <= 284; ++i) Set(i, 1000);
    Set(322, 10);
    Set(342, 20);
  }
};

TEST_F(Vending, AVendIsCountedAtItsPrice) {
  EXPECT_EQ(Vend(memory_, 3), 322);
  EXPECT_EQ(Number(322), 11u);
  EXPECT_EQ(Number(279), 1150u);
  EXPECT_EQ(Number(280), 1150u);
  EXPECT_EQ(Number(281), 1001u);
  EXPECT_EQ(Number(282), 1001u);
  EXPECT_EQ(Number(283), 1000u);
  EXPECT_EQ(Number(284), 1000u);
  EXPECT_EQ(Number(342), 20u);
}

TEST_F(Vending, InADiscountBandThePriceIsLower) {
  SetClockTo({2024, 5, 3, 10, 0, 0});
  Vend(memory_, 3);
  EXPECT_EQ(Number(279), 1110u);
  EXPECT_EQ(Number(280), 1110u);
  EXPECT_EQ(Number(283), 1040u);
  EXPECT_EQ(Number(284), 1040u);
}

// The bands are 10:00 to 11:30 and 15:00 to 16:30.
TEST_F(Vending, ABandEndsWithItsEnd) {
  const auto discounted = [&](int hour, int minute) {
    const uint32_t before = Number(283);
    SetClockTo({2024, 5, 3, hour, minute, 0});
    Vend(memory_, 3);
    return Number(283) != before;
  };
  EXPECT_TRUE(discounted(11, 29));
  EXPECT_FALSE(discounted(11, 30));
  EXPECT_FALSE(discounted(14, 59));
  EXPECT_TRUE(discounted(15, 0));
  EXPECT_TRUE(discounted(16, 29));
  EXPECT_FALSE(discounted(16, 30));
  Set(63, 22);
  Set(65, 2);
  EXPECT_TRUE(discounted(23, 0));
  EXPECT_TRUE(discounted(1, 0));
  EXPECT_FALSE(discounted(3, 0));
}

TEST_F(Vending, ADiscountIsNeverMoreThanThePrice) {
  SetClockTo({2024, 5, 3, 10, 0, 0});
  Set(45, 500);
  Vend(memory_, 3);
  EXPECT_EQ(Number(279), 1000u);
  EXPECT_EQ(Number(283), 1150u);
}

TEST_F(Vending, AFreeVendIsCountedAmongThoseAlone) {
  Set(3, 1);
  EXPECT_EQ(Vend(memory_, 3), 342);
  EXPECT_EQ(Number(342), 21u);
  EXPECT_EQ(Number(322), 10u);
  EXPECT_EQ(Number(279), 1000u);
  EXPECT_EQ(Number(281), 1000u);
}

TEST_F(Machine, CoinsAndBanknotesAreTallied) {
  Set(289, 5);
  Set(319, 6);
  EXPECT_EQ(TakeCoin(memory_, 2), 289);
  EXPECT_EQ(TakeBanknote(memory_, 16), 319);
  EXPECT_EQ(Number(289), 6u);
  EXPECT_EQ(Number(319), 7u);
}

TEST_F(Machine, AFullCounterStays) {
  Set(289, 65535);
  TakeCoin(memory_, 2);
  EXPECT_EQ(Number(289), 65535u);
  Set(279, 4294967295u);
  Vend(memory_, 3);
  EXPECT_EQ(Number(279), 4294967295u);
}

}  // namespace
}  // namespace sorvane::simulator
