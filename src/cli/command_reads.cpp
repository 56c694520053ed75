#include <chrono>
#include <string>

#include "cli/commands.h"
#include "cli/connected_board.h"
#include "cli/json_text.h"
#include "cli/named_values.h"
#include "cli/snapshot_file.h"

// The commands that read the board and show what it holds.
namespace sorvane::cli {
namespace {

std::string InfoAsJson(const Snapshot& board) {
  return JsonObject({{"type", std::to_string(board.type)},
                     {"software", std::to_string(board.software)},
                     {"revision", std::to_string(board.revision)},
                     {"index", JsonString(board.index_file)},
                     {"index-sha256", JsonString(board.index_sum)},
                     {"machine", std::to_string(board.machine)},
                     {"location", std::to_string(board.location)},
                     {"decimals", std::to_string(board.decimals)}}) +
         '\n';
}

std::string InfoAsText(const Snapshot& board, const std::string& port) {
  return "board     type " + std::to_string(board.type) + ", software " +
         std::to_string(board.software) + ", revision " + std::to_string(board.revision) +
         "\nindex     " + board.index_file + "\nmachine   " + std::to_string(board.machine) +
         "\nlocation  " + std::to_string(board.location) + "\ndecimals  " +
         std::to_string(board.decimals) + "\nport      " + port + '\n';
}

}  // namespace

ExitCode ShowInfo(const Task& task) {
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const Snapshot info = board.Take({}, {}, task.console);
  Deliver(task, task.request.json ? InfoAsJson(info) : InfoAsText(info, task.around.port_name));
  return ExitCode::kDone;
}

ExitCode TakeBackup(const Task& task) {
  const Request& request = task.request;
  const auto entries =
      ChosenEntries(task.catalogue, request, [](const CatalogueEntry&) { return true; });
  std::vector<const CatalogueEntry*> kept;
  for (const CatalogueEntry* entry : entries) {
    if (entry->role != Role::kSecret || request.password) kept.push_back(entry);
  }
  ConnectedBoard board(request, task.around, task.catalogue);
  const Snapshot snapshot =
      board.Take(kept, {.mirrors = request.mirrors, .partial = request.partial}, task.console);
  if (request.arguments.empty()) {
    Deliver(task, SnapshotText(snapshot));
  } else {
    WriteOwnFile(request.arguments.front(), SnapshotText(snapshot));
  }
  return snapshot.complete ? ExitCode::kDone : ExitCode::kDifferences;
}

ExitCode ShowValues(const Task& task) {
  const std::vector<Named> all = FindAllNamed(task.catalogue, task.request.arguments);
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const NumberStyle style = board.Style();
  std::string text;
  std::vector<std::string> rows;
  for (const Named& named : all) {
    const Bytes raw = board.Read(*named.entry);
    const std::string shown = ShownNamed(named, raw, style);
    text += named.Name() + " = " + shown + '\n';
    rows.push_back(JsonObject({{"name", JsonString(named.Name())}, {"shown", JsonString(shown)}}));
  }
  Deliver(task, task.request.json ? JsonObject({{"values", JsonList(rows)}}) + '\n' : text);
  return ExitCode::kDone;
}

ExitCode WatchValues(const Task& task) {
  const std::vector<Named> all = FindAllNamed(task.catalogue, task.request.arguments);
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const NumberStyle style = board.Style();
  std::vector<std::string> shown(all.size());
  // Ends where the person wants it, which is no failure here.
  while (!task.around.interrupted()) {
    for (std::size_t i = 0; i < all.size() && !task.around.interrupted(); ++i) {
      const std::string now = ShownNamed(all[i], board.Read(*all[i].entry), style);
      if (now == shown[i]) continue;
      shown[i] = now;
      const std::string time = task.around.now().toString(Qt::ISODate).toStdString();
      std::string line = time + "  ";
      line += all[i].Name();
      line += " = ";
      line += now;
      task.console.Print(line += '\n');
    }
    task.around.wait(std::chrono::seconds(task.request.every), task.around.interrupted);
  }
  return ExitCode::kDone;
}

}  // namespace sorvane::cli
