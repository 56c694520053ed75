#pragma once

#include <functional>
#include <string>
#include <utility>

namespace sorvane {

// The one way in for events and the one way out for the program. Every timer, byte, signal and
// handler enters the program's code through Run; so an error that no handler caught ends the
// program in one place, and nothing runs once the end has come.
class ProgramGate {
 public:
  struct Ways {
    // Shows the report of a run-time error and calls then when it has been read.
    std::function<void(const std::string& text, std::function<void()> then)> report;
    // Leaves the event loop with an exit code, without closing windows in the program's own sense.
    std::function<void(int exit_code)> leave;
  };

  explicit ProgramGate(Ways ways) : ways_(std::move(ways)) {}

  // Runs handler unless the gate is shut. A RuntimeError that leaves it shuts the gate, is
  // reported, and ends the program; an InternalFault ends it at once. No exception leaves Run.
  void Run(const std::function<void()>& handler);

  // handler, entered through this gate.
  std::function<void()> Wrap(std::function<void()> handler);

  // Shuts the gate and leaves the event loop with exit_code. While the report of an error stands,
  // it leaves without waiting any longer, and the run has failed all the same.
  void End(int exit_code);

  // After a handler that may have ended the program its caller asks this before it goes on.
  bool IsShut() const { return shut_; }

 private:
  Ways ways_;
  bool shut_ = false;
};

}  // namespace sorvane
