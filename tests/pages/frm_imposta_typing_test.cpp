#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Typing and moving bars on the general settings page.
class ImpostaTyping : public PageTest {
 protected:
  explicit ImpostaTyping(Separators separators = kPoint)
      : PageTest("FrmImposta", "MnuImpostazioni", separators) {
    SetNumbers(1, {3, 8});
    SetNumbers(4, {2, 7, 100, 15, 6, 70000, 4321});
    Open();
  }

  // The typed timeout goes to the board and its mirror in tenths.
  void ExpectTimeout(const QString& typed, std::uint32_t tenths, const QString& shown) {
    Type("Text1(2)", typed);
    EXPECT_EQ(Text("Text1(2)"), shown) << typed.toStdString();
    EXPECT_EQ(Position("HScroll1(2)"), static_cast<int>(tenths)) << typed.toStdString();
    ExpectSent({WriteFrame(6, tenths), WriteFrame(358, tenths)});
    EXPECT_EQ(Text("Text1(2)"), shown) << typed.toStdString();
  }
};

class ImpostaTypingWithComma : public ImpostaTyping {
 protected:
  ImpostaTypingWithComma() : ImpostaTyping(kComma) {}
};

TEST_F(ImpostaTyping, EachBarWritesItsParameterAndThenTheMirror) {
  struct Row {
    int bar;
    int parameter;
    std::uint32_t value;
  };
  constexpr Row kRows[] = {{0, 1, 4}, {1, 2, 9}, {2, 6, 101}, {3, 5, 8},
                           {4, 4, 3}, {5, 8, 7}, {6, 7, 16}};
  for (const Row& row : kRows) {
    PressFocused(Indexed("HScroll1", row.bar), Qt::Key_Right);
    EXPECT_THAT(Pending(), ElementsAre(row.parameter, row.parameter + 352));
    ExpectSent({WriteFrame(row.parameter, row.value), WriteFrame(row.parameter + 352, row.value)});
  }
}

TEST_F(ImpostaTyping, TheTextFollowsTheBarOnlyWithTheReply) {
  PressFocused("HScroll1(2)", Qt::Key_Right);
  EXPECT_EQ(Text("Text1(2)"), "10");
  ExpectSent({WriteFrame(6, 101), WriteFrame(358, 101)});
  EXPECT_EQ(Text("Text1(2)"), "10.1");
}

TEST_F(ImpostaTyping, ABarMovedBeforeTheFirstReplyIsWritten) {
  ClosePage();
  OpenUnanswered();
  PressFocused("HScroll1(1)", Qt::Key_Right);
  EXPECT_THAT(Pending(), ElementsAre(2, 354));
  EXPECT_EQ(program.link.Value(2), Bytes{6});
  EXPECT_EQ(program.link.Value(354), Bytes{6});
}

// Of a value that was read for an earlier page the table still knows; the bar starts anew.
TEST_F(ImpostaTyping, ABarMovedToWhatTheTableHoldsAlreadyIsWrittenToo) {
  BoardSays(2, 6);
  ClosePage();
  OpenUnanswered();
  ASSERT_EQ(program.link.Value(2), Bytes{6});
  PressFocused("HScroll1(1)", Qt::Key_Right);
  ASSERT_EQ(Position("HScroll1(1)"), 6);
  EXPECT_THAT(Pending(), ElementsAre(2, 354));
}

TEST_F(ImpostaTyping, ATypedNumberIsShownAtOnceAndWrittenToBothPlaces) {
  Type("Text1(1)", "5");
  EXPECT_EQ(Text("Text1(1)"), "5");
  EXPECT_EQ(Position("HScroll1(1)"), 5);
  EXPECT_THAT(Pending(), ElementsAre(2, 354));
  EXPECT_EQ(program.link.Value(2), Bytes{5});
  EXPECT_EQ(program.link.Value(354), Bytes{5});
  ExpectSent({WriteFrame(2, 5), WriteFrame(354, 5)});
}

TEST_F(ImpostaTyping, ATypedNumberIsShownWithoutItsLeadingZeroAtOnce) {
  Type("Text1(1)", "07");
  EXPECT_EQ(Text("Text1(1)"), "7");
}

TEST_F(ImpostaTyping, TheNumberThatStandsAlreadyIsNotWritten) {
  Type("Text1(1)", "08");
  EXPECT_EQ(Text("Text1(1)"), "8");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(ImpostaTyping, TheNumberAtWhichTheBarStandsIsNotWrittenEither) {
  BoardSays(5, 60);
  Type("Text1(3)", "16");
  EXPECT_EQ(Text("Text1(3)"), "16");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(ImpostaTyping, EachFieldGoesToItsParameterAndTheMirror) {
  struct Row {
    int field;
    const char* typed;
    int parameter;
    std::uint32_t value;
  };
  constexpr Row kRows[] = {{1, "10", 2, 10}, {2, "25", 6, 250}, {2, "5", 6, 50}, {3, "16", 5, 16},
                           {3, "0", 5, 0},   {4, "5", 4, 5},    {4, "1", 4, 1},  {5, "12", 8, 12},
                           {5, "0", 8, 0},   {6, "30", 7, 30},  {6, "1", 7, 1}};
  for (const Row& row : kRows) {
    Type(Indexed("Text1", row.field), row.typed);
    ExpectSent({WriteFrame(row.parameter, row.value), WriteFrame(row.parameter + 352, row.value)});
    EXPECT_EQ(Text(Indexed("Text1", row.field)), row.typed);
  }
}

TEST_F(ImpostaTyping, NumbersOutsideTheRangeAreRefusedInSilence) {
  ExpectRefused("Text1(1)", "4", "8");
  ExpectRefused("Text1(1)", "11", "8");
  ExpectRefused("Text1(3)", "17", "7");
  ExpectRefused("Text1(4)", "0", "2");
  ExpectRefused("Text1(4)", "6", "2");
  ExpectRefused("Text1(5)", "13", "6");
  ExpectRefused("Text1(6)", "0", "15");
  ExpectRefused("Text1(6)", "31", "15");
}

// The timeout of the motors, in seconds with one decimal.

TEST_F(ImpostaTyping, ATimeoutOfWholeSecondsIsTakenInTenths) { ExpectTimeout("12", 120, "12"); }

TEST_F(ImpostaTyping, ATimeoutTakesOneDecimal) { ExpectTimeout("12.5", 125, "12.5"); }

TEST_F(ImpostaTyping, ATimeoutTakesAComma) { ExpectTimeout("12,5", 125, "12.5"); }

TEST_F(ImpostaTypingWithComma, ATimeoutIsShownWithAComma) {
  EXPECT_EQ(Text("Text1(2)"), "10");
  ExpectTimeout("12,5", 125, "12,5");
}

TEST_F(ImpostaTypingWithComma, ATimeoutTakesAPoint) { ExpectTimeout("12.5", 125, "12,5"); }

TEST_F(ImpostaTyping, TheSecondDecimalOfATimeoutIsDropped) { ExpectTimeout("9.55", 95, "9.5"); }

TEST_F(ImpostaTyping, ATimeoutTakesFourCharacters) { ExpectTimeout("12.55", 125, "12.5"); }

TEST_F(ImpostaTyping, ATimeoutOutsideTheRangeIsRefusedInSilence) {
  ExpectRefused("Text1(2)", "25.1", "10");
  ExpectRefused("Text1(2)", "4", "10");
  ExpectRefused("Text1(2)", "4.9", "10");
}

TEST_F(ImpostaTyping, ATimeoutWithoutADigitBehindTheSeparatorIsRefusedInSilence) {
  for (const char* typed : {"12,", "12.", "12.-", ","}) ExpectRefused("Text1(2)", typed, "10");
}

TEST_F(ImpostaTypingWithComma, ATimeoutWithoutADigitBehindTheSeparatorIsRefusedInSilence) {
  for (const char* typed : {"12,", "12.", "12,-"}) ExpectRefused("Text1(2)", typed, "10");
}

TEST_F(ImpostaTyping, OtherFieldsTakeNoSeparator) {
  ExpectRefused("Text1(1)", "9,", "8");
  ExpectRefused("Text1(3)", "9.", "7");
  ExpectRefused("Text1(7)", "12.5", "70000");
  ExpectRefused("Text1(8)", "12,5", "4321");
}

TEST_F(ImpostaTypingWithComma, OtherFieldsTakeNoSeparator) {
  ExpectRefused("Text1(3)", "9,", "7");
  ExpectRefused("Text1(7)", "12.5", "70000");
}

TEST_F(ImpostaTyping, ASignIsRefusedInSilence) {
  ExpectRefused("Text1(3)", "-5", "7");
  ExpectRefused("Text1(2)", "12-", "10");
}

TEST_F(ImpostaTyping, EnterInAnEmptyFieldBringsTheOldTextBackInSilence) {
  ExpectRefused("Text1(5)", "", "6");
  ExpectRefused("Text1(8)", "", "4321");
}

TEST_F(ImpostaTyping, LettersTurnTheFieldRedBehindTheMessage) {
  Type("Text1(6)", "ab");
  ExpectOnlyNumbersMessage("Text1(6)", "15");
}

// The numbers of machine and location.

TEST_F(ImpostaTyping, TheMachineNumberIsWrittenToOnePlace) {
  Type("Text1(7)", "16777215");
  EXPECT_THAT(Pending(), ElementsAre(9));
  ExpectSent({WriteFrame(9, 16777215, 3)});
  EXPECT_EQ(program.link.BoardValue(9), (Bytes{255, 255, 255}));
}

TEST_F(ImpostaTyping, TheLocationNumberIsWrittenToOnePlace) {
  Type("Text1(8)", "65535");
  EXPECT_THAT(Pending(), ElementsAre(10));
  ExpectSent({WriteFrame(10, 65535, 2)});
}

TEST_F(ImpostaTyping, TheSmallestMachineAndLocationNumbersAreTaken) {
  Type("Text1(7)", "1");
  Type("Text1(8)", "1");
  ExpectSent({WriteFrame(9, 1, 3), WriteFrame(10, 1, 2)});
}

TEST_F(ImpostaTyping, MachineAndLocationNumbersOutsideTheRangeAreRefusedInSilence) {
  ExpectRefused("Text1(7)", "0", "70000");
  ExpectRefused("Text1(7)", "16777216", "70000");
  ExpectRefused("Text1(8)", "0", "4321");
  ExpectRefused("Text1(8)", "65536", "4321");
}

TEST_F(ImpostaTyping, TheMachineNumberStandsAsTypedUntilTheReply) {
  Type("Text1(7)", "00000012");
  EXPECT_EQ(Text("Text1(7)"), "00000012");
  ExpectSent({WriteFrame(9, 12, 3)});
  EXPECT_EQ(Text("Text1(7)"), "12");
}

TEST_F(ImpostaTyping, TheMachineNumberThatStandsAlreadyIsWrittenAgain) {
  Type("Text1(7)", "70000");
  ExpectSent({WriteFrame(9, 70000, 3)});
}

// Fields.

TEST_F(ImpostaTyping, EachFieldTakesItsOwnNumberOfCharacters) {
  constexpr int kCharacters[] = {2, 4, 2, 1, 2, 2, 8, 5};
  for (int i = 1; i <= 8; ++i) {
    TypeOnly(Indexed("Text1", i), "1234567890");
    EXPECT_EQ(Text(Indexed("Text1", i)).size(), kCharacters[i - 1]) << i;
  }
}

TEST_F(ImpostaTyping, AFieldEmptiesWhenItGetsTheFocus) {
  for (int i = 1; i <= 8; ++i) {
    TypeOnly(Indexed("Text1", i), "");
    EXPECT_EQ(Text(Indexed("Text1", i)), "") << i;
  }
}

TEST_F(ImpostaTyping, WhatWasTypedAndNotConfirmedIsGoneWhenTheFocusMovesOn) {
  TypeOnly("Text1(2)", "9");
  TypeOnly("Text1(7)", "9");
  EXPECT_EQ(Text("Text1(2)"), "10");
  TypeOnly("Text1(0)", "");
  EXPECT_EQ(Text("Text1(7)"), "70000");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(ImpostaTyping, TheNumberOfSelectionsOpensAsManyDiscounts) {
  program.Open("MnuSconti");
  EXPECT_TRUE(program.Find("FrmSconti", "Text1(7)").isEnabled());
  program.Choose("MnuImpostazioni");
  Type("Text1(1)", "6");
  program.Sweep(4);
  EXPECT_TRUE(program.Find("FrmSconti", "Text1(5)").isEnabled());
  EXPECT_FALSE(program.Find("FrmSconti", "Text1(6)").isEnabled());
}

}  // namespace
}  // namespace sorvane::test
