#include "shell/controls/tab_pages.h"

#include <QApplication>
#include <QTabBar>
#include <QVBoxLayout>
#include <cstdlib>

#include "shell/controls/bench.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/focus_keeper.h"

namespace sorvane {
namespace {

// Three tabs with one field on each, alone on a page.
struct TabPagesTest : testing::Test, GateBench {
  QWidget page;
  TabPages* tabs = new TabPages(gate, &page);
  QTabBar* strip = tabs->findChild<QTabBar*>();
  std::vector<EntryBox*> fields;

  TabPagesTest() {
    new FocusKeeper(gate, &page);
    (new QVBoxLayout(&page))->addWidget(tabs);
    for (const char* caption : {"Orologio", "Sconti", "Accendi"}) {
      QWidget* sheet = tabs->AddTab(caption);
      fields.push_back(new EntryBox(gate, sheet));
      fields.back()->Show("5");
      (new QVBoxLayout(sheet))->addWidget(fields.back());
    }
  }
  void SetUp() override { ShowActive(page); }
  void ClickTab(int tab) {
    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->tabRect(tab).center());
  }
  int VisibleField() const {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i]->isVisible()) return static_cast<int>(i);
    }
    return -1;
  }
};

TEST_F(TabPagesTest, FirstTabIsInFront) {
  EXPECT_EQ(tabs->property("front"), 0);
  EXPECT_EQ(VisibleField(), 0);
}

TEST_F(TabPagesTest, ClickAndArrowsBringATabToTheFront) {
  ClickTab(2);
  EXPECT_EQ(tabs->Front(), 2);
  EXPECT_EQ(VisibleField(), 2);
  QTest::keyClick(strip, Qt::Key_Left);
  EXPECT_EQ(tabs->Front(), 1);
  EXPECT_EQ(VisibleField(), 1);
}

TEST_F(TabPagesTest, ProgramBringsATabToTheFront) {
  tabs->SetFront(1);
  EXPECT_EQ(tabs->Front(), 1);
  EXPECT_EQ(VisibleField(), 1);
  EXPECT_EQ(strip->currentIndex(), 1);
}

TEST_F(TabPagesTest, ClosedTabCantBeChosenByMouse) {
  tabs->SetTabOpen(1, false);
  ClickTab(1);
  EXPECT_EQ(tabs->Front(), 0);
  EXPECT_EQ(VisibleField(), 0);
}

TEST_F(TabPagesTest, KeysPassOverAClosedTab) {
  tabs->SetTabOpen(1, false);
  QTest::keyClick(strip, Qt::Key_Right);
  EXPECT_EQ(tabs->Front(), 2);
  QTest::keyClick(strip, Qt::Key_Left);
  EXPECT_EQ(tabs->Front(), 0);
}

TEST_F(TabPagesTest, ClosingTheFrontTabNeitherMovesItNorClosesItsContents) {
  tabs->SetFront(1);
  tabs->SetTabOpen(1, false);
  EXPECT_EQ(tabs->Front(), 1);
  EXPECT_EQ(strip->currentIndex(), 1);
  EXPECT_EQ(VisibleField(), 1);
  EXPECT_TRUE(fields[1]->isEnabled());
  EXPECT_FALSE(tabs->IsTabOpen(1));
}

TEST_F(TabPagesTest, ClosingAllTabsLeavesTheFrontOneAndOpeningThemToo) {
  for (int tab = 0; tab < 3; ++tab) tabs->SetTabOpen(tab, false);
  EXPECT_EQ(tabs->Front(), 0);
  EXPECT_EQ(strip->currentIndex(), 0);
  QTest::keyClick(strip, Qt::Key_Right);
  EXPECT_EQ(tabs->Front(), 0);
  tabs->SetTabOpen(2, true);
  EXPECT_EQ(tabs->Front(), 0);
  EXPECT_EQ(strip->currentIndex(), 0);
  ClickTab(2);
  EXPECT_EQ(tabs->Front(), 2);
}

TEST_F(TabPagesTest, ProgramMayBringAClosedTabToTheFront) {
  tabs->SetTabOpen(2, false);
  tabs->SetFront(2);
  EXPECT_EQ(tabs->Front(), 2);
  EXPECT_EQ(VisibleField(), 2);
}

TEST_F(TabPagesTest, ClosingTheTabWithTheFocusLeavesTheFocus) {
  fields[0]->setFocus();
  tabs->SetTabOpen(0, false);
  EXPECT_EQ(QApplication::focusWidget(), fields[0]);
}

TEST_F(TabPagesTest, ClosedWholeTakesAllContentsAlongAndKeepsTheFrontTab) {
  tabs->SetFront(1);
  fields[1]->setFocus();
  SetOpen(*tabs, false);
  EXPECT_FALSE(fields[1]->isEnabled());
  EXPECT_EQ(tabs->Front(), 1);
  EXPECT_EQ(QApplication::focusWidget(), &page);
  EXPECT_EQ(fields[1]->text(), "5");
  ClickTab(0);
  EXPECT_EQ(tabs->Front(), 1);
  SetOpen(*tabs, true);
  EXPECT_TRUE(fields[1]->isEnabled());
}

TEST_F(TabPagesTest, TabThatGoesToTheBackEmptiesNoFieldOfTheNext) {
  fields[0]->setFocus();
  QTest::keyClicks(fields[0], "9");
  tabs->SetFront(1);
  EXPECT_EQ(QApplication::focusWidget(), strip);
  EXPECT_EQ(fields[0]->text(), "5");
  EXPECT_EQ(fields[1]->text(), "5");
  tabs->SetFront(0);
  EXPECT_EQ(fields[0]->text(), "5");
}

TEST_F(TabPagesTest, ClickOnATabIsALossForAField) {
  fields[0]->setFocus();
  QTest::keyClicks(fields[0], "9");
  ClickTab(1);
  EXPECT_EQ(QApplication::focusWidget(), strip);
  EXPECT_EQ(fields[0]->text(), "5");
  EXPECT_EQ(fields[1]->text(), "5");
}

TEST_F(TabPagesTest, ClickOnTheTabInFrontIsALossToo) {
  fields[0]->setFocus();
  QTest::keyClicks(fields[0], "9");
  ClickTab(0);
  EXPECT_EQ(QApplication::focusWidget(), strip);
  EXPECT_EQ(fields[0]->text(), "5");
}

TEST_F(TabPagesTest, CaptionsShowAmpersandsAsTheyAre) {
  tabs->SetCaption(2, "On & Off");
  EXPECT_EQ(tabs->Caption(2), "On & Off");
  EXPECT_EQ(strip->tabText(2), "On && Off");
}

TEST_F(TabPagesTest, ALineGoesAllAroundTheContents) {
  const QImage picture = tabs->grab().toImage();
  const int right = picture.width() - 1;
  const int bottom = picture.height() - 1;
  const int middle = (strip->height() + bottom) / 2;
  const QColor inside = picture.pixelColor(4, bottom - 4);
  for (const QPoint& place :
       {QPoint(0, middle), QPoint(right, middle), QPoint(right / 2, bottom)}) {
    EXPECT_GT(std::abs(picture.pixelColor(place).lightness() - inside.lightness()), 10)
        << place.x() << " " << place.y();
  }
}

TEST_F(TabPagesTest, TabThatDoesntExistFails) {
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { tabs->SetFront(3); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { tabs->SetFront(-1); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { tabs->SetTabOpen(3, true); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { tabs->SetCaption(3, "x"); });
  EXPECT_EQ(tabs->Front(), 0);
}

TEST_F(TabPagesTest, BehindAShutGateTheFrontTabStays) {
  gate.End(0);
  ClickTab(1);
  EXPECT_EQ(tabs->Front(), 0);
  EXPECT_EQ(VisibleField(), 0);
}

}  // namespace
}  // namespace sorvane
