#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "pages/orologio_page.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The page asks for 19 parameters, one with each step of the sweep; the step behind them finds the
// end of the table, and the next one sends day 0.
constexpr int kStepsToTheDay = 5;
constexpr int kStepsToTheTrial = 20;

class OrologioProbe : public OrologioPage {
 protected:
  // What the trial of the board's clock opens and closes.
  std::vector<QString> Subjects() {
    std::vector<QString> all{"Frame1", "iSevenSegmentClockX1", "Command1", "iSwitchSliderX1"};
    for (const auto& [array, count] : {std::pair("1", 5), std::pair("2", 8), std::pair("3", 4)}) {
      for (int i = 0; i < count; ++i) {
        all.push_back(QString("Text%1(%2)").arg(array).arg(i));
        all.push_back(QString("HScroll%1(%2)").arg(array).arg(i));
      }
    }
    return all;
  }
  void ExpectAll(bool open, CallSite at = CallSite::Here()) {
    std::string others;
    for (const QString& name : Subjects()) {
      if (IsEnabled(name) != open) others += " " + name.toStdString();
    }
    if (!others.empty()) FailAt(at, (open ? "closed:" : "open:") + others);
  }
  // The board refuses day 0: its acknowledgement is wrong, and it keeps its day.
  void OpenRefused() {
    OpenUnanswered();
    program.Sweep(kStepsToTheTrial);
    program.link.board.SpoilChecksum(5);
    program.Sweep(1);
    program.link.SetBoardNumber(56, 5);
    program.Sweep(3);
    program.link.wire.Forget();
  }
  // The exchange of the day fails while all else is answered.
  void OpenWithoutTheDay() {
    OpenUnanswered();
    program.Sweep(kStepsToTheDay - 1);
    program.link.board.SpoilChecksum(5);
    program.Sweep(15);
  }
};

TEST_F(OrologioProbe, AsksForItsParametersOnceEach) {
  OpenUnanswered();
  program.Sweep(19);
  program.link.wire.Expect({0, 0, 0, 3, 3});
  for (uint8_t k = 53; k <= 70; ++k) program.link.wire.Expect({0, 0, 0, k, k});
  program.link.wire.ExpectNothing();
}

TEST_F(OrologioProbe, HoldsItsParametersAndNoMirror) {
  OpenUnanswered();
  EXPECT_THAT(Watched(), ElementsAre(3, 53, 54, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67,
                                     68, 69, 70));
}

TEST_F(OrologioProbe, LoadClosesTheThreeTabsAndNothingElse) {
  OpenUnanswered();
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_TRUE(IsEnabled("SSTab1"));
  ExpectAll(true);
}

TEST_F(OrologioProbe, OnlyTheFirstTabCanBeReachedBeforeTheTrial) {
  OpenUnanswered();
  ClickTab("SSTab1", 1);
  ClickTab("SSTab1", 2);
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  Strip("SSTab1").setFocus();
  QTest::keyClick(&Strip("SSTab1"), Qt::Key_Right);
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_TRUE(IsVisible("Text1(0)"));
  EXPECT_FALSE(IsVisible("Text2(0)"));
}

TEST_F(OrologioProbe, TheFirstReplyOfTheDayWritesDayZero) {
  OpenUnanswered();
  program.Sweep(kStepsToTheDay - 1);
  EXPECT_THAT(Pending(), IsEmpty());
  program.Sweep(1);
  EXPECT_THAT(Pending(), ElementsAre(56));
  EXPECT_EQ(Byte(56), 0);
  EXPECT_EQ(Text("Text1(0)"), "5");
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  program.Sweep(15);
  program.link.wire.Forget();
  program.Sweep(1);
  program.link.wire.Expect({128, 0, 0, 56, 0, 184});
}

TEST_F(OrologioProbe, ABoardThatTakesDayZeroOpensThePageAndGetsItsDayBack) {
  OpenUnanswered();
  program.Sweep(kStepsToTheTrial + 1);
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(true, true, true));
  ExpectAll(true);
  EXPECT_THAT(Pending(), ElementsAre(56));
  EXPECT_EQ(Byte(56), 5);
  program.link.wire.Forget();
  program.Sweep(2);
  program.link.wire.Expect({128, 0, 0, 56, 5, 189});
  EXPECT_EQ(program.link.BoardValue(56), Bytes{5});
  EXPECT_EQ(Text("Text1(0)"), "5");
}

TEST_F(OrologioProbe, DayZeroLeavesTheBarAtOneAndTheFieldSayingZero) {
  OpenUnanswered();
  program.Sweep(kStepsToTheTrial + 1);
  EXPECT_EQ(Text("Text1(0)"), "0");
  EXPECT_EQ(Position("HScroll1(0)"), 1);
}

TEST_F(OrologioProbe, TheFaceIsDrawnWithTheTrialAndTheDateOnlyWithTheRealDay) {
  OpenUnanswered();
  const QString undrawn = Date();
  program.Sweep(kStepsToTheTrial);
  EXPECT_EQ(Face(), "");
  program.Sweep(1);
  EXPECT_EQ(Face(), "10:30");
  EXPECT_EQ(Date(), undrawn);
  program.Sweep(2);
  EXPECT_EQ(Date(), "05/03/2026");
}

TEST_F(OrologioProbe, TheTrialIsAllThatLoadingWrites) {
  Open();
  EXPECT_EQ(program.link.board.Writes(), 2);
  ExpectNothingSent();
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioProbe, ARepliedDayAfterTheTrialWritesNothing) {
  Open();
  BoardSays(56, 17);
  BoardSays(56, 17);
  EXPECT_EQ(Text("Text1(0)"), "17");
  EXPECT_EQ(program.link.board.Writes(), 2);
  EXPECT_EQ(Date(), "17/03/2026");
}

TEST_F(OrologioProbe, AnOpenedPageLetsTheUserReachAllTabs) {
  Open();
  ClickTab("SSTab1", 1);
  EXPECT_TRUE(IsVisible("Text2(0)"));
  ClickTab("SSTab1", 2);
  EXPECT_TRUE(IsVisible("Text3(0)"));
}

TEST_F(OrologioProbe, ABoardThatRefusesDayZeroClosesAllButTheTabControlItself) {
  OpenRefused();
  ExpectAll(false);
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  EXPECT_TRUE(IsEnabled("SSTab1"));
  EXPECT_EQ(Text("Text1(0)"), "5");
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioProbe, ARefusedTrialWritesNoMore) {
  OpenRefused();
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(OrologioProbe, ARefusedPageDrawsNeitherFaceNorDate) {
  OpenUnanswered();
  const QString undrawn = Date();
  ClosePage();
  OpenRefused();
  BoardSays(55, 31);
  EXPECT_EQ(Text("Text1(4)"), "31");
  EXPECT_EQ(Face(), "");
  EXPECT_EQ(Date(), undrawn);
}

TEST_F(OrologioProbe, TheSameDayOnceMoreLeavesARefusedPageClosed) {
  OpenRefused();
  BoardSays(56, 5);
  ExpectAll(false);
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
}

TEST_F(OrologioProbe, AnotherDayOpensARefusedPageAndTheSavedDayIsPutBack) {
  OpenRefused();
  program.link.SetBoardNumber(56, 6);
  program.link.access.WatchParameter(56);
  program.Sweep(1);
  ExpectAll(true);
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(true, true, true));
  EXPECT_EQ(Text("Text1(0)"), "6");
  ExpectSent({ReadFrame(56), WriteFrame(56, 5)});
  EXPECT_EQ(Text("Text1(0)"), "5");
  EXPECT_EQ(Date(), "05/03/2026");
}

TEST_F(OrologioProbe, ABoardWhoseDayIsZeroAlreadyCountsAsRefusing) {
  program.link.SetBoardNumber(56, 0);
  Open();
  ExpectAll(false);
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  EXPECT_EQ(program.link.board.Writes(), 1);
}

TEST_F(OrologioProbe, WithoutADayThePageShowsTheRestAndStaysClosed) {
  OpenUnanswered();
  const QString undrawn = Date();
  ClosePage();
  OpenWithoutTheDay();
  EXPECT_EQ(Text("Text1(0)"), "");
  EXPECT_EQ(Text("Text1(3)"), "10");
  EXPECT_EQ(Text("Text3(3)"), "40");
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  EXPECT_EQ(Face(), "");
  EXPECT_EQ(Date(), undrawn);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(OrologioProbe, ABoardThatFallsSilentLeavesThePageAsItIs) {
  OpenUnanswered();
  program.Sweep(kStepsToTheDay - 1);
  program.link.board.SwitchOff();
  program.Sweep(200);
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  ExpectAll(true);
  EXPECT_TRUE(WasSilent());
}

TEST_F(OrologioProbe, EachOpeningTriesAnew) {
  Open();
  ClosePage();
  OpenUnanswered();
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(false, false, false));
  program.Sweep(kStepsToTheTrial);
  program.link.wire.Forget();
  program.Sweep(3);
  program.link.wire.Expect(WriteFrame(56, 0));
  program.link.wire.Expect(WriteFrame(56, 5));
  program.link.wire.ExpectNothing();
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(true, true, true));
}

TEST_F(OrologioProbe, APageOpenedAgainDrawsNoTimeBeforeItsOwnTrial) {
  Open();
  EXPECT_EQ(Face(), "10:30");
  ClosePage();
  OpenWithoutTheDay();
  EXPECT_EQ(Text("Text1(3)"), "10");
  EXPECT_EQ(Text("Text1(4)"), "30");
  EXPECT_EQ(Face(), "");
}

TEST_F(OrologioProbe, APageOpenedAgainStandsOnItsFirstTabWithEmptyFields) {
  OpenOn(2);
  ClosePage();
  OpenUnanswered();
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_EQ(Text("Text1(0)"), "");
  EXPECT_EQ(Text("Text3(0)"), "");
}

TEST_F(OrologioProbe, ADayThatIsStillToBePutBackIsSentWhenThePageOpensAgain) {
  OpenUnanswered();
  program.Sweep(kStepsToTheTrial + 1);
  ClosePage();
  program.link.wire.Forget();
  program.Sweep(3);
  program.link.wire.ExpectNothing();
  OpenUnanswered();
  program.Sweep(80);
  EXPECT_EQ(program.link.BoardValue(56), Bytes{5});
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(true, true, true));
  EXPECT_EQ(Date(), "05/03/2026");
}

TEST_F(OrologioProbe, TheDayThatIsSavedIsTheOneThatWasTypedBeforeTheFirstReply) {
  OpenUnanswered();
  Replace("Text1(0)", "9");
  program.Sweep(80);
  EXPECT_EQ(program.link.BoardValue(56), Bytes{9});
  EXPECT_EQ(program.link.board.Writes(), 3);
  EXPECT_EQ(Date(), "09/03/2026");
}

TEST_F(OrologioProbe, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int index : {3, 53, 56, 59, 70}) {
    EXPECT_EQ(program.link.Record(index).At(6) & 7, 0) << index;
  }
}

}  // namespace
}  // namespace sorvane::test
