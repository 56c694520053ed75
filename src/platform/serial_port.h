#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "outside/port.h"

namespace sorvane {

// Runs a handler as an event of the program, behind the program's gate.
using EnterEvent = std::function<void(const std::function<void()>& handler)>;

// Tells at which path the serial port of a number, 1 or more, is to be opened.
using FindPort = std::function<std::filesystem::path(int number)>;

// The computer's serial port, closed. find_port is asked whenever a number is set, and not when the
// port is opened: a connection that stands is opened again where it was, or not at all.
// Needs an event loop; Port tells the rest. Receptions come from the event loop, never within a
// call of the port, and every call is allowed in their handler. A handler runs no event loop: on
// Windows nothing is received in it.
std::unique_ptr<Port> MakeSerialPort(FindPort find_port, EnterEvent enter);

}  // namespace sorvane
