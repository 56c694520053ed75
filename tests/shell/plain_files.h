#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "support/index_files.h"

namespace sorvane::test {

inline void WriteText(const TempFolder& folder, const std::string& name, const std::string& text) {
  folder.WriteFile(name, Bytes(text.begin(), text.end()));
}

inline std::string ReadText(const TempFolder& folder, const std::string& name) {
  std::ifstream in(folder.Path() / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace sorvane::test
