#include <QApplication>
#include <QKeyEvent>
#include <QTime>

#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

// What happens on the password page, with the digits 1 2 3 4, while a typed digit waits its half
// second.
class PasswordWait : public PageTest {
 protected:
  PasswordWait() : PageTest("FrmPassword", "MnuPassword", kPoint) {
    SetNumbers(411, {1, 2, 3, 4});
    Open();
  }

  // Shifts the PC's clock, which goes on from there.
  void SetClockBack(int seconds) {
    program.now = [before = program.now, seconds] { return before().addSecs(-seconds); };
  }
  // One more key press of a key that is held down.
  void Repeat(const QString& field, Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&program.Find("FrmPassword", field), &press);
  }
};

TEST_F(PasswordWait, ASecondEnterInTheSameFieldStartsAnotherHalfSecondWithinTheFirst) {
  Type("Text1(0)", "7");
  Wait(300);
  Press("Text1(0)", Qt::Key_Return);
  Wait(300);  // the first mark has gone by
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(PasswordWait, TwoWaitsOfAFieldEndTogether) {
  Type("Text1(0)", "7");
  Wait(300);
  Press("Text1(0)", Qt::Key_Return);
  Wait(700);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  EXPECT_EQ(program.link.Value(411), Bytes{7});
  EXPECT_EQ(program.link.Value(415), Bytes{7});
}

TEST_F(PasswordWait, ASecondEnterInAnotherFieldHoldsTheFirstWait) {
  Type("Text1(0)", "7");
  Wait(300);
  Type("Text1(1)", "8");
  Wait(300);
  EXPECT_EQ(Ground("Text1(1)"), kGreen);
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(PasswordWait, TwoWaitsOfTwoFieldsEndTogether) {
  Type("Text1(0)", "7");
  Wait(300);
  Type("Text1(1)", "8");
  Wait(700);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  EXPECT_TRUE(IsWhite("Text1(1)"));
  // The first field had lost the focus and its digit with it.
  ExpectSent({WriteFrame(411, 1), WriteFrame(412, 8), WriteFrame(415, 1), WriteFrame(416, 8)});
}

TEST_F(PasswordWait, TheSecondEnterIsWrittenBeforeTheFirst) {
  Type("Text1(0)", "7");
  SetClockBack(2);
  Type("Text1(1)", "8");
  Wait(700);
  EXPECT_TRUE(IsWhite("Text1(1)"));
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  ExpectSent({WriteFrame(412, 8), WriteFrame(416, 8)});
  Wait(2000);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  ExpectSent({WriteFrame(411, 1), WriteFrame(415, 1)});
}

TEST_F(PasswordWait, AnEnterAfterMidnightIsWrittenAlthoughTheFirstWaitNeverEnds) {
  SetClock(QTime(23, 59, 59, 700));
  Type("Text1(0)", "7");
  Wait(1000);
  Type("Text1(1)", "8");
  Wait(700);
  ExpectSent({WriteFrame(412, 8), WriteFrame(416, 8)});
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
}

TEST_F(PasswordWait, ARefusedEnterInAnotherFieldHoldsNothing) {
  Type("Text1(0)", "7");
  Wait(300);
  Type("Text1(1)", "-");
  EXPECT_TRUE(IsWhite("Text1(1)"));
  Wait(400);
  ExpectSent({WriteFrame(411, 1), WriteFrame(415, 1)});
}

TEST_F(PasswordWait, ARefusedEnterInTheSameFieldBringsTheOldDigitBackAndTheGreenGoesOn) {
  Type("Text1(0)", "7");
  Wait(100);
  Type("Text1(0)", "");
  EXPECT_EQ(Text("Text1(0)"), "1");
  EXPECT_TRUE(IsWhite("Text1(0)"));
  Wait(200);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  Wait(300);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  ExpectSent({WriteFrame(411, 1), WriteFrame(415, 1)});
}

TEST_F(PasswordWait, TheRepeatsOfAHeldEnterStartNothingAfterwards) {
  Type("Text1(0)", "7");
  Wait(700);
  Repeat("Text1(0)", Qt::Key_Return);
  Wait(700);
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(PasswordWait, TheRepeatOfAHeldEnterIsNoSecondEnter) {
  Type("Text1(0)", "7");
  Wait(300);
  Repeat("Text1(0)", Qt::Key_Return);
  Repeat("Text1(0)", Qt::Key_Enter);
  Wait(300);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(PasswordWait, TheEnterOfTheKeypadCountsToo) {
  TypeOnly("Text1(0)", "7");
  Press("Text1(0)", Qt::Key_Enter);
  Wait(700);
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(PasswordWait, ThreeWaitsEndOnlyWithTheLast) {
  Type("Text1(0)", "7");
  Wait(300);
  Type("Text1(1)", "8");
  Wait(300);
  Type("Text1(2)", "9");
  Wait(300);
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  Wait(400);
  EXPECT_EQ(program.link.Value(413), Bytes{9});
  EXPECT_EQ(program.link.Value(417), Bytes{9});
}

TEST_F(PasswordWait, TheSwitchWritesAtOnceMeanwhile) {
  Type("Text1(0)", "7");
  Wait(100);
  Click("iSwitchToggleX1");
  Wait(100);
  ExpectSent({WriteFrame(3, 16), WriteFrame(355, 16)});
}

TEST_F(PasswordWait, ClosingThePageEndsTheWaitWithoutAWrite) {
  Type("Text1(0)", "7");
  Wait(100);
  ClosePage();
  Wait(2000);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_THAT(Watched(), IsEmpty());
  EXPECT_THAT(program.reports, IsEmpty());
  ExpectNothingSent();
}

TEST_F(PasswordWait, ClosingThePageEndsTwoWaitsWithoutAWrite) {
  Type("Text1(0)", "7");
  Wait(100);
  Type("Text1(1)", "8");
  Wait(100);
  ClosePage();
  Wait(2000);
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(PasswordWait, APageThatIsOpenedAgainMeanwhileWritesNothing) {
  Type("Text1(0)", "7");
  ClosePage();
  Open();
  EXPECT_EQ(Text("Text1(0)"), "1");
  EXPECT_TRUE(IsWhite("Text1(0)"));
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_F(PasswordWait, ClosingTheFrameEndsTheWaitWithoutAWrite) {
  Type("Text1(0)", "7");
  Wait(100);
  program.Close();
  Wait(2000);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.exits, std::vector<int>{0});
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 0);
}

}  // namespace
}  // namespace sorvane::test
