#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane {

struct LanguageLine {
  std::string text;  // bytes of code page 1252, without the line's end
  bool ended;        // by carriage return and line feed
};

// Line n of the file is element n - 1, marks and empty lines counted.
using LanguageLines = std::vector<LanguageLine>;

// Throws std::runtime_error if the file can't be read.
LanguageLines ReadLanguageFile(const std::filesystem::path& path);

// A mark is a line that begins with ";--". It divides the file into sections and is never shown.
bool IsMark(std::string_view text);

// The base names of the .lng files of a folder in rising order. Throws
// std::filesystem::filesystem_error if the folder can't be read.
std::vector<std::string> LanguageNames(const std::filesystem::path& folder);

}  // namespace sorvane
