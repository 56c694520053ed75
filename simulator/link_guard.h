#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>

#include "simulator/terminal.h"

namespace sorvane::simulator {

// A process beside this one that sees its end, be it by SIGKILL, and does one thing then. It holds
// nothing else of this process open, and signals to this one's group don't reach it.
class LinkGuard {
 public:
  // The guard stands when this returns. at_end runs in it, on a copy of what this process holds
  // now. Throws std::system_error if there can't be a guard.
  explicit LinkGuard(const std::function<void()>& at_end);

  // Has the guard do it, and waits until that is done.
  ~LinkGuard();
  LinkGuard(const LinkGuard&) = delete;
  LinkGuard& operator=(const LinkGuard&) = delete;

 private:
  std::optional<Descriptor> alive_;  // end of a line to the guard that no other process has
  pid_t process_;
};

}  // namespace sorvane::simulator
