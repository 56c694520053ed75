#pragma once

#include "simulator/board_clock.h"
#include "simulator/memory.h"

namespace sorvane::simulator {

// Fills the memory with the values of a machine that has been at work for some months: settings,
// prices in cents, names of languages, counts, and twenty alarms of the weeks before now. The
// clock shows now, and mirrors equal their primaries. What doesn't fit in a parameter's size, and
// parameters that mean nothing to anybody, keep the defaults of the index file.
void FillSampleContents(Memory& memory, const DateTime& now);

}  // namespace sorvane::simulator
