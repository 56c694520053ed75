#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "pages/pagamento_page.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The general tab: fields, bars and switches as the user moves them.
class PagamentoEntry : public PagamentoPage {
 protected:
  PagamentoEntry() : PagamentoPage(kMdb) {}

  // With a system that has the field of the decimals open.
  void OpenValidatore() {
    program.link.SetBoardNumber(71, 1);
    Open();
  }
};

TEST_F(PagamentoEntry, ABaseCoinIsShownAtOnceAndWrittenTwice) {
  Open();
  Type("Text5(0)", "0100");
  EXPECT_EQ(Text("Text5(0)"), "100");
  EXPECT_EQ(SavedText("Text5(0)"), "100");
  EXPECT_EQ(Position("HScroll5(0)"), 100);
  ExpectPair(84, 378, 100);
  EXPECT_EQ(Text("Text5(0)"), "100");
}

TEST_F(PagamentoEntry, TheHighestBaseCoinIsTakenAndOneMoreRestoresTheField) {
  Open();
  Type("Text5(0)", "255");
  ExpectPair(84, 378, 255);
  TypeOnly("Text5(2)", "");
  Type("Text5(0)", "256");
  EXPECT_EQ(Text("Text5(0)"), "255");
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoEntry, TheLongestTimeoutIsTakenAndOneMoreRestoresTheField) {
  Open();
  Type("Text5(2)", "31");
  EXPECT_EQ(Text("Text5(2)"), "12");
  EXPECT_THAT(Pending(), IsEmpty());
  TypeOnly("Text5(0)", "");
  Type("Text5(2)", "30");
  ExpectPair(86, 379, 30);
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoEntry, ATimeoutOfZeroMovesTheBarToOneAndStandsUntilTheReply) {
  Open();
  Type("Text5(2)", "0");
  EXPECT_EQ(Text("Text5(2)"), "0");
  EXPECT_EQ(Position("HScroll5(2)"), 1);
  ExpectPair(86, 379, 1);
  EXPECT_EQ(Text("Text5(2)"), "1");
}

TEST_F(PagamentoEntry, ATimeoutOfZeroWritesNothingWhereTheBarStandsAtOne) {
  program.link.SetBoardNumber(86, 1);
  Open();
  Type("Text5(2)", "0");
  EXPECT_EQ(Text("Text5(2)"), "0");
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  AskAgain(86);
  EXPECT_EQ(Text("Text5(2)"), "1");
}

TEST_F(PagamentoEntry, TheNumberThatStandsAlreadyIsNotWritten) {
  Open();
  Type("Text5(0)", "25");
  EXPECT_EQ(Text("Text5(0)"), "25");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, OpenFieldsEmptyWithTheFocusAndGetTheirTextBack) {
  Open();
  TypeOnly("Text5(0)", "");
  EXPECT_EQ(Text("Text5(0)"), "");
  TypeOnly("Text5(2)", "9");
  EXPECT_EQ(Text("Text5(0)"), "25");
  EXPECT_EQ(Text("Text5(2)"), "9");
  TypeOnly("Text5(0)", "");
  EXPECT_EQ(Text("Text5(2)"), "12");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, LockedFieldsKeepPatternAndWordAndTakeNoCharacter) {
  OpenValidatore();
  TypeOnly("Text5(1)", "7");
  EXPECT_EQ(Text("Text5(1)"), "000.00");
  TypeOnly("Text5(3)", "7");
  EXPECT_EQ(Text("Text5(1)"), "000.00");
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
  TypeOnly("Text5(0)", "");
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
}

TEST_F(PagamentoEntry, EnterOnAWordTurnsItRedBehindTheMessageAndItComesBackOnWhite) {
  Open();
  Type("Text5(3)", "");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground("Text5(3)"), kRed);
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
  EXPECT_TRUE(IsWhite("Text5(3)"));
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, AReplyThatLandsWhileTheMessageStandsIsWhatComesBack) {
  Open();
  Type("Text5(3)", "");
  BoardSays(87, 2);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text5(3)"), "Singola");
}

TEST_F(PagamentoEntry, EnterOnAPatternWithAPointIsRefusedInSilence) {
  OpenValidatore();
  for (const auto& [decimals, pattern] : {std::pair(1, "0000.0"), std::pair(2, "000.00"),
                                          std::pair(3, "00.000"), std::pair(4, "0.0000")}) {
    BoardSays(22, static_cast<std::uint32_t>(decimals));
    Type("Text5(1)", "");
    EXPECT_EQ(Text("Text5(1)"), pattern);
  }
  EXPECT_TRUE(WasSilent());
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, EnterOnThePatternWithoutAPointIsTakenAsZero) {
  program.link.SetBoardNumber(22, 0);
  OpenValidatore();
  EXPECT_EQ(Text("Text5(1)"), "00000");
  Type("Text5(1)", "");
  EXPECT_EQ(Text("Text5(1)"), "0");
  EXPECT_EQ(SavedText("Text5(1)"), "0");
  EXPECT_EQ(Position("HScroll5(1)"), 0);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoEntry, EnterOnADigitOfTheSaleModeIsRefusedInSilence) {
  program.link.SetBoardNumber(87, 3);
  Open();
  Type("Text5(3)", "");
  EXPECT_EQ(Text("Text5(3)"), "3");
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoEntry, EnterOnALockedFieldBeforeAnyReplyDoesNothing) {
  OpenUnanswered();
  Type("Text5(1)", "");
  Type("Text5(3)", "");
  EXPECT_EQ(Text("Text5(1)"), "");
  EXPECT_EQ(Text("Text5(3)"), "");
  EXPECT_TRUE(WasSilent());
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, LettersTurnAnOpenFieldRedBehindTheMessage) {
  Open();
  Type("Text5(0)", "abc");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground("Text5(0)"), kRed);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text5(0)"), "25");
  EXPECT_TRUE(IsWhite("Text5(0)"));
}

TEST_F(PagamentoEntry, WholeNumbersTakeNoSeparator) {
  Open();
  for (const char* text : {"1.0", "1,0", "-1", ""}) {
    Type("Text5(0)", text);
    EXPECT_EQ(Text("Text5(0)"), "25") << text;
    TypeOnly("Text5(2)", "");
  }
  EXPECT_TRUE(WasSilent());
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoEntry, ANumberThatNoVariableHoldsEndsTheProgram) {
  Open();
  Type("Text5(2)", "2147483648");
  ExpectReport(kOverflow);
}

TEST_F(PagamentoEntry, MovingTheDecimalsWritesTheSettingAndItsMirrorAndShowsWithTheReply) {
  OpenValidatore();
  PressFocused("HScroll5(1)", Qt::Key_Right);
  EXPECT_EQ(Position("HScroll5(1)"), 3);
  EXPECT_EQ(Text("Text5(1)"), "000.00");
  EXPECT_EQ(Text("Text1(1)"), "12.50");
  EXPECT_EQ(Text("Text4(5)"), "2.00");
  ExpectPair(85, 22, 3);
  EXPECT_EQ(Text("Text5(1)"), "00.000");
  EXPECT_EQ(Text("Text1(1)"), "1.250");
  EXPECT_EQ(Text("Text4(5)"), "0.200");
}

TEST_F(PagamentoEntry, TheOtherGeneralBarsWriteTheirPairsAndShowWithTheReply) {
  Open();
  PressFocused("HScroll5(0)", Qt::Key_Right);
  EXPECT_EQ(Text("Text5(0)"), "25");
  ExpectPair(84, 378, 26);
  EXPECT_EQ(Text("Text5(0)"), "26");
  program.link.wire.Forget();
  PressFocused("HScroll5(2)", Qt::Key_Left);
  EXPECT_EQ(Text("Text5(2)"), "12");
  ExpectPair(86, 379, 11);
  EXPECT_EQ(Text("Text5(2)"), "11");
  program.link.wire.Forget();
  PressFocused("HScroll5(3)", Qt::Key_Right);
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
  ExpectPair(87, 380, 2);
  EXPECT_EQ(Text("Text5(3)"), "Singola");
}

TEST_F(PagamentoEntry, TheSaleSwitchesOwnTheirBitsAndCarryTheOthers) {
  program.link.SetBoardNumber(71, 2);
  Open();
  ClickSeen("SwitchX2(0)");
  ExpectPair(3, 355, 188);
  program.link.wire.Forget();
  ClickSeen("SwitchX2(1)");
  ExpectPair(3, 355, 190);
  program.link.wire.Forget();
  ClickSeen("SwitchX2(2)");
  ExpectPair(3, 355, 254);
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(false, true, true));
}

TEST_F(PagamentoEntry, SwitchesTurnedBeforeTheReplyAddUp) {
  Open();
  ClickSeen("SwitchX2(0)");
  ClickSeen("SwitchX2(2)");
  ExpectPair(3, 355, 252);
}

TEST_F(PagamentoEntry, WhatTheClockPageChangesInTheOptionBitsIsCarriedFromItsReplyOn) {
  program.link.SetBoardNumber(56, 5);
  Open();
  program.Open("MnuOrologio");
  auto& slider = program.Find("FrmOrologio", "iSwitchSliderX1");
  program.Press("FrmOrologio", "iSwitchSliderX1", Qt::Key_Right);
  EXPECT_EQ(slider.property("position").toInt(), 1);
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(3), Bytes{181});
  program.link.wire.Forget();
  program.Choose("MnuPagamento");
  ClickSeen("SwitchX2(0)");
  ExpectPair(3, 355, 180);
  EXPECT_EQ(slider.property("position").toInt(), 1);
}

TEST_F(PagamentoEntry, ASwitchTurnedBeforeAnyReplyClearsTheForeignBits) {
  OpenUnanswered();
  ClickSeen("SwitchX2(2)");
  EXPECT_EQ(Byte(3), 64);
  EXPECT_EQ(Byte(355), 64);
  program.Sweep(80);
  EXPECT_EQ(program.link.BoardValue(3), Bytes{64});
  EXPECT_EQ(program.link.BoardValue(355), Bytes{64});
}

TEST_F(PagamentoEntry, AReplyOfTheOptionBitsSetsTheThreeSwitches) {
  Open();
  BoardSays(3, 66);
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(false, true, true));
  BoardSays(3, 188);
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(false, false, false));
  BoardSays(3, 1);
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(true, false, false));
}

TEST_F(PagamentoEntry, AReplyOverwritesWhatIsBeingTyped) {
  Open();
  TypeOnly("Text5(0)", "9");
  BoardSays(84, 77);
  EXPECT_EQ(Text("Text5(0)"), "77");
}

}  // namespace
}  // namespace sorvane::test
