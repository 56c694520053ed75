#include "pages/audit/alarm_ring.h"

#include <array>
#include <chrono>
#include <optional>
#include <random>

#include "board/errors.h"
#include "pages/allarmi_page.h"

namespace sorvane::test {
namespace {

// A row as it has to come out. Its date is a day of the calendar; none for "00/00/00".
struct ExpectedRow {
  int code;
  std::optional<std::chrono::sys_days> date;
  int hour;
  int minute;
};

// The board's ring, and what a list of it has to be. It goes by the calendar and knows nothing of
// how the program counts days.
struct RingModel {
  std::array<std::array<int, 8>, 20> records{};  // minute stands at 1, code at 6
  std::uint32_t pointer = 0;

  void Set(int q, const std::array<int, 6>& parts) {
    for (std::size_t i = 0; i < 6; ++i) At(q)[i + 1] = parts[i];
  }
  std::array<int, 8>& At(int q) { return records[static_cast<std::size_t>(q)]; }

  // Nothing where the program has to end with a subscript out of range.
  std::optional<std::vector<ExpectedRow>> List() const {
    std::vector<ExpectedRow> rows;
    if (pointer > 20) return rows;
    if (pointer == 20) return std::nullopt;
    for (std::size_t n = 0; n < 20; ++n) {
      const auto& record = records[(pointer + 20 - n) % 20];
      if (record[6] > 50) break;
      if (record[4] > 12) return std::nullopt;
      rows.push_back({record[6], Date(record[5], record[4], record[3]), record[2], record[1]});
    }
    return rows;
  }

 private:
  // The day that lies as many days behind the last one of the month before as day tells.
  static std::optional<std::chrono::sys_days> Date(int year, int month, int day) {
    if (day == 0 && month == 0) return std::nullopt;
    const auto first =
        std::chrono::year(2000 + year) / static_cast<int>(month == 0 ? 1 : month) / 1;
    return std::chrono::sys_days(first) + std::chrono::days(day - 1);
  }
};

int Pick(std::mt19937& random, const std::vector<int>& values) {
  return values[random() % values.size()];
}

// Parts at their edges for the most part. One ring in four has a month above 12 somewhere, and one
// in two a code above 50.
RingModel RandomRing(std::mt19937& random) {
  RingModel ring;
  for (auto& record : ring.records) {
    for (int& part : record) part = static_cast<int>(random() % 256);
    record[3] = Pick(random, {0, 0, 1, 2, 12, 13, 28, 29, 30, 31, 32, 255});
    record[4] = Pick(random, {0, 0, 1, 2, 3, 4, 11, 12});
    record[5] = Pick(random, {0, 1, 4, 26, 99, 100, 101, 200, 255});
    record[6] = static_cast<int>(random() % 51);
  }
  if (random() % 4 == 0) ring.records[random() % 20][4] = Pick(random, {13, 14, 128, 255});
  if (random() % 2 == 0) ring.records[random() % 20][6] = Pick(random, {51, 52, 127, 255});
  ring.pointer = random() % 20;
  return ring;
}

Reply Answer(int parameter, std::uint32_t value) {
  Reply reply{.index = parameter, .size = 3, .bytes = {}};
  for (int i = 0; i < 4; ++i, value /= 256) reply.bytes.push_back(static_cast<uint8_t>(value));
  return reply;
}

// Gives all answers of the board to something that takes them.
template <typename Take>
void AnswerAll(const RingModel& model, Take take) {
  for (int q = 0; q < 20; ++q) {
    for (int part = 0; part < 8; ++part) {
      const auto& record = model.records[static_cast<std::size_t>(q)];
      take(118 + 8 * q + part, record[static_cast<std::size_t>(part)]);
    }
  }
  take(278, model.pointer);
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

// Record q is of q hours and 2 * q minutes on 1 + q May 2010, with code q + 1.
RingModel PlainRing() {
  RingModel ring;
  for (int q = 0; q < 20; ++q) ring.Set(q, {2 * q, q, q + 1, 5, 10, q + 1});
  return ring;
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
  std::mt19937 random(20260305);
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

// The same rings once more through the whole of the page.
class AlarmRingOnThePage : public AllarmiPage {
 protected:
  // Tells the page the whole ring anew; everything is fresh already.
  void TellAll(const RingModel& model) {
    AnswerAll(model, [this](int parameter, std::uint32_t value) {
      Tell(parameter, static_cast<uint8_t>(value));
    });
  }

  static QString Description(int code) {
    const auto numbered = [](const QString& text, int n) {
      return text.arg(n) + (n == 10 ? "" : " ");
    };
    if (code == 1) return "ECM_allarme eeprom   ";
    if (code == 2) return "EAR_allarme gettoniera   ";
    if (code == 3) return "EAJ_allarme fattore di scala   ";
    if (code == 9) return "EDM_segnalazione sonda   ";
    if (code == 10) return "ECA_segnalazione 24V   ";
    if (code >= 17 && code <= 26) return numbered("OBC_%1_vuoto prodotto %1", code - 16);
    if (code >= 33 && code <= 42) return numbered("EJB_%1_blocco motore %1", code - 32);
    return code == 0 || code > 48 ? "" : "      ";
  }
  static QStringList Texts(int n, const ExpectedRow& row) {
    QString date = "00/00/00";
    if (row.date) {
      const std::chrono::year_month_day day(*row.date);
      date = QString::asprintf("%02u/%02u/%04d", static_cast<unsigned>(day.day()),
                               static_cast<unsigned>(day.month()), static_cast<int>(day.year()));
    }
    return {QString::number(n), date, QString::asprintf("%02d:%02d", row.hour, row.minute),
            Description(row.code)};
  }
  void ExpectList(const RingModel& model) {
    const auto expected = model.List();
    ASSERT_TRUE(expected);
    ASSERT_EQ(Rows(), static_cast<int>(expected->size()));
    for (int i = 0; i < Rows(); ++i) {
      EXPECT_EQ(Row(i), Texts(i + 1, (*expected)[static_cast<std::size_t>(i)]));
    }
  }
};

TEST_F(AlarmRingOnThePage, RingsThatTheBoardAnswersOneAfterTheOther) {
  std::mt19937 random(118);
  OpenRead();
  for (int i = 0; i < 100 && !HasFailure(); ++i) {
    RingModel ring = RandomRing(random);
    // Nothing may go wrong while the old ring turns into the new one.
    for (auto& record : ring.records) record[4] %= 13;
    if (i % 10 == 9) ring.pointer = 21 + random() % 235;
    TellAll(ring);
    ExpectList(ring);
  }
  EXPECT_THAT(program.reports, testing::IsEmpty());
}

TEST_F(AlarmRingOnThePage, EveryPointerThatTheBoardAnswers) {
  RingModel ring = PlainRing();
  AnswerAll(ring, [this](int parameter, std::uint32_t value) { SetNumbers(parameter, {value}); });
  OpenRead();
  ExpectList(ring);
  for (std::uint32_t pointer = 0; pointer < 40; ++pointer) {
    if (pointer == 20) continue;
    ring.pointer = pointer;
    BoardSays(278, pointer);
    ExpectList(ring);
  }
}

TEST_F(AlarmRingOnThePage, PageThatIsOpenedAnewListsAnotherRing) {
  std::mt19937 random(7);
  for (int i = 0; i < 10 && !HasFailure(); ++i) {
    RingModel ring = RandomRing(random);
    for (auto& record : ring.records) record[4] %= 13;
    AnswerAll(ring, [this](int parameter, std::uint32_t value) { SetNumbers(parameter, {value}); });
    OpenRead();
    ExpectList(ring);
    ClosePage();
  }
}

}  // namespace
}  // namespace sorvane::test
