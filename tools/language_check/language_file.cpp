#include "language_check/language_file.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace sorvane {

LanguageLines ReadLanguageFile(const std::filesystem::path& path) {
  // Opening a pipe would wait for one who writes into it.
  std::error_code error;
  std::ifstream file;
  if (std::filesystem::is_regular_file(path, error)) file.open(path, std::ios::binary);
  if (!file.is_open()) throw std::runtime_error("can't read " + path.string());
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  LanguageLines lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t feed = std::min(bytes.find('\n', start), bytes.size());
    const bool ended = feed < bytes.size() && feed > start && bytes[feed - 1] == '\r';
    lines.push_back({bytes.substr(start, feed - start - (ended ? 1 : 0)), ended});
    start = feed + 1;
  }
  return lines;
}

bool IsMark(std::string_view text) { return text.starts_with(";--"); }

std::vector<std::string> LanguageNames(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".lng") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace sorvane
