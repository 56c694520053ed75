#include "shell/controls/entry_box.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPalette>

#include "shell/controls/bench.h"
#include "shell/controls/contrast.h"

namespace sorvane {
namespace {

struct EntryBoxTest : testing::Test, GateBench {
  EntryBox box{gate, nullptr};
  int enters = 0;
  EntryBoxTest() {
    box.on_enter = [this] { ++enters; };
  }
  ~EntryBoxTest() override { QApplication::setPalette(desktop); }
  // A desktop with light text on dark fields.
  void GoDark() {
    QPalette dark = desktop;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    QApplication::setPalette(dark);
  }
  const QPalette desktop = QApplication::palette();
  QColor Ground() { return box.palette().color(QPalette::Active, QPalette::Base); }
  QColor Ink() { return box.palette().color(QPalette::Active, QPalette::Text); }
};

TEST_F(EntryBoxTest, ShowPutsTextAndSavedText) {
  box.Show("12,50");
  EXPECT_EQ(box.text(), "12,50");
  EXPECT_EQ(box.SavedText(), "12,50");
}

TEST_F(EntryBoxTest, SetTextLeavesTheSavedText) {
  box.Show("26");
  box.SetText("2026");
  EXPECT_EQ(box.text(), "2026");
  EXPECT_EQ(box.SavedText(), "26");
}

TEST_F(EntryBoxTest, RestorePutsTheSavedTextBackOnWhite) {
  box.Show("7");
  box.SetText("abc");
  box.SetRed();
  box.Restore();
  EXPECT_EQ(box.text(), "7");
  EXPECT_EQ(Ground(), QApplication::palette(&box).color(QPalette::Active, QPalette::Base));
  EXPECT_EQ(Ink(), QApplication::palette(&box).color(QPalette::Active, QPalette::Text));
}

TEST_F(EntryBoxTest, EnterOnMainKeysAndKeypadCallsOnEnter) {
  QTest::keyClick(&box, Qt::Key_Return);
  QTest::keyClick(&box, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(enters, 2);
}

TEST_F(EntryBoxTest, RepeatedEnterOfAHeldKeyIsIgnored) {
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&box, &repeated);
  EXPECT_EQ(enters, 0);
}

TEST_F(EntryBoxTest, EnterWithoutAHandlerDoesNothing) {
  box.on_enter = nullptr;
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_TRUE(reports.empty());
}

TEST_F(EntryBoxTest, AllOtherKeysGoToTheField) {
  QTest::keyClicks(&box, "a-1,");
  QTest::keyClick(&box, Qt::Key_Left);
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(box.text(), "a-,");
  EXPECT_EQ(enters, 0);
}

TEST_F(EntryBoxTest, LockedFieldTakesEnterButNoText) {
  box.SetLocked(true);
  box.Show("Italiano");
  QTest::keyClicks(&box, "x");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(box.text(), "Italiano");
  EXPECT_EQ(enters, 1);
}

TEST_F(EntryBoxTest, TypingStopsAtTheLimit) {
  box.SetCharacterLimit(4);
  QTest::keyClicks(&box, "12345");
  EXPECT_EQ(box.text(), "1234");
}

TEST_F(EntryBoxTest, PastedTextIsCutToFitWhereItIsInserted) {
  QApplication::clipboard()->setText("XYZ");
  box.SetCharacterLimit(5);
  QTest::keyClicks(&box, "123");
  box.setCursorPosition(1);
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "1XY23");
}

TEST_F(EntryBoxTest, PastingOverASelectionFillsTheRoomItFrees) {
  QApplication::clipboard()->setText("XYZ");
  box.SetCharacterLimit(4);
  QTest::keyClicks(&box, "1234");
  box.setSelection(1, 2);
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "1XY4");
}

TEST_F(EntryBoxTest, ProgramTextIsNeverCut) {
  box.SetCharacterLimit(4);
  box.Show("655,35");
  EXPECT_EQ(box.text(), "655,35");
  box.SetText("1234567");
  EXPECT_EQ(box.text(), "1234567");
  box.Restore();
  EXPECT_EQ(box.text(), "655,35");
}

TEST_F(EntryBoxTest, LimitSetLaterCutsNothing) {
  box.Show("655,35");
  box.SetCharacterLimit(2);
  EXPECT_EQ(box.text(), "655,35");
}

TEST_F(EntryBoxTest, ProgramTextBeyondTheLimitTakesNoMoreCharacters) {
  box.SetCharacterLimit(4);
  box.Show("123456");
  QTest::keyClicks(&box, "7");
  EXPECT_EQ(box.text(), "123456");
}

TEST_F(EntryBoxTest, WhatIsDeletedBeyondTheLimitCantBeTypedAgain) {
  box.SetCharacterLimit(4);
  box.Show("123456");
  box.setCursorPosition(2);
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClicks(&box, "7");
  EXPECT_EQ(box.text(), "13456");
  EXPECT_EQ(box.cursorPosition(), 1);
}

TEST_F(EntryBoxTest, LimitBindsAgainAfterALongProgramText) {
  box.SetCharacterLimit(4);
  box.Show("123456");
  box.SetText("");
  QTest::keyClicks(&box, "98765");
  EXPECT_EQ(box.text(), "9876");
}

TEST_F(EntryBoxTest, RedAndGreenBringTextThatCanBeReadOnADarkDesktopToo) {
  GoDark();
  box.SetRed();
  EXPECT_EQ(Ground(), QColor(255, 0, 0));
  EXPECT_EQ(Ink(), QColor(0, 0, 0));
  box.SetGreen();
  EXPECT_EQ(Ground(), QColor(0, 255, 0));
  EXPECT_EQ(Ink(), QColor(0, 0, 0));
  EXPECT_EQ(box.palette().color(QPalette::Inactive, QPalette::Base), QColor(0, 255, 0));
}

TEST_F(EntryBoxTest, ClosedFieldKeepsItsColourUntilItIsWhiteAgain) {
  const auto drawn = [this] { return box.grab().toImage().pixelColor(box.rect().center()); };
  box.resize(120, 30);
  box.SetOpen(false);
  const QColor closed = drawn();
  ASSERT_NE(closed, QColor(255, 0, 0));
  box.SetOpen(true);
  box.SetRed();
  box.SetOpen(false);
  EXPECT_EQ(drawn(), QColor(255, 0, 0));
  box.SetGreen();
  EXPECT_EQ(drawn(), QColor(0, 255, 0));
  box.SetWhite();
  EXPECT_EQ(drawn(), closed);
}

TEST_F(EntryBoxTest, WhiteIsTheFieldColourOfADarkDesktop) {
  box.SetRed();
  GoDark();
  box.SetWhite();
  EXPECT_EQ(Ground(), QColor(30, 30, 30));
  EXPECT_EQ(Ink(), QColor(240, 240, 240));
}

TEST_F(EntryBoxTest, FieldThatEmptiesSavesItsTextAndGivesItBack) {
  box.Show("12,50");
  box.GotFocus();
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(box.SavedText(), "12,50");
  QTest::keyClicks(&box, "9");
  box.LostFocus();
  EXPECT_EQ(box.text(), "12,50");
}

TEST_F(EntryBoxTest, FieldThatKeepsSavesWhatItShowed) {
  box.SetFocusRule(FocusRule::kKeeps);
  box.Show("26");
  box.SetText("2026");
  box.GotFocus();
  EXPECT_EQ(box.text(), "2026");
  EXPECT_EQ(box.SavedText(), "2026");
  QTest::keyClicks(&box, "9");
  box.LostFocus();
  EXPECT_EQ(box.text(), "2026");
}

TEST_F(EntryBoxTest, FieldWithoutARuleKeepsWhatWasTyped) {
  box.SetFocusRule(FocusRule::kNothing);
  box.Show("1");
  box.SetText("12");
  box.GotFocus();
  QTest::keyClicks(&box, "3");
  box.LostFocus();
  EXPECT_EQ(box.text(), "123");
  EXPECT_EQ(box.SavedText(), "1");
}

TEST_F(EntryBoxTest, ErrorOfAHandlerEndsTheProgramThroughTheGate) {
  box.on_enter = [] { throw RuntimeError(ErrorCode::kOverflow); };
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_TRUE(gate.IsShut());
  EXPECT_EQ(reports, std::vector<std::string>{"Run-time error '6':\n\nOverflow"});
}

TEST_F(EntryBoxTest, BehindAShutGateEnterDoesNothing) {
  gate.End(0);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(enters, 0);
}

TEST_F(EntryBoxTest, TypedTextStandsSlantedInItsOwnInkUntilItIsShownAnew) {
  box.Show("5");
  const QColor ink = Ink();
  QTest::keyClicks(&box, "1");
  EXPECT_FALSE(box.IsConfirmed());
  EXPECT_TRUE(box.font().italic());
  EXPECT_NE(Ink(), ink);
  box.Show("51");
  EXPECT_TRUE(box.IsConfirmed());
  EXPECT_FALSE(box.font().italic());
  EXPECT_EQ(Ink(), ink);
}

TEST_F(EntryBoxTest, TextThatIsShownUnconfirmedStaysSoOverALossOfTheFocus) {
  box.Show("5", false);
  EXPECT_TRUE(box.font().italic());
  box.GotFocus();
  EXPECT_FALSE(box.font().italic()) << "an empty field has nothing to be confirmed";
  box.LostFocus();
  EXPECT_EQ(box.text(), "5");
  EXPECT_TRUE(box.font().italic());
  box.SetText("6");
  EXPECT_FALSE(box.font().italic());
  box.Restore();
  EXPECT_TRUE(box.font().italic());
}

TEST_F(EntryBoxTest, LeavingWhatWasTypedBringsConfirmedTextBack) {
  box.Show("5");
  box.GotFocus();
  QTest::keyClicks(&box, "7");
  box.LostFocus();
  EXPECT_EQ(box.text(), "5");
  EXPECT_TRUE(box.IsConfirmed());
}

TEST_F(EntryBoxTest, UnconfirmedTextIsLegibleOnEveryGround) {
  box.Show("5", false);
  EXPECT_GT(test::Contrast(Ink(), Ground()), 4.5);
  box.SetRed();
  EXPECT_EQ(Ink(), QColor(Qt::black));
  GoDark();
  box.SetWhite();
  EXPECT_GT(test::Contrast(Ink(), Ground()), 4.5);
}

TEST_F(EntryBoxTest, TheSlantMovesNothing) {
  box.Show("5");
  const QSize upright = box.sizeHint();
  box.Show("5", false);
  EXPECT_EQ(box.sizeHint(), upright);
}

TEST_F(EntryBoxTest, AChangeOfStandingIsToldOnce) {
  int told = 0;
  box.on_standing = [&] { ++told; };
  QTest::keyClicks(&box, "12");
  EXPECT_EQ(told, 1);
  box.Show("12");
  box.Show("13");
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace sorvane
