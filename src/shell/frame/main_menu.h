#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <utility>

#include "shell/frame/menu_entry.h"

class QAction;
class QMenu;
class QMenuBar;

namespace sorvane {

class MessageTable;
class ProgramGate;
struct MenuMarks;
struct MenuRow;

// The frame's menu bar. Every entry's action bears the entry's name; what a choice does is the
// frame's.
class MainMenu : public QObject {
 public:
  MainMenu(QMenuBar& bar, ProgramGate& gate);

  // What the choice of an entry does. It is given the index, 0 for an entry that has none.
  void Do(MenuEntry entry, std::function<void(int index)> action);

  // Throws InternalFault if there is an entry that can be chosen and does nothing.
  void CheckActions() const;

  // The list of open pages is about to be seen.
  std::function<void(QMenu& menu)> on_windows;

  // Gives the entries of the table their captions from the messages. Enables nothing.
  void InitMenu(const MessageTable& messages);

  // Opens or shuts the entries that need a board.
  void EnableBoardEntries(bool enabled);

  void Enable(MenuEntry entry, bool enabled);

  // Shows the languages, and the check marks as the model has them. A click toggles the mark of its
  // entry; the model alone decides, and is shown again after every choice that concerns marks.
  void ShowMarks(const MenuMarks& marks);

 private:
  QAction& Entry(MenuEntry entry, int index = 0);
  QAction* Add(QMenuBar& bar, const MenuRow& row, int index);

  ProgramGate& gate_;
  std::map<std::pair<MenuEntry, int>, QAction*> entries_;
  std::map<MenuEntry, QMenu*> menus_;
  std::map<MenuEntry, std::function<void(int index)>> actions_;
};

}  // namespace sorvane
