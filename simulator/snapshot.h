#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "simulator/bytes.h"
#include "simulator/simulated_board.h"

namespace sorvane::simulator {

// A parameter's value as a snapshot tells it.
struct HeldValue {
  int line = 0;  // of the file, counted from 1
  int parameter = 0;
  Bytes bytes;  // least significant first; texts as they lie in the board
};

// What a machine held.
struct Snapshot {
  std::filesystem::path file;
  uint16_t type = 0;
  uint8_t software = 0;
  uint8_t revision = 0;
  std::vector<HeldValue> values;  // a later one of a parameter counts
};

// Reads a snapshot of sorvane-cli, in the layout in which it is written: one parameter a line. What
// the head tells of machine, location and decimals comes as values, too, since the list may lack
// them. Throws CommandError for a file that can't be read and for the first line that isn't as it
// should be, which it names as FILE:LINE.
Snapshot ReadSnapshot(const std::filesystem::path& file);

// Lays a snapshot's values down in a board that says the same of itself, over the defaults of the
// board's index file. A second copy that the snapshot doesn't tell gets the first one's value.
// Throws CommandError, which names the line as FILE:LINE, for a value that the board has no
// parameter of that size for, and changes nothing then.
void LayDown(const Snapshot& snapshot, SimulatedBoard& board);

}  // namespace sorvane::simulator
