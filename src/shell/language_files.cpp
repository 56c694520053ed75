#include "shell/language_files.h"

#include <algorithm>
#include <cstddef>

#include "shell/file_list.h"
#include "shell/line_reader.h"

namespace sorvane {
namespace {

constexpr std::string_view kExtension = ".lng";
constexpr std::string_view kMark = ";--";

// The last entry is listed and saved, but not restored at start-up.
constexpr std::size_t kNotRestored = MenuMarks::kLanguages - 1;

std::string FileOf(const std::string& caption) { return caption + std::string(kExtension); }

}  // namespace

std::vector<std::string> FindLanguages(const std::filesystem::path& folder, MenuMarks& menu) {
  std::vector<std::string> names = ListFiles(folder, kExtension);
  const std::size_t listed = std::min(names.size(), menu.smnuLingue.size());
  for (std::size_t i = 0; i < listed; ++i) {
    menu.smnuLingue[i].caption = names[i].substr(0, names[i].size() - kExtension.size());
    menu.smnuLingue[i].visible = true;
  }
  return names;
}

bool CeckLingue(const std::filesystem::path& folder, Settings& settings, MenuMarks& menu,
                MessageTable& messages) {
  const std::vector<std::string> names = FindLanguages(folder, menu);
  if (names.empty()) return false;
  const auto end = menu.smnuLingue.begin() + kNotRestored;
  const auto found = std::find_if(
      menu.smnuLingue.begin(), end,
      [&](const MenuMarks::Language& entry) { return entry.caption == settings.LanguageName; });
  if (settings.LanguageName.empty() || found == end) {
    LoadLanguageFile(folder, names.front(), messages);
    menu.smnuLingue[0].checked = true;
    settings.LanguageName = menu.smnuLingue[0].caption;
  } else {
    LoadLanguageFile(folder, FileOf(settings.LanguageName), messages);
    found->checked = true;
  }
  return true;
}

void LoadLanguageFile(const std::filesystem::path& folder, std::string_view name,
                      MessageTable& messages) {
  LineReader file(FindFile(folder, name));
  for (int n = 1; !file.AtEnd(); ++n) messages[n] = file.ReadLine();
}

bool CompareLanguageFiles(const std::filesystem::path& folder, std::string_view in_use,
                          std::string_view chosen, MessageTable& messages) {
  LineReader old_file(FindFile(folder, in_use));
  LineReader new_file(FindFile(folder, chosen));
  for (int n = 1; !old_file.AtEnd(); ++n) {
    const std::string old_line = old_file.ReadLine();
    if (new_file.AtEnd()) return false;
    const std::string new_line = new_file.ReadLine();
    if (old_line.starts_with(kMark) && !new_line.starts_with(kMark)) return false;
    messages[n] = new_line;
  }
  return true;
}

bool ChooseLanguage(int i, const std::filesystem::path& folder, Settings& settings, MenuMarks& menu,
                    MessageTable& messages) {
  MenuMarks::Language* in_use = &menu.smnuLingue[0];
  for (MenuMarks::Language& entry : menu.smnuLingue) {
    if (entry.checked) in_use = &entry;
    entry.checked = false;
  }
  MenuMarks::Language* chosen = &menu.smnuLingue[static_cast<std::size_t>(i)];
  const std::string old_file = FileOf(in_use->caption);
  const bool fits = CompareLanguageFiles(folder, old_file, FileOf(chosen->caption), messages);
  if (!fits) LoadLanguageFile(folder, old_file, messages);
  MenuMarks::Language* current = fits ? chosen : in_use;
  current->checked = true;
  settings.LanguageName = current->caption;
  return fits;
}

MessageBox NoLanguageBox() { return {"File missing!\nReinstall program", "Error", kCriticalIcon}; }

MessageBox WrongFileBox() { return {"Check file message !!!", "Wrong file", kExclamationIcon}; }

}  // namespace sorvane
