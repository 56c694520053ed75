#include "cli/audit_alarms.h"

#include <QDate>
#include <array>
#include <string_view>

#include "board/alarm_ring.h"
#include "board/parameter.h"

namespace sorvane::cli {
namespace {

constexpr uint32_t kHighestByte = 255;
constexpr int kHighestYear = 99;  // since 2000
constexpr int kHighestHour = 23;
constexpr int kHighestMinute = 59;

// What a record says of its day.
constexpr int kDay = 3;
constexpr int kMonth = 4;
constexpr int kYear = 5;

using RingBytes = std::array<uint8_t, parameter::kAlarmBytes>;

std::optional<RingBytes> RingBytesOf(const Snapshot& snapshot) {
  RingBytes bytes{};
  for (int i = 0; i < parameter::kAlarmBytes; ++i) {
    const HeldValue* held = snapshot.Find(parameter::kAlarmRing + i);
    if (held == nullptr || NumberOf(held->raw) > kHighestByte) return std::nullopt;
    bytes.at(static_cast<std::size_t>(i)) = held->raw.front();
  }
  return bytes;
}

bool IsDay(int year, int month, int day) {
  return year <= kHighestYear && QDate::isValid(2000 + year, month, day);
}

// The ring counts any day on from the month's first, and fails on a thirteenth month. Here a record
// without a day of the calendar has none.
void TakeWrongDaysAway(RingBytes& bytes) {
  for (std::size_t record = 0; record < bytes.size(); record += parameter::kAlarmRecordLength) {
    uint8_t& day = bytes.at(record + kDay);
    uint8_t& month = bytes.at(record + kMonth);
    if (IsDay(bytes.at(record + kYear), month, day)) continue;
    day = 0;
    month = 0;
  }
}

// "EJB_3_blocco motore 3 " begins with the event, and the last "_" ends it.
AuditAlarm Told(const Alarm& alarm) {
  const std::string_view text = AlarmText(alarm.code);
  const std::size_t end = text.rfind('_');
  AuditAlarm told;
  told.code = alarm.code;
  if (end != std::string_view::npos) {
    told.event = text.substr(0, end);
    told.words = text.substr(end + 1, text.find_last_not_of(' ') - end);
  }
  if (alarm.dated) {
    const QDate date = QDate(1899, 12, 30).addDays(alarm.day_number);
    told.date = {.year = date.year(), .month = date.month(), .day = date.day()};
  }
  if (alarm.hour <= kHighestHour && alarm.minute <= kHighestMinute) {
    told.time = {.hour = alarm.hour, .minute = alarm.minute};
  }
  return told;
}

}  // namespace

AuditAlarms AlarmsOf(const Snapshot& snapshot) {
  const HeldValue* pointer = snapshot.Find(parameter::kAlarmPointer);
  std::optional<RingBytes> bytes = RingBytesOf(snapshot);
  if (pointer == nullptr || !bytes) return {.state = RingState::kNotHeld, .alarms = {}};
  if (NumberOf(pointer->raw) >= parameter::kAlarmRecords) {
    return {.state = RingState::kNoNewest, .alarms = {}};
  }
  TakeWrongDaysAway(*bytes);
  AlarmRing ring;
  for (int i = 0; i < parameter::kAlarmBytes; ++i) {
    ring.Take(
        {.index = parameter::kAlarmRing + i, .bytes = {bytes->at(static_cast<std::size_t>(i))}});
  }
  ring.Take({.index = parameter::kAlarmPointer, .bytes = {pointer->raw.front()}});
  AuditAlarms told;
  for (const Alarm& alarm : ring.Alarms()) told.alarms.push_back(Told(alarm));
  return told;
}

}  // namespace sorvane::cli
