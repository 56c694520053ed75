#include <gtest/gtest.h>

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

#include "shell/program.h"

// The list of the open pages in the menu bar.
namespace sorvane::test {
namespace {

QStringList Captions(const QList<QAction*>& actions) {
  QStringList captions;
  for (const QAction* action : actions) {
    if (action->isVisible() && !action->isSeparator()) captions << action->text();
  }
  return captions;
}

// The discounts with the info page in front of them, and the list open.
struct TwoPages : testing::Test {
  TwoPages() {
    program.Connect();
    program.Open("MnuSconti");
    program.Choose("mnuVer");
    menu = program.frame->findChild<QMenu*>("mnuWL");
    emit menu->aboutToShow();
  }

  Program program;
  QMenu* menu = nullptr;
};

TEST_F(TwoPages, AreListedByNumberWithTheFrontOneChecked) {
  EXPECT_EQ(Captions(menu->actions()), (QStringList{"&1 Alfa 4", "&2 Info"}));
  EXPECT_FALSE(menu->actions()[0]->isChecked());
  EXPECT_TRUE(menu->actions()[1]->isChecked());
}

TEST_F(TwoPages, ComeToTheFrontByTheirEntries) {
  menu->actions()[0]->trigger();
  auto* area = program.frame->findChild<QMdiArea*>();
  EXPECT_EQ(area->activeSubWindow()->widget()->objectName(), "FrmSconti");
}

TEST(WindowsMenu, TheFirstNinePagesHaveTheirNumberAsAccessKey) {
  Program program;
  program.Connect();
  for (const PageEntry& page : kPageEntries) program.Choose(page.entry);
  auto* menu = program.frame->findChild<QMenu*>("mnuWL");
  emit menu->aboutToShow();
  const QStringList captions = Captions(menu->actions());
  ASSERT_EQ(captions.size(), 13);
  for (int i = 0; i < 13; ++i) {
    const QString number = QString::number(i + 1) + " ";
    EXPECT_TRUE(captions[i].startsWith(i < 9 ? "&" + number : number)) << captions[i].toStdString();
    EXPECT_EQ(captions[i].count('&'), i < 9 ? 1 : 0) << captions[i].toStdString();
  }
}

TEST(WindowsMenu, SaysInOneClosedLineThatNoPageIsOpen) {
  Program program;
  program.Connect();
  auto* menu = program.frame->findChild<QMenu*>("mnuWL");
  const auto expect_no_page = [&] {
    emit menu->aboutToShow();
    EXPECT_EQ(Captions(menu->actions()), QStringList{"No page is open"});
    EXPECT_FALSE(menu->actions().constFirst()->isEnabled());
  };
  expect_no_page();
  program.Open("MnuSconti");
  emit menu->aboutToShow();
  EXPECT_EQ(Captions(menu->actions()), QStringList{"&1 Alfa 4"});
  program.frame->findChild<QMdiArea*>()->closeActiveSubWindow();
  expect_no_page();
}

TEST(WindowsMenu, SaysSoInItalianWithTheItalianFile) {
  Program program({.language_files = false});
  program.WriteText("Italiano.lng", "Password\r\n");
  program.Start();
  auto* menu = program.frame->findChild<QMenu*>("mnuWL");
  emit menu->aboutToShow();
  EXPECT_EQ(Captions(menu->actions()), QStringList{"Nessuna pagina aperta"});
}

}  // namespace
}  // namespace sorvane::test
