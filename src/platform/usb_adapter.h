#pragma once

#include <string>

namespace sorvane {

// The port that the system has given to the first device of the USB adapter's driver, such as
// "COM5"; empty if it has none.
std::string FindSystemUsbPort();

}  // namespace sorvane
