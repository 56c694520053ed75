#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "simulator/bytes.h"
#include "simulator/console.h"
#include "simulator/line_buffer.h"
#include "simulator/options.h"
#include "simulator/port_link.h"
#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"
#include "simulator/terminal.h"

namespace sorvane::simulator {

// The running board: waits for bytes on its line, for commands on standard input and for signals,
// and prints what happens on standard output.
class BoardLoop {
 public:
  // Throws std::runtime_error if the index files can't be read, and CommandError for a snapshot
  // that doesn't fit them.
  explicit BoardLoop(const Options& options);

  // Gives the link's place back and prints what stands there again.
  ~BoardLoop();
  BoardLoop(const BoardLoop&) = delete;
  BoardLoop& operator=(const BoardLoop&) = delete;

  // Runs until the command quit, or the signals for interruption, termination or hang-up. The end
  // of standard input ends nothing. Throws std::exception if the pseudo-terminal or the link can't
  // be made.
  void Run();

 private:
  void Wait(int signals);
  void ReadCommands();
  void ObeyLine(const std::string& line);
  void FollowPlug();
  void MoveBytes();
  void PassTime();
  Micros Now() const;

  const std::chrono::steady_clock::time_point start_;
  const bool quiet_;
  SimulatedBoard board_;
  SerialLine line_;
  Console console_;
  PortLink link_;
  std::optional<Terminal> terminal_;  // none while unplugged
  bool linked_ = false;
  LineBuffer input_;
  bool input_open_ = true;
  bool input_ready_ = false;
  bool ended_ = false;
  std::chrono::seconds passed_{};
};

}  // namespace sorvane::simulator
