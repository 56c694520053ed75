#include "bench/board_program.h"
#include "bench/clocks.h"
#include "bench/measures.h"
#include "board/parameter.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.05;
constexpr int kRepeats = 3;
constexpr double kTick = 0.040;                       // seconds
constexpr int kReplies = parameter::kAlarmBytes + 1;  // of the ring and its pointer

Sample FillAlarmPage() {
  BoardProgram program({});
  program.Connect();
  int replies = 0;
  program.on_reply = [&](const Reply&) { ++replies; };
  const double from = WallTime();
  program.Choose("MnuAllarmi");
  program.RunUntil([&] { return replies >= kReplies; });
  return {WallTime() - from, replies * kTick};
}

}  // namespace

std::vector<Result> MeasureAlarms() {
  Result result{"alarms", "161 exchanges of 40 ms", kAim, "s", {}};
  for (int i = 0; i < kRepeats; ++i) result.samples.push_back(FillAlarmPage());
  return {result};
}

}  // namespace sorvane::bench
