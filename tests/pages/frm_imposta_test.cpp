#include <algorithm>

#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

const std::vector<int> kAllWatched = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                                      12, 13, 14, 15, 16, 17, 18, 19, 20, 21};

Bytes NameBytes(const std::string& name) { return {name.begin(), name.end()}; }

// The general settings page. The machine's languages 0 to 9 are called "Machine speech 0" and so
// on, which fills their 16 bytes.
class Imposta : public PageTest {
 protected:
  Imposta() : PageTest("FrmImposta", "MnuImpostazioni", kPoint) {
    SetNumbers(1, {3, 8});
    SetNumbers(4, {2, 7, 125, 15, 6, 70000, 4321});
    for (int i = 0; i < 10; ++i) SetName(i, "Machine speech " + std::to_string(i));
  }

  void SetName(int language, const std::string& name) {
    program.link.SetBoard(12 + language, NameBytes(name));
  }
};

TEST_F(Imposta, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames;
  for (int k = 1; k <= 8; ++k) frames.push_back(ReadFrame(k));
  frames.push_back(ReadFrame(9, 3));
  frames.push_back(ReadFrame(10, 2));
  for (int k = 12; k <= 21; ++k) frames.push_back(ReadFrame(k, 16));
  ExpectSent(frames);
}

TEST_F(Imposta, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_THAT(Watched(), ElementsAreArray(kAllWatched));
}

TEST_F(Imposta, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : kAllWatched) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(Imposta, CaptionsComeFromTheMessages) {
  OpenUnanswered();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", i)), QString("Alfa %1").arg(21 + i));
  }
  EXPECT_EQ(Caption("Label0(0)"), "Alfa 17");
  EXPECT_EQ(Caption("Label0(1)"), "Alfa 18");
  EXPECT_EQ(Title(), "Alfa 2");
}

TEST_F(Imposta, AnotherLanguageBringsItsCaptions) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("LabelMess1(0)"), "Bravo 21");
  EXPECT_EQ(Caption("LabelMess1(9)"), "Bravo 30");
  EXPECT_EQ(Caption("Label0(1)"), "Bravo 18");
  EXPECT_EQ(Title(), "Bravo 2");
}

TEST_F(Imposta, EverythingIsOpenBeforeTheFirstReply) {
  OpenUnanswered();
  for (int i = 0; i < 9; ++i) EXPECT_TRUE(IsEnabled(Indexed("Text1", i))) << i;
  for (int i = 0; i < 7; ++i) EXPECT_TRUE(IsEnabled(Indexed("HScroll1", i))) << i;
  EXPECT_TRUE(IsEnabled("Switch1"));
}

TEST_F(Imposta, EachBarRunsOverTheRangeOfItsField) {
  OpenUnanswered();
  constexpr int kRanges[][2] = {{0, 9}, {5, 10}, {50, 250}, {0, 16}, {1, 5}, {0, 12}, {1, 30}};
  for (int i = 0; i < 7; ++i) {
    const QString bar = Indexed("HScroll1", i);
    EXPECT_EQ(Minimum(bar), kRanges[i][0]) << i;
    EXPECT_EQ(Maximum(bar), kRanges[i][1]) << i;
    EXPECT_EQ(Position(bar), kRanges[i][0]) << i;
  }
}

TEST_F(Imposta, ShowsWhatTheBoardHolds) {
  Open();
  const char* const texts[] = {
      "Machine speech 3", "8", "12.5", "7", "2", "6", "15", "70000", "4321"};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(Text(Indexed("Text1", i)), texts[i]) << i;
  constexpr int kPositions[] = {3, 8, 125, 7, 2, 6, 15};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(Position(Indexed("HScroll1", i)), kPositions[i]) << i;
  EXPECT_FALSE(IsOn("Switch1"));
}

TEST_F(Imposta, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

TEST_F(Imposta, TheSwitchStandsBetweenItsTwoCaptions) {
  Open();
  const int first = Left("Label0(0)") - Left("Switch1");
  const int second = Left("Label0(1)") - Left("Switch1");
  EXPECT_LT(std::min(first, second), 0);
  EXPECT_GT(std::max(first, second), 0);
}

TEST_F(Imposta, RepliesWriteNothing) {
  program.link.SetBoardNumber(3, 32);
  Open();
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
}

// The language of the machine.

TEST_F(Imposta, TheLanguageStandsOnlyOnceAllTenNamesHaveCome) {
  OpenUnanswered();
  program.Sweep(19);  // 1 to 10 and 12 to 20
  EXPECT_EQ(Text("Text1(0)"), "");
  EXPECT_EQ(Position("HScroll1(0)"), 0);
  program.Sweep(1);
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
  EXPECT_EQ(Position("HScroll1(0)"), 3);
}

TEST_F(Imposta, TheLanguageStandsOnlyOnceItsNumberHasCome) {
  OpenUnanswered();
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 1 fails
  program.Sweep(20);
  EXPECT_EQ(Text("Text1(0)"), "");
  program.Sweep(2);  // the next pass reaches it again
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
  EXPECT_EQ(Position("HScroll1(0)"), 3);
}

TEST_F(Imposta, TheLanguageWaitsForWhicheverNameIsMissing) {
  for (int k = 12; k <= 21; ++k) {
    OpenUnanswered();
    program.Sweep(10 + k - 12);
    program.link.board.SpoilChecksum(5);  // the exchange of parameter k fails
    program.Sweep(1 + 21 - k);
    EXPECT_EQ(Text("Text1(0)"), "") << k;
    program.Sweep(2);
    EXPECT_EQ(Text("Text1(0)"), "Machine speech 3") << k;
    ClosePage();
    program.Sweep(1);  // ends the pass
  }
}

TEST_F(Imposta, ANameThatComesWhileTheLanguageIsBeingWrittenIsNotShown) {
  Open();
  SetName(3, "Another language");
  PressFocused("HScroll1(0)", Qt::Key_Right);
  program.link.access.WatchParameter(15);
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 1 fails
  program.Sweep(2);
  EXPECT_EQ(program.link.Value(15), NameBytes("Another language"));
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
}

TEST_F(Imposta, ANewNameOfTheLanguageIsShown) {
  Open();
  SetName(3, "Another language");
  AskAgain(15);
  EXPECT_EQ(Text("Text1(0)"), "Another language");
}

TEST_F(Imposta, ANameIsShownWithAllItsBytes) {
  SetName(3,
          "Fran\xE7"
          "ais        ");
  Open();
  EXPECT_EQ(Text("Text1(0)"), QString::fromUtf8("Fran\xC3\xA7"
                                                "ais        "));
}

TEST_F(Imposta, ANameOfAFewBytesIsShownAsANumber) {
  Resize(15, {1, 2});
  Open();
  EXPECT_EQ(Text("Text1(0)"), "513");
}

TEST_F(Imposta, ALanguageBeyondTheLastShowsAnEmptyName) {
  program.link.SetBoardNumber(1, 10);
  Open();
  EXPECT_EQ(Text("Text1(0)"), "");
  EXPECT_EQ(Position("HScroll1(0)"), 9);
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(Imposta, ALanguageWithoutAPlaceEndsTheProgram) {
  program.link.SetBoardNumber(1, 11);
  Open();
  ExpectReport(kSubscript);
}

TEST_F(Imposta, ALanguageWithoutAPlaceIsHarmlessWhileANameIsMissing) {
  program.link.SetBoardNumber(1, 11);
  OpenUnanswered();
  program.Sweep(19);
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Text("Text1(0)"), "");
}

TEST_F(Imposta, ALanguageNumberAbove16BitsEndsTheProgram) {
  Resize(1, {0, 128});  // 32768
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Imposta, ATextForTheLanguageNumberEndsTheProgram) {
  MakeText(1);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Imposta, TheBarOfTheLanguageBringsItsNameWithTheReply) {
  Open();
  PressFocused("HScroll1(0)", Qt::Key_Right);
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
  ExpectSent({WriteFrame(1, 4), WriteFrame(353, 4)});
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 4");
}

TEST_F(Imposta, TheLanguageFieldKeepsItsNameUnderTheFocusAndCannotBeEdited) {
  Open();
  TypeOnly("Text1(0)", "5");
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
  TypeOnly("Text1(1)", "");
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
}

TEST_F(Imposta, EnterOnTheNameOfTheLanguageBringsTheMessageAndTheNameAgain) {
  Open();
  Type("Text1(0)", "");
  ExpectOnlyNumbersMessage("Text1(0)", "Machine speech 3");
}

TEST_F(Imposta, EnterOnALanguageThatIsCalledByANumberChoosesThatNumber) {
  SetName(3, "0000000000000007");
  Open();
  Type("Text1(0)", "");
  EXPECT_EQ(Text("Text1(0)"), "7");
  ExpectSent({WriteFrame(1, 7), WriteFrame(353, 7)});
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 7");
}

TEST_F(Imposta, EnterOnALanguageThatIsCalledByANumberAboveTheLastChangesNothing) {
  SetName(3, "0000000000000010");
  Open();
  ExpectRefused("Text1(0)", "", "0000000000000010");
}

TEST_F(Imposta, EnterOnALanguageWhoseNumberNoVariableHoldsEndsTheProgram) {
  SetName(3, "9999999999999999");
  Open();
  Type("Text1(0)", "");
  ExpectReport(kOverflow);
}

// The switch.

TEST_F(Imposta, TheSwitchShowsOneBitOfTheOptions) {
  program.link.SetBoardNumber(3, 223);  // all bits but the fifth
  Open();
  EXPECT_FALSE(IsOn("Switch1"));
  BoardSays(3, 32);
  EXPECT_TRUE(IsOn("Switch1"));
  BoardSays(3, 64);
  EXPECT_FALSE(IsOn("Switch1"));
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Imposta, TurningTheSwitchOnWritesItsBitAlone) {
  program.link.SetBoardNumber(3, 65);
  Open();
  Click("Switch1");
  EXPECT_TRUE(IsOn("Switch1"));
  EXPECT_THAT(Pending(), ElementsAre(3, 355));
  EXPECT_EQ(program.link.Value(3), Bytes{32});
  EXPECT_EQ(program.link.Value(355), Bytes{32});
  ExpectSent({WriteFrame(3, 32), WriteFrame(355, 32)});
}

TEST_F(Imposta, TheReplyToTheSwitchWritesNothing) {
  program.link.SetBoardNumber(3, 65);
  Open();
  BoardSays(3, 32);
  EXPECT_TRUE(IsOn("Switch1"));
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_F(Imposta, TurningTheSwitchOffClearsAllBits) {
  program.link.SetBoardNumber(3, 255);
  Open();
  Click("Switch1");
  EXPECT_FALSE(IsOn("Switch1"));
  ExpectSent({WriteFrame(3, 0), WriteFrame(355, 0)});
}

TEST_F(Imposta, ATextForTheOptionsEndsTheProgram) {
  MakeText(3);
  Open();
  ExpectReport(kTypeMismatch);
}

// What replies show.

TEST_F(Imposta, AValueBeyondTheBarIsShownAsItCame) {
  program.link.SetBoardNumber(5, 60);
  program.link.SetBoardNumber(2, 1);
  Open();
  EXPECT_EQ(Text("Text1(3)"), "60");
  EXPECT_EQ(Position("HScroll1(3)"), 16);
  EXPECT_EQ(Text("Text1(1)"), "1");
  EXPECT_EQ(Position("HScroll1(1)"), 5);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Imposta, ATimeoutBeyondTheBarIsShownAsTheBarTookIt) {
  program.link.SetBoardNumber(6, 255);
  Open();
  EXPECT_EQ(Text("Text1(2)"), "25");
  EXPECT_EQ(Position("HScroll1(2)"), 250);
  BoardSays(6, 30);
  EXPECT_EQ(Text("Text1(2)"), "5");
  EXPECT_EQ(Position("HScroll1(2)"), 50);
}

TEST_F(Imposta, ATimeoutOfWholeSecondsHasNoDecimals) {
  program.link.SetBoardNumber(6, 120);
  Open();
  EXPECT_EQ(Text("Text1(2)"), "12");
}

TEST_F(Imposta, TheMachineNumberHasNoVariableToOverflow) {
  Resize(9, {255, 255, 255, 255});
  Resize(10, {'A', 'r', 'e', 'a', ' ', '7'});
  Open();
  EXPECT_EQ(Text("Text1(7)"), "4294967295");
  EXPECT_EQ(Text("Text1(8)"), "Area 7");
}

TEST_F(Imposta, TheLargestValueOfASettingIsShown) {
  Resize(2, {255, 255, 255, 127});
  Open();
  EXPECT_EQ(Text("Text1(1)"), "2147483647");
  EXPECT_EQ(Position("HScroll1(1)"), 10);
}

TEST_F(Imposta, ASettingAbove32BitsWithSignEndsTheProgram) {
  Resize(6, {0, 0, 0, 128});
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Imposta, ATextForASettingEndsTheProgram) {
  MakeText(8);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Imposta, AReplyOverwritesWhatIsBeingTyped) {
  Open();
  TypeOnly("Text1(3)", "9");
  BoardSays(5, 11);
  EXPECT_EQ(Text("Text1(3)"), "11");
  TypeOnly("Text1(7)", "9");
  BoardSays(9, 12);
  EXPECT_EQ(Text("Text1(7)"), "12");
}

TEST_F(Imposta, OtherParametersChangeNothing) {
  Open();
  TypeOnly("Text1(3)", "9");
  for (const int k : {11, 22, 353, 357}) BoardSays(k, 1);
  EXPECT_EQ(Text("Text1(3)"), "9");
  EXPECT_EQ(Text("Text1(0)"), "Machine speech 3");
  EXPECT_EQ(Text("Text1(1)"), "8");
}

}  // namespace
}  // namespace sorvane::test
