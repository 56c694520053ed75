#include "shell/frame/main_menu.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenuBar>

#include "board/errors.h"
#include "shell/gate/program_gate.h"

namespace sorvane {
namespace {

// A menu bar whose entries have actions, but for one that may be left out.
struct Menu {
  explicit Menu(MenuEntry missing = MenuEntry::kSales) {  // which can't be chosen anyway
    for (int i = 0; i <= static_cast<int>(MenuEntry::kInfo); ++i) {
      const auto entry = static_cast<MenuEntry>(i);
      if (entry != missing) menu.Do(entry, [this](int index) { chosen.push_back(index); });
    }
  }

  ProgramGate gate{{}};
  QMenuBar bar;
  MainMenu menu{bar, gate};
  std::vector<int> chosen;
};

TEST(MainMenuTest, AnEntryThatDoesNothingIsAFault) {
  EXPECT_NO_THROW(Menu().menu.CheckActions());
  for (const MenuEntry missing : {MenuEntry::kConnect, MenuEntry::kPort, MenuEntry::kInfo}) {
    EXPECT_THROW(Menu(missing).menu.CheckActions(), InternalFault);
  }
}

TEST(MainMenuTest, AnEntryOfManyTellsItsIndex) {
  Menu menu;
  for (const char* name : {"mnuCox(1)", "mnuCox(4)", "smnuLingue(0)", "smnuLingue(9)", "mnuUSB"}) {
    menu.bar.findChild<QAction*>(name)->trigger();
  }
  EXPECT_EQ(menu.chosen, (std::vector<int>{1, 4, 0, 9, 0}));
}

}  // namespace
}  // namespace sorvane
