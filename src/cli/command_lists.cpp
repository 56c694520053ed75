#include <string>

#include "cli/commands.h"
#include "cli/json_text.h"
#include "cli/value_text.h"

// The commands that list what there is, without asking a board.
namespace sorvane::cli {
namespace {

std::string PortsAsJson(const std::vector<ListedPort>& ports) {
  std::vector<std::string> rows;
  rows.reserve(ports.size());
  for (const ListedPort& port : ports) {
    rows.push_back(
        JsonObject({{"name", JsonString(port.name)}, {"words", JsonString(port.words)}}));
  }
  return JsonObject({{"ports", JsonList(rows)}}) + '\n';
}

// What a name stands for, as names lists it.
struct NameRow {
  std::string name;
  std::string group;
  std::string title;
  std::string values;
};

std::string Values(const CatalogueEntry& entry) {
  if (entry.form == Form::kText) return "text";
  std::string words = entry.role == Role::kReadOnly ? "read only" : ShownRange(entry, {});
  if (entry.form == Form::kMoney) words += ", money in the smallest unit";
  if (entry.form == Form::kTenths) words += " seconds";
  return words;
}

std::vector<NameRow> NameRows(const Catalogue& catalogue, const std::optional<Group>& group) {
  std::vector<NameRow> rows;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    if (group && entry.group != *group) continue;
    rows.push_back({entry.name, std::string(GroupName(entry.group)), entry.title, Values(entry)});
  }
  for (const CatalogueBit& bit : catalogue.Bits()) {
    if (group && bit.group != *group) continue;
    rows.push_back({bit.name, std::string(GroupName(bit.group)), bit.title, "on or off"});
  }
  return rows;
}

std::string NamesAsJson(const std::vector<NameRow>& names) {
  std::vector<std::string> rows;
  rows.reserve(names.size());
  for (const NameRow& row : names) {
    rows.push_back(JsonObject({{"name", JsonString(row.name)},
                               {"group", JsonString(row.group)},
                               {"title", JsonString(row.title)},
                               {"values", JsonString(row.values)}}));
  }
  return JsonObject({{"names", JsonList(rows)}}) + '\n';
}

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text + "  ";
}

std::string NamesAsText(const std::vector<NameRow>& names) {
  constexpr std::size_t kName = 28;
  constexpr std::size_t kGroup = 9;
  constexpr std::size_t kTitle = 36;
  std::string text;
  for (const NameRow& row : names) {
    text += Padded(row.name, kName) + Padded(row.group, kGroup) + Padded(row.title, kTitle) +
            row.values + '\n';
  }
  return text;
}

}  // namespace

ExitCode ListPorts(const Task& task) {
  const std::vector<ListedPort> ports = task.around.list_ports();
  std::string text;
  for (const ListedPort& port : ports) {
    text += port.name + (port.words.empty() ? "" : "  " + port.words) + '\n';
  }
  Deliver(task, task.request.json ? PortsAsJson(ports) : text);
  if (ports.empty()) task.console.Tell("no serial port");
  return ports.empty() ? ExitCode::kNoBoard : ExitCode::kDone;
}

ExitCode ListNames(const Task& task) {
  std::optional<Group> group;
  if (!task.request.arguments.empty()) {
    group = FindGroup(task.request.arguments.front());
    if (!group) {
      throw Failure(ExitCode::kUsage, "no group is called " + task.request.arguments.front());
    }
  }
  const std::vector<NameRow> rows = NameRows(task.catalogue, group);
  Deliver(task, task.request.json ? NamesAsJson(rows) : NamesAsText(rows));
  return ExitCode::kDone;
}

}  // namespace sorvane::cli
