#include "shell/controls/bar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QWheelEvent>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

struct BarTest : testing::Test, GateBench {
  Bar bar{gate, nullptr};
  std::vector<int> changes;
  BarTest() {
    bar.SetRange(0, 100);
    bar.SetLargeStep(10);
    bar.SetPosition(50);
    bar.on_change = [this] { changes.push_back(bar.Position()); };
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&bar, key, modifiers);
  }
};

TEST_F(BarTest, FreshBarStandsAt0) {
  Bar fresh(gate, nullptr);
  EXPECT_EQ(fresh.Position(), 0);
  EXPECT_EQ(fresh.Minimum(), 0);
  EXPECT_EQ(fresh.Maximum(), 32767);
}

TEST_F(BarTest, ArrowsMoveByTheSmallStep) {
  Press(Qt::Key_Right);
  Press(Qt::Key_Down);
  Press(Qt::Key_Left);
  Press(Qt::Key_Up);
  EXPECT_EQ(changes, (std::vector<int>{51, 52, 51, 50}));
}

TEST_F(BarTest, PageKeysMoveByTheLargeStep) {
  Press(Qt::Key_PageDown);
  Press(Qt::Key_PageUp);
  EXPECT_EQ(changes, (std::vector<int>{60, 50}));
}

TEST_F(BarTest, HomeAndEndMoveToTheEnds) {
  Press(Qt::Key_End);
  Press(Qt::Key_Home);
  EXPECT_EQ(changes, (std::vector<int>{100, 0}));
}

TEST_F(BarTest, HeldKeyMovesPerRepeat) {
  for (int i = 0; i < 3; ++i) {
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&bar, &repeated);
  }
  EXPECT_EQ(changes, (std::vector<int>{51, 52, 53}));
}

TEST_F(BarTest, StepsEndAtTheEndsAndDontWrap) {
  bar.SetPosition(95);
  changes.clear();
  Press(Qt::Key_PageDown);
  Press(Qt::Key_PageDown);
  Press(Qt::Key_Right);
  EXPECT_EQ(changes, std::vector<int>{100});
}

TEST_F(BarTest, KeysWithCtrlOrAltAreNotTheBars) {
  Press(Qt::Key_Right, Qt::ControlModifier);
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarTest, ArrowsOfTheKeypadCount) {
  Press(Qt::Key_Right, Qt::KeypadModifier);
  EXPECT_EQ(changes, std::vector<int>{51});
}

TEST_F(BarTest, ProgramCallsOnChangeOncePerChange) {
  bar.SetPosition(51);
  bar.SetPosition(51);
  bar.SetLimited(52);
  bar.SetLimited(52);
  EXPECT_EQ(changes, (std::vector<int>{51, 52}));
}

TEST_F(BarTest, SetPositionFailsOutsideTheRange) {
  bar.SetRange(1, 31);
  changes.clear();
  bar.SetPosition(5);
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetPosition(0); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetPosition(32); });
  EXPECT_EQ(bar.Position(), 5);
  EXPECT_EQ(changes, std::vector<int>{5});
  bar.SetPosition(1);
  bar.SetPosition(31);
  EXPECT_EQ(bar.Position(), 31);
}

TEST_F(BarTest, SetLimitedTakesTheNearestEnd) {
  bar.SetLimited(1000);
  bar.SetLimited(-1);
  EXPECT_EQ(changes, (std::vector<int>{100, 0}));
}

TEST_F(BarTest, RangeSpansAllSixteenBitsAndNoMore) {
  bar.SetRange(-32768, 32767);
  bar.SetPosition(-32768);
  bar.SetPosition(32767);
  EXPECT_EQ(bar.Position(), 32767);
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetRange(-32769, 0); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetRange(0, 32768); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetRange(2, 1); });
  EXPECT_EQ(bar.Minimum(), -32768);
}

TEST_F(BarTest, NewRangeTakesThePositionAlongSilently) {
  bar.SetRange(60, 70);
  EXPECT_EQ(bar.Position(), 60);
  bar.SetRange(1, 20);
  EXPECT_EQ(bar.Position(), 20);
  EXPECT_TRUE(changes.empty());
}

TEST_F(BarTest, LargeStepIsAtLeast1) {
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetLargeStep(0); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { bar.SetLargeStep(32768); });
  Press(Qt::Key_PageDown);
  EXPECT_EQ(bar.Position(), 60);
}

TEST_F(BarTest, ErrorOfTheHandlerGoesToTheProgramThatSetThePosition) {
  bar.on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  ExpectError(ErrorCode::kOverflow, [this] { bar.SetPosition(51); });
  EXPECT_FALSE(gate.IsShut());
}

TEST_F(BarTest, ErrorOfTheHandlerAtAKeyEndsTheProgramThroughTheGate) {
  bar.on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  Press(Qt::Key_Right);
  EXPECT_TRUE(gate.IsShut());
  EXPECT_EQ(reports.size(), 1u);
}

TEST_F(BarTest, BehindAShutGateKeysAndMouseDoNothing) {
  gate.End(0);
  Press(Qt::Key_Right);
  ClickAt(bar, 0.99);
  EXPECT_EQ(bar.Position(), 50);
}

TEST_F(BarTest, PositionAndRangeAreProperties) {
  EXPECT_EQ(bar.property("position"), 50);
  EXPECT_EQ(bar.property("minimum"), 0);
  EXPECT_EQ(bar.property("maximum"), 100);
}

TEST_F(BarTest, WheelDoesNothing) {
  const QPointF middle(bar.width() / 2.0, bar.height() / 2.0);
  QWheelEvent wheel(middle, middle, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&bar, &wheel);
  EXPECT_EQ(bar.Position(), 50);
  EXPECT_FALSE(wheel.isAccepted());
  EXPECT_EQ(bar.focusPolicy() & Qt::WheelFocus & ~Qt::StrongFocus, 0);
}

TEST_F(BarTest, ThereIsNoContextMenuNorOneOfThePage) {
  struct Parent : QWidget {
    int menus = 0;
    void contextMenuEvent(QContextMenuEvent*) override { ++menus; }
  } parent;
  Bar child(gate, &parent);
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), QPoint(3, 3));
  QApplication::sendEvent(&child, &event);
  EXPECT_EQ(parent.menus, 0);
}

}  // namespace
}  // namespace sorvane
