#include "plain_lines.h"

#include <fstream>
#include <iterator>

#include "input.h"

namespace sorvane::fuzz {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  bool open = false;    // a line has begun
  bool joined = false;  // a line feed now would belong to the carriage return before it
  for (const char c : text) {
    const bool second = joined && c == '\n';
    joined = c == '\r';
    if (second) continue;
    open = c != '\r' && c != '\n';
    if (open) {
      line += c;
    } else {
      lines.push_back(line);
      line.clear();
    }
  }
  if (open) lines.push_back(line);
  return lines;
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  Require(in.is_open(), "a file can be read again");
  return {std::istreambuf_iterator<char>(in), {}};
}

void Fill(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  Require(!out.fail(), "a file can be written");
}

}  // namespace sorvane::fuzz
