#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <ostream>
#include <string>
#include <vector>

#include "pages/orologio_page.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

using OrologioEntry = OrologioPage;

struct Limit {
  const char* field;
  int tab;
  const char* highest;  // is taken
  const char* above;    // is refused
  const char* shown;    // what the board holds
  std::vector<int> written;
};

// A row is named by its field, not by its bytes, of which some are padding.
void PrintTo(const Limit& limit, std::ostream* out) { *out << limit.field; }

class OrologioLimit : public OrologioPage, public testing::WithParamInterface<Limit> {};

INSTANTIATE_TEST_SUITE_P(
    Each, OrologioLimit,
    testing::Values(
        Limit{"Text1(0)", 0, "31", "32", "5", {56}}, Limit{"Text1(1)", 0, "12", "13", "3", {57}},
        Limit{"Text1(2)", 0, "99", "100", "2026", {58}},
        Limit{"Text1(3)", 0, "23", "24", "10", {54}}, Limit{"Text1(4)", 0, "59", "60", "30", {55}},
        Limit{"Text2(0)", 1, "23", "24", "8", {59}}, Limit{"Text2(1)", 1, "59", "60", "15", {60}},
        Limit{"Text2(2)", 1, "23", "24", "9", {61}}, Limit{"Text2(3)", 1, "59", "60", "45", {62}},
        Limit{"Text2(4)", 1, "23", "24", "18", {63}}, Limit{"Text2(5)", 1, "59", "60", "5", {64}},
        Limit{"Text2(6)", 1, "23", "24", "20", {65}}, Limit{"Text2(7)", 1, "59", "60", "50", {66}},
        Limit{"Text3(0)", 2, "23", "24", "6", {67, 361}},
        Limit{"Text3(1)", 2, "59", "60", "10", {68, 362}},
        Limit{"Text3(2)", 2, "23", "24", "22", {69, 363}},
        Limit{"Text3(3)", 2, "59", "60", "40", {70, 364}}),
    [](const auto& each) {
      const std::string field = each.param.field;  // "Text1(0)"
      return field.substr(0, 5) + "Row" + field.substr(6, 1);
    });

TEST_P(OrologioLimit, IsTaken) {
  OpenOn(GetParam().tab);
  Replace(GetParam().field, GetParam().highest);
  EXPECT_EQ(Pending(), GetParam().written);
  const int value = std::stoi(GetParam().highest);
  EXPECT_EQ(Position(QString(GetParam().field).replace("Text", "HScroll")), value);
  for (const int parameter : GetParam().written) EXPECT_EQ(Byte(parameter), value) << parameter;
  program.Sweep();
  for (const int parameter : GetParam().written) {
    EXPECT_EQ(program.link.BoardValue(parameter), Bytes{static_cast<uint8_t>(value)});
  }
}

TEST_P(OrologioLimit, OneMoreIsRefusedInSilence) {
  OpenOn(GetParam().tab);
  Replace(GetParam().field, GetParam().above);
  EXPECT_EQ(Text(GetParam().field), GetParam().shown);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioEntry, AFieldKeepsItsTextWhenItGetsTheFocus) {
  Open();
  TypeOnly("Text1(3)", "");
  EXPECT_EQ(Text("Text1(3)"), "10");
  Tabs("SSTab1").SetFront(1);
  TypeOnly("Text2(7)", "");
  EXPECT_EQ(Text("Text2(7)"), "50");
  Tabs("SSTab1").SetFront(2);
  TypeOnly("Text3(2)", "");
  EXPECT_EQ(Text("Text3(2)"), "22");
}

TEST_F(OrologioEntry, WhatWasTypedAndNotConfirmedIsGoneWhenTheFocusMovesOn) {
  OpenOn(2);
  ReplaceOnly("Text3(0)", "7");
  EXPECT_EQ(Text("Text3(0)"), "7");
  TypeOnly("Text3(1)", "");
  EXPECT_EQ(Text("Text3(0)"), "6");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(OrologioEntry, ATypedTextStandsUntilTheReply) {
  Open();
  Replace("Text1(2)", "031");
  EXPECT_EQ(Text("Text1(2)"), "031");
  EXPECT_EQ(Position("HScroll1(2)"), 31);
  ExpectSent({WriteFrame(58, 31)});
  EXPECT_EQ(Text("Text1(2)"), "2031");
}

TEST_F(OrologioEntry, LeavingTheFieldBeforeTheReplyBringsTheOldTextBack) {
  Open();
  Replace("Text1(3)", "11");
  TypeOnly("Text1(4)", "");
  EXPECT_EQ(Text("Text1(3)"), "10");
  program.Sweep(3);
  EXPECT_EQ(Text("Text1(3)"), "11");
}

TEST_F(OrologioEntry, TheNumberThatStandsAlreadyIsNotWritten) {
  Open();
  Replace("Text1(3)", "010");
  EXPECT_EQ(Text("Text1(3)"), "010");
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(OrologioEntry, FourDigitsOfAYearAreRefused) {
  Open();
  Replace("Text1(2)", "2026");
  EXPECT_EQ(Text("Text1(2)"), "2026");
  Replace("Text1(2)", "2027");
  EXPECT_EQ(Text("Text1(2)"), "2026");
  EXPECT_EQ(Position("HScroll1(2)"), 26);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioEntry, EnterOnTheYearAsItStandsIsRefused) {
  Open();
  TypeOnly("Text1(2)", "");
  Press("Text1(2)", Qt::Key_Return);
  EXPECT_EQ(Text("Text1(2)"), "2026");
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(OrologioEntry, AReplyOfTheYearSavesItsTwoDigitsAlone) {
  Open();
  EXPECT_EQ(SavedText("Text1(2)"), "26");
  TypeOnly("Text1(2)", "");
  EXPECT_EQ(SavedText("Text1(2)"), "2026");
  BoardSays(58, 31);
  EXPECT_EQ(Text("Text1(2)"), "2031");
  TypeOnly("Text1(3)", "");
  EXPECT_EQ(Text("Text1(2)"), "31");
}

TEST_F(OrologioEntry, DayZeroPassesTheLimitAndFailsAtTheBar) {
  Open();
  Replace("Text1(0)", "0");
  ExpectReport(kInvalidPropertyValue);
}

TEST_F(OrologioEntry, MonthZeroPassesTheLimitAndFailsAtTheBar) {
  Open();
  Replace("Text1(1)", "0");
  ExpectReport(kInvalidPropertyValue);
}

TEST_F(OrologioEntry, ZeroIsTakenWhereTheBarHasIt) {
  OpenOn(1);
  Replace("Text2(0)", "0");
  Replace("Text2(1)", "0");
  ExpectSent({WriteFrame(59, 0), WriteFrame(60, 0)});
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(OrologioEntry, TheLargestSixteenBitNumberIsRefusedAndTheNextOneOverflows) {
  Open();
  Replace("Text1(3)", "32767");
  EXPECT_EQ(Text("Text1(3)"), "10");
  EXPECT_THAT(program.reports, IsEmpty());
  Replace("Text1(3)", "32768");
  ExpectReport(kOverflow);
}

TEST_F(OrologioEntry, ANumberTooLargeOverflowsOnTheOtherTabsToo) {
  OpenOn(1);
  Replace("Text2(1)", "32768");
  ExpectReport(kOverflow);
}

TEST_F(OrologioEntry, ANumberOfMoreThanThirtyTwoBitsOverflows) {
  OpenOn(2);
  Replace("Text3(1)", "99999999999");
  ExpectReport(kOverflow);
}

TEST_F(OrologioEntry, LettersTurnTheFieldRedBehindTheMessageAndTheOldTextComesBackOnWhite) {
  Open();
  Replace("Text1(4)", "half");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground("Text1(4)"), kRed);
  EXPECT_EQ(Text("Text1(4)"), "half");
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text("Text1(4)"), "30");
  EXPECT_TRUE(IsWhite("Text1(4)"));
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(OrologioEntry, SignsSeparatorsAndAnEmptyFieldAreRefusedInSilence) {
  OpenOn(2);
  for (const char* text : {"-5", "+5", "1.5", "1,5", "5 ", ""}) {
    Replace("Text3(0)", text);
    EXPECT_EQ(Text("Text3(0)"), "6") << text;
  }
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioEntry, AReplyOverwritesWhatIsBeingTyped) {
  Open();
  ReplaceOnly("Text1(3)", "1");
  BoardSays(54, 17);
  EXPECT_EQ(Text("Text1(3)"), "17");
  TypeOnly("Text1(4)", "");
  EXPECT_EQ(Text("Text1(3)"), "17");
}

struct TooLarge {
  const char* name;
  int parameter;
  Bytes highest;  // that its variable takes
  Bytes above;
};

void PrintTo(const TooLarge& row, std::ostream* out) { *out << row.name; }

class OrologioVariable : public OrologioPage, public testing::WithParamInterface<TooLarge> {};

INSTANTIATE_TEST_SUITE_P(Each, OrologioVariable,
                         testing::Values(TooLarge{"Day", 56, {255, 127}, {0, 128}},
                                         TooLarge{"Month", 57, {255, 0}, {0, 1}},
                                         TooLarge{"Minutes", 55, {255, 127}, {0, 128}},
                                         TooLarge{"Flags", 3, {255, 0}, {0, 1}}),
                         [](const auto& each) { return each.param.name; });

TEST_P(OrologioVariable, OverflowsAboveItsHighest) {
  program.link.SetBoardNumber(56, 0);  // the trial is refused, and no date is drawn
  Resize(GetParam().parameter, GetParam().highest);
  Open();
  EXPECT_THAT(program.reports, IsEmpty());
  program.link.SetBoard(GetParam().parameter, GetParam().above);
  AskAgain(GetParam().parameter);
  ExpectReport(kOverflow);
}

TEST_F(OrologioEntry, HoursHaveNoLimitOfTheirOwn) {
  Resize(54, {0, 128});
  Open();
  EXPECT_EQ(Text("Text1(3)"), "32768");
  EXPECT_EQ(Position("HScroll1(3)"), 23);
  EXPECT_EQ(Face(), "");
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(OrologioEntry, AYearBeyondSixteenBitsShowsAndOverflowsOnlyInTheDate) {
  Resize(58, {0, 128});
  OpenUnanswered();
  program.Sweep(22);
  EXPECT_EQ(Text("Text1(2)"), "34768");
  EXPECT_THAT(program.reports, IsEmpty());
  program.Sweep(1);
  ExpectReport(kOverflow);
}

}  // namespace
}  // namespace sorvane::test
