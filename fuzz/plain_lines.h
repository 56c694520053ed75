#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sorvane::fuzz {

// The lines of a text, found by going through it byte by byte.
std::vector<std::string> LinesOf(const std::string& text);

// Whether a line has more characters than are read.
inline bool IsTooLong(const std::string& line) { return line.size() > 10000; }

// The whole content of a file; ends the run if there is none.
std::string ContentOf(const std::filesystem::path& file);

// Makes text the content of a file; ends the run if that fails.
void Fill(const std::filesystem::path& file, const std::string& text);

}  // namespace sorvane::fuzz
