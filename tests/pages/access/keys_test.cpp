#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>
#include <set>

#include "board/parameter.h"
#include "pages/access/shipped_program.h"
#include "shell/controls/record_list.h"
#include "shell/controls/tab_pages.h"
#include "shell/controls/toggle.h"

// The whole program without a mouse: keys go to the main window, and to nothing by its name.
namespace sorvane::test {
namespace {

class Keys : public testing::Test {
 protected:
  void Press(int key, Qt::KeyboardModifiers modifiers = {}) { PressKey(program, key, modifiers); }
  void PressTimes(int times, int key) {
    for (int i = 0; i < times; ++i) Press(key);
  }
  void Type(const QString& text) { TypeText(program, text); }

  // Goes to an entry of the menu bar as a person does who sees which one is marked.
  void GoTo(const QString& top, int key = Qt::Key_Alt) {
    Press(key);
    const QMenuBar& bar = *program.frame->menuBar();
    for (int i = 0; i < bar.actions().size() && MarkedIn(bar) != top; ++i) Press(Qt::Key_Right);
    ASSERT_EQ(MarkedIn(bar), top);
  }

  // Chooses an entry of the menu bar; for one of a drop-down, with the name of that one too.
  void ChooseByKeys(const QString& top, const QString& entry = {}) {
    GoTo(top);
    if (!entry.isEmpty()) {
      Press(Qt::Key_Down);
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr) << top.toStdString();
      for (int i = 0; i < menu->actions().size() && MarkedIn(*menu) != entry; ++i) {
        Press(Qt::Key_Down);
      }
      ASSERT_EQ(MarkedIn(*menu), entry);
    }
    Press(Qt::Key_Return);
    program.Sweep();
  }

  template <typename Menu>
  static QString MarkedIn(const Menu& menu) {
    const QAction* action = menu.activeAction();
    return action == nullptr ? QString() : action->objectName();
  }

  QString Front() {
    const QMdiSubWindow* window = program.frame->findChild<QMdiArea*>()->activeSubWindow();
    return window == nullptr ? QString() : window->widget()->objectName();
  }
  bool IsOpen(const QString& form) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return program.IsOpen(form);
  }
  int CountPages() {
    return static_cast<int>(program.frame->findChild<QMdiArea*>()->subWindowList().size());
  }

  ShippedProgram program{"Italiano"};
};

TEST_F(Keys, AltAndF10GoToTheMenuBarAndBack) {
  ChooseByKeys("MnuSconti");
  Press(Qt::Key_Tab);
  const QWidget* field = Focus();
  for (const int key : {Qt::Key_Alt, Qt::Key_F10}) {
    Press(key);
    EXPECT_EQ(Focus(), program.frame->menuBar());
    EXPECT_EQ(MarkedIn(*program.frame->menuBar()), "mnuConnect");
    Press(key);
    EXPECT_EQ(Focus(), field);
    Press(key);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Focus(), field);
  }
}

TEST_F(Keys, AVisitToTheMenuBarKeepsWhatIsBeingTyped) {
  ChooseByKeys("MnuSconti");
  Press(Qt::Key_Tab);
  Type("12");
  Press(Qt::Key_F10);
  Press(Qt::Key_Escape);
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "12");
}

TEST_F(Keys, OpenEachPage) {
  struct Way {
    const char* top;
    const char* entry;
    const char* form;
  };
  constexpr Way kWays[] = {{"MnuPassword", "", "FrmPassword"},
                           {"MnuImpostazioni", "", "FrmImposta"},
                           {"MnuPrezzi", "", "FrmPrezzi"},
                           {"MnuSconti", "", "FrmSconti"},
                           {"MnuPagamento", "", "FrmPagamento"},
                           {"MnuSet", "Mnutasti", "FrmTastiColonna"},
                           {"MnuSet", "MnuColonne", "FrmColonnaProd"},
                           {"MnuOrologio", "", "FrmOrologio"},
                           {"MnuVendite", "MnuTotali", "FrmTotali"},
                           {"MnuVendite", "MnuContatori", "FrmContatori"},
                           {"MnuVendite", "MnuMonete", "FrmMonete"},
                           {"MnuVendite", "MnuBanconote", "FrmBanconote"},
                           {"MnuAllarmi", "", "FrmAllarmi"},
                           {"mnuVer", "", "FrmInfo"}};
  for (const auto& [top, entry, form] : kWays) {
    ChooseByKeys(top, entry);
    EXPECT_EQ(Front(), form);
  }
  EXPECT_EQ(CountPages(), 14);
}

TEST_F(Keys, ChooseAPort) {
  ChooseByKeys("mnuCom", "mnuCox(3)");
  EXPECT_TRUE(program.Entry("mnuCox(3)").isChecked());
}

TEST_F(Keys, TheWindowsListBringsAPageToTheFrontByItsNumber) {
  ChooseByKeys("MnuSconti");
  ChooseByKeys("MnuPrezzi");
  ChooseByKeys("mnuVer");
  GoTo("mnuWL");
  Press(Qt::Key_Down);
  Press(Qt::Key_2);
  EXPECT_EQ(Front(), "FrmPrezzi");
}

TEST_F(Keys, TheWindowsListDropsWithoutAPageToo) {
  GoTo("mnuWL");
  Press(Qt::Key_Down);
  const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 1);
  EXPECT_EQ(menu->actions().constFirst()->text(), "Nessuna pagina aperta");
  Press(Qt::Key_Return);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Front(), "");
}

TEST_F(Keys, CtrlF6GoesRoundThePagesAndBackWithShift) {
  ChooseByKeys("MnuSconti");
  ChooseByKeys("MnuPrezzi");
  ChooseByKeys("mnuVer");
  QStringList way;
  for (int i = 0; i < 3; ++i) {
    Press(Qt::Key_F6, Qt::ControlModifier);
    way << Front();
  }
  EXPECT_EQ(way, (QStringList{"FrmSconti", "FrmPrezzi", "FrmInfo"}));
  Press(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Front(), "FrmPrezzi");
}

TEST_F(Keys, CtrlTabGoesToThePageBeforeAndOn) {
  ChooseByKeys("MnuSconti");
  ChooseByKeys("MnuPrezzi");
  ChooseByKeys("mnuVer");
  QWindow* window = program.frame->windowHandle();
  std::set<QString> seen;
  for (int tabs = 1; tabs <= 3; ++tabs) {
    QTest::keyPress(window, Qt::Key_Control, Qt::ControlModifier);
    for (int i = 0; i < tabs; ++i) QTest::keyClick(window, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(window, Qt::Key_Control);
    seen.insert(Front());
  }
  EXPECT_GE(seen.size(), 2U);
  EXPECT_EQ(CountPages(), 3);
}

TEST_F(Keys, CtrlF4AndCtrlWCloseThePageInFrontAndNoOther) {
  ChooseByKeys("MnuSconti");
  ChooseByKeys("MnuPrezzi");
  ChooseByKeys("mnuVer");
  Press(Qt::Key_F4, Qt::ControlModifier);
  EXPECT_FALSE(IsOpen("FrmInfo"));
  EXPECT_EQ(CountPages(), 2);
  const QString front = Front();
  Press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(IsOpen(front));
  EXPECT_EQ(CountPages(), 1);
  EXPECT_TRUE(program.exits.empty());
}

TEST_F(Keys, WithoutAPageTheyDoNothing) {
  Press(Qt::Key_F4, Qt::ControlModifier);
  Press(Qt::Key_F6, Qt::ControlModifier);
  Press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(Front(), "");
  EXPECT_TRUE(program.exits.empty());
}

TEST_F(Keys, BehindAShutGateTheyDoNothing) {
  ChooseByKeys("MnuSconti");
  ChooseByKeys("MnuPrezzi");
  program.gate.End(0);
  Press(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_EQ(Front(), "FrmPrezzi");
}

TEST_F(Keys, ChangeABoxAndTheBarBesideIt) {
  ChooseByKeys("MnuSconti");
  Press(Qt::Key_Tab);
  Type("1.5");
  Press(Qt::Key_Return);
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(43), (Bytes{150, 0}));
  PressTimes(5, Qt::Key_Tab);  // past the other fields of the column
  ASSERT_EQ(NameOf(Focus()), "HScroll1(0)");
  PressTimes(2, Qt::Key_Right);
  Press(Qt::Key_PageDown);
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(43), (Bytes{252, 0}));
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "2.52");
}

TEST_F(Keys, TurnASwitchOver) {
  ChooseByKeys("MnuPassword");
  Press(Qt::Key_Tab);
  auto& toggle = program.Find<Toggle>("FrmPassword", "iSwitchToggleX1");
  ASSERT_EQ(Focus(), &toggle);
  Press(Qt::Key_Space);
  EXPECT_TRUE(toggle.IsChecked());
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(parameter::kOptions), Bytes{option::kPassword});
}

TEST_F(Keys, MoveTabsAndASliderBehindThem) {
  ChooseByKeys("MnuOrologio");
  Press(Qt::Key_Tab);
  PressTimes(2, Qt::Key_Right);
  EXPECT_EQ(program.Find<TabPages>("FrmOrologio", "SSTab1").Front(), 2);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_EQ(NameOf(Focus()), "iSwitchSliderX1");
  Press(Qt::Key_Left);
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(parameter::kOptions),
            Bytes{option::kEqualProducts | option::kOnOffTimes});
}

TEST_F(Keys, PressAButton) {
  ChooseByKeys("MnuOrologio");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_EQ(NameOf(Focus()), "Command1");
  Press(Qt::Key_Space);
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(parameter::kClockHours), Bytes{10});
}

TEST_F(Keys, ReadTheAlarmsAndCopyThem) {
  ChooseByKeys("MnuAllarmi");
  program.Sweep(100);
  Press(Qt::Key_Tab);
  const auto& list = program.Find<RecordList>("FrmAllarmi", "ListView1");
  ASSERT_EQ(Focus(), &list);
  Press(Qt::Key_Home);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(list.selectedItems().size(), 2);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "2\t00/00/00\t00:00\t\n3\t00/00/00\t00:00\t");
}

TEST_F(Keys, OpenADropDownAndLeaveItByEscape) {
  ChooseByKeys("MnuSconti");
  GoTo("mnuCom", Qt::Key_F10);
  Press(Qt::Key_Down);
  EXPECT_NE(QApplication::activePopupWidget(), nullptr);
  Press(Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(Focus(), program.frame->menuBar());
  Press(Qt::Key_Escape);
  EXPECT_EQ(NameOf(Focus()), "FrmSconti");
}

TEST_F(Keys, CopyAValueThatIsOnlyRead) {
  program.link.SetBoardNumber(289, 640);
  ChooseByKeys("MnuVendite", "MnuMonete");
  PressTimes(2, Qt::Key_Tab);
  ASSERT_EQ(NameOf(Focus()), "Label1(1)");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "640");
  Press(Qt::Key_Home);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "64");
}

TEST_F(Keys, CloseTheProgramWithItsPages) {
  ChooseByKeys("MnuSconti");
  // The window manager's Alt+F4 comes as this.
  EXPECT_TRUE(program.frame->windowHandle()->close());
  EXPECT_EQ(program.exits, std::vector<int>{0});
  EXPECT_EQ(program.started.size(), 1U);
}

}  // namespace
}  // namespace sorvane::test
