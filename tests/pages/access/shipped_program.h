#pragma once

#include <QString>
#include <functional>
#include <string>

#include "shell/program.h"

class QWidget;

namespace sorvane {
class ChildForm;
}  // namespace sorvane

namespace sorvane::test {

// The languages that go with the program.
inline constexpr const char* kShippedLanguages[] = {
    "Dansk",    "Deutsch",    "English", "Espanol",   "Francais",
    "Italiano", "Nederlands", "Norsk",   "Portugues", "Svenska"};

// The program over a connected board in one of the shipped languages. The board has a clock, ten
// selections, two decimals, products that can differ, and an MDB system, so that all pages open.
class ShippedProgram : public Program {
 public:
  explicit ShippedProgram(const std::string& language, Setup setup = {});

  // Opens a page by its menu entry and lets the board answer all of it.
  ChildForm& OpenPage(const PageEntry& page);
  // Lets the board answer a parameter once more.
  void AskAgain(int parameter);
  // Closes a page and takes it away.
  static void ClosePage(ChildForm& form);

  // Opens each page, passes it to look with each of its tabs in front in turn, and closes it.
  void ForEachPage(const std::function<void(const PageEntry& page, ChildForm& form)>& look);
};

// Brings each tab of a page to the front, open or closed, and calls look for each; once for a page
// without tabs.
void ForEachTab(ChildForm& form, const std::function<void()>& look);

// What has the keyboard, and what a key that the user presses goes to.
QWidget* Focus();
void PressKey(const Program& program, int key, Qt::KeyboardModifiers modifiers = {});
void TypeText(const Program& program, const QString& text);

// A control's name for the message of a failed test.
std::string NameOf(const QWidget* widget);

}  // namespace sorvane::test
