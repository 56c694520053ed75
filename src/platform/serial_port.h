#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "link/port.h"

namespace sorvane {

// Runs a handler as an event of the program, behind the program's gate.
using EnterEvent = std::function<void(const std::function<void()>& handler)>;

// The computer's serial port, closed. folder is the program's, where on Linux a link can name the
// device.
// Needs an event loop; Port tells the rest. Receptions come from the event loop, never within a
// call of the port, and every call is allowed in their handler. A handler runs no event loop: on
// Windows nothing is received in it.
std::unique_ptr<Port> MakeSerialPort(const std::filesystem::path& folder, EnterEvent enter);

}  // namespace sorvane
