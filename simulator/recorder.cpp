#include "simulator/recorder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include "simulator/parameter_numbers.h"

namespace sorvane::simulator {
namespace {

constexpr int kFirstBlockCode = 33;

int Count(Memory& memory, int counter, uint32_t amount) {
  const uint32_t before = memory.Number(Parameter(counter));
  if (amount <= std::numeric_limits<uint32_t>::max() - before) {
    memory.SetNumber(Parameter(counter), before + amount);
  }
  return counter;
}

// Adds to a total that can be reset and to the one behind it that can't.
void CountTwice(Memory& memory, int total, uint32_t amount) {
  Count(memory, total, amount);
  Count(memory, total + 1, amount);
}

uint32_t MinuteOfDay(const Memory& memory, int hours, int minutes) {
  return 60 * memory.Number(Parameter(hours)) + memory.Number(Parameter(minutes));
}

// A band that ends before it starts lasts over midnight; one that ends as it starts never is.
bool InDiscountBand(const Memory& memory) {
  const uint32_t now = MinuteOfDay(memory, number::kHour, number::kMinute);
  for (const int band : {number::kDiscountBands, number::kDiscountBands + 4}) {
    const uint32_t start = MinuteOfDay(memory, band, band + 1);
    const uint32_t end = MinuteOfDay(memory, band + 2, band + 3);
    const bool inside = start <= end ? start <= now && now < end : start <= now || now < end;
    if (inside) return true;
  }
  return false;
}

}  // namespace

int LogAlarm(Memory& memory, int code) {
  const auto records = static_cast<uint32_t>(number::kAlarmRecords);
  const uint32_t newest = (memory.Number(Parameter(number::kAlarmPointer)) + 1) % records;
  const int first = number::kAlarmRing + number::kAlarmLength * static_cast<int>(newest);
  constexpr std::array<int, 5> kHands = {number::kMinute, number::kHour, number::kDay,
                                         number::kMonth, number::kYear};
  for (std::size_t i = 0; i < kHands.size(); ++i) {
    const int place = first + 1 + static_cast<int>(i);
    memory.SetNumber(Parameter(place), memory.Number(Parameter(kHands[i])));
  }
  memory.SetNumber(Parameter(first + 6), static_cast<uint32_t>(code));
  memory.SetNumber(Parameter(number::kAlarmPointer), newest);

  const int motor = code - kFirstBlockCode;
  if (motor >= 0 && motor < number::kRows) Count(memory, number::kMotorBlocks + motor, 1);
  return number::kAlarmPointer;
}

int Vend(Memory& memory, int selection) {
  const int row = selection - 1;
  if ((memory.Number(Parameter(number::kOptions)) & number::kFreeVendOption) != 0) {
    return Count(memory, number::kFreeVends + row, 1);
  }
  const uint32_t price = memory.Number(Parameter(number::kPrices + row));
  const uint32_t discount =
      InDiscountBand(memory) ? std::min(price, memory.Number(Parameter(number::kDiscounts + row)))
                             : 0;
  CountTwice(memory, number::kTakings, price - discount);
  CountTwice(memory, number::kVends, 1);
  CountTwice(memory, number::kDiscountTotal, discount);
  return Count(memory, number::kSelectionVends + row, 1);
}

int TakeCoin(Memory& memory, int channel) { return Count(memory, number::kCoins + channel - 1, 1); }

int TakeBanknote(Memory& memory, int channel) {
  return Count(memory, number::kBanknotes + channel - 1, 1);
}

}  // namespace sorvane::simulator
