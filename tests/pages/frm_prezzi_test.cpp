#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The prices page over a machine with two decimals and ten selections. The price of row i is
// 100 * (i + 1) + 5, its item number 11 * (i + 1).
class Prezzi : public PageTest {
 protected:
  Prezzi() : PageTest("FrmPrezzi", "MnuPrezzi", kPoint) {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(22, 2);
    for (int i = 0; i < 10; ++i) {
      program.link.SetBoardNumber(23 + i, static_cast<std::uint32_t>(100 * (i + 1) + 5));
      program.link.SetBoardNumber(33 + i, static_cast<std::uint32_t>(11 * (i + 1)));
    }
  }

  QString Price(int row) { return Text(Indexed("Text1", row)); }
  QString Item(int row) { return Text(Indexed("Text2", row)); }
  void ExpectRowsOpen(int count) {
    ExpectFirstRowsOpen(count, {"Text1", "HScroll1", "Text2", "HScroll2"});
  }
};

TEST_F(Prezzi, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames = {ReadFrame(2), ReadFrame(22)};
  for (int k = 23; k <= 42; ++k) frames.push_back(ReadFrame(k, 2));
  ExpectSent(frames);
}

TEST_F(Prezzi, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_THAT(Watched(), ElementsAre(2, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36,
                                     37, 38, 39, 40, 41, 42));
}

TEST_F(Prezzi, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : {2, 22, 23, 32, 33, 42}) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(Prezzi, CaptionsAreNumberedFromOne) {
  OpenUnanswered();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", i)), QString("Alfa 32 %1").arg(i + 1));
    EXPECT_EQ(Caption(Indexed("LabelMess2", i)), QString("Alfa 33 %1").arg(i + 1));
  }
  EXPECT_EQ(Title(), "Alfa 34");
}

TEST_F(Prezzi, AnotherLanguageBringsItsCaptions) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("LabelMess1(9)"), "Bravo 32 10");
  EXPECT_EQ(Caption("LabelMess2(0)"), "Bravo 33 1");
  EXPECT_EQ(Title(), "Bravo 34");
}

TEST_F(Prezzi, IsEmptyAndClosedUntilRepliesCome) {
  OpenUnanswered();
  ExpectRowsOpen(0);
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Price(i), "");
    EXPECT_EQ(Item(i), "");
    for (const char* array : {"HScroll1", "HScroll2"}) {
      EXPECT_EQ(Position(Indexed(array, i)), -32767);
      EXPECT_EQ(Minimum(Indexed(array, i)), -32768);
      EXPECT_EQ(Maximum(Indexed(array, i)), 32767);
    }
  }
}

TEST_F(Prezzi, ShowsPricesWithDecimalsAndItemNumbersWithout) {
  Open();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Price(i), QString("%1.05").arg(i + 1));
    EXPECT_EQ(Item(i), QString::number(11 * (i + 1)));
  }
  EXPECT_EQ(Position("HScroll1(9)"), 1005 - 32768);
  EXPECT_EQ(Position("HScroll2(9)"), 110 - 32768);
}

TEST_F(Prezzi, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

TEST_F(Prezzi, AllFieldsAreCentred) {
  Open();
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(IsCentred(Indexed("Text1", i))) << i;
    EXPECT_TRUE(IsCentred(Indexed("Text2", i))) << i;
  }
}

TEST_F(Prezzi, RepliesWriteNothing) {
  Open();
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
}

// Rows that open and close.

TEST_F(Prezzi, OpensOnceSelectionsFirstPriceAndFirstItemNumberHaveBeenAnswered) {
  OpenUnanswered();
  program.Sweep(12);  // 2, 22 and the prices
  ExpectRowsOpen(0);
  program.Sweep(1);  // the first item number
  ExpectRowsOpen(10);
}

TEST_F(Prezzi, TheSelectionsOpenTheRowsIfTheyComeLast) {
  OpenUnanswered();
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 2 fails
  program.Sweep(22);
  ExpectRowsOpen(0);
  program.Sweep(2);
  ExpectRowsOpen(10);
}

TEST_F(Prezzi, AnItemNumberAloneOpensNothing) {
  OpenUnanswered();
  program.Sweep(2);
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 23 fails
  program.Sweep(20);
  ExpectRowsOpen(0);
  program.Sweep(2);
  ExpectRowsOpen(10);
}

TEST_F(Prezzi, AFirstPriceThatIsWrittenMeanwhileStillCounts) {
  OpenUnanswered();
  program.Sweep(3);  // 2, 22 and 23
  program.link.access.WriteParameter(23, 500);
  program.Sweep(10);  // 24 to 33
  EXPECT_FALSE(program.link.access.IsParameterFresh(23, 0));
  ExpectRowsOpen(10);
}

TEST_F(Prezzi, SelectionsThatAreBeingWrittenHoldTheRowsClosed) {
  OpenUnanswered();
  program.Sweep(1);
  program.link.access.WriteParameter(2, 7);
  program.Sweep(21);  // all others
  ExpectRowsOpen(0);
  program.Sweep(2);
  ExpectRowsOpen(7);
}

TEST_F(Prezzi, AnItemNumberThatIsAnsweredBeforeTheSelectionsCountsOnlyWhileItIsFresh) {
  OpenUnanswered();
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 2 fails
  program.Sweep(22);
  program.link.access.WriteParameter(33, 5);
  program.Sweep(2);  // the end of the pass, and 2
  EXPECT_TRUE(program.link.access.IsParameterFresh(2, 0));
  ExpectRowsOpen(0);
  program.Sweep(1);  // 33
  ExpectRowsOpen(10);
}

TEST_F(Prezzi, OnlyAsManyRowsOpenAsThereAreSelections) {
  program.link.SetBoardNumber(2, 3);
  Open();
  ExpectRowsOpen(3);
  for (int i = 0; i < 10; ++i) {
    for (const char* array : {"LabelMess1", "LabelMess2"}) {
      EXPECT_TRUE(IsEnabled(Indexed(array, i))) << i;
      EXPECT_TRUE(program.Find("FrmPrezzi", Indexed(array, i)).isVisible()) << i;
    }
  }
}

TEST_F(Prezzi, NoSelectionsOpenNoRow) {
  program.link.SetBoardNumber(2, 0);
  Open();
  ExpectRowsOpen(0);
}

TEST_F(Prezzi, MoreSelectionsThanRowsEndTheProgram) {
  program.link.SetBoardNumber(2, 11);
  Open();
  ExpectReport(kNoSuchElement);
}

TEST_F(Prezzi, AReplyOfTheSelectionsClosesAllRowsAndOpensTheFirstOnes) {
  Open();
  BoardSays(2, 4);
  ExpectRowsOpen(4);
  BoardSays(2, 9);
  ExpectRowsOpen(9);
}

TEST_F(Prezzi, ARowThatClosesWhileItIsBeingEditedLosesWhatWasTyped) {
  Open();
  TypeOnly("Text2(7)", "9");
  BoardSays(2, 4);
  EXPECT_EQ(Item(7), "88");
}

// Every reply of the selections closes all rows first, though they open again at once.
TEST_F(Prezzi, ARowThatStaysOpenLosesWhatWasTypedToo) {
  program.link.SetBoardNumber(2, 9);
  Open();
  for (const std::uint32_t selections : {9U, 10U}) {
    TypeOnly("Text2(7)", "9");
    BoardSays(2, selections);
    EXPECT_EQ(Item(7), "88") << selections;
    ExpectRowsOpen(static_cast<int>(selections));
  }
}

// What has been answered once counts for as long as the page is open.
TEST_F(Prezzi, OnceOpenTheRowsFollowTheSelectionsThoughAPriceIsBeingWritten) {
  Open();
  program.link.access.WriteParameter(23, 500);
  program.link.access.WriteParameter(33, 5);
  program.link.SetBoardNumber(2, 7);
  program.link.access.WatchParameter(2);
  program.Sweep(1);
  EXPECT_FALSE(program.link.access.IsParameterFresh(23, 0));
  ExpectRowsOpen(7);
}

TEST_F(Prezzi, FourBytesForTheNumberOfSelectionsOverflowItsVariable) {
  Resize(2, {0, 0, 1, 0});
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Prezzi, ATextForTheNumberOfSelectionsEndsTheProgram) {
  MakeText(2);
  Open();
  ExpectReport(kTypeMismatch);
}

// Decimals.

TEST_F(Prezzi, APriceThatIsAnsweredWhileTheDecimalsAreBeingWrittenIsNotDrawn) {
  Open();
  program.link.SetBoardNumber(25, 999);
  for (const int price : {23, 25}) program.link.access.WatchParameter(price);
  program.Sweep(1);  // 23
  program.link.access.WriteParameter(22, 3);
  program.Sweep(1);  // 25
  EXPECT_TRUE(program.link.access.IsParameterFresh(25, 0));
  EXPECT_EQ(Price(2), "3.05");
  program.Sweep(2);  // the end of the pass, and 22
  EXPECT_EQ(Price(2), "0.999");
}

TEST_F(Prezzi, APriceThatIsAnsweredBeforeTheDecimalsIsDrawnWithThem) {
  OpenUnanswered();
  program.Sweep(1);
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 22 fails
  program.Sweep(11);
  EXPECT_EQ(program.link.Value(23), (Bytes{105, 0}));
  EXPECT_EQ(Price(0), "");
  EXPECT_EQ(Position("HScroll1(0)"), -32767);
  program.Sweep(14);  // the item numbers, and parameter 22 in the next pass
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Price(i), QString("%1.05").arg(i + 1));
}

TEST_F(Prezzi, TheDecimalsDrawPricesThatHaveNotBeenAnsweredToo) {
  OpenUnanswered();
  program.Sweep(2);  // 2 and 22
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Price(i), "0.00");
    EXPECT_EQ(Position(Indexed("HScroll1", i)), -32768);
    EXPECT_EQ(Item(i), "");
  }
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(Prezzi, AnItemNumberNeedsNoDecimals) {
  OpenUnanswered();
  program.Sweep(1);
  program.link.board.SpoilChecksum(5);
  program.Sweep(21);
  EXPECT_EQ(Item(0), "11");
}

TEST_F(Prezzi, TheDecimalsThatComeAfterAnItemNumberDrawAllPricesAnew) {
  Open();
  TypeOnly("Text1(0)", "7");
  AskAgain(22);
  EXPECT_EQ(Price(0), "1.05");
}

TEST_F(Prezzi, TheDecimalsDrawNoItemNumberAnew) {
  Open();
  TypeOnly("Text2(0)", "7");
  AskAgain(22);
  EXPECT_EQ(Item(0), "7");
}

TEST_F(Prezzi, DecimalsThatThePageHasAlreadyRedrawNothing) {
  Open();
  AskAgain(22);
  TypeOnly("Text1(0)", "7");
  AskAgain(22);
  EXPECT_EQ(Price(0), "7");
}

TEST_F(Prezzi, NewDecimalsDrawAllPricesAnew) {
  Open();
  BoardSays(22, 1);
  EXPECT_EQ(Price(0), "10.5");
  EXPECT_EQ(Price(9), "100.5");
  EXPECT_EQ(Item(9), "110");
}

TEST_F(Prezzi, APriceThatComesAfterAnItemNumberIsDrawnWithoutDecimals) {
  Open();
  BoardSays(23, 333);
  EXPECT_EQ(Price(0), "333");
  EXPECT_EQ(Price(1), "2.05");
}

TEST_F(Prezzi, APriceThatComesAfterTheDecimalsIsDrawnWithThem) {
  Open();
  AskAgain(22);
  BoardSays(23, 333);
  EXPECT_EQ(Price(0), "3.33");
  BoardSays(40, 5);
  BoardSays(23, 334);
  EXPECT_EQ(Price(0), "334");
}

TEST_F(Prezzi, APriceTypedAfterAnItemNumberIsTakenWithoutScaling) {
  Open();
  Type("Text1(0)", "7");
  ExpectSent({WriteFrame(23, 7, 2), WriteFrame(391, 7, 2)});
  EXPECT_EQ(Price(0), "7");
}

TEST_F(Prezzi, DecimalsAboveFourLeaveThePricesEmptyWhileTheBarsMove) {
  program.link.SetBoardNumber(22, 5);
  Open();
  EXPECT_EQ(Price(0), "");
  EXPECT_EQ(Position("HScroll1(0)"), 105 - 32768);
  EXPECT_EQ(Item(0), "11");
}

TEST_F(Prezzi, DecimalsAboveFourBlankThePricesThatStand) {
  Open();
  BoardSays(22, 5);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Price(i), "");
  BoardSays(23, 300);
  EXPECT_EQ(Price(0), "");
  EXPECT_EQ(Position("HScroll1(0)"), 300 - 32768);
}

TEST_F(Prezzi, FourBytesForTheDecimalsOverflowTheirVariable) {
  Resize(22, {0, 0, 1, 0});
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Prezzi, DecimalsThatNoByteHoldsEndTheProgram) {
  Resize(22, {0, 1});  // 256
  Open();
  ExpectReport(kOverflow);
}

TEST_F(Prezzi, ATextForTheDecimalsEndsTheProgram) {
  MakeText(22);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Prezzi, ATextForAPriceEndsTheProgram) {
  MakeText(24);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Prezzi, ATextForAnItemNumberEndsTheProgram) {
  MakeText(34);
  Open();
  ExpectReport(kTypeMismatch);
}

TEST_F(Prezzi, ValuesBeyondTheBarsShowAsTheirEnd) {
  Resize(23, {0, 0, 1, 0});
  Resize(34, {0, 0, 1, 0});
  Open();
  EXPECT_EQ(Price(0), "655.35");
  EXPECT_EQ(Item(1), "65535");
  EXPECT_EQ(Position("HScroll1(0)"), 32767);
  EXPECT_EQ(Position("HScroll2(1)"), 32767);
}

TEST_F(Prezzi, RepliesOverwriteWhatIsBeingTyped) {
  Open();
  TypeOnly("Text2(3)", "9");
  BoardSays(36, 1234);
  EXPECT_EQ(Item(3), "1234");
}

}  // namespace
}  // namespace sorvane::test
