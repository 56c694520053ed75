#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "faults/rig.h"

namespace sorvane::test::faults {
namespace {

// Four records of two bytes: 1 and 3 without a divider, 2 polled, 4 the last one; then the line is
// connected and quiet.
class Ways : public testing::Test {
 protected:
  void SetUp() override {
    rig_.Connect();
    ASSERT_TRUE(rig_.RunUntil([&] { return rig_.model.At() == LinkModel::Stage::kStanding; }));
  }
  // The next frame has gone out and nothing else has happened.
  void WaitForFrame() {
    const std::int64_t before = rig_.Frames();
    ASSERT_TRUE(rig_.RunUntil([&] { return rig_.Frames() > before; }));
  }
  void Settle(int milliseconds = 3000) {
    rig_.Run(milliseconds);
    ASSERT_TRUE(rig_.RunUntil([&] { return rig_.Quiet(); }));
    rig_.ledger.Close();
    rig_.Compare();
  }
  void Expect(Way way) {
    EXPECT_GT(rig_.ledger.Seen()[static_cast<std::size_t>(way)], 0) << NameOf(way);
  }
  const Bytes& Held(int parameter) {
    return rig_.board.Contents().Value(simulator::Parameter(parameter));
  }

  static std::vector<IndexRecord> Rows() {
    std::vector<IndexRecord> rows = PlainRows(4);
    rows[1].divider = 1;
    return rows;
  }
  Link link_{Rows()};
  Rig rig_{link_, Rows(), Rig::Wire::kGathering};
};

TEST_F(Ways, TheBoardChangesWhatIsReadOnce) {
  rig_.Watch(1);
  rig_.Run(100);
  rig_.SetBoard(1, {7, 7});
  Settle();
  Expect(Way::kChangedByItself);
  EXPECT_NE(link_.Value(1), (Bytes{7, 7}));
}

TEST_F(Ways, TheBoardHasTakenAWriteBeforeItsAnswerHasCome) {
  rig_.Watch(2);
  rig_.Run(200);
  rig_.Fault("wrong checksum 5");
  rig_.Write(2, 500);
  Settle();
  Expect(Way::kWriteUnderWay);
  EXPECT_EQ(link_.Value(2), (Bytes{244, 1}));
}

// The answer that came too late for the first frame is taken for that to the second, and that to
// the second for that to the next record's.
TEST_F(Ways, ALateAnswerIsTakenForThatToAnotherQuestion) {
  rig_.SetBoard(1, {11, 0});
  rig_.SetBoard(3, {33, 0});
  rig_.Fault("late reply");
  rig_.Watch(1);
  rig_.Watch(3);
  rig_.Run(2300);
  rig_.Fault("none");
  Settle();
  Expect(Way::kLateAnswer);
  EXPECT_EQ(link_.Value(3), (Bytes{11, 0}));
}

TEST_F(Ways, BytesThatAreLeftOverComeBeforeAnAnswer) {
  Link link(Rows());
  Rig rig(link, Rows());
  rig.Connect();
  ASSERT_TRUE(rig.RunUntil([&] { return rig.model.At() == LinkModel::Stage::kStanding; }));
  rig.SetBoard(1, {0, 5});
  rig.SetBoard(3, {5, 5});
  rig.Fault("extra byte 1");
  rig.Watch(1);
  rig.Run(100);
  rig.Watch(3);
  rig.Run(3000);
  EXPECT_TRUE(rig.IsWell());
  EXPECT_GT(rig.ledger.Seen()[static_cast<std::size_t>(Way::kLeftOverBytes)], 0);
  EXPECT_EQ(link.Value(3), (Bytes{0, 5}));
}

TEST_F(Ways, AWriteIntoSilenceIsLost) {
  rig_.Fault("silent once");
  rig_.Write(1, 500);
  Settle();
  Expect(Way::kNoAnswer);
  EXPECT_NE(Held(1), (Bytes{244, 1}));
}

TEST_F(Ways, AValueThatIsTypedDuringAnExchangeOfItIsLost) {
  rig_.Watch(2);
  WaitForFrame();
  rig_.Write(2, 500);
  Settle();
  Expect(Way::kExchangeUnderWay);
  EXPECT_NE(Held(2), (Bytes{244, 1}));
}

TEST_F(Ways, TheBytesOfALateAnswerAreWritten) {
  rig_.SetBoard(1, {11, 0});
  rig_.SetBoard(2, {22, 0});
  rig_.Fault("late reply");
  rig_.Watch(1);
  rig_.Watch(2);
  ASSERT_TRUE(rig_.RunUntil([&] { return rig_.model.Position() == 2 && !rig_.model.Idle(); }));
  rig_.Write(2, 500);
  rig_.Run(1000);
  rig_.Fault("none");
  Settle();
  Expect(Way::kOverwrittenByLateAnswer);
  Expect(Way::kBytesOfAnAnswer);
  EXPECT_EQ(Held(2), (Bytes{11, 0}));
}

// The first write came to the board, which then changed the value; the second one, of the same
// bytes, never came there, but the first one's answer came late enough.
TEST_F(Ways, ALateAnswerIsTakenForAnAcknowledgement) {
  rig_.Fault("late reply 1");
  rig_.Write(1, 500);
  rig_.Run(900);
  rig_.Write(1, 500);
  rig_.Fault("silent");
  rig_.Run(150);
  rig_.SetBoard(1, {0, 0});
  rig_.Run(300);
  rig_.Fault("none");
  Settle();
  Expect(Way::kLateAcknowledgement);
  EXPECT_EQ(link_.Value(1), (Bytes{244, 1}));
  EXPECT_EQ(Held(1), (Bytes{0, 0}));
}

TEST_F(Ways, AWriteThatTheBoardRefusesFiveTimesIsLost) {
  std::vector<IndexRecord> rows = PlainRows(58);
  Link link(rows);
  Rig rig(link, rows);
  rig.Connect();
  ASSERT_TRUE(rig.RunUntil([&] { return rig.model.At() == LinkModel::Stage::kStanding; }));
  rig.Fault("refuses day 0");
  rig.Write(56, 0);
  rig.Run(1000);
  rig.ledger.Close();
  EXPECT_TRUE(rig.IsWell());
  EXPECT_GT(rig.ledger.Seen()[static_cast<std::size_t>(Way::kFiveBadAnswers)], 0);
}

TEST_F(Ways, AClosedPageKeepsTheWriteBack) {
  rig_.Watch(1);
  rig_.Run(100);
  rig_.Write(1, 500);
  rig_.Unwatch(1);
  Settle();
  Expect(Way::kPageClosed);
  EXPECT_NE(Held(1), (Bytes{244, 1}));
}

TEST_F(Ways, TheLastRecordIsNeverWritten) {
  rig_.Write(4, 500);
  Settle();
  Expect(Way::kLastRecord);
}

TEST_F(Ways, OfTwoValuesTypedInARowTheSecondIsWritten) {
  rig_.Write(1, 500);
  rig_.Write(1, 501);
  Settle();
  Expect(Way::kTypedOver);
  EXPECT_EQ(Held(1), (Bytes{245, 1}));
}

// The names of the ways in docs/faults.md: its headings of the third order.
std::set<std::string> NamesInTheDocument() {
  std::set<std::string> names;
  std::ifstream in(SORVANE_FAULTS_DOCUMENT);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("### ")) names.insert(line.substr(4));
  }
  return names;
}

std::string Words(std::size_t way) { return NameOf(static_cast<Way>(way)); }

TEST(ListOfWays, IsThatOfTheDocument) {
  // The one that is a page's own; the test of the pages shows it.
  std::set<std::string> names = {"Before the first answer"};
  for (std::size_t i = 0; i < static_cast<std::size_t>(Way::kWays); ++i) names.insert(Words(i));
  EXPECT_EQ(NamesInTheDocument(), names);
}

}  // namespace
}  // namespace sorvane::test::faults
