// Snapshots: what is read back of one that was written, and whatever else lies in a file of that
// name.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "any_snapshot.h"
#include "cli/snapshot_file.h"
#include "input.h"

namespace sorvane::fuzz {
namespace {

using cli::HeldValue;
using cli::ParsedSnapshot;
using cli::Snapshot;

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
