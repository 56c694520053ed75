#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "link/dialogs.h"
#include "shell/message_table.h"
#include "shell/settings.h"

namespace sorvane {

// A language is a text file in the program's folder whose name ends in ".lng": line n is message n.
// Lines that begin with ";--" are marks, which divide the file and are messages like any other.

// Puts the base names of the language files into the menu, at most ten, and shows the entries that
// it fills; the others stay as they were. Returns the files' names, all of them.
std::vector<std::string> FindLanguages(const std::filesystem::path& folder, MenuMarks& menu);

// At start-up, after ReadSettings: loads the language that LanguageName names and checks its entry.
// The first language takes its place if it names none, or one that isn't listed, or the one in the
// last entry. Returns false if there is no language file: the caller shows NoLanguageBox and ends
// the program. Throws as LoadLanguageFile does.
bool CeckLingue(const std::filesystem::path& folder, Settings& settings, MenuMarks& menu,
                MessageTable& messages);

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

// The user has chosen entry i of the menu, 0 to 9. Returns false if its file doesn't fit: the
// language in use stays, and the caller shows WrongFileBox. In either case the caller then writes
// the menu's captions, saves the settings and refreshes the pages. Throws RuntimeError
// kFileNotFound where the entry checked last names no file, which is so in the first choice after
// ReadSettings has dropped a language.
bool ChooseLanguage(int i, const std::filesystem::path& folder, Settings& settings, MenuMarks& menu,
                    MessageTable& messages);

MessageBox NoLanguageBox();
MessageBox WrongFileBox();

}  // namespace sorvane
