#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "outside/timer.h"

namespace sorvane::test {

// Time that stands still until a test advances it. Its timers fire in the order of their due time,
// those of the same instant in the order in which they were armed. The clock must outlive its
// timers.
class VirtualClock {
 public:
  // What the program takes for the platform's timers.
  TimerMaker Maker();

  // Moves on and fires all that becomes due, the end included. Advance(0) serves what waits now:
  // a timer of interval 0 fires behind what was due before it was armed. What a handler throws
  // comes out of here, and the clock stands at that instant. Throws std::logic_error if an instant
  // never ends, as with a timer of interval 0 that nobody disables.
  void Advance(std::chrono::milliseconds span);
  void Advance(int milliseconds) { Advance(std::chrono::milliseconds(milliseconds)); }

  // Since the clock was made.
  std::chrono::milliseconds Now() const { return now_; }

  // How many timers are enabled.
  int Armed() const;

 private:
  class VirtualTimer;

  VirtualTimer* NextDue(std::chrono::milliseconds until) const;

  std::chrono::milliseconds now_{0};
  std::int64_t armings_ = 0;
  std::vector<VirtualTimer*> timers_;
};

}  // namespace sorvane::test
