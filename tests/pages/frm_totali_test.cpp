#include <QLabel>
#include <QTest>

#include "pages/page_tests.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Total {
  int label;  // Label1
  int parameter;
  int frame;  // Frame1
  const char* caption;
  const char* text;
};
constexpr Total kTotals[] = {
    {0, 280, 0, "LabelMess1(0)", "Alfa 58"}, {1, 282, 0, "LabelMess1(2)", "Alfa 60"},
    {2, 284, 0, "LabelMess1(4)", "Alfa 62"}, {3, 286, 0, "LabelMess1(6)", "Alfa 64"},
    {4, 279, 1, "LabelMess1(1)", "Alfa 59"}, {5, 281, 1, "LabelMess1(3)", "Alfa 61"},
    {6, 283, 1, "LabelMess1(5)", "Alfa 63"}, {7, 285, 1, "LabelMess1(7)", "Alfa 65"},
    {8, 287, 1, "LabelMess1(8)", "Alfa 66"},
};

// The totals page over a board with two decimals. Total k holds k hundred and 45: 27945, 28045 and
// so on.
class Totali : public PageTest {
 protected:
  explicit Totali(Separators separators = kPoint) : PageTest("FrmTotali", "MnuTotali", separators) {
    SetNumbers(22, {2});
    SetNumbers(279, {27945, 28045, 28145, 28245, 28345, 28445, 28545, 28645, 28745});
  }

  QString Value(int label) { return Caption(Indexed("Label1", label)); }
  std::vector<QString> Values() {
    std::vector<QString> all;
    for (int i = 0; i < 9; ++i) all.push_back(Value(i));
    return all;
  }
  void ExpectAllRaw() {
    EXPECT_THAT(Values(), ElementsAre("28045", "28245", "28445", "28645", "27945", "28145", "28345",
                                      "28545", "28745"));
  }
};

class TotaliWithComma : public Totali {
 protected:
  TotaliWithComma() : Totali(kComma) {}
};

TEST_F(Totali, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames = {ReadFrame(22)};
  for (int k = 279; k <= 287; ++k) frames.push_back(ReadFrame(k, 4));
  ExpectSent(frames);
}

TEST_F(Totali, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_THAT(Watched(), ElementsAre(22, 279, 280, 281, 282, 283, 284, 285, 286, 287));
}

TEST_F(Totali, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : {22, 279, 283, 287}) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(Totali, EveryTotalStandsBehindItsCaption) {
  Open();
  for (const Total& total : kTotals) {
    EXPECT_EQ(Value(total.label), QString::number(total.parameter) + "45") << total.label;
    EXPECT_EQ(Caption(total.caption), total.text) << total.label;
    const QString label = Indexed("Label1", total.label);
    EXPECT_EQ(Top(label) + program.Find("FrmTotali", label).height() / 2,
              Top(total.caption) + program.Find("FrmTotali", total.caption).height() / 2)
        << total.label;
    EXPECT_GT(Left(label), Left(total.caption)) << total.label;
  }
}

TEST_F(Totali, EveryTotalStandsInItsGroup) {
  OpenUnanswered();
  for (const Total& total : kTotals) {
    for (int frame = 0; frame < 2; ++frame) {
      const QWidget& group = program.Find("FrmTotali", Indexed("Frame1", frame));
      const QWidget& label = program.Find("FrmTotali", Indexed("Label1", total.label));
      const QWidget& caption = program.Find("FrmTotali", total.caption);
      EXPECT_EQ(group.isAncestorOf(&label), frame == total.frame) << total.label;
      EXPECT_EQ(group.isAncestorOf(&caption), frame == total.frame) << total.caption;
    }
  }
}

TEST_F(Totali, TotalsOfAGroupStandOneBelowTheOther) {
  OpenUnanswered();
  for (const int i : {1, 2, 3, 5, 6, 7, 8}) {
    EXPECT_GT(Top(Indexed("Label1", i)), Top(Indexed("Label1", i - 1))) << i;
  }
}

TEST_F(Totali, TitleAndCaptionsFollowTheLanguage) {
  Open();
  EXPECT_EQ(Title(), "Alfa 10");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Title(), "Bravo 10");
  for (const Total& total : kTotals) {
    EXPECT_EQ(Caption(total.caption), QString(total.text).replace("Alfa", "Bravo"));
  }
  ExpectAllRaw();
}

TEST_F(Totali, ValuesAreEmptyBorderedBoxesUntilRepliesCome) {
  OpenUnanswered();
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(Value(i), "") << i;
    EXPECT_NE(program.Find<QLabel>("FrmTotali", Indexed("Label1", i)).frameShape(), QFrame::NoFrame)
        << i;
  }
}

TEST_F(Totali, DecimalsThatComeFirstShowWhatIsKnownOfTheAmounts) {
  OpenUnanswered();
  program.Sweep(1);  // parameter 22
  EXPECT_THAT(Values(),
              ElementsAre("0.00", "", "0.00", "0.00", "0.00", "", "0.00", "0.00", "0.00"));
  program.Sweep(1);  // 279
  EXPECT_THAT(Values(),
              ElementsAre("0.00", "", "0.00", "0.00", "27945", "", "0.00", "0.00", "0.00"));
  program.Sweep(8);
  ExpectAllRaw();
}

TEST_F(Totali, RepliesOfDecimalsAndOfAnAmountTakeTurns) {
  SetNumbers(279, {12345});
  Open();
  EXPECT_EQ(Value(4), "12345");
  for (int i = 0; i < 3; ++i) {
    AskAgain(22);
    EXPECT_EQ(Value(4), "123.45");
    AskAgain(279);
    EXPECT_EQ(Value(4), "12345");
  }
}

TEST_F(TotaliWithComma, RepliesOfDecimalsAndOfAnAmountTakeTurns) {
  SetNumbers(279, {12345});
  Open();
  EXPECT_EQ(Value(4), "12345");
  AskAgain(22);
  EXPECT_EQ(Value(4), "123,45");
  AskAgain(279);
  EXPECT_EQ(Value(4), "12345");
  AskAgain(22);
  EXPECT_EQ(Value(4), "123,45");
}

TEST_F(Totali, DecimalsDrawTheSevenAmountsAndLeaveTheCounts) {
  Open();
  AskAgain(22);
  EXPECT_THAT(Values(), ElementsAre("280.45", "28245", "284.45", "286.45", "279.45", "28145",
                                    "283.45", "285.45", "287.45"));
}

TEST_F(TotaliWithComma, DecimalsDrawTheSevenAmountsAndLeaveTheCounts) {
  Open();
  AskAgain(22);
  EXPECT_THAT(Values(), ElementsAre("280,45", "28245", "284,45", "286,45", "279,45", "28145",
                                    "283,45", "285,45", "287,45"));
}

TEST_F(Totali, EveryAmountIsRawAfterItsOwnReplyAndOnlyThat) {
  Open();
  for (const Total& total : kTotals) {
    AskAgain(22);
    AskAgain(total.parameter);
    for (const Total& other : kTotals) {
      const bool raw =
          other.parameter == total.parameter || other.parameter == 281 || other.parameter == 282;
      EXPECT_EQ(Value(other.label), QString::number(other.parameter) + (raw ? "45" : ".45"))
          << other.label << " after " << total.parameter;
    }
  }
}

TEST_F(Totali, DecimalsOfZeroChangeNothing) {
  SetNumbers(22, {0});
  OpenUnanswered();
  program.Sweep(1);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(20);
  ExpectAllRaw();
  AskAgain(22);
  ExpectAllRaw();
}

TEST_F(Totali, DecimalsThatBecomeZeroLeaveWhatStands) {
  Open();
  AskAgain(22);
  BoardSays(22, 0);
  EXPECT_EQ(Value(4), "279.45");
  AskAgain(279);
  EXPECT_EQ(Value(4), "27945");
  EXPECT_EQ(Value(0), "280.45");
}

TEST_F(Totali, EveryNumberOfDecimalsFromOneToFour) {
  Open();
  BoardSays(22, 1);
  EXPECT_EQ(Value(0), "2804.5");
  BoardSays(22, 2);
  EXPECT_EQ(Value(0), "280.45");
  BoardSays(22, 3);
  EXPECT_EQ(Value(0), "28.045");
  BoardSays(22, 4);
  EXPECT_EQ(Value(0), "2.8045");
}

TEST_F(Totali, DecimalsThatStandAlreadyDrawTheAmountsAgain) {
  Open();
  AskAgain(22);
  AskAgain(287);
  EXPECT_EQ(Value(8), "28745");
  AskAgain(22);
  EXPECT_EQ(Value(8), "287.45");
}

TEST_F(Totali, DecimalsAboveFourBlankTheAmountsUntilTheirReplies) {
  Open();
  for (const std::uint32_t decimals : {5U, 6U, 255U}) {
    BoardSays(22, decimals);
    EXPECT_THAT(Values(), ElementsAre("", "28245", "", "", "", "28145", "", "", "")) << decimals;
  }
  AskAgain(283);
  EXPECT_THAT(Values(), ElementsAre("", "28245", "", "", "", "28145", "28345", "", ""));
  for (const int k : {279, 280, 284, 285, 286, 287}) AskAgain(k);
  ExpectAllRaw();
}

TEST_F(Totali, DecimalsThatNoByteHoldsOverflow) {
  Resize(22, {0, 1});
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Totali, TextForTheDecimalsIsATypeMismatch) {
  MakeText(22);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Totali, CountsNeverShowDecimals) {
  OpenUnanswered();
  for (int i = 0; i < 20; ++i) {
    program.Sweep(1);
    for (const int label : {1, 5}) EXPECT_FALSE(Value(label).contains('.')) << i;
  }
  for (const std::uint32_t decimals : {1U, 2U, 3U, 4U, 5U}) {
    BoardSays(22, decimals);
    EXPECT_EQ(Value(1), "28245");
    EXPECT_EQ(Value(5), "28145");
    AskAgain(281);
    AskAgain(282);
    EXPECT_EQ(Value(1), "28245");
    EXPECT_EQ(Value(5), "28145");
  }
}

TEST_F(Totali, HighestTotalShowsWhole) {
  for (int k = 279; k <= 287; ++k) SetNumbers(k, {4294967295});
  Open();
  for (int i = 0; i < 9; ++i) EXPECT_EQ(Value(i), "4294967295") << i;
  AskAgain(22);
  EXPECT_EQ(Value(0), "42949672.95");
  EXPECT_EQ(Value(1), "4294967295");
  BoardSays(22, 4);
  EXPECT_EQ(Value(8), "429496.7295");
}

TEST_F(Totali, AmountBelowOneHasAZeroBeforeTheSeparator) {
  SetNumbers(287, {5});
  Open();
  AskAgain(22);
  EXPECT_EQ(Value(8), "0.05");
}

TEST_F(Totali, DecimalsReadWhatTheRecordsHold) {
  Open();
  program.link.Record(280).At(8) = 1;  // 28045 is 109 * 256 + 141
  AskAgain(22);
  EXPECT_EQ(Value(0), "279.05");
}

TEST_F(Totali, RepliesOfTheNeighboursAreIgnored) {
  Open();
  for (const int k : {21, 23, 278, 288, 1, 85}) AskAgain(k);
  ExpectAllRaw();
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(Totali, NothingIsSentWhateverTheUserDoes) {
  Open();
  for (const Total& total : kTotals) {
    for (const QString& name : {Indexed("Label1", total.label), QString(total.caption)}) {
      Click(name);
      QTest::mouseDClick(&program.Find("FrmTotali", name), Qt::LeftButton);
      for (const int key : {Qt::Key_7, Qt::Key_Return, Qt::Key_Delete}) Press(name, key);
    }
  }
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  AskAgain(22);
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
  EXPECT_TRUE(WasSilent());
}

TEST_F(Totali, PageOpenedAgainRemembersNothing) {
  Open();
  AskAgain(22);
  ClosePage();
  OpenUnanswered();
  for (int i = 0; i < 9; ++i) EXPECT_EQ(Value(i), "") << i;
}

TEST_F(Totali, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

}  // namespace
}  // namespace sorvane::test
