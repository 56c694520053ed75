#include <algorithm>
#include <string>

#include "cli/commands.h"
#include "cli/connected_board.h"
#include "cli/json_text.h"
#include "cli/snapshot_file.h"

// The commands that look at snapshots.
namespace sorvane::cli {
namespace {

constexpr std::string_view kBoard = "-";
constexpr std::string_view kNothing = "-";  // in the place of a value that isn't held

struct Difference {
  std::string name;
  std::string a;
  std::string b;
};

// What a machine is set to, and who it is.
bool IsSet(const CatalogueEntry& entry) {
  return entry.role == Role::kSetting || entry.role == Role::kSecret ||
         entry.role == Role::kIdentity;
}

Snapshot Take(const Task& task, const std::string& source,
              const std::vector<const CatalogueEntry*>& entries) {
  if (source != kBoard) return ReadSnapshot(source, task.catalogue);
  ConnectedBoard board(task.request, task.around, task.catalogue);
  return board.Take(entries, {.mirrors = task.request.mirrors, .partial = task.request.partial},
                    task.console);
}

std::string ShownAs(const CatalogueEntry& entry, const HeldValue* held, const NumberStyle& style,
                    bool differs_secretly) {
  if (held == nullptr) return std::string(kNothing);
  return differs_secretly ? "*" : ShownValue(entry, held->raw, style);
}

// What differs of a parameter, or of its second copy.
void Compare(const CatalogueEntry& entry, int32_t number, const std::string& name,
             const Snapshot& a, const Snapshot& b, char mark, std::vector<Difference>& found) {
  const HeldValue* in_a = a.Find(number);
  const HeldValue* in_b = b.Find(number);
  // A copy without digits of the password tells nothing about them.
  const bool secret = entry.role == Role::kSecret;
  if (secret && (in_a == nullptr || in_b == nullptr)) return;
  if (in_a == nullptr && in_b == nullptr) return;
  if (in_a != nullptr && in_b != nullptr && in_a->raw == in_b->raw) return;
  found.push_back({name, ShownAs(entry, in_a, a.Style(mark), secret),
                   ShownAs(entry, in_b, b.Style(mark), secret)});
}

}  // namespace

ExitCode ShowDifferences(const Task& task) {
  const Request& request = task.request;
  const std::vector<const CatalogueEntry*> entries = ChosenEntries(task.catalogue, request, IsSet);
  const Snapshot a = Take(task, request.arguments.at(0), entries);
  const Snapshot b = Take(task, request.arguments.at(1), entries);
  std::vector<Difference> found;
  for (const CatalogueEntry* entry : entries) {
    Compare(*entry, entry->number, entry->name, a, b, request.Mark(), found);
    const bool copy = request.mirrors && entry->mirror != 0;
    if (copy) Compare(*entry, entry->mirror, MirrorName(*entry), a, b, request.Mark(), found);
  }
  std::string text;
  std::vector<std::string> rows;
  for (const Difference& difference : found) {
    text += difference.name + ": " + difference.a + " -> " + difference.b + '\n';
    rows.push_back(JsonObject({{"name", JsonString(difference.name)},
                               {"a", JsonString(difference.a)},
                               {"b", JsonString(difference.b)}}));
  }
  Deliver(task, request.json ? JsonObject({{"differences", JsonList(rows)}}) + '\n' : text);
  return found.empty() ? ExitCode::kDone : ExitCode::kDifferences;
}

ExitCode CheckSnapshot(const Task& task) {
  const std::string& file = task.request.arguments.front();
  ParsedSnapshot parsed = ParseSnapshot(FileText(file), task.catalogue);
  std::vector<Finding>& findings = parsed.findings;
  findings.insert(findings.end(), parsed.out_of_range.begin(), parsed.out_of_range.end());
  std::ranges::stable_sort(findings, {}, &Finding::line);
  std::string text;
  std::vector<std::string> rows;
  for (const Finding& finding : findings) {
    text += FindingLines(file, {finding}) + '\n';
    rows.push_back(
        JsonObject({{"line", std::to_string(finding.line)}, {"words", JsonString(finding.words)}}));
  }
  Deliver(task, task.request.json ? JsonObject({{"findings", JsonList(rows)}}) + '\n' : text);
  return findings.empty() ? ExitCode::kDone : ExitCode::kDifferences;
}

}  // namespace sorvane::cli
