#pragma once

#include <string>

#include "simulator/memory.h"

namespace sorvane::simulator {

// A moment in local time.
struct DateTime {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Sets the board's clock; the second isn't kept in the memory.
void SetClock(Memory& memory, const DateTime& time);

// Lets the board's clock pass one minute, with the turn of hours, days, months and years. A clock
// that was set to no true time, such as day 0, goes on from there.
void TickMinute(Memory& memory);

// "2024-05-03 12:30".
std::string ShowClock(const Memory& memory);

}  // namespace sorvane::simulator
