#include <QTest>

#include "link/frm_ser.h"
#include "pages/allarmi_page.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

// How the page reads the ring, and what it shows of that.
class AllarmiReading : public AllarmiPage {
 protected:
  static std::vector<int> FromTo(int first, int last) {
    std::vector<int> all;
    for (int k = first; k <= last; ++k) all.push_back(k);
    return all;
  }
  // The board fails to answer the next frame, with all its repetitions.
  void FailOneExchange() {
    program.link.board.SpoilChecksum(5);
    program.Sweep(1);
  }
};

TEST_F(AllarmiReading, AsksForTheRingAndThenForThePointer) {
  OpenUnanswered();
  std::vector<Bytes> frames;
  for (int k = 118; k <= 277; ++k) frames.push_back(ReadFrame(k));
  frames.push_back(ReadFrame(278));
  ExpectSent(frames);
}

TEST_F(AllarmiReading, HoldsEachOfItsParametersOnce) {
  OpenRead();
  EXPECT_EQ(Watched(), FromTo(118, 278));
}

TEST_F(AllarmiReading, ClosingThePageGivesItsParametersBack) {
  OpenRead();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (int k = 118; k <= 278; ++k) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(AllarmiReading, ClosingThePageInTheMiddleOfTheRingGivesItsParametersBack) {
  OpenUnanswered();
  program.Sweep(70);
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  program.link.wire.Forget();
  ExpectNothingSent();
}

TEST_F(AllarmiReading, PageOpenedTwiceHasOneSetOfWatchers) {
  OpenRead();
  program.Choose("MnuAllarmi");
  EXPECT_EQ(Watched(), FromTo(118, 278));
  EXPECT_EQ(Rows(), 20);
  EXPECT_FALSE(IsBarShown());
}

TEST_F(AllarmiReading, SendsNothingOfItsOwn) {
  OpenRead();
  for (const int key : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Space, Qt::Key_Down,
                        Qt::Key_5, Qt::Key_Backspace}) {
    PressFocused("ListView1", key);
  }
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(20, 10));
  QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, QPoint(20, 10));
  Click("Label1");
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
  EXPECT_TRUE(WasSilent());
}

TEST_F(AllarmiReading, HasRoomForAllThatItShows) {
  OpenRead();
  ExpectRoom();
}

TEST_F(AllarmiReading, BarRunsFromZeroToAHundredAndSixtyOne) {
  OpenUnanswered();
  EXPECT_EQ(Bar().minimum(), 0);
  EXPECT_EQ(Bar().maximum(), 161);
  EXPECT_EQ(Bar().value(), 0);
  EXPECT_TRUE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
}

TEST_F(AllarmiReading, BarCountsTheReplies) {
  OpenUnanswered();
  for (int i = 1; i <= 160; ++i) {
    program.Sweep(1);
    EXPECT_EQ(Bar().value(), i);
    EXPECT_TRUE(IsBarShown()) << i;
    EXPECT_EQ(Rows(), 0) << i;
  }
}

TEST_F(AllarmiReading, LastReplyBringsTheListAndHidesTheBar) {
  OpenUnanswered();
  program.Sweep(161);
  EXPECT_EQ(Bar().value(), 161);
  EXPECT_FALSE(IsBarShown());
  EXPECT_EQ(Rows(), 20);
}

TEST_F(AllarmiReading, RepeatedRepliesKeepTheBarAtItsEndAndHidden) {
  OpenRead();
  for (int i = 0; i < 240; ++i) {
    AskAgain(278);
    EXPECT_EQ(Bar().value(), 161);
    EXPECT_FALSE(IsBarShown());
  }
  EXPECT_EQ(Rows(), 20);
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(AllarmiReading, CountOfRepliesSurvivesAnyNumber) {
  OpenUnanswered();
  for (int i = 0; i < 70000; ++i) Tell(118, 0);
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Bar().value(), 161);
  EXPECT_FALSE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
  program.Sweep(165);
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Bar().value(), 161);
  EXPECT_FALSE(IsBarShown());
}

TEST_F(AllarmiReading, ReplyThatComesTwiceHidesTheBarBeforeTheListComes) {
  OpenUnanswered();
  program.Sweep(160);
  Tell(118, 0);
  EXPECT_EQ(Bar().value(), 161);
  EXPECT_FALSE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
  program.Sweep(1);
  EXPECT_EQ(Rows(), 20);
}

TEST_F(AllarmiReading, RingThatIsFreshAlreadyIsListedWhileTheBarStillShows) {
  for (int k = 118; k <= 278; ++k) program.link.access.WatchParameter(k);
  program.Sweep(165);
  OpenUnanswered();
  EXPECT_EQ(Rows(), 0);
  program.Sweep(1);
  EXPECT_EQ(Bar().value(), 1);
  EXPECT_TRUE(IsBarShown());
  // What the page has been told so far: nothing of any record, and no pointer.
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Row(0), QStringList({"1", "00/00/00", "00:00", ""}));
  EXPECT_EQ(Row(19), QStringList({"20", "00/00/00", "00:00", ""}));
  program.Sweep(165);
  EXPECT_EQ(Row(1), QStringList({"2", "20/03/2026", "19:57", "EJB_4_blocco motore 4 "}));
  EXPECT_FALSE(IsBarShown());
}

TEST_F(AllarmiReading, RepliesOfOtherParametersDontCount) {
  OpenUnanswered();
  program.Sweep(10);
  for (const int k : {117, 279, 22, 2, 1, 419}) AskAgain(k);
  const int before = Bar().value();
  for (const int k : {117, 279, 22, 2, 1, 418}) Tell(k, 99);
  EXPECT_EQ(Bar().value(), before);
  EXPECT_TRUE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
}

TEST_F(AllarmiReading, RepliesOfTheNeighboursChangeNothing) {
  OpenRead();
  for (const int k : {1, 2, 22, 117, 279, 418}) Tell(k, 13);
  EXPECT_EQ(Rows(), 20);
  EXPECT_EQ(Row(0), QStringList({"1", "01/03/2026", "00:00", "OBC_1_vuoto prodotto 1 "}));
  EXPECT_EQ(Row(19), QStringList({"20", "02/03/2026", "01:03", "OBC_2_vuoto prodotto 2 "}));
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(AllarmiReading, TextForAnotherPageDoesNoHarm) {
  OpenRead();
  program.gate.Run([&] {
    program.link.ser.reply_notice(
        {.index = 12, .size = 6, .bytes = {'I', 't', 'a', 'l', 'i', 'a', ' '}});
  });
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Rows(), 20);
}

// One parameter after the other is the last to be answered.
TEST_F(AllarmiReading, NothingIsListedWhileOneParameterIsMissing) {
  for (const int missing : {118, 119, 124, 125, 200, 276, 277, 278}) {
    OpenUnanswered();
    program.Sweep(missing - 118);
    FailOneExchange();
    program.Sweep(278 - missing);
    EXPECT_EQ(Bar().value(), 160) << missing;
    EXPECT_EQ(Rows(), 0) << missing;
    EXPECT_TRUE(IsBarShown()) << missing;
    program.Sweep(4);
    EXPECT_EQ(Bar().value(), 161) << missing;
    EXPECT_EQ(Rows(), 20) << missing;
    EXPECT_FALSE(IsBarShown()) << missing;
    ClosePage();
  }
}

TEST_F(AllarmiReading, PointerThatComesBeforeTheRingIsKept) {
  SetPointer(6);
  OpenUnanswered();
  FailOneExchange();  // of parameter 118
  program.Sweep(160);
  EXPECT_EQ(Rows(), 0);
  program.Sweep(4);
  EXPECT_EQ(Times().first(), "06:18");
  EXPECT_EQ(Rows(), 20);
}

TEST_F(AllarmiReading, ListThatStandsIsNotTouchedWhileAParameterIsReadAnew) {
  OpenRead();
  program.link.Record(200).At(6) &= 254;  // not fresh any more
  SetPointer(9);
  AskAgain(278);
  EXPECT_EQ(Times().first(), "00:00");
  AskAgain(200);
  EXPECT_EQ(Times().first(), "09:27");
}

TEST_F(AllarmiReading, PageOpenedAgainCountsFromZeroWithTheBarShown) {
  OpenRead();
  EXPECT_FALSE(IsBarShown());
  ClosePage();
  EXPECT_FALSE(program.IsOpen("FrmAllarmi"));
  OpenUnanswered();
  EXPECT_EQ(Bar().value(), 0);
  EXPECT_TRUE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
  program.Sweep(5);
  EXPECT_EQ(Bar().value(), 5);
  EXPECT_TRUE(IsBarShown());
  EXPECT_EQ(Rows(), 0);
  program.Sweep(160);
  EXPECT_EQ(Rows(), 20);
  EXPECT_FALSE(IsBarShown());
}

TEST_F(AllarmiReading, TextForAByteOfTheRingIsATypeMismatch) {
  MakeText(200);
  OpenRead();
  ExpectReport(kTypeMismatch);
}

TEST_F(AllarmiReading, TextForThePointerIsATypeMismatch) {
  MakeText(278);
  OpenRead();
  ExpectReport(kTypeMismatch);
}

TEST_F(AllarmiReading, ByteThatSixteenBitsWithSignCantHoldOverflows) {
  Resize(118, {0, 128});  // 32768, where no row looks
  OpenRead();
  ExpectReport(kOverflow);
}

TEST_F(AllarmiReading, ByteThatSixteenBitsWithSignHoldIsTaken) {
  Resize(118, {255, 127});  // 32767
  Resize(119, {231, 3});    // 999 minutes
  OpenRead();
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Row(0).at(2), "00:999");
}

TEST_F(AllarmiReading, CodeOfTwoBytesEndsTheListToo) {
  Resize(124 + 8 * 18, {1, 1});  // 257
  OpenRead();
  EXPECT_EQ(Rows(), 2);
}

TEST_F(AllarmiReading, YearThatSixteenBitsWithSignCantHoldOnceCountedFromTwoThousandOverflows) {
  Resize(123, {48, 120});  // 30768
  OpenRead();
  ExpectReport(kOverflow);
}

TEST_F(AllarmiReading, PointerMayHaveMoreThanSixteenBits) {
  Resize(278, {0, 0, 0, 128});
  OpenRead();
  EXPECT_THAT(program.reports, IsEmpty());
  EXPECT_EQ(Rows(), 0);
}

}  // namespace
}  // namespace sorvane::test
