#include "simulator/sample_contents.h"

#include <array>
#include <chrono>
#include <cstddef>

#include "simulator/parameter_numbers.h"
#include "simulator/sample_values.h"
#include "simulator/second_copies.h"

namespace sorvane::simulator {
namespace {

constexpr int kNewestAlarm = 7;  // its place in the ring, so that the ring wraps

void FillAlarms(Memory& memory, const DateTime& now) {
  using std::chrono::days;
  using std::chrono::year_month_day;
  const std::chrono::sys_days today = year_month_day{
      std::chrono::year{now.year}, std::chrono::month{static_cast<unsigned>(now.month)},
      std::chrono::day{static_cast<unsigned>(now.day)}};
  for (int i = 0; i < number::kAlarmRecords; ++i) {
    const SampleAlarm& alarm = kSampleAlarms[static_cast<std::size_t>(i)];
    const year_month_day date{today - days{alarm.days_ago}};
    const int year = static_cast<int>(date.year()) - 2000;
    const std::array<uint32_t, number::kAlarmLength> record = {0,
                                                               static_cast<uint32_t>(alarm.minute),
                                                               static_cast<uint32_t>(alarm.hour),
                                                               static_cast<unsigned>(date.day()),
                                                               static_cast<unsigned>(date.month()),
                                                               static_cast<uint32_t>(year),
                                                               alarm.code,
                                                               0};
    const int place = (kNewestAlarm - i + number::kAlarmRecords) % number::kAlarmRecords;
    int at = number::kAlarmRing + number::kAlarmLength * place;
    for (const uint32_t value : record) memory.SetNumber(Parameter(at++), value);
  }
  memory.SetNumber(Parameter(number::kAlarmPointer), kNewestAlarm);
}

}  // namespace

void FillSampleContents(Memory& memory, const DateTime& now) {
  for (const SampleRow& row : SampleRows()) {
    int at = row.first;
    for (const uint32_t value : row.values) memory.SetNumber(Parameter(at++), value);
  }
  int at = number::kLanguageNames;
  for (const char* const name : kSampleLanguages) memory.SetText(Parameter(at++), name);
  SetClock(memory, now);
  FillAlarms(memory, now);
  for (int i = 1; i <= memory.ParameterCount(); ++i) {
    const int copy = SecondCopyOf(i);
    if (copy != 0) memory.SetNumber(Parameter(copy), memory.Number(Parameter(i)));
  }
}

}  // namespace sorvane::simulator
