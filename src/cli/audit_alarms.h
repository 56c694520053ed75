#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/snapshot.h"

namespace sorvane::cli {

struct AuditDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

struct AuditTime {
  int hour = 0;
  int minute = 0;
};

// One alarm that the machine has logged.
struct AuditAlarm {
  int code = 0;
  std::string event;  // "EJB_3" of the vending trade's standard; empty for a code without one
  std::string words;  // "blocco motore 3", in Italian as the machine's forms have it
  // None where the record holds no day of the calendar or no time of the day.
  std::optional<AuditDate> date;
  std::optional<AuditTime> time;
};

// What became of reading the ring.
enum class RingState { kRead, kNotHeld, kNoNewest };

struct AuditAlarms {
  RingState state = RingState::kRead;
  std::vector<AuditAlarm> alarms;  // the newest first
};

// The alarms of a snapshot. Where a byte of the ring isn't held, nothing is known of any: a list
// with holes would tell an order that nobody has seen.
AuditAlarms AlarmsOf(const Snapshot& snapshot);

}  // namespace sorvane::cli
