#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace sorvane {

// An interval timer on the event thread. Enabled, it fires once per interval until it is disabled.
class Timer {
 public:
  virtual ~Timer() = default;

  virtual void Enable() = 0;   // nothing if it runs
  virtual void Disable() = 0;  // nothing if it doesn't

  // The full interval runs anew.
  void Restart() {
    Disable();
    Enable();
  }
};

// Makes a timer, disabled. An interval of 0 fires as soon as the events that wait have been served.
using TimerMaker = std::function<std::unique_ptr<Timer>(std::chrono::milliseconds interval,
                                                        std::function<void()> handler)>;

}  // namespace sorvane
