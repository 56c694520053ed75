#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "outside/dialogs.h"
#include "texts/menu_marks.h"
#include "texts/message_table.h"

namespace sorvane {

// The settings file of a program, given by its path: it lies beside the program and has its name,
// less an extension ".exe" and no other, with ".ini" behind it.
std::filesystem::path SettingsFile(const std::filesystem::path& program);

// What the user has chosen, port and language, and what follows from it: the marks of the menus and
// the messages. The two choices outlive a run in the settings file. The language files lie beside
// it, and are listed anew at each start.
struct Choices {
  explicit Choices(std::filesystem::path file) : settings_file(std::move(file)) {}

  // The program's folder, in which the settings file lies.
  std::filesystem::path Folder() const { return settings_file.parent_path(); }

  std::filesystem::path settings_file;
  uint8_t PortNumber = 1;    // the user's view only; the link doesn't ask it
  std::string LanguageName;  // the base name of the current language file
  bool IsItalian() const { return LanguageName == "Italiano"; }
  MenuMarks marks;
  MessageTable messages;

  // At start-up, with the menu as designed: sets PortNumber and LanguageName, checks the port's
  // entry, and lists the languages. Any error of the file ends in port 1 and no language. A
  // language that the file names is dropped again, and the file written so, unless ten language
  // files are there. Returns false if there is no language file at all: the caller shows
  // NoLanguageBox and ends the program. Throws RuntimeError kFileAccess where the file must be
  // written and can't be.
  bool ReadSettings();

  // At start-up, behind that: loads the language that LanguageName names and checks its entry. The
  // first language takes its place if it names none, or one that isn't listed, or the one in the
  // last entry. Returns false as ReadSettings does. Throws as LoadLanguageFile does.
  bool CeckLingue();

  // Writes the file anew from PortNumber and the first language entry that is checked; LanguageName
  // isn't asked. Throws RuntimeError kFileAccess if it can't be written; the old file is then left.
  void SaveSettings() const;

  // The user has chosen port i in the menu, which has 1 to 4; a higher one counts as the USB
  // adapter's. Throws as SaveSettings does, and RuntimeError kNoSuchElement for port 0.
  void ChooseCox(uint8_t i);

  // The user has chosen the USB adapter; find_usb_port gives its port's name, such as "COM5", or an
  // empty text. Returns false if there is none: the caller shows NoUsbPortBox, no port's entry is
  // checked any more, and nothing was saved. Throws RuntimeError for a name without a number behind
  // its third character (kTypeMismatch) or with one above 255 (kOverflow), and as SaveSettings
  // does.
  bool ChooseUsb(const std::function<std::string()>& find_usb_port);

  // The user has chosen entry i of the languages, 0 to 9. Returns false if its file doesn't fit:
  // the language in use stays, and the caller shows WrongFileBox. In either case the caller then
  // writes the menu's captions, saves the settings and refreshes the pages. Throws RuntimeError
  // kFileNotFound where the entry checked last names no file, which is so in the first choice after
  // ReadSettings has dropped a language.
  bool ChooseLanguage(int i);
};

MessageBox NoLanguageBox();
MessageBox WrongFileBox();
MessageBox NoUsbPortBox();

}  // namespace sorvane
