#include "shell/controls/focus_keeper.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/controls/bar.h"
#include "shell/controls/bench.h"
#include "shell/controls/entry_box.h"

namespace sorvane {
namespace {

// A page with two fields and a bar, in a child window of a frame.
struct TestPage : QWidget {
  explicit TestPage(ProgramGate& gate)
      : keeper(new FocusKeeper(gate, this)),
        group(new QWidget(this)),
        first(new EntryBox(gate, group)),
        second(new EntryBox(gate, group)),
        bar(new Bar(gate, group)) {
    auto* rows = new QVBoxLayout(group);
    for (QWidget* control : std::initializer_list<QWidget*>{first, second, bar}) {
      rows->addWidget(control);
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(group);
    column->addSpacing(60);
    first->Show("1,00");
    second->Show("2,00");
  }
  void ClickGround() {
    QTest::mouseClick(this, Qt::LeftButton, Qt::NoModifier, QPoint(width() / 2, height() - 5));
  }

  FocusKeeper* keeper;
  QWidget* group;
  EntryBox* first;
  EntryBox* second;
  Bar* bar;
};

struct FocusTest : testing::Test, GateBench {
  QMainWindow frame;
  QMdiArea* area = new QMdiArea;
  QPointer<QMdiSubWindow> front;
  TestPage* page = nullptr;

  FocusTest() {
    frame.setCentralWidget(area);
    frame.menuBar()->addMenu("File")->addAction("Nothing");
    QObject::connect(area, &QMdiArea::subWindowActivated,
                     [this](QMdiSubWindow* window) { ComeToFront(window); });
  }
  // Tells the page that was in front, as the host of the pages does.
  void ComeToFront(QMdiSubWindow* window) {
    if (window == nullptr || window == front) return;
    if (front) dynamic_cast<TestPage&>(*front->widget()).keeper->Leave();
    front = window;
  }
  void SetUp() override {
    frame.resize(600, 500);
    ShowActive(frame);
    page = OpenPage();
  }
  TestPage* OpenPage() {
    auto* opened = new TestPage(gate);
    area->addSubWindow(opened)->show();
    return opened;
  }
  void BringToFront(TestPage* which) {
    area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(which->parentWidget()));
  }
  static QWidget* Focus() { return QApplication::focusWidget(); }
};

TEST_F(FocusTest, PageThatOpensGivesFirstFocusToNoField) {
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, PageThatOpensInAWindowOfItsOwnGivesFirstFocusToNoField) {
  TestPage alone(gate);
  ShowActive(alone);
  EXPECT_EQ(Focus(), &alone);
}

TEST_F(FocusTest, ClickOnAFieldEmptiesIt) {
  QTest::mouseClick(page->first, Qt::LeftButton);
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "");
}

TEST_F(FocusTest, MoveToAnotherFieldIsLossAndGain) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  QTest::mouseClick(page->second, Qt::LeftButton);
  EXPECT_EQ(page->first->text(), "1,00");
  EXPECT_EQ(page->second->text(), "");
}

TEST_F(FocusTest, MoveToABarIsALoss) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  ClickAt(*page->bar, 0.5);
  EXPECT_EQ(Focus(), page->bar);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, MoveBackFromABarIsANewGain) {
  page->first->setFocus();
  page->bar->setFocus();
  page->first->setFocus();
  EXPECT_EQ(page->first->text(), "");
}

TEST_F(FocusTest, TabGoesThroughTheFieldsInOrderAndSkipsThePage) {
  std::vector<QWidget*> visited;
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(Focus(), Qt::Key_Tab);
    visited.push_back(Focus());
  }
  EXPECT_EQ(visited, (std::vector<QWidget*>{page->first, page->second, page->bar, page->first}));
  QTest::keyClick(Focus(), Qt::Key_Backtab);
  EXPECT_EQ(Focus(), page->bar);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, BoxInFrontIsNoLossAndItsEndNoGain) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  {
    QDialog box(&frame);
    QPushButton button("OK", &box);
    box.setModal(true);
    ShowActive(box);
    ASSERT_NE(Focus(), page->first);
    EXPECT_EQ(page->first->text(), "9");
  }
  ShowActive(frame);
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "9");
  EXPECT_EQ(page->first->SavedText(), "1,00");
}

TEST_F(FocusTest, MenuIsNoLossAndItsEndNoGain) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  QMenu* menu = frame.menuBar()->actions().first()->menu();
  menu->popup(frame.mapToGlobal(QPoint(0, 0)));
  EXPECT_EQ(page->first->text(), "9");
  menu->close();
  frame.menuBar()->setFocus();
  EXPECT_EQ(page->first->text(), "9");
  page->first->setFocus();
  EXPECT_EQ(page->first->text(), "9");
}

TEST_F(FocusTest, AnotherPageInFrontIsALossAndComingBackANewGain) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  TestPage* other = OpenPage();
  EXPECT_EQ(Focus(), other);
  EXPECT_EQ(page->first->text(), "1,00");
  other->second->setFocus();
  page->first->SetText("3,00");
  BringToFront(page);
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "");
  EXPECT_EQ(page->first->SavedText(), "3,00");
  EXPECT_EQ(other->second->text(), "2,00");
}

TEST_F(FocusTest, LossBehindAnotherPageIsToldOnce) {
  page->first->setFocus();
  TestPage* other = OpenPage();
  other->first->setFocus();
  page->first->SetText("3,00");
  page->first->SetOpen(false);
  EXPECT_EQ(page->first->text(), "3,00");
  page->first->SetOpen(true);
  page->second->setFocus();
  EXPECT_EQ(page->first->text(), "3,00");
}

TEST_F(FocusTest, PageThatIsEnteredAgainAtAnotherControlGivesTheFocusToThatOneAlone) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  TestPage* other = OpenPage();
  other->first->setFocus();
  page->first->SetText("3,00");
  page->second->setFocus();
  EXPECT_EQ(page->first->text(), "3,00");
  EXPECT_EQ(page->second->text(), "");
  EXPECT_EQ(other->first->text(), "1,00");
  page->first->setFocus();
  EXPECT_EQ(page->first->SavedText(), "3,00");
  EXPECT_EQ(page->second->text(), "2,00");
}

TEST_F(FocusTest, ClickOnTheBareGroundOfAPageBehindIsAGainOfItsLastField) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  OpenPage();
  page->ClickGround();
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "");
  EXPECT_EQ(page->first->SavedText(), "1,00");
}

TEST_F(FocusTest, PageThatLeavesTheFrontWithoutTheKeyboardHasLostItsFocusToo) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  {
    QDialog box(&frame);
    ShowActive(box);
    TestPage* other = OpenPage();
    EXPECT_EQ(page->first->text(), "1,00");
    BringToFront(page);
    other->parentWidget()->close();
  }
  ShowActive(frame);
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "");
}

TEST_F(FocusTest, PageBehindAClosedOneHasItsFieldEmptied) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  TestPage* other = OpenPage();
  other->first->setFocus();
  other->parentWidget()->close();
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "");
  EXPECT_EQ(page->first->SavedText(), "1,00");
}

TEST_F(FocusTest, PageBehindAClosedOneGivesItsFieldsNoFocusUnasked) {
  TestPage* other = OpenPage();
  other->first->setFocus();
  other->parentWidget()->close();
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, ClickOnTheBareGroundIsNoMove) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  page->ClickGround();
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "9");
  QTest::keyClicks(Focus(), "8");
  EXPECT_EQ(page->first->text(), "98");
}

TEST_F(FocusTest, ClickOnTheBareGroundOfAFreshPageLeavesTheFieldsAlone) {
  page->ClickGround();
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, FieldThatIsClosedGivesItsFocusToThePageAndItsTextComesBack) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  page->first->SetOpen(false);
  EXPECT_FALSE(page->first->isEnabled());
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
  EXPECT_EQ(page->second->text(), "2,00");
}

TEST_F(FocusTest, FieldThatIsOpenedAgainGetsTheFocusOnlyWhenAsked) {
  page->first->setFocus();
  page->first->SetOpen(false);
  page->first->SetOpen(true);
  EXPECT_TRUE(page->first->isEnabled());
  EXPECT_EQ(Focus(), page);
  page->first->setFocus();
  EXPECT_EQ(page->first->text(), "");
}

TEST_F(FocusTest, FieldInAClosedGroupGivesItsFocusToThePage) {
  page->second->setFocus();
  QTest::keyClicks(page->second, "9");
  SetOpen(*page->group, false);
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->second->text(), "2,00");
}

TEST_F(FocusTest, BarThatIsClosedGivesItsFocusToThePage) {
  page->bar->setFocus();
  page->bar->SetOpen(false);
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, ClosingAnotherFieldLeavesTheFocus) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  page->second->SetOpen(false);
  EXPECT_EQ(Focus(), page->first);
  EXPECT_EQ(page->first->text(), "9");
}

TEST_F(FocusTest, ClosingAFieldBehindAnotherPageTakesThatPageNoFocus) {
  page->first->setFocus();
  QTest::keyClicks(page->first, "9");
  TestPage* other = OpenPage();
  other->first->setFocus();
  page->first->SetOpen(false);
  EXPECT_EQ(Focus(), other->first);
  EXPECT_EQ(page->first->text(), "1,00");
  BringToFront(page);
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->second->text(), "2,00");
}

TEST_F(FocusTest, ClosingAFieldBehindABoxEmptiesNoOtherFieldAfterIt) {
  page->first->setFocus();
  {
    QDialog box(&frame);
    QPushButton button("OK", &box);
    box.setModal(true);
    ShowActive(box);
    QWidget* before = Focus();
    page->first->SetOpen(false);
    EXPECT_EQ(Focus(), before);
  }
  ShowActive(frame);
  EXPECT_EQ(Focus(), page);
  EXPECT_EQ(page->first->text(), "1,00");
  EXPECT_EQ(page->second->text(), "2,00");
}

TEST_F(FocusTest, ClosingAFieldBehindABoxEmptiesNoOtherFieldOfAPageInAWindowOfItsOwn) {
  TestPage alone(gate);
  ShowActive(alone);
  alone.first->setFocus();
  {
    QDialog box(&alone);
    ShowActive(box);
    alone.first->SetOpen(false);
  }
  ShowActive(alone);
  EXPECT_EQ(Focus(), &alone);
  EXPECT_EQ(alone.second->text(), "2,00");
}

TEST_F(FocusTest, FieldReopenedBehindAnotherPageIsNotEmptiedByComingBack) {
  page->first->setFocus();
  TestPage* other = OpenPage();
  other->first->setFocus();
  page->first->SetOpen(false);
  page->first->SetOpen(true);
  BringToFront(page);
  EXPECT_EQ(page->first->text(), "1,00");
}

TEST_F(FocusTest, ControlWithoutAPageOpensAndCloses) {
  EntryBox box(gate, nullptr);
  box.SetOpen(false);
  EXPECT_FALSE(box.isEnabled());
  box.SetOpen(true);
  EXPECT_TRUE(box.isEnabled());
}

TEST_F(FocusTest, BehindAShutGateFieldsAreNotEmptied) {
  gate.End(0);
  page->first->setFocus();
  EXPECT_EQ(page->first->text(), "1,00");
}

}  // namespace
}  // namespace sorvane
