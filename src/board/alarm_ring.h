#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "board/parameter.h"
#include "board/reply.h"

namespace sorvane {

// One alarm of the list.
struct Alarm {
  int16_t code = 0;  // 0 to 50
  bool dated = false;
  int32_t day_number = 0;  // of the date, where it is dated
  int16_t hour = 0;        // these two as they stand in the board
  int16_t minute = 0;
};

// What the board has logged: a ring of twenty records of eight one-byte parameters, and a pointer
// to the newest. The bytes are held as they were answered.
class AlarmRing {
 public:
  // Takes a reply of the pointer or of a byte over; false for any other parameter. Throws
  // RuntimeError kOverflow for a byte that doesn't fit 16 bits with sign.
  bool Take(const Reply& reply);

  // The alarms from the newest on. The list ends before a code above 50, which a record that was
  // never filled holds, and is empty for a pointer above 20. Throws RuntimeError
  // kSubscriptOutOfRange for a pointer of 20 and for a month above 12.
  std::vector<Alarm> Alarms() const;

 private:
  Alarm At(int record) const;
  int16_t Byte(int record, int part) const;

  // One for each byte of the ring, and one that is never filled.
  std::array<int16_t, parameter::kAlarmBytes + 1> AlarmBytes{};
  int64_t AlarmPointer = 0;
};

// What an alarm's code means, blanks at the end included. code is 0 to 50.
const char* AlarmText(int16_t code);

}  // namespace sorvane
