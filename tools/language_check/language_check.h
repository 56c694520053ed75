#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace sorvane {

struct Finding {
  std::string file;   // with its extension
  int line;           // from 1
  std::string words;  // plain ASCII, so that every terminal shows them
};

// Compares every .lng file of the folder with the reference, named without extension, line by
// line, and the reference with the lines that the program shows. Words that may be the same in
// several languages are read from same-words.txt in the same folder. The findings come by file,
// the reference first, and by line. Throws std::runtime_error if a file or the folder can't be
// read or same-words.txt is malformed.
std::vector<Finding> CheckLanguages(const std::filesystem::path& folder,
                                    const std::string& reference);

// Prints each finding as "NAME.lng:LINE: words" to out. Returns the program's exit code: 0 without
// findings, 1 with any, 2 if the check itself failed, with the reason printed to errors.
int ReportLanguages(const std::filesystem::path& folder, const std::string& reference,
                    std::ostream& out, std::ostream& errors);

}  // namespace sorvane
