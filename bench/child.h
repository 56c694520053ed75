#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace sorvane::bench {

// Another program, killed at the end. What it says goes to standard error.
class Child {
 public:
  // The first word is the program, found by PATH. kept is a descriptor that it inherits under the
  // same number; none if negative. Throws std::runtime_error if it can't be started.
  Child(std::vector<std::string> words, std::vector<std::string> environment, int kept = -1);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  pid_t Pid() const { return pid_; }

  // Waits for its end. Throws std::runtime_error if it has failed.
  void Finish();

  // In MiB: the most memory that it has had in use so far, and the memory that it shares with no
  // other program now. Both throw std::runtime_error if they can't be read.
  double PeakMemory() const { return Sum("status", {"VmHWM:"}); }
  double PrivateMemory() const { return Sum("smaps_rollup", {"Private_Clean:", "Private_Dirty:"}); }

 private:
  // Of some lines of a file that the system keeps of it, in MiB.
  double Sum(const char* file, const std::vector<std::string>& names) const;

  std::string name_;
  pid_t pid_ = 0;
};

}  // namespace sorvane::bench
