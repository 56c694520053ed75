#include "shell/settings.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <string_view>
#include <utility>
#include <vector>

#include "board/errors.h"
#include "board/numbers.h"
#include "shell/file_list.h"
#include "shell/language_files.h"

namespace sorvane {
namespace {

constexpr std::size_t kLanguageKey = 7;  // characters before the language's name, "Lingua="
constexpr std::size_t kPortKey = 3;      // characters before the number of a port's name, "COM"

// The file while it is being read. Closed, it has no lines.
class SettingsReader {
 public:
  void Open(const std::filesystem::path& file) { lines_ = ReadLines(file); }
  void Close() { lines_.clear(); }

  std::string ReadLine() {
    if (lines_.empty()) throw RuntimeError(ErrorCode::kInputPastEnd);
    std::string line = std::move(lines_.front());
    lines_.erase(lines_.begin());
    return line;
  }

 private:
  std::vector<std::string> lines_;
};

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
  SettingsReader reader;
  const auto attempt = [&](const auto& statement) {
    try {
      statement();
    } catch (const RuntimeError&) {
      settings.PortNumber = 1;
      settings.LanguageName = menu.smnuLingue[0].caption;
      reader.Close();
    }
  };
  std::string first;
  std::string second;
  attempt([&] { reader.Open(file); });
  attempt([&] { first = reader.ReadLine(); });
  attempt([&] { settings.PortNumber = PortOfLine(first); });
  attempt([&] { menu.mnuCox(settings.PortNumber) = true; });
  attempt([&] { second = reader.ReadLine(); });
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

bool ReadSettings(const std::filesystem::path& folder, Settings& settings, MenuMarks& menu) {
  const std::string remembered = menu.smnuLingue[0].caption;
  settings.LanguageName = remembered;
  ReadFile(folder / kSettingsFile, settings, menu);
  if (FindLanguages(folder, menu).empty()) return false;
  if (remembered == settings.LanguageName) return true;
  const auto unused =
      std::find_if(menu.smnuLingue.begin(), menu.smnuLingue.end(),
                   [&](const MenuMarks::Language& entry) { return entry.caption == remembered; });
  if (unused != menu.smnuLingue.end()) {
    unused->checked = true;
    settings.LanguageName.clear();
    SaveSettings(folder, settings, menu);
  }
  return true;
}

void SaveSettings(const std::filesystem::path& folder, const Settings& settings,
                  const MenuMarks& menu) {
  auto language = std::find_if(menu.smnuLingue.begin(), menu.smnuLingue.end(),
                               [](const MenuMarks::Language& entry) { return entry.checked; });
  if (language == menu.smnuLingue.end()) language = menu.smnuLingue.begin();
  std::ofstream out(folder / kSettingsFile, std::ios::binary | std::ios::trunc);
  out << "Com=" << int{settings.PortNumber} << "\r\n"
      << "Lingua=" << language->caption << "\r\n";
  out.close();
  if (!out) throw RuntimeError(ErrorCode::kFileAccess);
}

void ChooseCox(uint8_t i, const std::filesystem::path& folder, Settings& settings,
               MenuMarks& menu) {
  settings.PortNumber = i;
  ClearPortMarks(menu);
  if (i <= MenuMarks::kPorts) {
    menu.mnuCox(i) = true;
  } else {
    menu.mnuUSB = true;
  }
  SaveSettings(folder, settings, menu);
}

bool ChooseUsb(const std::function<std::string()>& find_usb_port,
               const std::filesystem::path& folder, Settings& settings, MenuMarks& menu) {
  ClearPortMarks(menu);
  const std::string name = find_usb_port();
  if (name.empty()) return false;
  settings.PortNumber =
      ToPortNumber(std::string_view(name).substr(std::min(kPortKey, name.size())));
  menu.mnuUSB = true;
  SaveSettings(folder, settings, menu);
  return true;
}

MessageBox NoUsbPortBox() {
  return {"USB port not available\rPlease select a different COM port", "Error", kCriticalIcon};
}

}  // namespace sorvane
