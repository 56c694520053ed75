#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTimerEvent>
#include <QVBoxLayout>

#include "shell/controls/bar.h"
#include "shell/controls/bench.h"

namespace sorvane {
namespace {

struct BarMouseTest : testing::Test, GateBench {
  QWidget window;
  Bar* bar = new Bar(gate, &window);
  QWidget* other = new QWidget(&window);
  std::vector<int> changes;

  BarMouseTest() {
    auto* rows = new QVBoxLayout(&window);
    rows->addWidget(bar);
    rows->addWidget(other);
    other->setFocusPolicy(Qt::StrongFocus);
    bar->SetRange(0, 100);
    bar->SetLargeStep(10);
    bar->SetPosition(50);
    bar->on_change = [this] { changes.push_back(bar->Position()); };
  }
  void SetUp() override {
    window.resize(500, 100);
    ShowActive(window);
    other->setFocus();
  }
  QPoint At(int x) const { return {x, bar->height() / 2}; }
  QPoint EndButton() const { return At(bar->width() - bar->height() / 2); }
  QPoint StartButton() const { return At(bar->height() / 2); }
  QPoint Middle() const { return At(bar->width() / 2); }
  void Press(const QPoint& at) { QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, at); }
  void Release(const QPoint& at) { QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, at); }
  void Drag(const QPoint& to) {
    QMouseEvent event(QEvent::MouseMove, QPointF(to), QPointF(bar->mapToGlobal(to)), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bar, &event);
  }
  // The interval of the bar's running timer in milliseconds; 0 if none runs.
  int Interval() const {
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(bar);
    return timers.isEmpty() ? 0 : timers.first().interval;
  }
  // Lets the bar's running timer, if any, go off now. Returns whether one runs.
  bool TimerGoesOff() {
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(bar);
    if (timers.isEmpty()) return false;
    QTimerEvent event(timers.first().timerId);
    QApplication::sendEvent(bar, &event);
    return true;
  }
};

TEST_F(BarMouseTest, ClickTakesTheFocus) {
  ASSERT_FALSE(bar->hasFocus());
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, Middle());
  EXPECT_TRUE(bar->hasFocus());
}

TEST_F(BarMouseTest, ClickOnAnEndButtonMovesByTheSmallStep) {
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, EndButton());
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, StartButton());
  EXPECT_EQ(changes, (std::vector<int>{51, 50}));
}

TEST_F(BarMouseTest, SecondClickOfADoubleClickCounts) {
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, EndButton());
  QTest::mouseDClick(bar, Qt::LeftButton, Qt::NoModifier, EndButton());
  EXPECT_EQ(changes, (std::vector<int>{51, 52}));
}

TEST_F(BarMouseTest, ClickOnTheTroughMovesByTheLargeStep) {
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, At(bar->width() * 9 / 10));
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, At(bar->width() / 10));
  EXPECT_EQ(changes, (std::vector<int>{60, 50}));
}

TEST_F(BarMouseTest, ClickAboveOrBelowTheTroughDoesNothingButTakeTheFocus) {
  for (const int y : {bar->height() / 5, bar->height() * 4 / 5}) {
    other->setFocus();
    const QPoint beside(bar->width() * 9 / 10, y);
    Press(beside);
    EXPECT_EQ(Interval(), 0);
    Release(beside);
    EXPECT_TRUE(bar->hasFocus());
  }
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarMouseTest, HeldTroughRestsWhileTheMouseIsAboveIt) {
  const QPoint trough = At(bar->width() * 9 / 10);
  Press(trough);
  Drag(QPoint(trough.x(), bar->height() / 5));
  TimerGoesOff();
  EXPECT_EQ(changes, std::vector<int>{60});
}

TEST_F(BarMouseTest, ThumbAndButtonsTakeTheMouseOverTheirWholeHeight) {
  const int above = bar->height() / 5;
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(EndButton().x(), above));
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(StartButton().x(), above));
  EXPECT_EQ(changes, (std::vector<int>{51, 50}));
  Press(QPoint(Middle().x(), above));
  Drag(QPoint(2000, above));
  Release(QPoint(2000, above));
  EXPECT_EQ(bar->Position(), 100);
}

TEST_F(BarMouseTest, OtherButtonsDoNothing) {
  QTest::mouseClick(bar, Qt::RightButton, Qt::NoModifier, EndButton());
  QTest::mouseClick(bar, Qt::MiddleButton, Qt::NoModifier, At(bar->width() / 10));
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarMouseTest, HeldEndButtonRepeatsUntilItsRelease) {
  Press(EndButton());
  EXPECT_TRUE(TimerGoesOff());
  EXPECT_TRUE(TimerGoesOff());
  EXPECT_EQ(changes, (std::vector<int>{51, 52, 53}));
  Release(EndButton());
  EXPECT_FALSE(TimerGoesOff());
  EXPECT_EQ(bar->Position(), 53);
}

TEST_F(BarMouseTest, HeldEndButtonRepeatsThroughClicksOfOtherButtons) {
  Press(EndButton());
  QTest::mouseClick(bar, Qt::RightButton, Qt::NoModifier, EndButton());
  EXPECT_TRUE(TimerGoesOff());
  EXPECT_EQ(changes, (std::vector<int>{51, 52}));
}

TEST_F(BarMouseTest, HeldButtonOrTroughWaitsBeforeItsFirstRepeatAndThenGoesFast) {
  for (const QPoint& at : {EndButton(), StartButton(), At(bar->width() / 10)}) {
    EXPECT_EQ(Interval(), 0);
    Press(at);
    std::vector<int> intervals;
    for (int i = 0; i < 3; ++i) {
      intervals.push_back(Interval());
      TimerGoesOff();
    }
    EXPECT_EQ(intervals, (std::vector<int>{500, 50, 50}));
    Release(at);
  }
}

TEST_F(BarMouseTest, HeldEndButtonRestsWhileTheMouseIsOffIt) {
  Press(EndButton());
  Drag(Middle());
  TimerGoesOff();
  EXPECT_EQ(changes, std::vector<int>{51});
  Drag(EndButton());
  TimerGoesOff();
  EXPECT_EQ(changes, (std::vector<int>{51, 52}));
}

TEST_F(BarMouseTest, HeldTroughStopsWhereTheThumbComesUnderTheMouse) {
  Press(At(bar->width() * 3 / 4));
  for (int i = 0; i < 20; ++i) TimerGoesOff();
  Release(At(bar->width() * 3 / 4));
  // 3/4 of the width lies between position 70, whose thumb ends short of it, and 80.
  EXPECT_EQ(changes, (std::vector<int>{60, 70, 80}));
}

TEST_F(BarMouseTest, DragChangesOnceAtItsRelease) {
  Press(Middle());
  Drag(Middle() + QPoint(30, 0));
  Drag(Middle() + QPoint(2000, 0));
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(bar->Position(), 50);
  Release(Middle() + QPoint(2000, 0));
  EXPECT_EQ(changes, std::vector<int>{100});
}

TEST_F(BarMouseTest, HeldEndButtonRestsWhileTheMouseIsOutsideTheBar) {
  Press(EndButton());
  Drag(EndButton() + QPoint(0, 500));
  TimerGoesOff();
  EXPECT_EQ(changes, std::vector<int>{51});
}

TEST_F(BarMouseTest, DragShowsTheThumbWhereItIsHeld) {
  Press(Middle());
  const QImage before = bar->grab().toImage();
  Drag(Middle() + QPoint(40, 0));
  EXPECT_NE(bar->grab().toImage(), before);
}

TEST_F(BarMouseTest, ThumbStaysUnderTheMouse) {
  const QPoint end = Middle() + QPoint(bar->width() / 4, 0);
  Press(Middle());
  Drag(end);
  Release(end);
  ASSERT_EQ(changes.size(), 1u);
  Press(end);
  EXPECT_FALSE(TimerGoesOff());  // on the trough it would repeat
}

TEST_F(BarMouseTest, ThumbIsAsWideOnEveryRange) {
  std::vector<int> widths;
  for (const int last : {3, 100, 32767}) {
    bar->SetRange(0, last);
    bar->SetPosition(0);
    // From the start button on, the thumb takes the mouse without repeating.
    int width = 0;
    for (int x = bar->height(); x < bar->width(); ++x) {
      Press(At(x));
      const bool on_thumb = !TimerGoesOff();
      Release(At(x));
      bar->SetPosition(0);
      if (!on_thumb && width > 0) break;
      width += on_thumb ? 1 : 0;
    }
    widths.push_back(width);
  }
  EXPECT_GT(widths[0], bar->height() / 2);
  EXPECT_LT(widths[0], 2 * bar->height());
  EXPECT_EQ(widths, std::vector<int>(3, widths[0]));
}

TEST_F(BarMouseTest, ThumbThatIsTakenAndPutBackChangesNothing) {
  bar->SetRange(-32768, 32767);
  bar->SetPosition(3);
  changes.clear();
  Press(Middle());
  Drag(Middle() + QPoint(10, 0));
  Drag(Middle());
  Release(Middle());
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(bar->Position(), 3);
}

TEST_F(BarMouseTest, DragOverTheWholeTroughReachesBothEndsOfTheLargestRange) {
  bar->SetRange(-32768, 32767);
  bar->SetPosition(0);
  changes.clear();
  Press(Middle());
  Release(At(-1000));
  EXPECT_EQ(changes, std::vector<int>{-32768});
}

TEST_F(BarMouseTest, ReplyDuringADragDoesntEndIt) {
  Press(Middle());
  Drag(Middle() + QPoint(2000, 0));
  bar->SetPosition(10);
  Release(Middle() + QPoint(2000, 0));
  EXPECT_EQ(changes, (std::vector<int>{10, 100}));
}

TEST_F(BarMouseTest, KeysRestWhileTheMouseHoldsTheBar) {
  Press(Middle());
  QTest::keyClick(bar, Qt::Key_Right);
  Release(Middle());
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarMouseTest, ClosingTheBarEndsAHeldButtonAndADrag) {
  Press(EndButton());
  bar->SetOpen(false);
  EXPECT_FALSE(TimerGoesOff());
  bar->SetOpen(true);
  Press(Middle());
  Drag(Middle() + QPoint(2000, 0));
  bar->SetOpen(false);
  bar->SetOpen(true);
  Release(Middle() + QPoint(2000, 0));
  EXPECT_EQ(changes, std::vector<int>{51});
}

TEST_F(BarMouseTest, HidingTheBarEndsAHeldButton) {
  other->setFocusPolicy(Qt::NoFocus);
  Press(EndButton());
  bar->hide();
  EXPECT_FALSE(TimerGoesOff());
}

TEST_F(BarMouseTest, WhatTakesTheFocusEndsAHeldButton) {
  Press(EndButton());
  other->setFocus();
  EXPECT_FALSE(TimerGoesOff());
}

TEST_F(BarMouseTest, BoxThatComesUpEndsADrag) {
  Press(Middle());
  Drag(Middle() + QPoint(2000, 0));
  {
    QDialog box(&window);
    ShowActive(box);
  }
  Release(Middle() + QPoint(2000, 0));
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarMouseTest, ErrorAtAHeldButtonEndsTheRepeats) {
  bar->on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  Press(EndButton());
  EXPECT_TRUE(gate.IsShut());
  EXPECT_FALSE(TimerGoesOff());
}

TEST_F(BarMouseTest, ErrorAtARepeatEndsTheProgramThroughTheGate) {
  Press(EndButton());
  bar->on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  EXPECT_TRUE(TimerGoesOff());
  EXPECT_TRUE(gate.IsShut());
}

TEST_F(BarMouseTest, ClosedBarTakesNoClick) {
  bar->SetOpen(false);
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, EndButton());
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarMouseTest, RangeOfOneValueTakesClicksWithoutChange) {
  bar->SetRange(7, 7);
  changes.clear();
  for (const QPoint& at : {StartButton(), Middle(), EndButton()}) {
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, at);
  }
  EXPECT_TRUE(changes.empty());
  EXPECT_EQ(bar->Position(), 7);
  // The thumb stands behind the start button and is held there, so that nothing repeats.
  Press(At(3 * bar->height() / 2));
  EXPECT_FALSE(TimerGoesOff());
}

}  // namespace
}  // namespace sorvane
