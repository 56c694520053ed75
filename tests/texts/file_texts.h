#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/index_files.h"

namespace sorvane::test {

// A file name ending in .lng whose units form no text: bytes on Linux, half of a pair on Windows.
inline std::filesystem::path NameThatIsNoText() {
#ifdef _WIN32
  return std::wstring{'b', 'a', 'd', wchar_t{0xD800}, '.', 'l', 'n', 'g'};
#else
  return "bad\xFF.lng";
#endif
}

inline void WriteText(const TempFolder& folder, const std::filesystem::path& name,
                      const std::string& text) {
  folder.WriteFile(name, Bytes(text.begin(), text.end()));
}

inline std::string ReadText(const TempFolder& folder, const std::string& name) {
  std::ifstream in(folder.Path() / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The names of all that a folder holds, in order.
inline std::vector<std::string> NamesIn(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace sorvane::test
