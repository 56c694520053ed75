#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "link/dialogs.h"

namespace sorvane {

// The settings file of a program, given by its path: it lies beside the program and has its name,
// less an extension ".exe" and no other, with ".ini" behind it.
std::filesystem::path SettingsFile(const std::filesystem::path& program);

// The two settings that outlive a run. The port is the user's view only; the link doesn't ask it.
struct Settings {
  uint8_t PortNumber = 1;
  std::string LanguageName;  // the base name of the current language file
};

// What the entries of the language and port menus show. Any number of entries may be checked; the
// menu draws this model and adds no rule of its own.
struct MenuMarks {
  static constexpr int kLanguages = 10;
  static constexpr int kPorts = 4;

  struct Language {
    std::string caption;
    bool visible = false;
    bool checked = false;
  };

  MenuMarks() { smnuLingue[0].visible = true; }

  // Whether the entry of port i, 1 to 4, is checked. Throws RuntimeError kNoSuchElement for others.
  bool& mnuCox(int i) { return cox_[Place(i)]; }
  bool mnuCox(int i) const { return cox_[Place(i)]; }

  std::array<Language, kLanguages> smnuLingue;
  bool mnuUSB = false;

 private:
  static std::size_t Place(int i);

  std::array<bool, kPorts> cox_{};
};

// At start-up, with the menu as designed: sets PortNumber and LanguageName, checks the port's
// entry, and lists the languages, which lie beside the settings file. Any error of the file ends in
// port 1 and no language. A language that the file names is dropped again, and the file written so,
// unless ten language files are there. Returns false if there is no language file at all: the
// caller shows NoLanguageBox and ends the program. Throws RuntimeError kFileAccess where the file
// must be written and can't be.
bool ReadSettings(const std::filesystem::path& file, Settings& settings, MenuMarks& menu);

// Writes the file anew from PortNumber and the first language entry that is checked; LanguageName
// isn't asked. Throws RuntimeError kFileAccess if it can't be written; the old file is then left.
void SaveSettings(const std::filesystem::path& file, const Settings& settings,
                  const MenuMarks& menu);

// The user has chosen port i in the menu, which has 1 to 4; a higher one counts as the USB
// adapter's. Throws as SaveSettings does, and RuntimeError kNoSuchElement for port 0.
void ChooseCox(uint8_t i, const std::filesystem::path& file, Settings& settings, MenuMarks& menu);

// The user has chosen the USB adapter; find_usb_port gives its port's name, such as "COM5", or an
// empty text. Returns false if there is none: the caller shows NoUsbPortBox, no port's entry is
// checked any more, and nothing was saved. Throws RuntimeError for a name without a number behind
// its third character (kTypeMismatch) or with one above 255 (kOverflow), and as SaveSettings does.
bool ChooseUsb(const std::function<std::string()>& find_usb_port, const std::filesystem::path& file,
               Settings& settings, MenuMarks& menu);

MessageBox NoUsbPortBox();

}  // namespace sorvane
