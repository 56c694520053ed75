#include "language_check/same_words.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace sorvane {

SameWords::SameWords(const std::filesystem::path& path) {
  std::error_code error;
  const auto kind = std::filesystem::status(path, error).type();
  if (kind == std::filesystem::file_type::not_found) return;
  // Opening a pipe would wait for one who writes into it.
  std::ifstream file;
  if (kind == std::filesystem::file_type::regular) file.open(path);
  if (!file.is_open()) throw std::runtime_error("can't read " + path.string());
  std::string text;
  for (int number = 1; std::getline(file, text); ++number) {
    if (text.ends_with('\r')) text.pop_back();
    if (text.empty() || text.starts_with('#')) continue;
    std::istringstream parts(text);
    int line = 0;
    std::string languages;
    Entry entry;
    parts >> line >> languages >> std::ws;
    std::getline(parts, entry.words);
    if (line < 1 || entry.words.empty()) {
      throw std::runtime_error(path.filename().string() + ":" + std::to_string(number) +
                               ": not a line number, languages and words");
    }
    std::istringstream names(languages);
    for (std::string name; std::getline(names, name, ',');) entry.languages.insert(name);
    entries_.emplace(line, entry);
  }
}

bool SameWords::Allow(int line, std::string_view language, std::string_view words) const {
  const auto [first, last] = entries_.equal_range(line);
  return std::any_of(first, last, [&](const auto& numbered) {
    const Entry& entry = numbered.second;
    return entry.words == words && entry.languages.contains(language);
  });
}

}  // namespace sorvane
