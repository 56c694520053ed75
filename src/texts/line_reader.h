#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

namespace sorvane {

// Reads a text file line by line, and no more of it than it is asked for. Lines end in a carriage
// return and a line feed or in either alone; the last may lack its end.
class LineReader {
 public:
  static constexpr std::size_t kLongestLine = 10000;  // characters

  // Throws RuntimeError kFileNotFound for a file that can't be read, and for what is no ordinary
  // file, which isn't opened.
  explicit LineReader(const std::filesystem::path& file);

  // Throws RuntimeError kFileNotFound where the file can't be read on.
  bool AtEnd();

  // Throws RuntimeError behind the last line (kInputPastEnd), for a line longer than kLongestLine
  // (kOverflow), and as AtEnd does.
  std::string ReadLine();

 private:
  std::ifstream in_;
};

}  // namespace sorvane
