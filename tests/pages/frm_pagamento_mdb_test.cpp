#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/pagamento_page.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PagamentoMdb : public PagamentoPage {
 protected:
  explicit PagamentoMdb(Separators separators = kPoint) : PagamentoPage(kMdb, separators) {}

  void ExpectRange(const QString& bar, int minimum, int maximum) {
    EXPECT_EQ(Minimum(bar), minimum) << bar.toStdString();
    EXPECT_EQ(Maximum(bar), maximum) << bar.toStdString();
  }
  // No field of money knows its decimals: their exchange fails.
  void OpenWithoutDecimals() {
    OpenUnanswered();
    program.Sweep(1);
    program.link.board.SpoilChecksum(5);
    program.Sweep(26);
    program.link.wire.Forget();
  }
};

class PagamentoMdbWithComma : public PagamentoMdb {
 protected:
  PagamentoMdbWithComma() : PagamentoMdb(kComma) {}
};

TEST_F(PagamentoMdb, ShowsWhatTheBoardHolds) {
  Open();
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("1.50", "12.50", "655.35"));
  EXPECT_THAT(Positions("HScroll1", 3), ElementsAre(150, -31518, 32767));
  EXPECT_THAT(Texts("Text2", 5), ElementsAre("3", "4", "5", "6", "7"));
  EXPECT_THAT(Positions("HScroll2", 5), ElementsAre(3, 4, 5, 6, 7));
  EXPECT_THAT(Texts("Text3", 3), ElementsAre("0.10", "0.20", "30.00"));
  EXPECT_THAT(Positions("HScroll3", 3), ElementsAre(-32758, -32748, -29768));
  EXPECT_THAT(States("SwitchX1", 6), ElementsAre(true, false, true, false, true, false));
}

TEST_F(PagamentoMdb, RangesOfTheBars) {
  Open();
  ExpectRange("HScroll1(0)", 0, 9999);
  ExpectRange("HScroll1(1)", -32768, 32767);
  ExpectRange("HScroll1(2)", -32768, 32767);
  for (int i = 0; i < 5; ++i) ExpectRange(Indexed("HScroll2", i), 1, 20);
  for (int i = 0; i < 3; ++i) ExpectRange(Indexed("HScroll3", i), -32768, 32767);
}

TEST_F(PagamentoMdb, LargeStepsOfTheAmountsAreAHundred) {
  Open();
  for (const char* bar : {"HScroll1(0)", "HScroll1(1)", "HScroll1(2)"}) {
    PressFocused(bar, Qt::Key_PageUp);
  }
  EXPECT_THAT(Positions("HScroll1", 3), ElementsAre(50, -31618, 32667));
  Tabs("SSTab1").SetFront(2);
  for (const char* bar : {"HScroll3(0)", "HScroll3(1)", "HScroll3(2)"}) {
    PressFocused(bar, Qt::Key_PageDown);
  }
  EXPECT_THAT(Positions("HScroll3", 3), ElementsAre(-32658, -32648, -29668));
}

TEST_F(PagamentoMdb, ValuesOutsideTheRangesShowAsTheyCameWithTheBarsAtTheirEnds) {
  Open();
  BoardSays(73, 12000);
  EXPECT_EQ(Text("Text1(0)"), "120.00");
  EXPECT_EQ(Position("HScroll1(0)"), 9999);
  BoardSays(76, 21);
  EXPECT_EQ(Text("Text2(0)"), "21");
  EXPECT_EQ(Position("HScroll2(0)"), 20);
  BoardSays(80, 0);
  EXPECT_EQ(Text("Text2(4)"), "0");
  EXPECT_EQ(Position("HScroll2(4)"), 1);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoMdb, TheBarsOfTheLimitsWriteTheirPairsAndShowWithTheReply) {
  Open();
  PressFocused("HScroll1(0)", Qt::Key_Right);
  EXPECT_EQ(Text("Text1(0)"), "1.50");
  ExpectPair(73, 367, 151);
  EXPECT_EQ(Text("Text1(0)"), "1.51");
  program.link.wire.Forget();
  PressFocused("HScroll1(1)", Qt::Key_Right);
  ExpectPair(74, 368, 1251);
  EXPECT_EQ(Text("Text1(1)"), "12.51");
  program.link.wire.Forget();
  PressFocused("HScroll1(2)", Qt::Key_Left);
  ExpectPair(75, 369, 65534);
  EXPECT_EQ(Text("Text1(2)"), "655.34");
}

TEST_F(PagamentoMdb, TheBarsOfTheTubesWriteTheirPairs) {
  OpenOn("SSTab1", 1);
  const std::uint32_t values[] = {4, 5, 6, 7, 8};
  for (int i = 0; i < 5; ++i) {
    program.link.wire.Forget();
    PressFocused(Indexed("HScroll2", i), Qt::Key_Right);
    ExpectPair(76 + i, 370 + i, values[i]);
  }
  EXPECT_THAT(Texts("Text2", 5), ElementsAre("4", "5", "6", "7", "8"));
}

TEST_F(PagamentoMdb, TheBarsOfTheTokensWriteTheirPairs) {
  OpenOn("SSTab1", 2);
  const std::uint32_t values[] = {11, 21, 3001};
  for (int i = 0; i < 3; ++i) {
    program.link.wire.Forget();
    PressFocused(Indexed("HScroll3", i), Qt::Key_Right);
    ExpectPair(81 + i, 375 + i, values[i]);
  }
  EXPECT_THAT(Texts("Text3", 3), ElementsAre("0.11", "0.21", "30.01"));
}

TEST_F(PagamentoMdb, ATypedLimitIsShownAtOnceAndWrittenTwice) {
  Open();
  Type("Text1(1)", "7.5");
  EXPECT_EQ(Text("Text1(1)"), "7.50");
  EXPECT_EQ(SavedText("Text1(1)"), "7.50");
  EXPECT_EQ(Position("HScroll1(1)"), -32018);
  ExpectPair(74, 368, 750);
  program.link.wire.Forget();
  Type("Text1(2)", "1");
  EXPECT_EQ(Text("Text1(2)"), "1.00");
  ExpectPair(75, 369, 100);
}

TEST_F(PagamentoMdb, TheHighestChangeIsNinetyNineNinetyNine) {
  Open();
  Type("Text1(0)", "99.99");
  EXPECT_EQ(Text("Text1(0)"), "99.99");
  EXPECT_EQ(Position("HScroll1(0)"), 9999);
  ExpectPair(73, 367, 9999);
  TypeOnly("Text1(1)", "");
  Type("Text1(0)", "100");
  EXPECT_EQ(Text("Text1(0)"), "99.99");
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoMdb, TheOtherLimitsAndTheTokensReachSixteenBits) {
  program.link.SetBoardNumber(75, 0);
  Open();
  Type("Text1(2)", "655.36");
  EXPECT_EQ(Text("Text1(2)"), "0.00");
  EXPECT_THAT(Pending(), IsEmpty());
  TypeOnly("Text1(1)", "");
  Type("Text1(2)", "655.35");
  ExpectPair(75, 369, 65535);
  program.link.wire.Forget();
  Tabs("SSTab1").SetFront(2);
  Type("Text3(0)", "655.36");
  EXPECT_EQ(Text("Text3(0)"), "0.10");
  EXPECT_THAT(Pending(), IsEmpty());
  TypeOnly("Text3(1)", "");
  Type("Text3(0)", "655,35");
  EXPECT_EQ(Text("Text3(0)"), "655.35");
  ExpectPair(81, 375, 65535);
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoMdbWithComma, AmountsAreTypedWithEitherSeparatorAndShownWithTheComma) {
  Open();
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("1,50", "12,50", "655,35"));
  Type("Text1(0)", "7,5");
  EXPECT_EQ(Text("Text1(0)"), "7,50");
  ExpectPair(73, 367, 750);
  program.link.wire.Forget();
  Tabs("SSTab1").SetFront(2);
  Type("Text3(1)", "2.25");
  EXPECT_EQ(Text("Text3(1)"), "2,25");
  ExpectPair(82, 376, 225);
}

TEST_F(PagamentoMdb, TheAmountThatStandsAlreadyIsDrawnAnewAndNotWritten) {
  Open();
  Type("Text1(0)", "1.5");
  EXPECT_EQ(Text("Text1(0)"), "1.50");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoMdb, TokensWriteTheirPairs) {
  OpenOn("SSTab1", 2);
  Type("Text3(0)", "1");
  ExpectPair(81, 375, 100);
  program.link.wire.Forget();
  Type("Text3(2)", "0");
  EXPECT_EQ(Text("Text3(2)"), "0.00");
  ExpectPair(83, 377, 0);
}

TEST_F(PagamentoMdb, TubesTakeOneToTwenty) {
  OpenOn("SSTab1", 1);
  Type("Text2(0)", "20");
  EXPECT_EQ(Text("Text2(0)"), "20");
  ExpectPair(76, 370, 20);
  program.link.wire.Forget();
  Type("Text2(4)", "1");
  ExpectPair(80, 374, 1);
  Type("Text2(1)", "21");
  EXPECT_EQ(Text("Text2(1)"), "4");
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(PagamentoMdb, ATubeOfZeroMovesTheBarToOneAndStandsUntilTheReply) {
  OpenOn("SSTab1", 1);
  Type("Text2(2)", "0");
  EXPECT_EQ(Text("Text2(2)"), "0");
  EXPECT_EQ(Position("HScroll2(2)"), 1);
  ExpectPair(78, 372, 1);
  EXPECT_EQ(Text("Text2(2)"), "1");
}

TEST_F(PagamentoMdb, ATubeOfZeroWritesNothingWhereTheBarStandsAtOne) {
  program.link.SetBoardNumber(78, 1);
  OpenOn("SSTab1", 1);
  Type("Text2(2)", "0");
  EXPECT_EQ(Text("Text2(2)"), "0");
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  AskAgain(78);
  EXPECT_EQ(Text("Text2(2)"), "1");
}

TEST_F(PagamentoMdb, TubesAreWholeNumbers) {
  OpenOn("SSTab1", 1);
  for (const char* text : {"5.", "5,", "-5", ""}) {
    Type("Text2(0)", text);
    EXPECT_EQ(Text("Text2(0)"), "3") << text;
    TypeOnly("Text2(1)", "");
  }
  EXPECT_TRUE(WasSilent());
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoMdb, LettersTurnAFieldRedBehindTheMessage) {
  Open();
  Type("Text1(1)", "abc");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground("Text1(1)"), kRed);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text1(1)"), "12.50");
  EXPECT_TRUE(IsWhite("Text1(1)"));
  Tabs("SSTab1").SetFront(1);
  Type("Text2(0)", "x");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground("Text2(0)"), kRed);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text2(0)"), "3");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoMdb, FieldsEmptyWithTheFocusAndGetTheirTextBack) {
  Open();
  TypeOnly("Text1(0)", "9");
  EXPECT_EQ(Text("Text1(0)"), "9");
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), "1.50");
  EXPECT_EQ(Text("Text1(1)"), "");
  Tabs("SSTab1").SetFront(1);
  EXPECT_EQ(Text("Text1(1)"), "12.50");
  TypeOnly("Text2(0)", "");
  EXPECT_EQ(Text("Text2(0)"), "");
  Tabs("SSTab1").SetFront(2);
  EXPECT_EQ(Text("Text2(0)"), "3");
  TypeOnly("Text3(0)", "");
  EXPECT_EQ(Text("Text3(0)"), "");
}

TEST_F(PagamentoMdb, FieldsTakeOnlySoManyCharacters) {
  Open();
  TypeOnly("Text1(0)", "1234567");
  EXPECT_EQ(Text("Text1(0)"), "12345");
  TypeOnly("Text1(1)", "1234567");
  EXPECT_EQ(Text("Text1(1)"), "123456");
  TypeOnly("Text1(2)", "1234567");
  EXPECT_EQ(Text("Text1(2)"), "123456");
  Tabs("SSTab1").SetFront(1);
  TypeOnly("Text2(4)", "123");
  EXPECT_EQ(Text("Text2(4)"), "12");
  Tabs("SSTab1").SetFront(2);
  TypeOnly("Text3(2)", "1234567");
  EXPECT_EQ(Text("Text3(2)"), "123456");
}

TEST_F(PagamentoMdb, AnAmountTypedBeforeTheDecimalsAreKnownOverflows) {
  OpenWithoutDecimals();
  Type("Text1(0)", "1");
  ExpectReport(kOverflow);
}

TEST_F(PagamentoMdb, ATokenTypedBeforeTheDecimalsAreKnownOverflows) {
  OpenWithoutDecimals();
  Tabs("SSTab1").SetFront(2);
  Type("Text3(1)", "1");
  ExpectReport(kOverflow);
}

TEST_F(PagamentoMdb, ATubeNeedsNoDecimals) {
  OpenWithoutDecimals();
  Tabs("SSTab1").SetFront(1);
  Type("Text2(0)", "9");
  EXPECT_EQ(Text("Text2(0)"), "9");
  EXPECT_THAT(Pending(), ElementsAre(76, 370));
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(PagamentoMdb, AnAmountThatNoVariableHoldsOnceScaledEndsTheProgram) {
  program.link.SetBoardNumber(22, 4);
  Open();
  Type("Text1(1)", "999999");  // 9999990000
  ExpectReport(kOverflow);
}

TEST_F(PagamentoMdb, TheFlagsOfTheChangerAreOneByteWithTwoBitsCarried) {
  OpenOn("SSTab1", 2);
  ClickSeen("SwitchX1(3)");
  ExpectPair(72, 366, 221);
  program.link.wire.Forget();
  ClickSeen("SwitchX1(2)");
  ExpectPair(72, 366, 217);
  EXPECT_THAT(States("SwitchX1", 6), ElementsAre(true, false, false, true, true, false));
}

TEST_F(PagamentoMdb, AFlagTurnedBeforeAnyReplyClearsAllOthers) {
  OpenUnanswered();
  Tabs("SSTab1").SetFront(2);
  ClickSeen("SwitchX1(3)");
  EXPECT_THAT(Pending(), ElementsAre(72, 366));
  EXPECT_EQ(Byte(72), 8);
  EXPECT_EQ(Byte(366), 8);
}

TEST_F(PagamentoMdb, FlagsTurnedBeforeTheReplyAddUp) {
  Open();
  ClickSeen("SwitchX1(0)");
  ClickSeen("SwitchX1(1)");
  ExpectPair(72, 366, 214);
}

TEST_F(PagamentoMdb, EachFlagHasItsBit) {
  program.link.SetBoardNumber(72, 192);
  Open();
  const int bytes[] = {193, 194, 196, 200, 208, 224};
  for (int i = 0; i < 6; ++i) {
    Tabs("SSTab1").SetFront(i < 2 ? 0 : 2);
    ClickSeen(Indexed("SwitchX1", i));
    EXPECT_EQ(Byte(72), bytes[i]) << i;
    EXPECT_EQ(Byte(366), bytes[i]) << i;
    ClickSeen(Indexed("SwitchX1", i));
    EXPECT_EQ(Byte(72), 192) << i;
  }
}

TEST_F(PagamentoMdb, AReplyOfTheFlagsSetsTheSixSwitches) {
  Open();
  BoardSays(72, 42);
  EXPECT_THAT(States("SwitchX1", 6), ElementsAre(false, true, false, true, false, true));
  BoardSays(72, 192);
  EXPECT_THAT(States("SwitchX1", 6), testing::Each(false));
  EXPECT_THAT(Pending(), IsEmpty());
}

}  // namespace
}  // namespace sorvane::test
