#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Typing and moving bars on the prices page. All prices are 9.99, all item numbers 77, and the page
// works with the two decimals that the board has.
class PrezziTyping : public PageTest {
 protected:
  explicit PrezziTyping(Separators separators = kPoint, std::uint32_t decimals = 2)
      : PageTest("FrmPrezzi", "MnuPrezzi", separators) {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(22, decimals);
    for (int i = 0; i < 10; ++i) {
      program.link.SetBoardNumber(23 + i, 999);
      program.link.SetBoardNumber(33 + i, 77);
    }
    Open();
    AskAgain(22);
  }

  void ExpectPrice(const QString& typed, std::uint32_t raw) {
    SCOPED_TRACE(typed.toStdString());
    Type("Text1(2)", typed);
    ExpectSent({WriteFrame(25, raw, 2), WriteFrame(393, raw, 2)});
    EXPECT_TRUE(WasSilent());
  }
  void ExpectPriceRefused(const QString& typed, CallSite at = CallSite::Here()) {
    ExpectRefused("Text1(2)", typed, "9.99", at);
  }
};

class PrezziTypingWithComma : public PrezziTyping {
 protected:
  PrezziTypingWithComma() : PrezziTyping(kComma) {}
};

class PrezziTypingWithoutDecimals : public PrezziTyping {
 protected:
  PrezziTypingWithoutDecimals() : PrezziTyping(kPoint, 0) {}
};

class PrezziTypingWithFourDecimals : public PrezziTyping {
 protected:
  PrezziTypingWithFourDecimals() : PrezziTyping(kPoint, 4) {}
};

TEST_F(PrezziTyping, AmountsAreScaledByTheDecimals) {
  ExpectPrice("1,5", 150);
  ExpectPrice("1,", 100);
  ExpectPrice("7", 700);
  ExpectPrice("1,555", 155);
  ExpectPrice("655,35", 65535);
}

TEST_F(PrezziTypingWithComma, AmountsAreScaledByTheDecimals) {
  ExpectPrice("1,5", 150);
  ExpectPrice("1,", 100);
  ExpectPrice("1.5", 150);
  ExpectPrice("1,555", 155);
}

TEST_F(PrezziTyping, AnAmountAboveTheHighestIsRefusedInSilence) { ExpectPriceRefused("655,36"); }

TEST_F(PrezziTypingWithoutDecimals, SeparatorsAndAmountsAboveTheHighestAreRefused) {
  ExpectRefused("Text1(2)", "1,5", "999");
  ExpectRefused("Text1(2)", "1.", "999");
  ExpectRefused("Text1(2)", "65536", "999");
  ExpectPrice("65535", 65535);
}

TEST_F(PrezziTypingWithFourDecimals, AnAmountThatNoVariableHoldsOnceScaledEndsTheProgram) {
  Type("Text1(2)", "999999");
  ExpectReport(kOverflow);
}

TEST_F(PrezziTyping, TheAmountTwoWithAPointIsRefusedInSilence) {
  for (const char* typed : {"2.0", "2.", "2.00", "02.0", "2.0000"}) ExpectPriceRefused(typed);
}

TEST_F(PrezziTyping, TheAmountTwoWithACommaIsTakenWhereThatMarksGroups) {
  ExpectPrice("2,0", 200);
  ExpectPrice("2,05", 205);
}

TEST_F(PrezziTyping, ACommaBehindTheTwoLeavesItATwo) { ExpectPriceRefused("2,"); }

TEST_F(PrezziTyping, AmountsBesideTwoAreTaken) {
  ExpectPrice("2.50", 250);
  ExpectPrice("1.0", 100);
  ExpectPrice("2.001", 200);
}

TEST_F(PrezziTyping, TheAmountTwoWithoutASeparatorIsTaken) { ExpectPrice("2", 200); }

TEST_F(PrezziTypingWithComma, TheAmountTwoWithACommaIsRefusedInSilence) {
  for (const char* typed : {"2,0", "2,", "2,00", "02,0"}) {
    ExpectRefused("Text1(2)", typed, "9,99");
    ExpectRefused("Text2(2)", typed, "77");
  }
}

TEST_F(PrezziTypingWithComma, TheAmountTwoWithAPointIsTakenWhereThatMarksGroups) {
  ExpectPrice("2.0", 200);
}

TEST_F(PrezziTypingWithComma, APointBehindTheTwoLeavesItATwo) {
  ExpectRefused("Text1(2)", "2.", "9,99");
}

TEST_F(PrezziTypingWithComma, AmountsBesideTwoAreTaken) {
  ExpectPrice("2,50", 250);
  ExpectPrice("1,0", 100);
  ExpectPrice("2", 200);
}

TEST_F(PrezziTyping, TheAmountTwoIsRefusedForAnItemNumberToo) {
  ExpectRefused("Text2(2)", "2.0", "77");
  ExpectRefused("Text2(2)", "2.", "77");
}

TEST_F(PrezziTyping, TheTextTwoInLettersBringsTheMessage) {
  Type("Text1(2)", "due");
  ExpectOnlyNumbersMessage("Text1(2)", "9.99");
}

TEST_F(PrezziTyping, ASignIsRefusedInSilence) { ExpectPriceRefused("-5"); }

TEST_F(PrezziTyping, EnterInAnEmptyFieldBringsTheOldTextBackInSilence) {
  ExpectPriceRefused("");
  ExpectRefused("Text2(2)", "", "77");
}

TEST_F(PrezziTyping, APriceIsMarkedInTwoPlaces) {
  for (int i = 0; i < 10; ++i) {
    Type(Indexed("Text1", i), "3");
    EXPECT_THAT(Pending(), ElementsAre(23 + i, 391 + i));
    EXPECT_EQ(program.link.Value(23 + i), (Bytes{44, 1}));  // 300
    EXPECT_EQ(program.link.Value(391 + i), (Bytes{44, 1}));
    ExpectSent({WriteFrame(23 + i, 300, 2), WriteFrame(391 + i, 300, 2)});
  }
}

TEST_F(PrezziTyping, AnItemNumberIsMarkedInOnePlace) {
  for (int i = 0; i < 10; ++i) {
    PressFocused(Indexed("HScroll2", i), Qt::Key_Right);
    EXPECT_THAT(Pending(), ElementsAre(33 + i));
    ExpectSent({WriteFrame(33 + i, 78, 2)});
  }
}

TEST_F(PrezziTyping, ATypedItemNumberIsScaledByTheDecimalsToo) {
  Type("Text2(4)", "7");
  ExpectSent({WriteFrame(37, 700, 2)});
  EXPECT_EQ(Text("Text2(4)"), "700");
}

TEST_F(PrezziTyping, ASecondItemNumberIsTakenAsTyped) {
  Type("Text2(4)", "7");
  program.Sweep(4);  // the reply takes the decimals away
  program.link.wire.Forget();
  Type("Text2(5)", "7");
  ExpectSent({WriteFrame(38, 7, 2)});
}

TEST_F(PrezziTyping, ThePriceThatStandsAlreadyIsNotWritten) {
  Type("Text1(2)", "9.99");
  Type("Text2(2)", ".77");
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(PrezziTyping, TheTextsFollowTheBarsOnlyWithTheReply) {
  PressFocused("HScroll1(1)", Qt::Key_Right);
  PressFocused("HScroll2(1)", Qt::Key_Left);
  EXPECT_EQ(Text("Text1(1)"), "9.99");
  EXPECT_EQ(Text("Text2(1)"), "77");
  ExpectSent({WriteFrame(24, 1000, 2), WriteFrame(34, 76, 2), WriteFrame(392, 1000, 2)});
  EXPECT_EQ(Text("Text1(1)"), "10.00");
  EXPECT_EQ(Text("Text2(1)"), "76");
}

TEST_F(PrezziTyping, ATypedPriceStandsAsTypedUntilTheReply) {
  Type("Text1(1)", "3");
  EXPECT_EQ(Text("Text1(1)"), "3");
  program.Sweep(2);
  EXPECT_EQ(Text("Text1(1)"), "3.00");
}

TEST_F(PrezziTyping, TheLargeStepOfBothBarsIsAHundred) {
  PressFocused("HScroll1(0)", Qt::Key_PageDown);
  ExpectSent({WriteFrame(23, 1099, 2), WriteFrame(391, 1099, 2)});
  PressFocused("HScroll2(0)", Qt::Key_PageDown);
  ExpectSent({WriteFrame(33, 177, 2)});
}

TEST_F(PrezziTyping, TheBarsReachBothEndsOfTheRange) {
  PressFocused("HScroll1(0)", Qt::Key_Home);
  ExpectSent({WriteFrame(23, 0, 2), WriteFrame(391, 0, 2)});
  PressFocused("HScroll2(0)", Qt::Key_End);
  ExpectSent({WriteFrame(33, 65535, 2)});
}

TEST_F(PrezziTyping, FieldsTakeSixCharacters) {
  TypeOnly("Text1(9)", "1234567");
  EXPECT_EQ(Text("Text1(9)"), "123456");
  TypeOnly("Text2(9)", "1234567");
  EXPECT_EQ(Text("Text2(9)"), "123456");
}

TEST_F(PrezziTyping, FieldsEmptyWhenTheyGetTheFocusAndHaveTheirTextAgainWhenTheyLoseIt) {
  TypeOnly("Text1(3)", "");
  EXPECT_EQ(Text("Text1(3)"), "");
  TypeOnly("Text1(3)", "5");
  TypeOnly("Text2(3)", "");
  EXPECT_EQ(Text("Text1(3)"), "9.99");
  EXPECT_EQ(Text("Text2(3)"), "");
  TypeOnly("Text1(3)", "");
  EXPECT_EQ(Text("Text2(3)"), "77");
  EXPECT_THAT(Pending(), IsEmpty());
}

}  // namespace
}  // namespace sorvane::test
