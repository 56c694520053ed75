#include "bench/board_program.h"
#include "bench/clocks.h"
#include "bench/measures.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.25;
constexpr int kRepeats = 31;

// What identification puts on the wire: seven requests of five bytes, and as many replies of a
// value byte and its checksum, each byte with start and stop bit.
constexpr int kBaud = 19200;
constexpr int kBits = 7 * (5 + 2) * 10;
constexpr double kMilliseconds = 1000;

double Connect() {
  const BoardProgram program({.board = {"--baud", std::to_string(kBaud)}});
  const double from = WallTime();
  program.Connect();
  return (WallTime() - from) * kMilliseconds;
}

double WireTime() { return kMilliseconds * kBits / kBaud; }

}  // namespace

std::vector<Result> MeasureConnecting() {
  return {{"connecting", "seven exchanges on the wire", kAim, "ms",
           Interleave(kRepeats, Connect, WireTime)}};
}

}  // namespace sorvane::bench
