#include <ostream>
#include <string>

#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

// What holds for both pages that give each of ten rows a whole number. The tests work on row 4.
struct MapPage {
  const char* name;
  const char* form;
  const char* entry;
  const char* title;     // message
  const char* captions;  // message
  std::vector<int> watched;
  int first;                           // parameter of row 0
  std::vector<std::uint32_t> numbers;  // that the board holds for the rows
  const char* texts[10];               // the same as the page shows them
  int parameter;                       // of row 4
  std::vector<int> places;             // where a number of row 4 goes, in the order of the sweep
  int highest;                         // number that a row takes
  const char* typed_highest;
  const char* typed_above;
};

// Key i + 1 vends from column 10 - i.
const MapPage kKeys = {
    .name = "Keys",
    .form = "FrmTastiColonna",
    .entry = "Mnutasti",
    .title = "38",
    .captions = "39",
    .watched = {2, 98, 99, 100, 101, 102, 103, 104, 105, 106, 107},
    .first = 98,
    .numbers = {10, 9, 8, 7, 6, 5, 4, 3, 2, 1},
    .texts = {"10", "9", "8", "7", "6", "5", "4", "3", "2", "1"},
    .parameter = 102,
    .places = {102, 405},
    .highest = 10,
    .typed_highest = "10",
    .typed_above = "11",
};

// Column i + 1 holds product 20 + i.
const MapPage kColumns = {
    .name = "Columns",
    .form = "FrmColonnaProd",
    .entry = "MnuColonne",
    .title = "41",
    .captions = "42",
    .watched = {2, 3, 108, 109, 110, 111, 112, 113, 114, 115, 116, 117},
    .first = 108,
    .numbers = {20, 21, 22, 23, 24, 25, 26, 27, 28, 29},
    .texts = {"20", "21", "22", "23", "24", "25", "26", "27", "28", "29"},
    .parameter = 112,
    .places = {4, 112},
    .highest = 100,
    .typed_highest = "100",
    .typed_above = "101",
};

// For the readable name of a test's instance.
void PrintTo(const MapPage& page, std::ostream* out) { *out << page.name; }

// One of the pages over a machine with ten selections, whose options open the page of the columns.
class SelectionMap : public PageTest, public testing::WithParamInterface<MapPage> {
 protected:
  SelectionMap() : PageTest(GetParam().form, GetParam().entry, kPoint) {
    SetNumbers(2, {10, 32});
    SetNumbers(page.first, page.numbers);
  }

  void ExpectRowsOpen(int count) {
    ExpectFirstRowsOpen(count, {"LabelMess1", "Text1", "HScroll1"});
  }
  // A number of row 4 goes out to its places, and nothing else does.
  void ExpectWritten(std::uint32_t number) {
    std::vector<Bytes> frames;
    for (const int place : page.places) frames.push_back(WriteFrame(place, number));
    ExpectSent(frames);
  }

  const MapPage& page = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Pages, SelectionMap, testing::Values(kKeys, kColumns),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(SelectionMap, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames;
  for (const int k : page.watched) frames.push_back(ReadFrame(k));
  ExpectSent(frames);
}

TEST_P(SelectionMap, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_THAT(Watched(), ElementsAreArray(page.watched));
}

TEST_P(SelectionMap, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : page.watched) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_P(SelectionMap, CaptionsAreNumberedFromOne) {
  OpenUnanswered();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", i)),
              QString("Alfa %1 %2").arg(page.captions).arg(i + 1));
  }
  EXPECT_EQ(Title(), QString("Alfa %1").arg(page.title));
}

TEST_P(SelectionMap, AnotherLanguageBringsItsCaptions) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("LabelMess1(9)"), QString("Bravo %1 10").arg(page.captions));
  EXPECT_EQ(Title(), QString("Bravo %1").arg(page.title));
}

TEST_P(SelectionMap, IsEmptyAndOpenUntilRepliesCome) {
  OpenUnanswered();
  ExpectRowsOpen(10);
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Text(Indexed("Text1", i)), "");
    EXPECT_EQ(Position(Indexed("HScroll1", i)), 1);
    EXPECT_EQ(Minimum(Indexed("HScroll1", i)), 1);
    EXPECT_EQ(Maximum(Indexed("HScroll1", i)), page.highest);
  }
}

TEST_P(SelectionMap, ShowsTheNumberOfEachRow) {
  Open();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Text(Indexed("Text1", i)), page.texts[i]);
    EXPECT_EQ(Position(Indexed("HScroll1", i)), static_cast<int>(page.numbers[i]));
  }
}

TEST_P(SelectionMap, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

TEST_P(SelectionMap, RowsStandInTwoColumnsOfFive) {
  Open();
  for (int i = 0; i < 5; ++i) {
    const QString here = Indexed("Text1", i);
    EXPECT_LT(Left(here), Left(Indexed("Text1", i + 5))) << i;
    EXPECT_EQ(Top(here), Top(Indexed("Text1", i + 5))) << i;
    EXPECT_EQ(Left(here), Left("Text1(0)")) << i;
    EXPECT_EQ(Top(here) > Top("Text1(0)"), i > 0) << i;
  }
}

TEST_P(SelectionMap, AllFieldsAreCentred) {
  Open();
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(IsCentred(Indexed("Text1", i))) << i;
}

TEST_P(SelectionMap, RepliesWriteNothing) {
  Open();
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
}

// What replies show.

TEST_P(SelectionMap, ANumberOutsideTheBarIsShownAsItCame) {
  SetNumbers(page.first, {0, 200});
  Open();
  EXPECT_EQ(Text("Text1(0)"), "0");
  EXPECT_EQ(Position("HScroll1(0)"), 1);
  EXPECT_EQ(Text("Text1(1)"), "200");
  EXPECT_EQ(Position("HScroll1(1)"), page.highest);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_P(SelectionMap, TheLargestNumberIsShown) {
  Resize(page.parameter, {255, 255, 255, 127});
  Open();
  EXPECT_EQ(Text("Text1(4)"), "2147483647");
  EXPECT_EQ(Position("HScroll1(4)"), page.highest);
}

TEST_P(SelectionMap, ANumberAbove32BitsWithSignEndsTheProgram) {
  Resize(page.parameter, {0, 0, 0, 128});
  Open();
  ExpectReport(kOverflow);
}

TEST_P(SelectionMap, ATextForANumberEndsTheProgram) {
  MakeText(page.parameter);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_P(SelectionMap, ATextForTheLastNumberEndsTheProgram) {
  MakeText(page.first + 9);
  Open();
  ExpectReport(kTypeMismatch);
}

// Rows that open and close.

TEST_P(SelectionMap, TheSelectionsOpenTheFirstRowsWithoutAnyNumber) {
  program.link.SetBoardNumber(2, 4);
  OpenUnanswered();
  program.Sweep(1);
  ExpectRowsOpen(4);
}

TEST_P(SelectionMap, MoreSelectionsOpenFurtherRows) {
  Open();
  BoardSays(2, 4);
  ExpectRowsOpen(4);
  BoardSays(2, 7);
  ExpectRowsOpen(7);
}

TEST_P(SelectionMap, NoSelectionsCloseAllRows) {
  Open();
  BoardSays(2, 0);
  ExpectRowsOpen(0);
}

TEST_P(SelectionMap, MoreSelectionsThanRowsEndTheProgram) {
  program.link.SetBoardNumber(2, 11);
  Open();
  ExpectReport(kNoSuchElement);
}

TEST_P(SelectionMap, ARowThatClosesWhileItIsBeingEditedLosesWhatWasTyped) {
  Open();
  TypeOnly("Text1(7)", "9");
  BoardSays(2, 4);
  EXPECT_EQ(Text("Text1(7)"), page.texts[7]);
}

// Every reply of the selections closes all rows first, though they open again at once.
TEST_P(SelectionMap, ARowThatStaysOpenLosesWhatWasTypedToo) {
  program.link.SetBoardNumber(2, 9);
  Open();
  for (const std::uint32_t selections : {9U, 10U}) {
    TypeOnly("Text1(7)", "9");
    BoardSays(2, selections);
    EXPECT_EQ(Text("Text1(7)"), page.texts[7]) << selections;
    EXPECT_TRUE(IsEnabled("Text1(7)")) << selections;
  }
}

TEST_P(SelectionMap, FourBytesForTheNumberOfSelectionsOverflowItsVariable) {
  Resize(2, {0, 0, 1, 0});
  Open();
  ExpectReport(kOverflow);
}

TEST_P(SelectionMap, ATextForTheNumberOfSelectionsEndsTheProgram) {
  MakeText(2);
  Open();
  ExpectReport(kTypeMismatch);
}

// Typing and moving bars.

TEST_P(SelectionMap, TypingTheHighestNumberWritesItToBothPlaces) {
  Open();
  Type("Text1(4)", page.typed_highest);
  EXPECT_EQ(Position("HScroll1(4)"), page.highest);
  EXPECT_THAT(Pending(), ElementsAreArray(page.places));
  for (const int place : page.places) {
    EXPECT_EQ(program.link.Value(place), Bytes{static_cast<uint8_t>(page.highest)}) << place;
  }
  ExpectWritten(static_cast<std::uint32_t>(page.highest));
}

TEST_P(SelectionMap, TypingOneMoreThanTheHighestNumberRestoresTheField) {
  Open();
  ExpectRefused("Text1(4)", page.typed_above, page.texts[4]);
  ExpectRefused("Text1(4)", "999999", page.texts[4]);
}

TEST_P(SelectionMap, ATypedNumberIsShownAtOnce) {
  Open();
  Type("Text1(4)", "005");
  EXPECT_EQ(Text("Text1(4)"), "5");
}

TEST_P(SelectionMap, TypingZeroShowsZeroAndWritesOne) {
  Open();
  Type("Text1(4)", "0");
  EXPECT_EQ(Text("Text1(4)"), "0");
  EXPECT_EQ(Position("HScroll1(4)"), 1);
  ExpectWritten(1);
  EXPECT_EQ(Text("Text1(4)"), "1");
}

TEST_P(SelectionMap, TypingZeroWhereTheBarStandsAtOneShowsZeroAndWritesNothing) {
  program.link.SetBoardNumber(page.parameter, 1);
  Open();
  Type("Text1(4)", "0");
  EXPECT_EQ(Text("Text1(4)"), "0");
  EXPECT_THAT(Pending(), IsEmpty());
  TypeOnly("Text1(5)", "");
  EXPECT_EQ(Text("Text1(4)"), "0");  // as its saved text too
  AskAgain(page.parameter);
  EXPECT_EQ(Text("Text1(4)"), "1");
}

TEST_P(SelectionMap, TheNumberThatStandsAlreadyIsNotWritten) {
  Open();
  Type("Text1(4)", page.texts[4]);
  EXPECT_EQ(Text("Text1(4)"), page.texts[4]);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_P(SelectionMap, SeparatorsAndSignsAreRefusedInSilence) {
  Open();
  for (const char* typed : {"5,", "5.0", "-5", "+5", "5 ", ""}) {
    ExpectRefused("Text1(4)", typed, page.texts[4]);
  }
}

TEST_P(SelectionMap, LettersTurnTheFieldRedBehindTheMessage) {
  Open();
  Type("Text1(4)", "abc");
  ExpectOnlyNumbersMessage("Text1(4)", page.texts[4]);
}

TEST_P(SelectionMap, EveryStepOfTheBarIsOne) {
  Open();
  const std::uint32_t number = page.numbers[4];
  PressFocused("HScroll1(4)", Qt::Key_Right);
  ExpectWritten(number + 1);
  PressFocused("HScroll1(4)", Qt::Key_PageDown);
  ExpectWritten(number + 2);
  PressFocused("HScroll1(4)", Qt::Key_Left);
  ExpectWritten(number + 1);
}

TEST_P(SelectionMap, TheTextFollowsTheBarOnlyWithTheReply) {
  program.link.SetBoardNumber(page.parameter, 6);
  Open();
  PressFocused("HScroll1(4)", Qt::Key_Right);
  EXPECT_EQ(Position("HScroll1(4)"), 7);
  EXPECT_EQ(Text("Text1(4)"), "6");
  program.Sweep(2);
  EXPECT_EQ(Text("Text1(4)"), "7");
}

TEST_P(SelectionMap, ABarMovedBeforeTheFirstReplyIsWritten) {
  OpenUnanswered();
  PressFocused("HScroll1(4)", Qt::Key_Right);
  EXPECT_THAT(Pending(), ElementsAreArray(page.places));
  EXPECT_EQ(program.link.Value(page.parameter), Bytes{2});
}

TEST_P(SelectionMap, AFieldTakesSixCharacters) {
  Open();
  TypeOnly("Text1(0)", "1234567");
  EXPECT_EQ(Text("Text1(0)"), "123456");
}

TEST_P(SelectionMap, AFieldEmptiesWhenItGetsTheFocusAndHasItsTextAgainWhenItLosesIt) {
  Open();
  TypeOnly("Text1(0)", "");
  EXPECT_EQ(Text("Text1(0)"), "");
  TypeOnly("Text1(0)", "3");
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), page.texts[0]);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_P(SelectionMap, AReplyOverwritesWhatIsBeingTyped) {
  Open();
  TypeOnly("Text1(0)", "3");
  BoardSays(page.first, 4);
  EXPECT_EQ(Text("Text1(0)"), "4");
}

}  // namespace
}  // namespace sorvane::test
