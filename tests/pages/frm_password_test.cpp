#include <QTime>

#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kToggle = "iSwitchToggleX1";

// The password page over a machine with the password 1 2 3 4, which is off.
class Password : public PageTest {
 protected:
  Password() : PageTest("FrmPassword", "MnuPassword", kPoint) { SetNumbers(411, {1, 2, 3, 4}); }

  void TypeDigit(int field, const QString& digit) { Type(Indexed("Text1", field), digit); }
};

TEST_F(Password, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  ExpectSent({ReadFrame(3), ReadFrame(411), ReadFrame(412), ReadFrame(413), ReadFrame(414)});
}

TEST_F(Password, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_THAT(Watched(), ElementsAre(3, 411, 412, 413, 414));
}

TEST_F(Password, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : {3, 411, 414}) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(Password, ThreeCaptionsComeFromTheMessages) {
  OpenUnanswered();
  EXPECT_EQ(Caption("Label1(0)"), "Alfa 17");
  EXPECT_EQ(Caption("Label1(1)"), "Alfa 18");
  EXPECT_EQ(Caption("Label1(2)"), "Alfa 19");
  EXPECT_EQ(Caption("LabelMess1(0)"), "Password");
  EXPECT_EQ(Caption("LabelMess1(1)"), "Password");
  EXPECT_EQ(Title(), "Password");
}

TEST_F(Password, AnotherLanguageLeavesTheTitleAndTheRowsAsTheyAre) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("Label1(0)"), "Bravo 17");
  EXPECT_EQ(Caption("Label1(2)"), "Bravo 19");
  EXPECT_EQ(Caption("LabelMess1(1)"), "Password");
  EXPECT_EQ(Title(), "Password");
}

TEST_F(Password, EverythingIsOpenBeforeTheFirstReply) {
  OpenUnanswered();
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(IsEnabled(Indexed("Text1", i))) << i;
    EXPECT_EQ(Text(Indexed("Text1", i)), "") << i;
  }
  EXPECT_TRUE(IsEnabled(kToggle));
  EXPECT_FALSE(IsOn(kToggle));
}

TEST_F(Password, ShowsThePasswordInPlain) {
  Open();
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Text(Indexed("Text1", i)), QString::number(i + 1));
}

TEST_F(Password, TheSwitchStandsBetweenNoAndYes) {
  Open();
  EXPECT_LT(Left("Label1(0)"), Left(kToggle));
  EXPECT_LT(Left(kToggle), Left("Label1(1)"));
}

TEST_F(Password, TheDigitsStandInTheirOrderAndCentred) {
  Open();
  for (int i = 0; i < 3; ++i) {
    EXPECT_LT(Left(Indexed("Text1", i)), Left(Indexed("Text1", i + 1)));
  }
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(IsCentred(Indexed("Text1", i)));
}

TEST_F(Password, RepliesWriteNothing) {
  program.link.SetBoardNumber(3, 16);
  Open();
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_F(Password, TheCopiesAreNotReadBack) {
  Open();
  BoardSays(415, 9);
  BoardSays(355, 16);
  EXPECT_EQ(Text("Text1(0)"), "1");
  EXPECT_FALSE(IsOn(kToggle));
}

TEST_F(Password, ADigitAbove16BitsEndsTheProgram) {
  Resize(412, {0, 128, 0, 0});  // 32768
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Password, ALargeNumberIsShownAsItCame) {
  Resize(412, {255, 127});
  Open();
  EXPECT_EQ(Text("Text1(1)"), "32767");
}

TEST_F(Password, ATextForADigitEndsTheProgram) {
  MakeText(413);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Password, ATextForTheOptionsEndsTheProgram) {
  MakeText(3);
  Open();
  ExpectReport(kTypeMismatch);
}

// The switch.

TEST_F(Password, TheSwitchShowsOneBitOfTheOptions) {
  program.link.SetBoardNumber(3, 239);  // all bits but the fourth
  Open();
  EXPECT_FALSE(IsOn(kToggle));
  BoardSays(3, 16);
  EXPECT_TRUE(IsOn(kToggle));
  BoardSays(3, 32);
  EXPECT_FALSE(IsOn(kToggle));
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Password, TheSwitchWritesItsBitAloneAndClearsTheOthers) {
  program.link.SetBoardNumber(3, 48);
  Open();
  Click(kToggle);
  EXPECT_FALSE(IsOn(kToggle));
  EXPECT_THAT(Pending(), ElementsAre(3, 355));
  EXPECT_EQ(program.link.Value(355), Bytes{0});
  ExpectSent({WriteFrame(3, 0), WriteFrame(355, 0)});
  Click(kToggle);
  EXPECT_TRUE(IsOn(kToggle));
  ExpectSent({WriteFrame(3, 16), WriteFrame(355, 16)});
}

TEST_F(Password, ASwitchThatIsTurnedOnWritesItsBitAlone) {
  program.link.SetBoardNumber(3, 33);
  Open();
  Click(kToggle);
  ExpectSent({WriteFrame(3, 16), WriteFrame(355, 16)});
}

// The check of what is typed.

TEST_F(Password, ADigitAboveTheNumberOfMotorsIsTaken) {
  program.link.SetBoardNumber(2, 5);
  Open();
  TypeDigit(0, "9");
  Wait(700);
  ExpectSent({WriteFrame(411, 9), WriteFrame(415, 9)});
}

TEST_F(Password, EachDigitIsWrittenWithItsCopy) {
  Open();
  for (int i = 0; i < 4; ++i) {
    TypeDigit(i, "0");
    Wait(700);
    ExpectSent({WriteFrame(411 + i, 0), WriteFrame(415 + i, 0)});
    EXPECT_EQ(Text(Indexed("Text1", i)), "0");
  }
}

TEST_F(Password, EnterInAnEmptyFieldBringsTheDigitBackInSilence) {
  Open();
  ExpectRefused("Text1(2)", "", "3");
  Wait(2000);
  ExpectNothingSent();
}

TEST_F(Password, AMarkIsRefusedInSilence) {
  Open();
  for (const char* typed : {"-", "+", ",", "."}) ExpectRefused("Text1(2)", typed, "3");
  Wait(2000);
  ExpectNothingSent();
}

TEST_F(Password, ALetterTurnsTheFieldRedBehindTheMessage) {
  Open();
  TypeDigit(1, "x");
  ExpectOnlyNumbersMessage("Text1(1)", "2");
  Wait(2000);
  ExpectNothingSent();
}

TEST_F(Password, AFieldTakesOneCharacter) {
  Open();
  TypeOnly("Text1(3)", "78");
  EXPECT_EQ(Text("Text1(3)"), "7");
}

TEST_F(Password, AFieldEmptiesWhenItGetsTheFocusAndHasItsDigitAgainWhenItLosesIt) {
  Open();
  TypeOnly("Text1(0)", "");
  EXPECT_EQ(Text("Text1(0)"), "");
  TypeOnly("Text1(0)", "8");
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), "1");
}

// The green half second.

TEST_F(Password, TheFieldIsGreenForHalfASecondAndThenTheDigitIsWritten) {
  Open();
  TypeDigit(0, "7");
  EXPECT_EQ(Text("Text1(0)"), "7");
  Wait(499);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  EXPECT_THAT(Pending(), IsEmpty());
  program.link.wire.ExpectNothing();
  Wait(100);
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(Password, AfterTheHalfSecondTheFieldIsWhite) {
  Open();
  TypeDigit(0, "7");
  Wait(700);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  EXPECT_EQ(program.link.Value(411), Bytes{7});
  EXPECT_EQ(program.link.Value(415), Bytes{7});
  EXPECT_EQ(Text("Text1(0)"), "7");
}

TEST_F(Password, TheFieldIsGreenFromTheStart) {
  Open();
  TypeDigit(3, "7");
  Wait(100);
  EXPECT_EQ(Ground("Text1(3)"), kGreen);
}

TEST_F(Password, TheOtherFieldsStayWhite) {
  Open();
  TypeDigit(0, "7");
  Wait(100);
  for (int i = 1; i < 4; ++i) EXPECT_TRUE(IsWhite(Indexed("Text1", i))) << i;
}

TEST_F(Password, TheDigitThatStandsAlreadyIsWrittenAgain) {
  Open();
  TypeDigit(0, "1");
  Wait(700);
  ExpectSent({WriteFrame(411, 1), WriteFrame(415, 1)});
}

TEST_F(Password, AReplyInTheHalfSecondIsWhatIsWritten) {
  Open();
  TypeDigit(0, "7");
  BoardSays(411, 8);
  EXPECT_EQ(Text("Text1(0)"), "8");
  Wait(700);
  ExpectSent({WriteFrame(411, 8), WriteFrame(415, 8)});
}

TEST_F(Password, WhatIsTypedInTheHalfSecondIsWritten) {
  Open();
  TypeDigit(0, "7");
  Wait(200);
  TypeOnly("Text1(0)", "6");
  Wait(500);
  ExpectSent({WriteFrame(411, 6), WriteFrame(415, 6)});
}

TEST_F(Password, LeavingTheFieldInTheHalfSecondWritesTheOldDigit) {
  Open();
  TypeDigit(0, "7");
  Wait(200);
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), "1");
  Wait(500);
  ExpectSent({WriteFrame(411, 1), WriteFrame(415, 1)});
}

TEST_F(Password, LeavingTheFieldAfterTheWriteAndBeforeTheReplyBringsTheOldDigitBack) {
  Open();
  program.link.board.StaySilent(1);
  TypeDigit(0, "7");
  Wait(700);
  EXPECT_EQ(program.link.Value(411), Bytes{7});
  EXPECT_EQ(Text("Text1(0)"), "7");
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), "1");
}

TEST_F(Password, AFieldThatIsEmptyAtTheEndOfTheHalfSecondEndsTheProgram) {
  Open();
  TypeDigit(0, "7");
  Wait(200);
  TypeOnly("Text1(1)", "");
  TypeOnly("Text1(0)", "");
  Wait(500);
  ExpectReport(kTypeMismatch);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Password, AMarkAtTheEndOfTheHalfSecondEndsTheProgram) {
  Open();
  TypeDigit(0, "7");
  TypeOnly("Text1(0)", "-");
  Wait(700);
  ExpectReport(kTypeMismatch);
}

TEST_F(Password, ANumberThatABoardShowedUnderTheFocusIsTakenWithAllItsDigits) {
  Open();
  TypeOnly("Text1(0)", "");
  BoardSays(411, 200);
  Press("Text1(0)", Qt::Key_Return);
  Wait(700);
  ExpectSent({WriteFrame(411, 200), WriteFrame(415, 200)});
}

// The half second by the PC's clock.

TEST_F(Password, InTheLastHalfSecondOfADayTheWaitNeverEnds) {
  Open();
  SetClock(QTime(23, 59, 59, 600));
  TypeDigit(0, "7");
  Wait(2000);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  SetClock(QTime(23, 59, 59, 900));  // of the next day
  Wait(99);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  EXPECT_EQ(Text("Text1(0)"), "7");
  ExpectNothingSent();
}

TEST_F(Password, AWaitThatEndsAtMidnightNeverEnds) {
  Open();
  SetClock(QTime(23, 59, 59, 500));
  TypeDigit(0, "7");
  Wait(3000);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  ExpectNothingSent();
}

TEST_F(Password, AWaitThatEndsBeforeMidnightEnds) {
  Open();
  SetClock(QTime(23, 59, 59, 300));
  TypeDigit(0, "7");
  Wait(2000);
  EXPECT_TRUE(IsWhite("Text1(0)"));
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(Password, ANewDayBeginsAtMidnightForTheNextWait) {
  Open();
  SetClock(QTime(0, 0));
  TypeDigit(0, "7");
  Wait(700);
  ExpectSent({WriteFrame(411, 7), WriteFrame(415, 7)});
}

TEST_F(Password, AClockThatIsSetBackHoldsTheWait) {
  Open();
  TypeDigit(0, "7");
  SetClock(QTime(10, 29, 58));  // it was half past ten
  Wait(1500);
  EXPECT_EQ(Ground("Text1(0)"), kGreen);
  EXPECT_THAT(Pending(), IsEmpty());
}

}  // namespace
}  // namespace sorvane::test
