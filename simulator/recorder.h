#pragma once

#include "simulator/memory.h"

namespace sorvane::simulator {

// What happens in the machine, laid down in the board's memory. Each returns the number of the
// parameter in which a reader sees it first. A count at its highest value stays there.

// Logs an alarm at the board's time as the newest of the ring. code is 0 to 255; 33 to 42 are
// blocked motors, which are counted too.
int LogAlarm(Memory& memory, int code);

// Vends a selection, 1 to 10: counts it and adds its price, less the discount while a discount band
// lasts, to the takings. With the option of free vends it is counted among those alone.
int Vend(Memory& memory, int selection);

// Takes a coin or a banknote of a channel, 1 to 16.
int TakeCoin(Memory& memory, int channel);
int TakeBanknote(Memory& memory, int channel);

}  // namespace sorvane::simulator
