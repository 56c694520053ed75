// Snapshots: what is read back of one that was written, and whatever else lies in a file of that
// name.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "catalogue/catalogue.h"
#include "cli/snapshot_file.h"
#include "input.h"

namespace sorvane::fuzz {
namespace {

using cli::HeldValue;
using cli::ParsedSnapshot;
using cli::Snapshot;

const Catalogue& TheCatalogue() {
  static const Catalogue catalogue;
  return catalogue;
}

// Texts of a snapshot are UTF-8; these have every sign that JSON writes in another way.
std::string Text(Input& input) {
  std::string text = input.TakeText(input.Byte() % 8U);
  for (char& c : text) c = static_cast<char>(c & 127);
  return text;
}

// A snapshot that a board could give: any of the parameters and second copies, in their order, each
// with a value of any size and content.
Snapshot AnySnapshot(Input& input) {
  Snapshot snapshot{.time = Text(input),
                    .program = Text(input),
                    .type = input.Word(),
                    .software = input.Byte(),
                    .revision = input.Byte(),
                    .index_file = Text(input),
                    .index_sum = Text(input),
                    .machine = input.Word() * 65536U + input.Word(),
                    .location = input.Word(),
                    .decimals = input.Byte(),
                    .complete = input.Byte() % 2 == 0,
                    .values = {}};
  int32_t number = 0;
  while (!input.Empty()) {
    number += 1 + input.Byte() % 16;
    const CatalogueEntry* entry = TheCatalogue().Find(number);
    const bool copy = entry == nullptr;
    if (copy) entry = TheCatalogue().FindByMirror(number);
    if (entry == nullptr) continue;
    HeldValue value{.number = number,
                    .name = copy ? cli::MirrorName(*entry) : entry->name,
                    .raw = input.Take(1U + input.Byte() % 16U),
                    .shown = Text(input)};
    if (value.raw.empty()) value.raw.push_back(0);
    if (value.name == "machine.number") snapshot.machine = cli::NumberOf(value.raw);
    snapshot.values.push_back(value);
  }
  return snapshot;
}

void WrittenIsReadBack(const Snapshot& snapshot) {
  const ParsedSnapshot parsed = cli::ParseSnapshot(cli::SnapshotText(snapshot), TheCatalogue());
  Require(parsed.findings.empty(), "a snapshot that was written has no findings");
  Require(parsed.snapshot == snapshot, "a snapshot that was written is read back equal");
}

// What is in a file: findings have lines of it, and what has none can be written and read again.
void AnythingIsRead(const std::string& text) {
  const ParsedSnapshot parsed = cli::ParseSnapshot(text, TheCatalogue());
  const auto lines = 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
  for (const cli::Finding& finding : parsed.findings) {
    Require(finding.line >= 1 && finding.line <= lines, "a finding has a line of the file");
    Require(!finding.words.empty(), "a finding has words");
  }
  int32_t last = 0;
  for (const HeldValue& value : parsed.snapshot.values) {
    Require(!value.raw.empty() && value.raw.size() <= 16, "a value has 1 to 16 bytes");
    Require(!parsed.findings.empty() || value.number > last, "values rise without findings");
    last = value.number;
  }
  if (parsed.findings.empty()) WrittenIsReadBack(parsed.snapshot);
}

}  // namespace
}  // namespace sorvane::fuzz

// The first byte chooses: a text as it stands, or one that is written from the rest.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace sorvane::fuzz;
  Input input(data, size);
  if (input.Byte() == '{') {
    AnythingIsRead('{' + input.Rest());
  } else {
    WrittenIsReadBack(AnySnapshot(input));
  }
  return 0;
}
