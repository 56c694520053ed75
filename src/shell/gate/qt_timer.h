#pragma once

#include "outside/timer.h"

namespace sorvane {

class ProgramGate;

// Makes precise timers of the event loop whose handlers enter through the gate, which must outlive
// them.
TimerMaker MakeQtTimers(ProgramGate& gate);

}  // namespace sorvane
