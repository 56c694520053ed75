#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QStringList>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "pages/pagamento_page.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Pagamento : public PagamentoPage {
 protected:
  explicit Pagamento(Separators separators = kPoint) : PagamentoPage(kMdb, separators) {}

  std::vector<QString> Captions(int first, int last) {
    std::vector<QString> all;
    for (int i = first; i <= last; ++i) all.push_back(Caption(Indexed("LabelMess1", i)));
    return all;
  }
  QString Heading(int frame) {
    return program.Find<QGroupBox>("FrmPagamento", Indexed("Frame1", frame)).title();
  }
};

class PagamentoWithComma : public Pagamento {
 protected:
  PagamentoWithComma() : Pagamento(kComma) {}
};

TEST_F(Pagamento, FramesHoldTheirControlsByName) {
  const std::vector<std::vector<const char*>> frames = {
      {"Text1(0)", "HScroll1(1)", "LabelMess1(2)"},
      {"SwitchX1(0)", "SwitchX1(1)", "LabelMess1(3)", "Label8(0)", "Label8(1)"},
      {"Text2(0)", "HScroll2(4)", "LabelMess1(9)"},
      {"Text3(0)", "HScroll3(2)", "LabelMess1(12)"},
      {"SwitchX1(2)", "SwitchX1(5)", "LabelMess1(16)", "Label8(2)", "Label8(3)"},
      {"SlswitchX1"},
      {"SwitchX2(0)", "SwitchX2(2)", "LabelMess1(20)", "Label8(4)", "Label8(5)"}};
  OpenUnanswered();
  for (int i = 0; i < std::ssize(frames); ++i) {
    const auto& frame = program.Find<QGroupBox>("FrmPagamento", Indexed("Frame1", i));
    for (const char* control : frames[static_cast<std::size_t>(i)]) {
      EXPECT_EQ(program.Find("FrmPagamento", control).parentWidget(), &frame) << i << control;
    }
  }
}

TEST_F(Pagamento, AsksForItsParametersOnceEach) {
  OpenUnanswered();
  program.Sweep(40);
  program.link.wire.Expect({0, 0, 0, 3, 3});
  program.link.wire.Expect({0, 0, 0, 22, 22});
  for (int k = 71; k <= 95; ++k) program.link.wire.Expect(ReadFrame(k, SizeOf(k)));
  program.link.wire.ExpectNothing();
}

TEST_F(Pagamento, HoldsItsParametersAndNoMirrorButThatOfTheDecimals) {
  OpenUnanswered();
  EXPECT_THAT(Watched(), ElementsAre(3, 22, 71, 72, 73, 74, 75, 76, 77, 78, 79, 80, 81, 82, 83, 84,
                                     85, 86, 87, 88, 89, 90, 91, 92, 93, 94, 95));
}

TEST_F(Pagamento, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int index : {3, 22, 71, 85, 95}) {
    EXPECT_EQ(program.link.Record(index).At(6) & 7, 0) << index;
  }
}

TEST_F(Pagamento, TitleAndTabsComeFromTheMessages) {
  Open();
  EXPECT_EQ(Title(), "Alfa 5");
  EXPECT_THAT(TabCaptions("SSTab2"), ElementsAre("Alfa 79", "Alfa 81", "Alfa 82"));
  EXPECT_THAT(TabCaptions("SSTab1"), ElementsAre("Alfa 100", "Alfa 101", "Alfa 102"));
}

TEST_F(Pagamento, CaptionsOfTheGeneralTab) {
  Open();
  EXPECT_EQ(Heading(5), "Alfa 80");
  EXPECT_THAT(Captions(18, 20), ElementsAre("Alfa 83", "Price holding", "Alfa 84"));
  EXPECT_THAT(Captions(43, 46), ElementsAre("Alfa 85", "Alfa 86", "Alfa 87", "Alfa 88"));
  EXPECT_EQ(Property("SlswitchX1", "labels").toStringList(),
            QStringList({"Validatore", "Executive", "MDB"}));
}

TEST_F(Pagamento, CaptionsOfTheMdbSettings) {
  Open();
  EXPECT_THAT(Captions(0, 4), ElementsAre("Alfa 89", "Alfa 90", "Alfa 91", "Alfa 92", "Alfa 93"));
  EXPECT_THAT(Captions(13, 16), ElementsAre("Alfa 95", "Alfa 96", "Alfa 97", "Alfa 98"));
  EXPECT_EQ(Heading(2), "Livello Minimo ");
}

TEST_F(Pagamento, TubesAreNumberedWithoutABlankAndTokensWithOne) {
  Open();
  EXPECT_THAT(Captions(5, 9),
              ElementsAre("Alfa 941", "Alfa 942", "Alfa 943", "Alfa 944", "Alfa 945"));
  EXPECT_THAT(Captions(10, 12), ElementsAre("Alfa 99 1", "Alfa 99 2", "Alfa 99 3"));
}

TEST_F(Pagamento, CoinsAndBanknotesAreNumberedFromOne) {
  Open();
  EXPECT_THAT(Captions(37, 42), ElementsAre("Alfa 75 1", "Alfa 75 2", "Alfa 75 3", "Alfa 75 4",
                                            "Alfa 75 5", "Alfa 75 6"));
  for (int k = 0; k < 16; ++k) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", 21 + k)), QString("Alfa 77 %1").arg(k + 1));
  }
}

TEST_F(Pagamento, HeadsOfTheSwitchesAreFixedTexts) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("Label8(4)"), "No");
  EXPECT_EQ(Caption("Label8(5)"), "Si");
  EXPECT_EQ(Caption("Label8(6)"), "Si");
  EXPECT_EQ(Caption("Label8(7)"), "No");
  EXPECT_EQ(Caption("Label8(8)"), "No");
  EXPECT_EQ(Caption("Label8(9)"), "Si");
  EXPECT_THAT((std::vector<QString>{Caption("Label8(0)"), Caption("Label8(1)"),
                                    Caption("Label8(2)"), Caption("Label8(3)")}),
              testing::UnorderedElementsAre("No", "No", "Si", "Si"));
}

TEST_F(Pagamento, AnotherLanguageReachesTheOpenPage) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Title(), "Bravo 5");
  EXPECT_THAT(TabCaptions("SSTab2"), ElementsAre("Bravo 79", "Bravo 81", "Bravo 82"));
  EXPECT_THAT(TabCaptions("SSTab1"), ElementsAre("Bravo 100", "Bravo 101", "Bravo 102"));
  EXPECT_THAT(Captions(18, 20), ElementsAre("Bravo 83", "Price holding", "Bravo 84"));
  EXPECT_EQ(Caption("LabelMess1(9)"), "Bravo 945");
  EXPECT_EQ(Heading(5), "Bravo 80");
  EXPECT_EQ(Heading(2), "Livello Minimo ");
  EXPECT_EQ(Text("Text5(3)"), "Temp.");
}

TEST_F(Pagamento, HasRoomForAllThatItShows) {
  Open();
  const auto* page = program.frame->findChild<ChildForm*>("FrmPagamento");
  EXPECT_GE(page->width(), page->minimumSizeHint().width());
  EXPECT_GE(page->height(), page->minimumSizeHint().height());
}

TEST_F(Pagamento, IsEmptyAndOpenUntilRepliesCome) {
  OpenUnanswered();
  EXPECT_THAT(Texts("Text5", 4), testing::Each(QString()));
  EXPECT_THAT(Positions("HScroll5", 4), ElementsAre(0, 0, 1, 0));
  EXPECT_THAT(Positions("HScroll1", 3), ElementsAre(0, 0, 0));
  EXPECT_THAT(Positions("HScroll2", 5), ElementsAre(1, 1, 1, 1, 1));
  EXPECT_THAT(Positions("HScroll3", 3), ElementsAre(0, 0, 0));
  EXPECT_THAT(Positions("HScroll4", 6), ElementsAre(0, 0, 0, 0, 0, 0));
  EXPECT_EQ(SystemPosition(), 0);
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(false, false, false));
  for (const char* name : {"Text1(0)", "Text2(4)", "Text3(2)", "Text4(5)", "Text5(2)",
                           "SwitchX1(5)", "SwitchX2(1)", "SwitchX3(15)"}) {
    EXPECT_TRUE(IsEnabled(name)) << name;
  }
}

TEST_F(Pagamento, ShowsWhatTheBoardHolds) {
  Open();
  EXPECT_EQ(SystemPosition(), 2);
  EXPECT_THAT(Texts("Text5", 4), ElementsAre("25", "000.00", "12", "Temp."));
  EXPECT_THAT(Positions("HScroll5", 4), ElementsAre(25, 2, 12, 1));
  EXPECT_THAT(States("SwitchX2", 3), ElementsAre(true, false, false));
}

TEST_F(Pagamento, RangesAndLargeStepOfTheGeneralBars) {
  Open();
  const int ends[][2] = {{0, 255}, {0, 4}, {1, 30}, {0, 2}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(Minimum(Indexed("HScroll5", i)), ends[i][0]) << i;
    EXPECT_EQ(Maximum(Indexed("HScroll5", i)), ends[i][1]) << i;
  }
  PressFocused("HScroll5(0)", Qt::Key_PageDown);
  EXPECT_EQ(Position("HScroll5(0)"), 125);
}

TEST_F(Pagamento, RepliesWriteNothing) {
  Open();
  for (int parameter = 71; parameter <= 95; ++parameter) BoardSays(parameter, 2);
  BoardSays(3, 255);
  BoardSays(22, 3);
  BoardSays(71, 1);
  EXPECT_THAT(Pending(), IsEmpty());
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_F(Pagamento, AFieldThatWaitsForItsDecimalsIsEmptyWhileItsBarMovesAndFillsWithThem) {
  OpenUnanswered();
  program.Sweep(1);
  program.link.board.SpoilChecksum(5);  // the exchange of the decimals fails
  program.Sweep(26);
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("", "", ""));
  EXPECT_THAT(Texts("Text3", 3), ElementsAre("", "", ""));
  EXPECT_THAT(Texts("Text4", 6), testing::Each(QString()));
  EXPECT_THAT(Positions("HScroll1", 3), ElementsAre(150, -31518, 32767));
  EXPECT_THAT(Positions("HScroll3", 3), ElementsAre(-32758, -32748, -29768));
  EXPECT_EQ(Position("HScroll4(5)"), -32568);
  EXPECT_THAT(Texts("Text2", 5), ElementsAre("3", "4", "5", "6", "7"));
  EXPECT_EQ(Text("Text5(0)"), "25");
  EXPECT_EQ(Text("Text5(1)"), "");
  program.Sweep(2);
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("1.50", "12.50", "655.35"));
  EXPECT_THAT(Texts("Text3", 3), ElementsAre("0.10", "0.20", "30.00"));
  EXPECT_THAT(Texts("Text4", 6), ElementsAre("0.05", "0.10", "0.20", "0.50", "1.00", "2.00"));
  EXPECT_EQ(Text("Text5(1)"), "000.00");
}

TEST_F(Pagamento, ThePatternsOfTheDecimals) {
  Open();
  const char* const patterns[] = {"00000", "0000.0", "000.00", "00.000", "0.0000"};
  for (const int decimals : {3, 4, 1, 0, 2}) {
    BoardSays(22, static_cast<std::uint32_t>(decimals));
    EXPECT_EQ(Text("Text5(1)"), patterns[decimals]);
    EXPECT_EQ(SavedText("Text5(1)"), patterns[decimals]);
    EXPECT_EQ(Position("HScroll5(1)"), decimals);
  }
}

TEST_F(PagamentoWithComma, ThePatternsKeepTheirPointAndTheAmountsTakeTheComma) {
  Open();
  EXPECT_EQ(Text("Text5(1)"), "000.00");
  EXPECT_EQ(Text("Text1(1)"), "12,50");
  EXPECT_EQ(Text("Text3(2)"), "30,00");
  EXPECT_EQ(Text("Text4(0)"), "0,05");
}

TEST_F(Pagamento, NewDecimalsDrawTheAmountsAnewAndLeaveTheWholeNumbers) {
  Open();
  TypeOnly("Text5(0)", "9");
  BoardSays(22, 1);
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("15.0", "125.0", "6553.5"));
  EXPECT_THAT(Texts("Text3", 3), ElementsAre("1.0", "2.0", "300.0"));
  EXPECT_THAT(Texts("Text4", 6), ElementsAre("0.5", "1.0", "2.0", "5.0", "10.0", "20.0"));
  EXPECT_EQ(Text("Text5(0)"), "9");
  EXPECT_THAT(Texts("Text2", 5), ElementsAre("3", "4", "5", "6", "7"));
}

TEST_F(Pagamento, NewDecimalsTakeAmountsThatAreStillOnTheirWayToTheBoard) {
  Open();
  PressFocused("HScroll1(0)", Qt::Key_Right);
  EXPECT_EQ(Text("Text1(0)"), "1.50");
  program.link.SetBoardNumber(22, 1);
  program.link.access.WatchParameter(22);
  program.Sweep(1);
  EXPECT_EQ(Text("Text1(0)"), "15.1");
}

TEST_F(Pagamento, DecimalsThatThePageHasAlreadyRedrawNothing) {
  Open();
  TypeOnly("Text1(0)", "7");
  AskAgain(22);
  EXPECT_EQ(Text("Text1(0)"), "7");
  BoardSays(22, 3);
  EXPECT_EQ(Text("Text1(0)"), "0.150");
}

TEST_F(Pagamento, DecimalsAboveTheBarEndTheProgram) {
  Open();
  BoardSays(22, 4);
  EXPECT_THAT(program.reports, IsEmpty());
  BoardSays(22, 5);
  ExpectReport(kInvalidPropertyValue);
}

TEST_F(Pagamento, DecimalsOf255AreThoseThatThePageStartsWith) {
  program.link.SetBoardNumber(22, 255);
  Open();
  EXPECT_EQ(Text("Text5(1)"), "");
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("", "", ""));
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(Pagamento, ParameterEightyFiveIsWatchedAndNeverShown) {
  Open();
  BoardSays(85, 1);
  EXPECT_EQ(Text("Text5(1)"), "000.00");
  EXPECT_EQ(Position("HScroll5(1)"), 2);
  EXPECT_EQ(Text("Text1(0)"), "1.50");
}

TEST_F(Pagamento, TheWordsOfTheSaleMode) {
  Open();
  const char* const words[] = {"Multipla", "Temp.", "Singola"};
  for (const int mode : {2, 1, 0}) {
    BoardSays(87, static_cast<std::uint32_t>(mode));
    EXPECT_EQ(Text("Text5(3)"), words[mode]);
    EXPECT_EQ(SavedText("Text5(3)"), words[mode]);
    EXPECT_EQ(Position("HScroll5(3)"), mode);
  }
}

TEST_F(Pagamento, ASaleModeWithoutAWordShowsItsDigitWithTheBarAtItsEnd) {
  Open();
  BoardSays(87, 3);
  EXPECT_EQ(Text("Text5(3)"), "3");
  EXPECT_EQ(Position("HScroll5(3)"), 2);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Pagamento, ATimeoutOutsideItsRangeShowsAsItCameWithTheBarAtItsEnd) {
  Open();
  BoardSays(86, 45);
  EXPECT_EQ(Text("Text5(2)"), "45");
  EXPECT_EQ(Position("HScroll5(2)"), 30);
  BoardSays(86, 0);
  EXPECT_EQ(Text("Text5(2)"), "0");
  EXPECT_EQ(Position("HScroll5(2)"), 1);
}

TEST_F(Pagamento, ClosedTabsAndFieldsAreDrawnByRepliesAllTheSame) {
  program.link.SetBoardNumber(71, 1);
  Open();
  EXPECT_FALSE(IsEnabled("SSTab1"));
  EXPECT_THAT(Texts("Text1", 3), ElementsAre("1.50", "12.50", "655.35"));
  EXPECT_THAT(States("SwitchX1", 6), ElementsAre(true, false, true, false, true, false));
  BoardSays(76, 19);
  BoardSays(82, 1);
  BoardSays(86, 8);
  EXPECT_EQ(Text("Text2(0)"), "19");
  EXPECT_EQ(Text("Text3(1)"), "0.01");
  EXPECT_EQ(Text("Text5(2)"), "8");
}

TEST_F(Pagamento, APageOpenedAgainStartsWithItsStartValues) {
  Open();
  Tabs("SSTab1").SetFront(2);
  Tabs("SSTab2").SetFront(1);
  ClosePage();
  OpenUnanswered();
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_EQ(Tabs("SSTab2").Front(), 0);
  EXPECT_EQ(Text("Text1(0)"), "");
  EXPECT_TRUE(IsEnabled("Text5(1)"));
  program.Sweep(80);
  EXPECT_EQ(Text("Text1(0)"), "1.50");
  EXPECT_EQ(Text("Text5(1)"), "000.00");
}

TEST_F(Pagamento, NoFieldHasTheFocusWhenThePageOpens) {
  OpenUnanswered();
  EXPECT_EQ(FocusedFields(), 0);
  Open();
  EXPECT_EQ(FocusedFields(), 0);
}

struct TooLarge {
  const char* name;
  int parameter;
  Bytes highest;  // that its variable takes
  Bytes above;
};

void PrintTo(const TooLarge& row, std::ostream* out) { *out << row.name; }

class PagamentoVariable : public PagamentoPage, public testing::WithParamInterface<TooLarge> {
 protected:
  PagamentoVariable() : PagamentoPage(kMdb) {}
};

INSTANTIATE_TEST_SUITE_P(
    Each, PagamentoVariable,
    testing::Values(TooLarge{"Decimals", 22, {255, 0}, {0, 1}},
                    TooLarge{"SaleFlags", 3, {255, 0}, {0, 1}},
                    TooLarge{"ChangerFlags", 72, {255, 0}, {0, 1}},
                    TooLarge{"LowBanknotes", 88, {255, 127}, {0, 128}},
                    TooLarge{"HighBanknotes", 89, {255, 127}, {0, 128}},
                    TooLarge{"HighestChange", 73, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"HighestCoins", 74, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"HighestKey", 75, {255, 255, 255, 127}, {255, 255, 255, 255}},
                    TooLarge{"Tube", 80, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"Token", 81, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"Base", 84, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"Timeout", 86, {255, 255, 255, 127}, {255, 255, 255, 255}},
                    TooLarge{"SaleMode", 87, {255, 255, 255, 127}, {0, 0, 0, 128}},
                    TooLarge{"Coin", 95, {255, 255, 255, 127}, {0, 0, 0, 128}}),
    [](const auto& each) { return each.param.name; });

TEST_P(PagamentoVariable, OverflowsAboveItsHighest) {
  Resize(GetParam().parameter, GetParam().highest);
  Open();
  EXPECT_THAT(program.reports, IsEmpty());
  program.link.SetBoard(GetParam().parameter, GetParam().above);
  AskAgain(GetParam().parameter);
  ExpectReport(kOverflow);
}

TEST_F(Pagamento, AnAmountBeyondTheBarShowsAsItCame) {
  Resize(74, {0, 0, 1, 0});  // 65536
  Open();
  EXPECT_EQ(Text("Text1(1)"), "655.36");
  EXPECT_EQ(Position("HScroll1(1)"), 32767);
}

}  // namespace
}  // namespace sorvane::test
