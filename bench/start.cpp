#include <string>

#include "bench/child.h"
#include "bench/clocks.h"
#include "bench/display.h"
#include "bench/measures.h"
#include "bench/program_folder.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.5;
constexpr int kRepeats = 31;

struct Start {
  double milliseconds;
  double peak;  // MiB
  double own;   // MiB
};

Start Measure(Display& display, const ProgramFolder& folder, const std::string& program) {
  const double from = WallTime();
  const Child child({program}, display.Environment(folder.Path()));
  display.WaitForWindow();
  const double milliseconds = (WallTime() - from) * 1e3;
  return {milliseconds, child.PeakMemory(), child.PrivateMemory()};
}

}  // namespace

std::vector<Result> MeasureStart() {
  Display display;
  const ProgramFolder folder;
  folder.CopyProgram();
  Result time{"start", "bare window of Qt", kAim, "ms", {}};
  Result memory{"memory", "bare window of Qt", kAim, "MiB", {}};
  Result own{"memory of its own", "bare window of Qt", kAim, "MiB", {}};
  for (int round = 0; round <= kRepeats; ++round) {
    const Start ours = Measure(display, folder, folder.Path() / "Sorvane");
    const Start bare = Measure(display, folder, SORVANE_BARE_WINDOW);
    if (round == 0) continue;  // it has filled the caches
    time.samples.push_back({ours.milliseconds, bare.milliseconds});
    memory.samples.push_back({ours.peak, bare.peak});
    own.samples.push_back({ours.own, bare.own});
  }
  return {time, memory, own};
}

}  // namespace sorvane::bench
