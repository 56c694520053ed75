#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "texts/menu_marks.h"
#include "texts/message_table.h"

namespace sorvane {

// A language is a text file in the program's folder whose name ends in ".lng": line n is message n.
// Lines that begin with ";--" are marks, which divide the file and are messages like any other.

// The file of a language by its base name, as the menu shows that.
std::string LanguageFile(const std::string& name);

// Puts the base names of the language files into the menu, at most ten, and shows the entries that
// it fills; the others stay as they were. Returns the files' names, all of them.
std::vector<std::string> FindLanguages(const std::filesystem::path& folder, MenuMarks& menu);

// name has its extension. Throws RuntimeError for a file that can't be read (kFileNotFound), for
// line 1001 (kSubscriptOutOfRange) and for a line that no reader takes (kOverflow), with the lines
// before it loaded. No more of the file is read.
void LoadLanguageFile(const std::filesystem::path& folder, std::string_view name,
                      MessageTable& messages);

// Loads the file chosen as far as the one in use reaches. Returns false, and leaves off in the
// middle of the table, at the first mark of the file in use that the file chosen lacks on the same
// line, or if that one ends first. Both names have their extension. Throws as LoadLanguageFile
// does.
bool CompareLanguageFiles(const std::filesystem::path& folder, std::string_view in_use,
                          std::string_view chosen, MessageTable& messages);

}  // namespace sorvane
