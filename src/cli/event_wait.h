#pragma once

#include "session/exchange.h"

namespace sorvane::cli {

// Waits in the event loop of the application, which there must be.
WaitFor WaitInEventLoop();

}  // namespace sorvane::cli
