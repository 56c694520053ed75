#pragma once

#include <filesystem>

namespace sorvane {

// The device of the serial port of a number, 1 or more, as an absolute path: what a link named COM
// and the number in the program's folder leads to, such as the terminal of a simulated board, and
// the computer's own port where there is no such link. The device needn't exist.
std::filesystem::path ComPortPath(const std::filesystem::path& folder, int number);

}  // namespace sorvane
