#pragma once

#include <filesystem>
#include <iosfwd>

namespace sorvane {

// Makes the language file NAME.lng of the folder of a text in UTF-8, NAME with any extension: in
// code page 1252, with the line ends of Windows. A byte order mark is passed over, and lines may
// end in a line feed alone. What lies in the file's place is overwritten, except the text itself.
//
// A line with bytes that are no UTF-8, or with a character that the code page lacks, is printed as
// "NAME.txt:LINE: words" to out, and then nothing is written. Returns the program's exit code: 0 if
// the file is written, 1 if a line can't be, 2 if a file can't be read or written, with the reason
// printed to errors.
int ConvertFromUtf8(const std::filesystem::path& text, const std::filesystem::path& folder,
                    std::ostream& out, std::ostream& errors);

}  // namespace sorvane
