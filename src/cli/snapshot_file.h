#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/snapshot.h"

namespace sorvane::cli {

// A fault of a snapshot's text.
struct Finding {
  int line = 0;  // counts from 1
  std::string words;

  bool operator==(const Finding&) const = default;
};

struct ParsedSnapshot {
  Snapshot snapshot;              // what could be read
  std::vector<Finding> findings;  // all of them, in the order of their lines
  // Settings whose values no board's page would write. A board may hold such a value all the same,
  // so that the snapshot is read.
  std::vector<Finding> out_of_range;
};

// A snapshot as JSON in UTF-8: lines that end in a line feed, one parameter a line, so that tools
// that compare texts by lines show what has changed.
std::string SnapshotText(const Snapshot& snapshot);

// Reads what SnapshotText writes, and any other layout of the same JSON. Only raw values count;
// what was shown is compared with nothing. Every parameter is held against the catalogue: its name,
// its size, and its order.
ParsedSnapshot ParseSnapshot(std::string_view text, const Catalogue& catalogue);

// The same of a file. Throws Failure kUsage for a file that can't be read or has a finding, of
// which it names each as FILE:LINE.
Snapshot ReadSnapshot(const std::filesystem::path& file, const Catalogue& catalogue);

// All lines of a finding as "FILE:LINE: words".
std::string FindingLines(const std::filesystem::path& file, const std::vector<Finding>& findings);

// The content of a file; throws Failure kUsage where it can't be read or is larger than any
// snapshot.
std::string FileText(const std::filesystem::path& file);

// Keeps a text as a file that its owner alone may read. It is written beside the file and renamed,
// so that a disk that fails leaves the old file whole. Throws Failure kUsage where that fails.
void WriteOwnFile(const std::filesystem::path& file, std::string_view text);

}  // namespace sorvane::cli
