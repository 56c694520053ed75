#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "cli/snapshot.h"

namespace sorvane::cli {

// The copies of what machines held before they were written to: the last twenty of each machine, by
// its number. A copy is a snapshot like any other.
class Copies {
 public:
  explicit Copies(std::filesystem::path folder) : folder_(std::move(folder)) {}

  // Keeps a copy under the number of a machine, and lets the oldest go. Gives its file. Throws
  // Failure kUsage where it can't be written.
  std::filesystem::path Keep(const Snapshot& snapshot, uint32_t machine);

  // The file of a machine's newest copy.
  std::optional<std::filesystem::path> Newest(uint32_t machine) const;

 private:
  std::filesystem::path FolderOf(uint32_t machine) const;

  std::filesystem::path folder_;
};

}  // namespace sorvane::cli
