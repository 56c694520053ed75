#include "simulator/board_clock.h"

#include <chrono>
#include <cstdio>

#include "simulator/parameter_numbers.h"

namespace sorvane::simulator {
namespace {

constexpr int kCentury = 2000;
constexpr uint32_t kLastYear = 99;

uint32_t DaysOfMonth(uint32_t year, uint32_t month) {
  if (month < 1 || month > 12) return 31;
  const std::chrono::year_month_day_last last{
      std::chrono::year{kCentury + static_cast<int>(year)},
      std::chrono::month_day_last{std::chrono::month{month}}};
  return static_cast<unsigned>(last.day());
}

// Adds 1 to a hand of the clock. Past its last position it goes to its first: returns true then.
bool Turn(Memory& memory, int hand, uint32_t first, uint32_t last) {
  const uint32_t position = memory.Number(Parameter(hand));
  const bool turned = position >= last;
  memory.SetNumber(Parameter(hand), turned ? first : position + 1);
  return turned;
}

}  // namespace

void SetClock(Memory& memory, const DateTime& time) {
  const auto set = [&](int hand, int position) {
    memory.SetNumber(Parameter(hand), static_cast<uint32_t>(position));
  };
  set(number::kHour, time.hour);
  set(number::kMinute, time.minute);
  set(number::kDay, time.day);
  set(number::kMonth, time.month);
  set(number::kYear, time.year - kCentury);
}

void TickMinute(Memory& memory) {
  if (!Turn(memory, number::kMinute, 0, 59)) return;
  if (!Turn(memory, number::kHour, 0, 23)) return;
  const uint32_t month = memory.Number(Parameter(number::kMonth));
  const uint32_t days = DaysOfMonth(memory.Number(Parameter(number::kYear)), month);
  if (!Turn(memory, number::kDay, 1, days)) return;
  if (!Turn(memory, number::kMonth, 1, 12)) return;
  Turn(memory, number::kYear, 0, kLastYear);
}

std::string ShowClock(const Memory& memory) {
  const auto hand = [&](int which) { return memory.Number(Parameter(which)); };
  char text[64];
  std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u", kCentury + hand(number::kYear),
                hand(number::kMonth), hand(number::kDay), hand(number::kHour),
                hand(number::kMinute));
  return text;
}

}  // namespace sorvane::simulator
