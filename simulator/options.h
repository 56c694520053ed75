#pragma once

#include <filesystem>
#include <optional>

#include "simulator/faults.h"
#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"
#include "simulator/snapshot.h"

namespace sorvane::simulator {

// What the command line says.
struct Options {
  std::filesystem::path index_folder;
  std::filesystem::path link;
  Identity identity;
  int baud = SerialLine::kUnlimited;
  FaultOrder fault;
  std::optional<Snapshot> snapshot;  // what the board is to hold; it tells its identity, too
  bool quiet = false;                // exchanges are not printed
};

// Reads the command line. Index files and the link COM1 lie in program_folder unless it says
// otherwise. Where there is nothing to run, because help was asked for or something can't be read,
// it says so to the user and returns none, with the exit code for the program. Throws CommandError
// for a snapshot that can't be read.
std::optional<Options> ReadOptions(int argc, const char* const* argv,
                                   const std::filesystem::path& program_folder, int& exit_code);

}  // namespace sorvane::simulator
