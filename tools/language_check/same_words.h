#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace sorvane {

// The lines that may read the same in a language as in the reference, since the word is the same.
//
// They stand in a text file, one entry a line: the number of the line, the languages parted by
// commas, and the words, parted by one blank each. Empty lines and lines that begin with "#" are
// passed over.
class SameWords {
 public:
  // A file that isn't there allows nothing. Throws std::runtime_error for one that can't be read,
  // and, with the number of the line, for an entry that isn't built so.
  explicit SameWords(const std::filesystem::path& path);

  // The words count with the entry: it lapses once the reference says something else.
  bool Allow(int line, std::string_view language, std::string_view words) const;

 private:
  struct Entry {
    std::set<std::string, std::less<>> languages;
    std::string words;
  };
  std::multimap<int, Entry> entries_;
};

}  // namespace sorvane
