#pragma once

#include <filesystem>
#include <string>

namespace sorvane {

// The port of the first device that the driver of the USB adapter serves, by number: "COM5" for its
// ttyUSB0, "COM6" for ttyUSB1 and so on, behind the four ports of the menu; empty if it serves
// none. sys_folder is where the system lists its drivers, "/sys".
std::string FindUsbPortLinux(const std::filesystem::path& sys_folder);

}  // namespace sorvane
