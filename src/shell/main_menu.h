#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace sorvane {

class MessageTable;
class ProgramGate;
struct MenuMarks;

// The frame's menu bar. Every entry's action bears the entry's name; what a choice does is the
// frame's.
class MainMenu : public QObject {
 public:
  MainMenu(QMenuBar& bar, ProgramGate& gate);

  // An entry was chosen. The name is that of the menu, such as "MnuSconti" or "mnuCox(2)".
  std::function<void(const QString& entry)> on_chosen;
  // The list of open pages is about to be seen.
  std::function<void(QMenu& menu)> on_windows;

  // Gives the entries of the table their captions from the messages. Enables nothing.
  void InitMenu(const MessageTable& messages);

  // Opens or shuts the entries that need a board.
  void EnableBoardEntries(bool enabled);

  void Enable(const QString& entry, bool enabled);

  // Shows the languages, and the check marks as the model has them. A click toggles the mark of its
  // entry; the model alone decides, and is shown again after every choice that concerns marks.
  void ShowMarks(const MenuMarks& marks);

 private:
  QAction& Entry(const QString& name);
  QAction* Add(QMenuBar& bar, std::size_t row);

  ProgramGate& gate_;
  std::map<QString, QAction*> entries_;
  std::map<QString, QMenu*> menus_;
};

}  // namespace sorvane
