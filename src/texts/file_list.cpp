#include "texts/file_list.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "texts/western_text.h"

namespace sorvane {

std::vector<std::string> ListFiles(const std::filesystem::path& folder,
                                   std::string_view extension) {
  const std::u16string folded_extension = FoldCase(extension);
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  std::vector<std::pair<std::u16string, std::string>> found;
  while (!error && entry != std::filesystem::directory_iterator()) {
    const std::optional<std::string> name = PathToWestern(entry->path().filename());
    std::error_code unknown;
    if (name && entry->is_regular_file(unknown)) {
      std::u16string folded = FoldCase(*name);
      if (folded.ends_with(folded_extension)) found.emplace_back(std::move(folded), *name);
    }
    entry.increment(error);
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [folded, name] : found) names.push_back(std::move(name));
  return names;
}

std::filesystem::path FindFile(const std::filesystem::path& folder, std::string_view name) {
  std::filesystem::path exact = folder / WesternToPath(name);
  std::error_code error;
  if (std::filesystem::exists(exact, error)) return exact;
  for (const std::string& other : ListFiles(folder, name)) {
    if (other.size() == name.size()) return folder / WesternToPath(other);
  }
  return exact;
}

}  // namespace sorvane
