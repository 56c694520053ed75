#include "cli/copies.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "cli/failure.h"
#include "cli/snapshot_file.h"

namespace sorvane::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kKept = 20;
constexpr std::size_t kDigits = 6;

// The files of a folder, the oldest first: their names are rising numbers.
std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    const std::string stem = entry->path().stem().string();
    const bool numbered = stem.size() >= kDigits && entry->path().extension() == ".json" &&
                          stem.find_first_not_of("0123456789") == std::string::npos;
    if (numbered) files.push_back(entry->path());
  }
  std::ranges::sort(files, {},
                    [](const fs::path& file) { return std::stoull(file.stem().string()); });
  return files;
}

std::string Numbered(unsigned long long number) {
  std::string name = std::to_string(number);
  if (name.size() < kDigits) name.insert(0, kDigits - name.size(), '0');
  return name + ".json";
}

}  // namespace

fs::path Copies::FolderOf(uint32_t machine) const { return folder_ / std::to_string(machine); }

fs::path Copies::Keep(const Snapshot& snapshot, uint32_t machine) {
  const fs::path folder = FolderOf(machine);
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw Failure(ExitCode::kUsage, folder.string() + ": " + error.message());
  fs::permissions(folder_, fs::perms::owner_all, error);
  std::vector<fs::path> files = FilesIn(folder);
  const auto last = files.empty() ? 0 : std::stoull(files.back().stem().string());
  files.push_back(folder / Numbered(last + 1));
  WriteOwnFile(files.back(), SnapshotText(snapshot));
  for (std::size_t i = 0; i + kKept < files.size(); ++i) fs::remove(files[i], error);
  return files.back();
}

std::optional<fs::path> Copies::Newest(uint32_t machine) const {
  const std::vector<fs::path> files = FilesIn(FolderOf(machine));
  return files.empty() ? std::nullopt : std::optional(files.back());
}

}  // namespace sorvane::cli
