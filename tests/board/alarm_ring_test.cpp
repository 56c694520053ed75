#include "board/alarm_ring.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "board/errors.h"
#include "support/call_site.h"
#include "support/ring_model.h"

namespace sorvane::test {
namespace {

Reply Answer(int parameter, std::uint32_t value) {
  Reply reply{.index = parameter, .size = 3, .bytes = {}};
  for (int i = 0; i < 4; ++i, value /= 256) reply.bytes.push_back(static_cast<uint8_t>(value));
  return reply;
}

AlarmRing Taken(const RingModel& model) {
  AlarmRing ring;
  AnswerAll(model, [&](int parameter, std::uint32_t value) {
    EXPECT_TRUE(ring.Take(Answer(parameter, value))) << parameter;
  });
  return ring;
}

template <typename Call>
void ExpectError(ErrorCode code, Call call, CallSite at = CallSite::Here()) {
  const testing::ScopedTrace trace(at.file, at.line, "error");
  try {
    call();
    ADD_FAILURE() << "no error was thrown";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), code);
  }
}

// Days since 30 December 1899.
int Serial(std::chrono::sys_days date) {
  using std::chrono::year;
  return static_cast<int>((date - std::chrono::sys_days(year(1899) / 12 / 30)).count());
}

// The ring as the program has it comes out as the model says.
void Compare(const RingModel& model, CallSite at = CallSite::Here()) {
  const testing::ScopedTrace trace(at.file, at.line, "ring");
  const AlarmRing ring = Taken(model);
  const auto expected = model.List();
  if (!expected) {
    ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { ring.Alarms(); });
    return;
  }
  const std::vector<Alarm> alarms = ring.Alarms();
  ASSERT_EQ(alarms.size(), expected->size());
  for (std::size_t i = 0; i < alarms.size(); ++i) {
    const ExpectedRow& row = (*expected)[i];
    EXPECT_EQ(alarms[i].code, row.code) << i;
    EXPECT_EQ(alarms[i].hour, row.hour) << i;
    EXPECT_EQ(alarms[i].minute, row.minute) << i;
    EXPECT_EQ(alarms[i].dated, row.date.has_value()) << i;
    if (row.date) {
      EXPECT_EQ(alarms[i].day_number, Serial(*row.date)) << i;
    }
  }
}

TEST(AlarmRingTest, ModelCountsDaysAsTheCalendarDoes) {
  using std::chrono::year;
  EXPECT_EQ(Serial(year(1900) / 1 / 1), 2);
  EXPECT_EQ(Serial(year(1900) / 3 / 1), 61);
  EXPECT_EQ(Serial(year(2000) / 1 / 1), 36526);
  EXPECT_EQ(Serial(year(2000) / 2 / 29), 36585);
}

TEST(AlarmRingTest, EveryPointer) {
  RingModel ring = PlainRing();
  for (ring.pointer = 0; ring.pointer <= 300; ++ring.pointer) Compare(ring);
  for (const std::uint32_t pointer : {32767U, 32768U, 65535U, 65536U, 4294967295U}) {
    ring.pointer = pointer;
    Compare(ring);
    EXPECT_TRUE(Taken(ring).Alarms().empty()) << pointer;
  }
}

TEST(AlarmRingTest, PointerOfTwentyIsASubscriptOutOfRange) {
  RingModel ring = PlainRing();
  ring.pointer = 20;
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { Taken(ring).Alarms(); });
  for (int q = 0; q < 20; ++q) ring.At(q)[6] = 255;
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { Taken(ring).Alarms(); });
}

TEST(AlarmRingTest, EveryCodeAtEveryRecord) {
  for (int q = 0; q < 20; ++q) {
    for (int code = 0; code <= 255; code += code < 60 ? 1 : 39) {
      RingModel ring = PlainRing();
      ring.pointer = 11;
      ring.At(q)[6] = code;
      Compare(ring);
      const auto rows = static_cast<std::size_t>((11 - q + 20) % 20);
      EXPECT_EQ(Taken(ring).Alarms().size(), code <= 50 ? 20 : rows) << code << " in " << q;
    }
  }
}

TEST(AlarmRingTest, EveryDayAndMonthAtTheEdgesOfEveryKindOfYear) {
  for (const int year : {0, 1, 3, 4, 26, 99, 100, 101, 200, 254, 255}) {
    for (int month = 0; month <= 14; ++month) {
      for (const int day : {0, 1, 2, 12, 13, 27, 28, 29, 30, 31, 32, 254, 255}) {
        RingModel ring = PlainRing();
        ring.pointer = 3;
        ring.Set(3, {1, 2, day, month, year, 4});
        Compare(ring);
      }
    }
  }
}

TEST(AlarmRingTest, DaysOfWellKnownDates) {
  const auto day = [](int d, int m, int y) {
    RingModel ring;
    ring.Set(0, {0, 0, d, m, y, 1});
    return Taken(ring).Alarms().front().day_number;
  };
  EXPECT_EQ(day(1, 1, 0), 36526);
  EXPECT_EQ(day(29, 2, 0), 36585);
  EXPECT_EQ(day(1, 3, 0), 36586);
  EXPECT_EQ(day(0, 1, 0), 36525);
  EXPECT_EQ(day(1, 0, 0), 36526);
  EXPECT_EQ(day(28, 2, 100), 73109);  // 2100 has no leap day
  EXPECT_EQ(day(1, 3, 100), 73110);
}

TEST(AlarmRingTest, MonthAboveTwelveIsASubscriptOutOfRangeInARowThatIsListed) {
  for (int month = 13; month <= 255; ++month) {
    RingModel ring = PlainRing();
    ring.At(4)[4] = month;
    Compare(ring);
    ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { Taken(ring).Alarms(); });
    ring.At(5)[6] = 51;  // record 4 is older
    Compare(ring);
    EXPECT_EQ(Taken(ring).Alarms().size(), 15U);
  }
}

TEST(AlarmRingTest, RingsByTheThousand) {
  std::minstd_rand random(20260305);
  int errors = 0;
  int whole = 0;
  for (int i = 0; i < 4000 && !testing::Test::HasFailure(); ++i) {
    const RingModel ring = RandomRing(random);
    const auto rows = ring.List();
    errors += rows ? 0 : 1;
    whole += rows && rows->size() == 20 ? 1 : 0;
    Compare(ring);
  }
  EXPECT_GT(errors, 200);
  EXPECT_GT(whole, 200);
}

TEST(AlarmRingTest, RingOfWhichNothingIsKnownHasTwentyAlarmsWithoutADate) {
  const std::vector<Alarm> alarms = AlarmRing().Alarms();
  ASSERT_EQ(alarms.size(), 20U);
  for (const Alarm& alarm : alarms) {
    EXPECT_EQ(alarm.code, 0);
    EXPECT_FALSE(alarm.dated);
    EXPECT_EQ(alarm.hour, 0);
    EXPECT_EQ(alarm.minute, 0);
  }
}

TEST(AlarmRingTest, LastAnswerOfAParameterHolds) {
  AlarmRing ring = Taken(PlainRing());
  ring.Take(Answer(278, 7));
  ring.Take(Answer(124 + 8 * 7, 33));
  ring.Take(Answer(124 + 8 * 7, 34));
  EXPECT_EQ(ring.Alarms().front().code, 34);
  EXPECT_EQ(ring.Alarms().front().hour, 7);
}

TEST(AlarmRingTest, OtherParametersAreNotTaken) {
  AlarmRing ring = Taken(PlainRing());
  for (const int parameter : {0, 1, 22, 117, 279, 280, 33000}) {
    EXPECT_FALSE(ring.Take(Answer(parameter, 60))) << parameter;
  }
  EXPECT_FALSE(ring.Take({.index = 12, .size = 4, .bytes = {'s', 'e', 'v', 'e', 'n'}}));
  EXPECT_EQ(ring.Alarms().size(), 20U);
}

TEST(AlarmRingTest, EveryByteHoldsSixteenBitsWithSign) {
  for (int parameter = 118; parameter <= 277; ++parameter) {
    AlarmRing ring;
    EXPECT_TRUE(ring.Take(Answer(parameter, 32767))) << parameter;
    ExpectError(ErrorCode::kOverflow, [&] { ring.Take(Answer(parameter, 32768)); });
    ExpectError(ErrorCode::kOverflow, [&] { ring.Take(Answer(parameter, 4294967295)); });
  }
}

TEST(AlarmRingTest, TextIsATypeMismatch) {
  for (const int parameter : {118, 124, 277, 278}) {
    AlarmRing ring;
    ExpectError(ErrorCode::kTypeMismatch, [&] {
      ring.Take({.index = parameter, .size = 4, .bytes = {'s', 'e', 'v', 'e', 'n'}});
    });
  }
}

}  // namespace
}  // namespace sorvane::test
