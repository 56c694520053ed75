#include "texts/language_files.h"

#include <algorithm>
#include <cstddef>

#include "texts/file_list.h"
#include "texts/line_reader.h"

namespace sorvane {
namespace {

constexpr std::string_view kExtension = ".lng";
constexpr std::string_view kMark = ";--";

}  // namespace

std::string LanguageFile(const std::string& name) { return name + std::string(kExtension); }

std::vector<std::string> FindLanguages(const std::filesystem::path& folder, MenuMarks& menu) {
  std::vector<std::string> names = ListFiles(folder, kExtension);
  const std::size_t listed = std::min(names.size(), menu.smnuLingue.size());
  for (std::size_t i = 0; i < listed; ++i) {
    menu.smnuLingue[i].caption = names[i].substr(0, names[i].size() - kExtension.size());
    menu.smnuLingue[i].visible = true;
  }
  return names;
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

}  // namespace sorvane
