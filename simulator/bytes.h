#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

namespace sorvane::simulator {

using Bytes = std::vector<uint8_t>;

// A moment, counted from the start of the program, or a span. Everything that needs to know the
// moment is told it, so that tests run on a time of their own.
using Micros = std::chrono::microseconds;

}  // namespace sorvane::simulator
