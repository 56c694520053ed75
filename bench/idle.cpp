#include <unistd.h>

#include <stdexcept>
#include <string>

#include "bench/child.h"
#include "bench/clocks.h"
#include "bench/display.h"
#include "bench/measures.h"
#include "bench/program_folder.h"
#include "board/parameter.h"
#include "simulator/board_process.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 0.01;
constexpr int kRepeats = 5;
constexpr unsigned kSpan = 4;    // seconds of a repeat
constexpr unsigned kSettle = 2;  // seconds, in which lamps go out

// Reads the board's lines until it has served an exchange.
void WaitForExchange(simulator::BoardProcess& board, const std::string& words) {
  std::string line;
  while (!line.starts_with(words)) {
    line = board.NextLine();
    if (line == "(nothing)") throw std::runtime_error("the board was never asked for " + words);
  }
}

}  // namespace

std::vector<Result> MeasureIdle() {
  Display display;
  const ProgramFolder folder;
  folder.CopyProgram();
  simulator::BoardProcess board({"--index", folder.Path(), "--link", folder.Path() / "COM1"});
  board.NextLine();  // the line is up
  const Child program({folder.Path() / "Sorvane"}, display.Environment(folder.Path()));
  const xcb_window_t window = display.WaitForWindow();

  // In the menu bar Connect comes first and the clock eighth. The clock's day is written last.
  display.Press(window, {"F10", "Return"});
  WaitForExchange(board, "read system 18 ");
  sleep(1);
  display.Press(window,
                {"F10", "Right", "Right", "Right", "Right", "Right", "Right", "Right", "Return"});
  const std::string day = std::to_string(parameter::kClockDay);
  WaitForExchange(board, "write " + day + " = 0");
  WaitForExchange(board, "write " + day);
  sleep(kSettle);

  Result result{"idle", "wall time", kAim, "s", {}};
  for (int i = 0; i < kRepeats; ++i) {
    const double wall = WallTime();
    const double used = ProcessTime(program.Pid());
    sleep(kSpan);
    result.samples.push_back({ProcessTime(program.Pid()) - used, WallTime() - wall});
  }
  return {result};
}

}  // namespace sorvane::bench
