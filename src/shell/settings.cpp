#include "shell/settings.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

#include "board/errors.h"
#include "board/numbers.h"
#include "shell/language_files.h"
#include "shell/line_reader.h"
#include "shell/save_file.h"
#include "shell/western_text.h"

namespace sorvane {
namespace {

constexpr std::size_t kLanguageKey = 7;  // characters before the language's name, "Lingua="
constexpr std::size_t kPortKey = 3;      // characters before the number of a port's name, "COM"

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
void ReadFile(const std::filesystem::path& file, Settings& settings, MenuMarks& menu) {
  std::optional<LineReader> reader;
  const auto read_line = [&] {
    if (!reader) throw RuntimeError(ErrorCode::kInputPastEnd);
    return reader->ReadLine();
  };
  const auto attempt = [&](const auto& statement) {
    try {
      statement();
    } catch (const RuntimeError&) {
      settings.PortNumber = 1;
      settings.LanguageName = menu.smnuLingue[0].caption;
      reader.reset();
    }
  };
  std::string first;
  std::string second;
  attempt([&] { reader.emplace(file); });
  attempt([&] { first = read_line(); });
  attempt([&] { settings.PortNumber = PortOfLine(first); });
  attempt([&] { menu.mnuCox(settings.PortNumber) = true; });
  attempt([&] { second = read_line(); });
  attempt([&] { settings.LanguageName = LanguageOfLine(second); });
}

void ClearPortMarks(MenuMarks& menu) {
  for (int i = 1; i <= MenuMarks::kPorts; ++i) menu.mnuCox(i) = false;
  menu.mnuUSB = false;
}

}  // namespace

std::size_t MenuMarks::Place(int i) {
  if (i < 1 || i > kPorts) throw RuntimeError(ErrorCode::kNoSuchElement);
  return static_cast<std::size_t>(i - 1);
}

std::filesystem::path SettingsFile(const std::filesystem::path& program) {
  std::filesystem::path file = program;
  const std::optional<std::string> extension = PathToWestern(program.extension());
  if (extension && FoldCase(*extension) == kProgramExtension) file.replace_extension();
  file += kSettingsExtension;
  return file;
}

bool ReadSettings(const std::filesystem::path& file, Settings& settings, MenuMarks& menu) {
  const std::string remembered = menu.smnuLingue[0].caption;
  settings.LanguageName = remembered;
  ReadFile(file, settings, menu);
  if (FindLanguages(file.parent_path(), menu).empty()) return false;
  if (remembered == settings.LanguageName) return true;
  const auto unused =
      std::find_if(menu.smnuLingue.begin(), menu.smnuLingue.end(),
                   [&](const MenuMarks::Language& entry) { return entry.caption == remembered; });
  if (unused != menu.smnuLingue.end()) {
    unused->checked = true;
    settings.LanguageName.clear();
    SaveSettings(file, settings, menu);
  }
  return true;
}

void SaveSettings(const std::filesystem::path& file, const Settings& settings,
                  const MenuMarks& menu) {
  auto language = std::find_if(menu.smnuLingue.begin(), menu.smnuLingue.end(),
                               [](const MenuMarks::Language& entry) { return entry.checked; });
  if (language == menu.smnuLingue.end()) language = menu.smnuLingue.begin();
  SaveFile(file, "Com=" + std::to_string(settings.PortNumber) + "\r\nLingua=" + language->caption +
                     "\r\n");
}

void ChooseCox(uint8_t i, const std::filesystem::path& file, Settings& settings, MenuMarks& menu) {
  settings.PortNumber = i;
  ClearPortMarks(menu);
  if (i <= MenuMarks::kPorts) {
    menu.mnuCox(i) = true;
  } else {
    menu.mnuUSB = true;
  }
  SaveSettings(file, settings, menu);
}

bool ChooseUsb(const std::function<std::string()>& find_usb_port, const std::filesystem::path& file,
               Settings& settings, MenuMarks& menu) {
  ClearPortMarks(menu);
  const std::string name = find_usb_port();
  if (name.empty()) return false;
  settings.PortNumber =
      ToPortNumber(std::string_view(name).substr(std::min(kPortKey, name.size())));
  menu.mnuUSB = true;
  SaveSettings(file, settings, menu);
  return true;
}

MessageBox NoUsbPortBox() {
  return {"USB port not available\rPlease select a different COM port", "Error", kCriticalIcon};
}

}  // namespace sorvane
