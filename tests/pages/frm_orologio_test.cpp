#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <vector>

#include "pages/orologio_page.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Orologio : public OrologioPage {
 protected:
  std::vector<QString> Captions(const char* labels, int count) {
    std::vector<QString> all;
    for (int i = 0; i < count; ++i) all.push_back(Caption(Indexed(labels, i)));
    return all;
  }
  // The ranges of some bars, "1..31".
  std::vector<QString> Ranges(const char* bars, int count) {
    std::vector<QString> all;
    for (int i = 0; i < count; ++i) {
      const QString bar = Indexed(bars, i);
      all.push_back(QString("%1..%2").arg(Minimum(bar)).arg(Maximum(bar)));
    }
    return all;
  }
  // From the lower end, how far a key moves some bars.
  std::vector<int> Moves(const char* bars, int count, int key) {
    std::vector<int> all;
    Tabs("SSTab1").SetFront(QString(bars).right(1).toInt() - 1);
    for (int i = 0; i < count; ++i) {
      const QString bar = Indexed(bars, i);
      PressFocused(bar, Qt::Key_Home);
      Press(bar, key);
      all.push_back(Position(bar) - Minimum(bar));
    }
    return all;
  }
};

TEST_F(Orologio, TitleAndTabsComeFromTheMessages) {
  Open();
  EXPECT_EQ(Title(), "Alfa 8");
  EXPECT_THAT(TabCaptions("SSTab1"), ElementsAre("Alfa 45", "Alfa 46", "Alfa 47/Alfa 48"));
}

TEST_F(Orologio, CaptionsOfTheClock) {
  Open();
  EXPECT_THAT(Captions("LabelMes1", 5),
              ElementsAre("Alfa 50", "Alfa 51", "Alfa 52", "Alfa 53", "Alfa 54"));
  EXPECT_EQ(program.Find<QGroupBox>("FrmOrologio", "Frame1").title(), "Alfa 49");
  EXPECT_EQ(program.Find<QPushButton>("FrmOrologio", "Command1").text(), "Copy PC Time");
}

TEST_F(Orologio, CaptionsOfTheDiscountBands) {
  Open();
  EXPECT_THAT(Captions("LabelMes2", 12),
              ElementsAre("Alfa 55 1", "Alfa 55 2", "Alfa 56 1", "Alfa 56 2", "Alfa 53", "Alfa 53",
                          "Alfa 53", "Alfa 53", "Alfa 54", "Alfa 54", "Alfa 54", "Alfa 54"));
}

TEST_F(Orologio, CaptionsOfSwitchingOnAndOff) {
  Open();
  EXPECT_EQ(Caption("Label1"), "Alfa 47/Alfa 48");
  EXPECT_THAT(Captions("Label2", 2), ElementsAre("Alfa 47", "Alfa 48"));
  EXPECT_EQ(Property("iSwitchSliderX1", "labels").toStringList(),
            QStringList({"Alfa 17", "Alfa 18"}));
}

TEST_F(Orologio, TheHoursOfSwitchingOffBearTheWordForMinutesAndTwoUnitsAreNeverTranslated) {
  Open();
  EXPECT_THAT(Captions("LabelMes3", 4), ElementsAre("Alfa 53", "Alfa 54", "minuti", "minuti"));
}

TEST_F(Orologio, AnotherLanguageReachesTheOpenPage) {
  OpenUnanswered();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Title(), "Bravo 8");
  EXPECT_THAT(TabCaptions("SSTab1"), ElementsAre("Bravo 45", "Bravo 46", "Bravo 47/Bravo 48"));
  EXPECT_EQ(Caption("LabelMes2(2)"), "Bravo 56 1");
  EXPECT_THAT(Captions("LabelMes3", 4), ElementsAre("Bravo 53", "Bravo 54", "minuti", "minuti"));
  EXPECT_EQ(Property("iSwitchSliderX1", "labels").toStringList(),
            QStringList({"Bravo 17", "Bravo 18"}));
  EXPECT_EQ(program.Find<QPushButton>("FrmOrologio", "Command1").text(), "Copy PC Time");
}

TEST_F(Orologio, HasRoomForAllThatItShows) {
  Open();
  const auto* page = program.frame->findChild<ChildForm*>("FrmOrologio");
  EXPECT_GE(page->width(), page->minimumSizeHint().width());
  EXPECT_GE(page->height(), page->minimumSizeHint().height());
}

TEST_F(Orologio, IsEmptyUntilRepliesCome) {
  OpenUnanswered();
  EXPECT_THAT(Texts("Text1", 5), testing::Each(QString()));
  EXPECT_THAT(Texts("Text2", 8), testing::Each(QString()));
  EXPECT_THAT(Texts("Text3", 4), testing::Each(QString()));
  EXPECT_THAT(Positions("HScroll1", 5), ElementsAre(1, 1, 0, 0, 0));
  EXPECT_THAT(Positions("HScroll2", 8), testing::Each(0));
  EXPECT_THAT(Positions("HScroll3", 4), testing::Each(0));
  EXPECT_EQ(Face(), "");
}

TEST_F(Orologio, ShowsWhatTheBoardHolds) {
  Open();
  EXPECT_THAT(Texts("Text1", 5), ElementsAre("5", "3", "2026", "10", "30"));
  EXPECT_THAT(Positions("HScroll1", 5), ElementsAre(5, 3, 26, 10, 30));
  EXPECT_THAT(Texts("Text2", 8), ElementsAre("8", "15", "9", "45", "18", "5", "20", "50"));
  EXPECT_THAT(Positions("HScroll2", 8), ElementsAre(8, 15, 9, 45, 18, 5, 20, 50));
  EXPECT_THAT(Texts("Text3", 4), ElementsAre("6", "10", "22", "40"));
  EXPECT_THAT(Positions("HScroll3", 4), ElementsAre(6, 10, 22, 40));
  EXPECT_EQ(Slide(), 1);
  EXPECT_EQ(Face(), "10:30");
  EXPECT_EQ(Date(), "05/03/2026");
}

TEST_F(Orologio, RangesOfTheBars) {
  Open();
  EXPECT_THAT(Ranges("HScroll1", 5), ElementsAre("1..31", "1..12", "0..99", "0..23", "0..59"));
  EXPECT_THAT(Ranges("HScroll2", 8),
              ElementsAre("0..23", "0..59", "0..23", "0..59", "0..23", "0..59", "0..23", "0..59"));
  EXPECT_THAT(Ranges("HScroll3", 4), ElementsAre("0..23", "0..59", "0..23", "0..59"));
}

TEST_F(Orologio, HoursMoveByThreeAndAllElseByFive) {
  Open();
  EXPECT_THAT(Moves("HScroll1", 5, Qt::Key_PageDown), ElementsAre(5, 5, 5, 3, 5));
  EXPECT_THAT(Moves("HScroll2", 8, Qt::Key_PageDown), ElementsAre(3, 5, 3, 5, 3, 5, 3, 5));
  EXPECT_THAT(Moves("HScroll3", 4, Qt::Key_PageDown), ElementsAre(3, 5, 3, 5));
}

TEST_F(Orologio, EverySmallStepIsOne) {
  Open();
  EXPECT_THAT(Moves("HScroll1", 5, Qt::Key_Right), testing::Each(1));
  EXPECT_THAT(Moves("HScroll2", 8, Qt::Key_Right), testing::Each(1));
  EXPECT_THAT(Moves("HScroll3", 4, Qt::Key_Right), testing::Each(1));
}

TEST_F(Orologio, TheFiveBarsOfTheClockWriteTheirOwnParameters) {
  Open();
  for (int i = 0; i < 5; ++i) PressFocused(Indexed("HScroll1", i), Qt::Key_Right);
  EXPECT_THAT(Pending(), ElementsAre(54, 55, 56, 57, 58));
  ExpectSent({WriteFrame(54, 11), WriteFrame(55, 31), WriteFrame(56, 6), WriteFrame(57, 4),
              WriteFrame(58, 27)});
  EXPECT_EQ(Date(), "06/04/2027");
  EXPECT_EQ(Face(), "11:31");
}

TEST_F(Orologio, TheBarsOfTheBandsWriteOneParameterEach) {
  OpenOn(1);
  for (int i = 0; i < 8; ++i) PressFocused(Indexed("HScroll2", i), Qt::Key_Right);
  ExpectSent({WriteFrame(59, 9), WriteFrame(60, 16), WriteFrame(61, 10), WriteFrame(62, 46),
              WriteFrame(63, 19), WriteFrame(64, 6), WriteFrame(65, 21), WriteFrame(66, 51)});
}

TEST_F(Orologio, TheBarsOfSwitchingWriteParameterAndMirror) {
  OpenOn(2);
  for (int i = 0; i < 4; ++i) PressFocused(Indexed("HScroll3", i), Qt::Key_Right);
  EXPECT_THAT(Pending(), ElementsAre(67, 68, 69, 70, 361, 362, 363, 364));
  EXPECT_THAT((std::vector<int>{Byte(67), Byte(361), Byte(70), Byte(364)}),
              ElementsAre(7, 7, 41, 41));
  ExpectSent({WriteFrame(67, 7), WriteFrame(68, 11), WriteFrame(69, 23), WriteFrame(70, 41),
              WriteFrame(361, 7), WriteFrame(362, 11), WriteFrame(363, 23), WriteFrame(364, 41)});
  EXPECT_THAT(Texts("Text3", 4), ElementsAre("7", "11", "23", "41"));
}

TEST_F(Orologio, ATextFollowsItsBarOnlyWithTheReply) {
  OpenOn(2);
  PressFocused("HScroll3(1)", Qt::Key_PageDown);
  EXPECT_EQ(Text("Text3(1)"), "10");
  ExpectSent({WriteFrame(68, 15), WriteFrame(362, 15)});
  EXPECT_EQ(Text("Text3(1)"), "15");
}

TEST_F(Orologio, AStepUpAtFiftyNineStaysThereAndNoHourMoves) {
  program.link.SetBoardNumber(55, 59);
  Open();
  PressFocused("HScroll1(4)", Qt::Key_Right);
  EXPECT_EQ(Position("HScroll1(4)"), 59);
  EXPECT_EQ(Position("HScroll1(3)"), 10);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Orologio, RepliesWriteNothing) {
  Open();
  for (const int parameter : {3, 53, 54, 55, 57, 58, 59, 66, 67, 70}) BoardSays(parameter, 7);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 2);  // the trial of the clock
  EXPECT_THAT(Texts("Text1", 5), ElementsAre("5", "7", "2007", "7", "7"));
}

TEST_F(Orologio, Parameter53HasNoEffect) {
  Open();
  BoardSays(53, 12);
  EXPECT_THAT(Texts("Text1", 5), ElementsAre("5", "3", "2026", "10", "30"));
  EXPECT_EQ(Face(), "10:30");
  EXPECT_EQ(Date(), "05/03/2026");
}

TEST_F(Orologio, ValuesOutsideTheRangesShowAsTheyCameWithTheBarsAtTheirEnds) {
  Open();
  BoardSays(57, 0);
  BoardSays(59, 24);
  BoardSays(66, 255);
  BoardSays(70, 60);
  EXPECT_EQ(Text("Text1(1)"), "0");
  EXPECT_EQ(Position("HScroll1(1)"), 1);
  EXPECT_EQ(Text("Text2(0)"), "24");
  EXPECT_EQ(Position("HScroll2(0)"), 23);
  EXPECT_EQ(Text("Text2(7)"), "255");
  EXPECT_EQ(Position("HScroll2(7)"), 59);
  EXPECT_EQ(Text("Text3(3)"), "60");
  EXPECT_EQ(Position("HScroll3(3)"), 59);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Orologio, HoursOfTwentyFourShowInTheFieldAndLeaveTheFace) {
  Open();
  BoardSays(54, 24);
  EXPECT_EQ(Text("Text1(3)"), "24");
  EXPECT_EQ(Position("HScroll1(3)"), 23);
  EXPECT_EQ(Face(), "10:30");
}

TEST_F(Orologio, SixtyMinutesShowInTheFieldAndLeaveTheFace) {
  Open();
  BoardSays(55, 60);
  EXPECT_EQ(Text("Text1(4)"), "60");
  EXPECT_EQ(Position("HScroll1(4)"), 59);
  EXPECT_EQ(Face(), "10:30");
  BoardSays(55, 59);
  EXPECT_EQ(Face(), "10:59");
}

TEST_F(Orologio, TheFaceTakesBothEndsOfTheDay) {
  Open();
  BoardSays(54, 23);
  EXPECT_EQ(Face(), "23:30");
  BoardSays(54, 0);
  BoardSays(55, 0);
  EXPECT_EQ(Face(), "00:00");
}

TEST_F(Orologio, TheFaceWaitsUntilHoursAndMinutesAreBothFresh) {
  Open();
  PressFocused("HScroll1(4)", Qt::Key_Right);  // the minutes aren't fresh until they are answered
  program.link.SetBoardNumber(54, 12);
  program.link.access.WatchParameter(54);
  program.Sweep(1);
  EXPECT_EQ(Text("Text1(3)"), "12");
  EXPECT_EQ(Face(), "10:30");
  program.Sweep(1);
  EXPECT_EQ(Face(), "12:31");
}

TEST_F(Orologio, TheDateWaitsUntilTheMonthIsFresh) {
  Open();
  PressFocused("HScroll1(1)", Qt::Key_Right);
  program.link.SetBoardNumber(56, 6);
  program.link.access.WatchParameter(56);
  program.Sweep(1);
  EXPECT_EQ(Text("Text1(0)"), "6");
  EXPECT_EQ(Date(), "05/03/2026");
  program.Sweep(1);
  EXPECT_EQ(Date(), "06/04/2026");
}

TEST_F(Orologio, TheDateWaitsUntilTheYearIsFresh) {
  Open();
  PressFocused("HScroll1(2)", Qt::Key_Right);
  program.link.SetBoardNumber(57, 4);
  program.link.access.WatchParameter(57);
  program.Sweep(1);
  EXPECT_EQ(Text("Text1(1)"), "4");
  EXPECT_EQ(Date(), "05/03/2026");
  program.Sweep(1);
  EXPECT_EQ(Date(), "05/04/2027");
}

TEST_F(Orologio, YearZeroIsTheYear2000) {
  program.link.SetBoardNumber(58, 0);
  Open();
  EXPECT_EQ(Text("Text1(2)"), "2000");
  EXPECT_EQ(Position("HScroll1(2)"), 0);
  EXPECT_EQ(Date(), "05/03/2000");
}

TEST_F(Orologio, TheDateCountsOnWhereDayOrMonthHaveNoPlaceInTheCalendar) {
  Open();
  BoardSays(56, 31);
  BoardSays(57, 2);
  EXPECT_EQ(Date(), "03/03/2026");
  BoardSays(57, 0);
  EXPECT_EQ(Date(), "31/01/2026");
  BoardSays(57, 3);
  BoardSays(56, 0);
  EXPECT_EQ(Date(), "28/02/2026");
  BoardSays(58, 24);
  EXPECT_EQ(Date(), "29/02/2024");
}

TEST_F(Orologio, AMonthAboveTwelveEndsTheProgramOnceTheDateIsDrawn) {
  program.link.SetBoardNumber(57, 13);
  OpenUnanswered();
  program.Sweep(22);
  EXPECT_EQ(Text("Text1(1)"), "13");
  EXPECT_EQ(Position("HScroll1(1)"), 12);
  EXPECT_THAT(program.reports, IsEmpty());
  program.Sweep(1);
  ExpectReport(kSubscript);
}

TEST_F(Orologio, TheSliderStandsAtYesWhereItsBitIsSet) {
  program.link.SetBoardNumber(3, 8);
  Open();
  EXPECT_EQ(Slide(), 0);
  BoardSays(3, 247);
  EXPECT_EQ(Slide(), 1);
  BoardSays(3, 255);
  EXPECT_EQ(Slide(), 0);
}

TEST_F(Orologio, TheSliderSetsItsBitAndCarriesTheOthers) {
  OpenOn(2);
  PressFocused("iSwitchSliderX1", Qt::Key_Left);
  EXPECT_EQ(Slide(), 0);
  EXPECT_THAT(Pending(), ElementsAre(3, 355));
  EXPECT_THAT((std::vector<int>{Byte(3), Byte(355)}), ElementsAre(237, 237));
  ExpectSent({WriteFrame(3, 237), WriteFrame(355, 237)});
  EXPECT_EQ(Slide(), 0);
}

TEST_F(Orologio, TheSliderClearsItsBitAndCarriesTheOthers) {
  program.link.SetBoardNumber(3, 255);
  OpenOn(2);
  PressFocused("iSwitchSliderX1", Qt::Key_Right);
  ExpectSent({WriteFrame(3, 247), WriteFrame(355, 247)});
  EXPECT_EQ(Slide(), 1);
}

TEST_F(Orologio, TheSliderTurnedBackBeforeTheReplyWritesTheFlagsAsTheyWere) {
  OpenOn(2);
  PressFocused("iSwitchSliderX1", Qt::Key_Left);
  Press("iSwitchSliderX1", Qt::Key_Right);
  ExpectSent({WriteFrame(3, 229), WriteFrame(355, 229)});
}

// The password page has written them, and the board hasn't answered yet.
TEST_F(Orologio, TheSliderCarriesTheFlagsAsTheyWereDelivered) {
  OpenOn(2);
  program.link.access.WriteParameter(3, 16);
  PressFocused("iSwitchSliderX1", Qt::Key_Left);
  ExpectSent({WriteFrame(3, 237), WriteFrame(355, 237)});
}

TEST_F(Orologio, CopyingThePcTimeWritesItsFivePartsAndNothingElse) {
  Open();
  program.now = [] { return QDateTime(QDate(2031, 12, 24), QTime(18, 7, 42)); };
  ClickSeen("Command1");
  EXPECT_THAT(Pending(), ElementsAre(54, 55, 56, 57, 58));
  EXPECT_EQ(Text("Text1(0)"), "5");
  EXPECT_EQ(Position("HScroll1(0)"), 5);
  ExpectSent({WriteFrame(54, 18), WriteFrame(55, 7), WriteFrame(56, 24), WriteFrame(57, 12),
              WriteFrame(58, 31)});
  EXPECT_THAT(Texts("Text1", 5), ElementsAre("24", "12", "2031", "18", "7"));
  EXPECT_EQ(Face(), "18:07");
  EXPECT_EQ(Date(), "24/12/2031");
}

TEST_F(Orologio, CopyingThePcTimeTakesEachPartFromAReadingOfItsOwn) {
  Open();
  const std::vector<QDateTime> readings{
      QDateTime(QDate(2021, 1, 2), QTime(3, 4)), QDateTime(QDate(2022, 5, 6), QTime(7, 8)),
      QDateTime(QDate(2023, 9, 10), QTime(11, 12)), QDateTime(QDate(2024, 11, 13), QTime(14, 15)),
      QDateTime(QDate(2025, 12, 16), QTime(17, 18))};
  std::size_t reading = 0;
  program.now = [&] { return readings.at(reading++); };
  ClickSeen("Command1");
  EXPECT_EQ(reading, 5U);
  EXPECT_THAT((std::vector<int>{Byte(55), Byte(54), Byte(56), Byte(57), Byte(58)}),
              ElementsAre(4, 7, 10, 11, 25));
  program.now = [&] { return readings[0]; };
}

TEST_F(Orologio, APcTimeThatIsCopiedAtMidnightStraddlesTheDays) {
  Open();
  int reading = 0;
  program.now = [&] {
    return ++reading == 1 ? QDateTime(QDate(2025, 12, 31), QTime(23, 59, 59))
                          : QDateTime(QDate(2026, 1, 1), QTime(0, 0));
  };
  ClickSeen("Command1");
  ExpectSent({WriteFrame(54, 0), WriteFrame(55, 59), WriteFrame(56, 1), WriteFrame(57, 1),
              WriteFrame(58, 26)});
}

}  // namespace
}  // namespace sorvane::test
