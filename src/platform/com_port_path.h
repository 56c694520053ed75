#pragma once

#include <filesystem>

namespace sorvane {

// The serial port of a number, 1 or more, as a path that opens it. On Linux that is the link named
// COM and the number in the program's folder, wherever it leads, and the computer's own port where
// there is no such link. The port needn't exist.
std::filesystem::path ComPortPath(const std::filesystem::path& folder, int number);

}  // namespace sorvane
