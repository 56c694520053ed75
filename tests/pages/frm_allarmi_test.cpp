#include "pages/allarmi_page.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

// What the page lists, and how it writes it.
class Allarmi : public AllarmiPage {
 protected:
  // The first row, of a record alone with these parts.
  QStringList RowOf(const RingRecord& record) {
    SetRecord(0, record);
    SetCode(19, 51);
    OpenRead();
    EXPECT_EQ(Rows(), 1);
    return Row(0);
  }
};

TEST_F(Allarmi, TextsOfThePageAreFixed) {
  OpenUnanswered();
  EXPECT_EQ(Title(), "Allarmi");
  EXPECT_EQ(Caption("Label1"), "Ultimi 20 allarmi rilevati");
  ASSERT_EQ(List().columnCount(), 4);
  EXPECT_EQ(List().headerItem()->text(0), "nr.");
  EXPECT_EQ(List().headerItem()->text(1), "data");
  EXPECT_EQ(List().headerItem()->text(2), "ora");
  EXPECT_EQ(List().headerItem()->text(3), "descrizione");
  EXPECT_FALSE(Bar().isTextVisible());
}

TEST_F(Allarmi, AnotherLanguageLeavesItsTexts) {
  OpenRead();
  program.Choose("smnuLingue(1)");
  program.Choose("MnuAllarmi");
  EXPECT_EQ(Title(), "Allarmi");
  EXPECT_EQ(Caption("Label1"), "Ultimi 20 allarmi rilevati");
  EXPECT_EQ(List().headerItem()->text(3), "descrizione");
  EXPECT_EQ(Row(0), QStringList({"1", "01/03/2026", "00:00", "OBC_1_vuoto prodotto 1 "}));
}

TEST_F(Allarmi, ListsTwentyAlarmsFromNumberOneOn) {
  OpenRead();
  EXPECT_EQ(Column(0), QStringList({"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10",
                                    "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"}));
}

TEST_F(Allarmi, PointerOfZeroListsRecordZeroThenNineteenThenEighteen) {
  OpenRead();
  EXPECT_EQ(Row(0), QStringList({"1", "01/03/2026", "00:00", "OBC_1_vuoto prodotto 1 "}));
  EXPECT_EQ(Row(1), QStringList({"2", "20/03/2026", "19:57", "EJB_4_blocco motore 4 "}));
  EXPECT_EQ(Row(2), QStringList({"3", "19/03/2026", "18:54", "EJB_3_blocco motore 3 "}));
  EXPECT_EQ(Row(19), QStringList({"20", "02/03/2026", "01:03", "OBC_2_vuoto prodotto 2 "}));
}

TEST_F(Allarmi, PointerInTheMiddleListsBackwardsAndWrapsOnce) {
  SetPointer(7);
  OpenRead();
  EXPECT_EQ(Times(), QStringList({"07:21", "06:18", "05:15", "04:12", "03:09", "02:06", "01:03",
                                  "00:00", "19:57", "18:54", "17:51", "16:48", "15:45", "14:42",
                                  "13:39", "12:36", "11:33", "10:30", "09:27", "08:24"}));
}

TEST_F(Allarmi, PointerAtTheLastRecordListsTheRingBackwardsWhole) {
  SetPointer(19);
  OpenRead();
  EXPECT_EQ(Times().first(), "19:57");
  EXPECT_EQ(Times().last(), "00:00");
  EXPECT_EQ(Rows(), 20);
}

TEST_F(Allarmi, PointerOfTwentyIsASubscriptOutOfRange) {
  SetPointer(20);
  OpenRead();
  ExpectReport(kSubscript);
}

TEST_F(Allarmi, PointerAboveTwentyLeavesTheListEmpty) {
  for (const std::uint32_t pointer : {21U, 22U, 255U}) {
    SetPointer(pointer);
    OpenRead();
    EXPECT_EQ(Rows(), 0) << pointer;
    EXPECT_FALSE(IsBarShown()) << pointer;
    EXPECT_THAT(program.reports, IsEmpty());
    ClosePage();
  }
}

TEST_F(Allarmi, NewPointerBuildsTheListAnew) {
  OpenRead();
  BoardSays(278, 4);
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Row(0), QStringList({"1", "05/03/2026", "04:12", "OBC_5_vuoto prodotto 5 "}));
  EXPECT_EQ(Row(19), QStringList({"20", "06/03/2026", "05:15", "OBC_6_vuoto prodotto 6 "}));
}

TEST_F(Allarmi, PointerThatGoesAboveTwentyEmptiesTheListUntilItComesBack) {
  OpenRead();
  BoardSays(278, 21);
  EXPECT_EQ(Rows(), 0);
  BoardSays(278, 3);
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Times().first(), "03:09");
}

TEST_F(Allarmi, NewByteOfTheRingBuildsTheListAnew) {
  OpenRead();
  BoardSays(124, 9);
  BoardSays(119, 59);
  EXPECT_EQ(Row(0), QStringList({"1", "01/03/2026", "00:59", "EDM_segnalazione sonda   "}));
  EXPECT_EQ(Rows(), 20);
}

TEST_F(Allarmi, BytesThatMeanNothingChangeNothing) {
  for (int q = 0; q < 20; ++q) {
    SetNumbers(118 + 8 * q, {255});
    SetNumbers(125 + 8 * q, {255});
  }
  OpenRead();
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Row(0), QStringList({"1", "01/03/2026", "00:00", "OBC_1_vuoto prodotto 1 "}));
  EXPECT_EQ(Row(19), QStringList({"20", "02/03/2026", "01:03", "OBC_2_vuoto prodotto 2 "}));
}

// All texts, blanks at the end included.
TEST_F(Allarmi, EveryCodeHasItsText) {
  const char* const texts[51] = {
      "",
      "ECM_allarme eeprom   ",
      "EAR_allarme gettoniera   ",
      "EAJ_allarme fattore di scala   ",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "EDM_segnalazione sonda   ",
      "ECA_segnalazione 24V   ",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "OBC_1_vuoto prodotto 1 ",
      "OBC_2_vuoto prodotto 2 ",
      "OBC_3_vuoto prodotto 3 ",
      "OBC_4_vuoto prodotto 4 ",
      "OBC_5_vuoto prodotto 5 ",
      "OBC_6_vuoto prodotto 6 ",
      "OBC_7_vuoto prodotto 7 ",
      "OBC_8_vuoto prodotto 8 ",
      "OBC_9_vuoto prodotto 9 ",
      "OBC_10_vuoto prodotto 10",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "EJB_1_blocco motore 1 ",
      "EJB_2_blocco motore 2 ",
      "EJB_3_blocco motore 3 ",
      "EJB_4_blocco motore 4 ",
      "EJB_5_blocco motore 5 ",
      "EJB_6_blocco motore 6 ",
      "EJB_7_blocco motore 7 ",
      "EJB_8_blocco motore 8 ",
      "EJB_9_blocco motore 9 ",
      "EJB_10_blocco motore 10",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "      ",
      "",
      "",
  };
  OpenRead();
  for (int code = 0; code <= 50; ++code) {
    Tell(124, static_cast<uint8_t>(code));
    EXPECT_EQ(Row(0).at(3), QString(texts[code])) << code;
    EXPECT_EQ(Rows(), 20) << code;
  }
}

TEST_F(Allarmi, CodeZeroIsListedWithAnEmptyDescription) {
  EXPECT_EQ(RowOf({5, 9, 2, 3, 26, 0}), QStringList({"1", "02/03/2026", "09:05", ""}));
}

TEST_F(Allarmi, CodeFourIsListedWithSixBlanks) {
  EXPECT_EQ(RowOf({5, 9, 2, 3, 26, 4}), QStringList({"1", "02/03/2026", "09:05", "      "}));
}

TEST_F(Allarmi, CodeFiftyIsListedWithAnEmptyDescription) {
  EXPECT_EQ(RowOf({5, 9, 2, 3, 26, 50}), QStringList({"1", "02/03/2026", "09:05", ""}));
}

TEST_F(Allarmi, CodeFiftyOneEndsTheListWithAllOlderRows) {
  SetPointer(5);
  SetCode(2, 51);
  SetCode(1, 50);
  OpenRead();
  EXPECT_EQ(Times(), QStringList({"05:15", "04:12", "03:09"}));
}

TEST_F(Allarmi, CodeAboveFiftyInTheNewestRecordLeavesTheListEmpty) {
  SetCode(0, 255);
  OpenRead();
  EXPECT_EQ(Rows(), 0);
  EXPECT_FALSE(IsBarShown());
}

TEST_F(Allarmi, ListThatGetsShorterAndLongerAgainIsWhole) {
  OpenRead();
  BoardSays(124 + 8 * 18, 51);
  EXPECT_EQ(Times(), QStringList({"00:00", "19:57"}));
  BoardSays(124 + 8 * 18, 1);
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Row(2), QStringList({"3", "19/03/2026", "18:54", "ECM_allarme eeprom   "}));
}

TEST_F(Allarmi, NoDayAndNoMonthShowAsZeroesAndTheTimeAllTheSame) {
  EXPECT_EQ(RowOf({45, 23, 0, 0, 26, 2}),
            QStringList({"1", "00/00/00", "23:45", "EAR_allarme gettoniera   "}));
}

TEST_F(Allarmi, DayZeroIsTheLastDayOfTheMonthBefore) {
  EXPECT_EQ(RowOf({0, 0, 0, 3, 24, 1}).at(1), "29/02/2024");
}

TEST_F(Allarmi, DayZeroOfJanuaryIsTheLastDayOfTheYearBefore) {
  EXPECT_EQ(RowOf({0, 0, 0, 1, 0, 1}).at(1), "31/12/1999");
}

TEST_F(Allarmi, MonthZeroCountsAsNoMonthBeforeTheDay) {
  EXPECT_EQ(RowOf({0, 0, 12, 0, 26, 1}).at(1), "12/01/2026");
}

TEST_F(Allarmi, DayBeyondItsMonthRunsIntoTheNext) {
  EXPECT_EQ(RowOf({0, 0, 31, 2, 26, 1}).at(1), "03/03/2026");
}

TEST_F(Allarmi, DayBeyondItsYearRunsIntoTheNext) {
  EXPECT_EQ(RowOf({0, 0, 255, 12, 26, 1}).at(1), "12/08/2027");
}

TEST_F(Allarmi, YearsRunFromTwoThousandOn) {
  EXPECT_EQ(RowOf({0, 0, 31, 12, 255, 1}).at(1), "31/12/2255");
  ClosePage();
  EXPECT_EQ(RowOf({0, 0, 29, 2, 0, 1}).at(1), "29/02/2000");
}

TEST_F(Allarmi, MonthAboveTwelveIsASubscriptOutOfRange) {
  SetRecord(13, {0, 0, 1, 13, 26, 1});
  OpenRead();
  ExpectReport(kSubscript);
}

TEST_F(Allarmi, MonthAboveTwelveIsASubscriptOutOfRangeWithoutADayToo) {
  SetRecord(0, {0, 0, 0, 255, 26, 1});
  OpenRead();
  ExpectReport(kSubscript);
}

TEST_F(Allarmi, MonthAboveTwelveBehindTheEndOfTheListIsNotLookedAt) {
  SetRecord(18, {0, 0, 1, 13, 26, 1});
  SetRecord(19, {0, 0, 1, 13, 26, 51});
  OpenRead();
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Rows(), 1);
}

TEST_F(Allarmi, TimesHaveTwoDigitsEach) {
  EXPECT_EQ(RowOf({5, 9, 1, 1, 26, 1}).at(2), "09:05");
  ClosePage();
  EXPECT_EQ(RowOf({59, 23, 1, 1, 26, 1}).at(2), "23:59");
  ClosePage();
  EXPECT_EQ(RowOf({0, 0, 1, 1, 26, 1}).at(2), "00:00");
}

TEST_F(Allarmi, NumbersThatAreNoTimeShowAsTheyAre) {
  EXPECT_EQ(RowOf({70, 25, 1, 1, 26, 1}).at(2), "25:70");
  ClosePage();
  EXPECT_EQ(RowOf({5, 24, 1, 1, 26, 1}).at(2), "24:05");
  ClosePage();
  EXPECT_EQ(RowOf({60, 9, 1, 1, 26, 1}).at(2), "09:60");
  ClosePage();
  EXPECT_EQ(RowOf({255, 255, 1, 1, 26, 1}).at(2), "255:255");
  ClosePage();
  EXPECT_EQ(RowOf({255, 3, 1, 1, 26, 1}).at(2), "03:255");
}

TEST_F(Allarmi, RowsCanBeCopied) {
  OpenRead();
  List().topLevelItem(1)->setSelected(true);
  EXPECT_EQ(List().SelectedText().trimmed(), "2\t20/03/2026\t19:57\tEJB_4_blocco motore 4");
}

TEST_F(Allarmi, SelectedRowStaysSelectedWhenTheListIsBuiltAnew) {
  OpenRead();
  List().setCurrentItem(List().topLevelItem(6));
  BoardSays(278, 4);
  EXPECT_EQ(List().indexOfTopLevelItem(List().currentItem()), 6);
  ASSERT_EQ(List().selectedItems().size(), 1);
  EXPECT_EQ(List().selectedItems().first()->text(0), "7");
}

// The short form of other locales.
struct Abroad : testing::Test {
  static QString FirstDate(const QLocale& locale) {
    Program program({.locale = locale});
    program.link.SetBoardNumber(121, 5);
    program.link.SetBoardNumber(122, 3);
    program.link.SetBoardNumber(123, 26);
    program.link.SetBoardNumber(124, 1);
    program.Connect();
    program.Choose("MnuAllarmi");
    program.Sweep(165);
    const auto& list = program.Find<RecordList>("FrmAllarmi", "ListView1");
    EXPECT_EQ(list.topLevelItem(1)->text(1), "00/00/00");
    EXPECT_EQ(list.topLevelItem(0)->text(2), "00:00");
    return list.topLevelItem(0)->text(1);
  }
};

TEST_F(Abroad, DatesAreInTheShortFormOfItaly) {
  EXPECT_EQ(FirstDate(QLocale(QLocale::Italian, QLocale::Italy)), "05/03/26");
}

TEST_F(Abroad, DatesAreInTheShortFormOfTheUnitedStates) {
  EXPECT_EQ(FirstDate(QLocale(QLocale::English, QLocale::UnitedStates)), "3/5/26");
}

TEST_F(Abroad, DatesAreInTheShortFormOfGermany) {
  EXPECT_EQ(FirstDate(QLocale(QLocale::German, QLocale::Germany)), "05.03.26");
}

}  // namespace
}  // namespace sorvane::test
