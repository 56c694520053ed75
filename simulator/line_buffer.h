#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sorvane::simulator {

// Cuts what comes in pieces into lines. A line that grows beyond kLongest is cut there.
class LineBuffer {
 public:
  static constexpr std::size_t kLongest = 4096;

  // Takes a piece; returns the lines that it completes, without their line feeds.
  std::vector<std::string> Feed(std::string_view piece) {
    std::vector<std::string> lines;
    for (const char character : piece) {
      if (character != '\n') line_ += character;
      if (character == '\n' || line_.size() == kLongest) lines.push_back(TakeRest());
    }
    return lines;
  }

  // Takes the line that has not come to its end.
  std::string TakeRest() { return std::exchange(line_, {}); }

 private:
  std::string line_;
};

}  // namespace sorvane::simulator
