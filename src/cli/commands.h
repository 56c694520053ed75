#pragma once

#include <string_view>

#include "catalogue/catalogue.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/request.h"
#include "cli/surroundings.h"

namespace sorvane::cli {

// What a command works with.
struct Task {
  const Request& request;
  const Surroundings& around;
  const Catalogue& catalogue;
  Console& console;
};

// Does what the request asks for. What goes wrong is said on the console.
ExitCode RunCommand(const Task& task);

// Each command by itself; they throw Failure for what goes wrong.
ExitCode ListPorts(const Task& task);
ExitCode ListNames(const Task& task);
ExitCode ShowInfo(const Task& task);
ExitCode TakeBackup(const Task& task);
ExitCode ShowValues(const Task& task);
ExitCode ShowAudit(const Task& task);
ExitCode WatchValues(const Task& task);
ExitCode ShowDifferences(const Task& task);
ExitCode CheckSnapshot(const Task& task);
ExitCode SetValues(const Task& task);
ExitCode RestoreSnapshot(const Task& task);
ExitCode UndoLast(const Task& task);
ExitCode SetClock(const Task& task);

// What went wrong, on the console.
void Complain(const Task& task, const Failure& failure);

// The result of a command, on the standard output or in the file that the request names.
void Deliver(const Task& task, std::string_view text);

}  // namespace sorvane::cli
