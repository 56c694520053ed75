#include "texts/choices.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/errors.h"
#include "board/numbers.h"
#include "texts/language_files.h"
#include "texts/line_reader.h"
#include "texts/save_file.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr std::size_t kLanguageKey = 7;  // characters before the language's name, "Lingua="
constexpr std::size_t kPortKey = 3;      // characters before the number of a port's name, "COM"

// The last entry of the languages is listed and saved, but not restored at start-up.
constexpr std::size_t kNotRestored = MenuMarks::kLanguages - 1;

constexpr std::u16string_view kProgramExtension = u".EXE";
constexpr const char* kSettingsExtension = ".ini";

uint8_t ToPortNumber(std::string_view digits) {
  const bool is_number =
      !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
  if (!is_number) throw RuntimeError(ErrorCode::kTypeMismatch);
  double number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return ToByte(number);
}

uint8_t PortOfLine(const std::string& line) {
  return ToPortNumber(line.substr(line.empty() ? 0 : line.size() - 1));
}

std::string LanguageOfLine(const std::string& line) {
  if (line.size() < kLanguageKey) throw RuntimeError(ErrorCode::kInvalidCall);
  return line.substr(kLanguageKey);
}

// An error in one of these statements doesn't end the reading: the settings go back to what they
// were, the file is closed, and the next statement follows. So a port that line 1 named can stay
// checked beside PortNumber 1.
void ReadFile(Choices& choices) {
  std::optional<LineReader> reader;
  const auto read_line = [&] {
    if (!reader) throw RuntimeError(ErrorCode::kInputPastEnd);
    return reader->ReadLine();
  };
  const auto attempt = [&](const auto& statement) {
    try {
      statement();
    } catch (const RuntimeError&) {
      choices.PortNumber = 1;
      choices.LanguageName = choices.marks.smnuLingue[0].caption;
      reader.reset();
    }
  };
  std::string first;
  std::string second;
  attempt([&] { reader.emplace(choices.settings_file); });
  attempt([&] { first = read_line(); });
  attempt([&] { choices.PortNumber = PortOfLine(first); });
  attempt([&] { choices.marks.mnuCox(choices.PortNumber) = true; });
  attempt([&] { second = read_line(); });
  attempt([&] { choices.LanguageName = LanguageOfLine(second); });
}

void ClearPortMarks(MenuMarks& menu) {
  for (int i = 1; i <= MenuMarks::kPorts; ++i) menu.mnuCox(i) = false;
  menu.mnuUSB = false;
}

}  // namespace

std::filesystem::path SettingsFile(const std::filesystem::path& program) {
  std::filesystem::path file = program;
  const std::optional<std::string> extension = PathToWestern(program.extension());
  if (extension && FoldCase(*extension) == kProgramExtension) file.replace_extension();
  file += kSettingsExtension;
  return file;
}

bool Choices::ReadSettings() {
  const std::string remembered = marks.smnuLingue[0].caption;
  LanguageName = remembered;
  ReadFile(*this);
  if (FindLanguages(Folder(), marks).empty()) return false;
  if (remembered == LanguageName) return true;
  const auto unused =
      std::find_if(marks.smnuLingue.begin(), marks.smnuLingue.end(),
                   [&](const MenuMarks::Language& entry) { return entry.caption == remembered; });
  if (unused != marks.smnuLingue.end()) {
    unused->checked = true;
    LanguageName.clear();
    SaveSettings();
  }
  return true;
}

bool Choices::CeckLingue() {
  const std::filesystem::path folder = Folder();
  const std::vector<std::string> names = FindLanguages(folder, marks);
  if (names.empty()) return false;
  const auto end = marks.smnuLingue.begin() + kNotRestored;
  const auto found =
      std::find_if(marks.smnuLingue.begin(), end,
                   [&](const MenuMarks::Language& entry) { return entry.caption == LanguageName; });
  if (LanguageName.empty() || found == end) {
    LoadLanguageFile(folder, names.front(), messages);
    marks.smnuLingue[0].checked = true;
    LanguageName = marks.smnuLingue[0].caption;
  } else {
    LoadLanguageFile(folder, LanguageFile(LanguageName), messages);
    found->checked = true;
  }
  return true;
}

void Choices::SaveSettings() const {
  auto language = std::find_if(marks.smnuLingue.begin(), marks.smnuLingue.end(),
                               [](const MenuMarks::Language& entry) { return entry.checked; });
  if (language == marks.smnuLingue.end()) language = marks.smnuLingue.begin();
  SaveFile(settings_file,
           "Com=" + std::to_string(PortNumber) + "\r\nLingua=" + language->caption + "\r\n");
}

void Choices::ChooseCox(uint8_t i) {
  PortNumber = i;
  ClearPortMarks(marks);
  if (i <= MenuMarks::kPorts) {
    marks.mnuCox(i) = true;
  } else {
    marks.mnuUSB = true;
  }
  SaveSettings();
}

bool Choices::ChooseUsb(const std::function<std::string()>& find_usb_port) {
  ClearPortMarks(marks);
  const std::string name = find_usb_port();
  if (name.empty()) return false;
  PortNumber = ToPortNumber(std::string_view(name).substr(std::min(kPortKey, name.size())));
  marks.mnuUSB = true;
  SaveSettings();
  return true;
}

bool Choices::ChooseLanguage(int i) {
  const std::filesystem::path folder = Folder();
  MenuMarks::Language* in_use = &marks.smnuLingue[0];
  for (MenuMarks::Language& entry : marks.smnuLingue) {
    if (entry.checked) in_use = &entry;
    entry.checked = false;
  }
  MenuMarks::Language* chosen = &marks.smnuLingue[static_cast<std::size_t>(i)];
  const std::string old_file = LanguageFile(in_use->caption);
  const bool fits = CompareLanguageFiles(folder, old_file, LanguageFile(chosen->caption), messages);
  if (!fits) LoadLanguageFile(folder, old_file, messages);
  MenuMarks::Language* current = fits ? chosen : in_use;
  current->checked = true;
  LanguageName = current->caption;
  return fits;
}

MessageBox NoLanguageBox() { return {"File missing!\nReinstall program", "Error", kCriticalIcon}; }

MessageBox WrongFileBox() { return {"Check file message !!!", "Wrong file", kExclamationIcon}; }

MessageBox NoUsbPortBox() {
  return {"USB port not available\rPlease select a different COM port", "Error", kCriticalIcon};
}

}  // namespace sorvane
