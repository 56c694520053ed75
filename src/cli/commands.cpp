#include "cli/commands.h"

#include "cli/snapshot_file.h"

namespace sorvane::cli {
namespace {

ExitCode Run(const Task& task) {
  switch (task.request.command) {
    case Command::kPorts:
      return ListPorts(task);
    case Command::kInfo:
      return ShowInfo(task);
    case Command::kBackup:
      return TakeBackup(task);
    case Command::kGet:
      return ShowValues(task);
    case Command::kAudit:
      return ShowAudit(task);
    case Command::kWatch:
      return WatchValues(task);
    case Command::kDiff:
      return ShowDifferences(task);
    case Command::kCheck:
      return CheckSnapshot(task);
    case Command::kNames:
      return ListNames(task);
    case Command::kSet:
      return SetValues(task);
    case Command::kRestore:
      return RestoreSnapshot(task);
    case Command::kUndo:
      return UndoLast(task);
    case Command::kClockSet:
      return SetClock(task);
  }
  return ExitCode::kUsage;
}

}  // namespace

ExitCode RunCommand(const Task& task) {
  try {
    return Run(task);
  } catch (const Failure& failure) {
    Complain(task, failure);
    return failure.Code();
  }
}

void Complain(const Task& task, const Failure& failure) {
  task.console.Complain("sorvane-cli: " + std::string(failure.what()));
}

void Deliver(const Task& task, std::string_view text) {
  if (task.request.output.empty()) {
    task.console.Print(text);
  } else {
    WriteOwnFile(task.request.output, text);
  }
}

}  // namespace sorvane::cli
