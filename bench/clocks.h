#pragma once

#include <sys/types.h>

namespace sorvane::bench {

// All in seconds.
double WallTime();
double ThreadTime();            // processor time of the calling thread
double ProcessTime(pid_t pid);  // of another process, all its threads; throws if there is none

}  // namespace sorvane::bench
