#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sorvane {

// A serial port of the computer.
struct SerialPortEntry {
  std::string name;   // by which it can be opened
  std::string words;  // what it is, or by what other name it goes; may be empty

  bool operator==(const SerialPortEntry&) const = default;
};

// All serial ports that the system knows, in the order of their names.
std::vector<SerialPortEntry> ListSerialPorts();

// Why a device can't be opened: "there is no such device", "it is no device", "you may not use it",
// or the programs that have it open, "held by Sorvane (process 4711)" with commas between them;
// empty where nothing stands in the way, and where the system doesn't tell.
std::string PortTrouble(const std::filesystem::path& device);

}  // namespace sorvane
