#include "bench/clocks.h"

#include <ctime>
#include <stdexcept>

namespace sorvane::bench {
namespace {

double Read(clockid_t clock) {
  timespec now{};
  if (clock_gettime(clock, &now) != 0) throw std::runtime_error("a clock can't be read");
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

}  // namespace

double WallTime() { return Read(CLOCK_MONOTONIC); }

double ThreadTime() { return Read(CLOCK_THREAD_CPUTIME_ID); }

double ProcessTime(pid_t pid) {
  clockid_t clock{};
  if (clock_getcpuclockid(pid, &clock) != 0) throw std::runtime_error("no such process");
  return Read(clock);
}

}  // namespace sorvane::bench
