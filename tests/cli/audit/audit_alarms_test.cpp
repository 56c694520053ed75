#include "cli/audit_alarms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/audit/audit_fixture.h"
#include "cli/audit_tables.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> EventsOf(const Snapshot& snapshot) {
  std::vector<std::string> events;
  for (const AuditAlarm& alarm : AlarmsOf(snapshot).alarms) events.push_back(alarm.event);
  return events;
}

// Records 0, 1 and 2 are filled, no other is; 1 is the newest.
Snapshot ThreeAlarms() {
  Snapshot machine = Machine();
  for (int q = 0; q < 20; ++q) PutRecord(machine, q, {0, 0, 0, 0, 0, 255});
  PutRecord(machine, 19, {5, 9, 7, 3, 26, 33});
  PutRecord(machine, 0, {6, 10, 8, 3, 26, 17});
  PutRecord(machine, 1, {7, 11, 9, 3, 26, 1});
  Put(machine, "alarm.newest", 1);
  return machine;
}

TEST(AuditAlarmsTest, RingIsListedFromTheNewestBackAcrossItsBeginning) {
  EXPECT_THAT(EventsOf(ThreeAlarms()), ElementsAre("ECM", "OBC_1", "EJB_1"));
}

TEST(AuditAlarmsTest, RecordOfACodeAbove50EndsTheList) {
  Snapshot machine = ThreeAlarms();
  Put(machine, "alarm.0.code", 51);
  EXPECT_THAT(EventsOf(machine), ElementsAre("ECM"));
  Put(machine, "alarm.0.code", 50);
  EXPECT_THAT(EventsOf(machine), ElementsAre("ECM", "", "EJB_1"));
}

TEST(AuditAlarmsTest, RingThatWasNeverFilledHasNoAlarms) {
  Snapshot machine = ThreeAlarms();
  Put(machine, "alarm.newest", 7);
  EXPECT_EQ(AlarmsOf(machine).state, RingState::kRead);
  EXPECT_THAT(AlarmsOf(machine).alarms, IsEmpty());
}

TEST(AuditAlarmsTest, PointerAbove19LeadsNowhere) {
  Snapshot machine = ThreeAlarms();
  for (const std::uint32_t pointer : {20U, 21U, 128U, 255U}) {
    Put(machine, "alarm.newest", pointer);
    EXPECT_EQ(AlarmsOf(machine).state, RingState::kNoNewest) << pointer;
    EXPECT_THAT(AlarmsOf(machine).alarms, IsEmpty()) << pointer;
    EXPECT_THAT(NotesOf(Gathered(machine)), ElementsAre(AuditNote::kNoNewestAlarm)) << pointer;
  }
}

TEST(AuditAlarmsTest, NothingIsKnownWhereAPartOfTheRingIsMissing) {
  for (const char* name : {"alarm.newest", "alarm.0.first", "alarm.13.code", "alarm.19.last"}) {
    Snapshot machine = ThreeAlarms();
    Drop(machine, name);
    EXPECT_EQ(AlarmsOf(machine).state, RingState::kNotHeld) << name;
    EXPECT_FALSE(Gathered(machine).alarms) << name;
    EXPECT_THAT(NotesOf(Gathered(machine)), ElementsAre(AuditNote::kAlarmsNotHeld)) << name;
  }
}

TEST(AuditAlarmsTest, ByteThatHoldsMoreThanAByteIsNotHeld) {
  Snapshot machine = ThreeAlarms();
  for (HeldValue& held : machine.values) {
    if (held.name == "alarm.3.hour") held.raw = {0, 128};
  }
  EXPECT_EQ(AlarmsOf(machine).state, RingState::kNotHeld);
}

TEST(AuditAlarmsTest, EventIsWhatComesBeforeTheLastStroke) {
  Snapshot machine = ThreeAlarms();
  const auto told = [&](std::uint32_t code) {
    Put(machine, "alarm.1.code", code);
    const AuditAlarm alarm = AlarmsOf(machine).alarms.front();
    return alarm.event + '|' + alarm.words;
  };
  EXPECT_EQ(told(2), "EAR|allarme gettoniera");
  EXPECT_EQ(told(10), "ECA|segnalazione 24V");
  EXPECT_EQ(told(26), "OBC_10|vuoto prodotto 10");
  EXPECT_EQ(told(41), "EJB_9|blocco motore 9");
  EXPECT_EQ(told(0), "|");
  EXPECT_EQ(told(4), "|");
  EXPECT_EQ(told(49), "|");
}

TEST(AuditAlarmsTest, DayAndTimeAreThoseOfTheRecord) {
  const AuditAlarm alarm = AlarmsOf(ThreeAlarms()).alarms.back();
  EXPECT_EQ(DayText(alarm.date.value()), "2026-03-07");
  EXPECT_EQ(TimeText(alarm.time.value()), "09:05");
}

TEST(AuditAlarmsTest, RecordWithoutADayOfTheCalendarHasNoDate) {
  struct Case {
    std::uint32_t day, month, year;
    bool dated;
  };
  constexpr Case kCases[] = {{0, 0, 26, false},  {0, 5, 26, false},   {5, 0, 26, false},
                             {31, 4, 26, false}, {29, 2, 26, false},  {29, 2, 24, true},
                             {1, 13, 26, false}, {1, 255, 26, false}, {32, 1, 26, false},
                             {31, 12, 99, true}, {1, 1, 100, false},  {1, 1, 0, true}};
  for (const Case& c : kCases) {
    Snapshot machine = ThreeAlarms();
    PutRecord(machine, 1, {7, 11, c.day, c.month, c.year, 1});
    const AuditAlarms alarms = AlarmsOf(machine);
    ASSERT_EQ(alarms.alarms.size(), 3U) << c.day << '/' << c.month << '/' << c.year;
    EXPECT_EQ(alarms.alarms.front().date.has_value(), c.dated)
        << c.day << '/' << c.month << '/' << c.year;
    EXPECT_TRUE(alarms.alarms.front().time);
  }
}

TEST(AuditAlarmsTest, RecordWithoutATimeOfTheDayHasNoTime) {
  Snapshot machine = ThreeAlarms();
  Put(machine, "alarm.1.hour", 24);
  Put(machine, "alarm.0.minute", 60);
  const AuditAlarms alarms = AlarmsOf(machine);
  EXPECT_FALSE(alarms.alarms.at(0).time);
  EXPECT_FALSE(alarms.alarms.at(1).time);
  EXPECT_TRUE(alarms.alarms.at(2).time);
}

TEST(AuditAlarmsTest, LastMinuteOfTheDayIsATime) {
  Snapshot machine = ThreeAlarms();
  Put(machine, "alarm.1.hour", 23);
  Put(machine, "alarm.1.minute", 59);
  EXPECT_EQ(TimeText(AlarmsOf(machine).alarms.front().time.value()), "23:59");
}

}  // namespace
}  // namespace sorvane::test
