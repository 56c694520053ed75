#include "shell/controls/toggle.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

struct ToggleTest : testing::Test, GateBench {
  Toggle toggle{gate, nullptr};
  std::vector<bool> changes;
  ToggleTest() {
    toggle.resize(toggle.sizeHint());
    toggle.on_change = [this] { changes.push_back(toggle.IsChecked()); };
  }
};

TEST_F(ToggleTest, IsOffAtFirst) { EXPECT_EQ(toggle.property("checked"), false); }

TEST_F(ToggleTest, ClickAnywhereTurnsItOver) {
  ClickAt(toggle, 0.05);
  ClickAt(toggle, 0.95);
  ClickAt(toggle, 0.95);
  EXPECT_EQ(changes, (std::vector<bool>{true, false, true}));
  EXPECT_EQ(toggle.property("checked"), true);
}

TEST_F(ToggleTest, SpaceAndEnterTurnItOver) {
  QTest::keyClick(&toggle, Qt::Key_Space);
  QTest::keyClick(&toggle, Qt::Key_Return);
  QTest::keyClick(&toggle, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(changes, (std::vector<bool>{true, false, true}));
}

TEST_F(ToggleTest, HeldKeyTurnsItOverOnce) {
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  QApplication::sendEvent(&toggle, &repeated);
  EXPECT_TRUE(changes.empty());
}

TEST_F(ToggleTest, OtherKeysAndButtonsDoNothing) {
  QTest::keyClicks(&toggle, "x1");
  QTest::mouseClick(&toggle, Qt::RightButton);
  EXPECT_TRUE(changes.empty());
}

TEST_F(ToggleTest, ButtonReleasedOutsideDoesNothing) {
  QTest::mousePress(&toggle, Qt::LeftButton);
  QTest::mouseRelease(&toggle, Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
  EXPECT_TRUE(changes.empty());
}

TEST_F(ToggleTest, OtherButtonInBetweenDoesntCount) {
  QTest::mousePress(&toggle, Qt::LeftButton);
  QTest::mouseClick(&toggle, Qt::RightButton);
  EXPECT_TRUE(changes.empty());
  QTest::mouseRelease(&toggle, Qt::LeftButton);
  EXPECT_EQ(changes, std::vector<bool>{true});
}

TEST_F(ToggleTest, ClosingItLetsThePressedButtonGo) {
  QTest::mousePress(&toggle, Qt::LeftButton);
  toggle.SetOpen(false);
  toggle.SetOpen(true);
  QTest::mouseRelease(&toggle, Qt::LeftButton);
  EXPECT_TRUE(changes.empty());
}

TEST_F(ToggleTest, ProgramCallsOnChangeOncePerChange) {
  toggle.SetChecked(true);
  toggle.SetChecked(true);
  toggle.SetChecked(false);
  EXPECT_EQ(changes, (std::vector<bool>{true, false}));
}

TEST_F(ToggleTest, ErrorOfTheHandlerGoesToTheProgramOrToTheGate) {
  toggle.on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  ExpectError(ErrorCode::kOverflow, [this] { toggle.SetChecked(true); });
  EXPECT_FALSE(gate.IsShut());
  QTest::keyClick(&toggle, Qt::Key_Space);
  EXPECT_TRUE(gate.IsShut());
}

TEST_F(ToggleTest, BehindAShutGateItStays) {
  gate.End(0);
  ClickAt(toggle, 0.5);
  EXPECT_FALSE(toggle.IsChecked());
}

TEST_F(ToggleTest, ClosedSwitchTakesNoClickButShowsWhatTheProgramSets) {
  EXPECT_TRUE(TakesClick(toggle));
  ASSERT_TRUE(toggle.IsChecked());
  toggle.SetOpen(false);
  EXPECT_FALSE(TakesClick(toggle));
  EXPECT_TRUE(toggle.IsChecked());
  toggle.SetChecked(false);
  EXPECT_FALSE(toggle.IsChecked());
}

// Whether the knob of a switch that is on stands in its left half.
bool KnobIsAtLeft(Toggle& toggle) {
  const QImage picture = toggle.grab().toImage();
  const QColor knob = toggle.palette().color(QPalette::HighlightedText);
  const int middle = picture.height() / 2;
  const int left = picture.width() * 3 / 10;
  const int right = picture.width() - 1 - left;
  EXPECT_NE(picture.pixelColor(left, middle), picture.pixelColor(right, middle));
  return picture.pixelColor(left, middle) == knob;
}

TEST_F(ToggleTest, TheKnobOfASwitchThatIsOnStandsAtTheRight) {
  toggle.resize(toggle.sizeHint());
  toggle.SetChecked(true);
  EXPECT_FALSE(KnobIsAtLeft(toggle));
}

TEST_F(ToggleTest, TheKnobStandsAtTheLeftWhereTheCaptionsSaySo) {
  toggle.resize(toggle.sizeHint());
  toggle.SetOnAtLeft();
  toggle.SetChecked(true);
  EXPECT_TRUE(KnobIsAtLeft(toggle));
}

TEST_F(ToggleTest, TakesTheFocusOnAClickAndByTab) {
  EXPECT_EQ(toggle.focusPolicy(), Qt::StrongFocus);
}

}  // namespace
}  // namespace sorvane
