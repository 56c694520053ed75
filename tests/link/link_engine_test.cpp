#include "link/link_engine.h"

#include <gtest/gtest.h>

#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const Bytes kRead = {1, 0, 18, 52, 71};
const Bytes kWrite = {129, 0, 18, 52, 44, 1, 244};
const Bytes kGood = {44, 1, 45};
const Bytes kBad = {44, 1, 46};

// Parameter 1 lies at address bytes 0, 18, 52 and has two bytes; 2 and 3 follow, one byte each, and
// a spare record.
std::vector<IndexRecord> Rows() {
  std::vector<IndexRecord> rows = PlainRows(4, 0);
  rows[0] = {52, 18, 1, 0, 0, {7, 0, 0, 0}};
  return rows;
}

struct EngineTest : ::testing::Test {
  EngineTest() {
    link.Connect();
    link.board.SwitchOff();
    link.clock.Advance(1000);
  }

  void Read() {
    link.access.WatchParameter(1);
    link.Tick();
    link.wire.Expect(kRead);
  }
  void Write(int64_t value = 300) {
    link.access.WriteParameter(1, value);
    link.Tick();
  }
  const LinkState& State() const { return link.ser.State(); }

  Link link{Rows()};
};

TEST_F(EngineTest, AReadBringsTheValueIntoTheRecord) {
  Read();
  EXPECT_FALSE(State().LinkIdle);
  link.board.Reply(kGood);
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
  EXPECT_TRUE(link.access.IsParameterFresh(1, 0));
  EXPECT_TRUE(State().LinkIdle);
  ASSERT_EQ(link.notices.size(), 1U);
  EXPECT_EQ(link.notices[0].Number(), 300);
}

TEST_F(EngineTest, ARightAcknowledgementMakesTheValueSentTheValueHeld) {
  Write();
  link.wire.Expect(kWrite);
  link.board.Reply({232});
  EXPECT_EQ(State().ReplyValue, (Bytes{44, 1}));
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
  EXPECT_TRUE(link.access.IsParameterFresh(1, 0));
  ASSERT_EQ(link.notices.size(), 1U);
  EXPECT_EQ(link.notices[0].bytes, (Bytes{44, 1}));
}

TEST_F(EngineTest, AnAcknowledgementOf400Wraps) {
  link.access.WriteParameter(2, 70);
  link.Tick();
  link.wire.Expect({128, 0, 0, 2, 70, 200});
  link.board.Reply({144});
  link.wire.ExpectNothing();
  EXPECT_EQ(link.notices.size(), 1U);
}

TEST_F(EngineTest, AChecksumOfZeroIsAcknowledgedByZero) {
  link.access.WriteParameter(2, 126);
  link.Tick();
  link.wire.Expect({128, 0, 0, 2, 126, 0});
  link.board.Reply({0});
  link.wire.ExpectNothing();
  EXPECT_EQ(link.notices.size(), 1U);
}

TEST_F(EngineTest, AReadReplyMayComeInPieces) {
  Read();
  link.wire.DeliverByteByByte({44, 1});
  EXPECT_FALSE(State().LinkIdle);
  link.wire.DeliverByteByByte({45});
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
}

TEST_F(EngineTest, AWriteTakesTheFirstByteForItsReply) {
  Write();
  link.wire.DeliverByteByByte({232, 232});
  link.wire.Expect(kWrite);
  link.wire.ExpectNothing();
  EXPECT_TRUE(State().LinkIdle);
}

TEST_F(EngineTest, TwoBytesThatAcknowledgeAWriteTogetherAreABadReply) {
  Write();
  link.wire.Expect(kWrite);
  link.board.Reply({232, 232});
  link.wire.Expect(kWrite);
  EXPECT_FALSE(State().LinkIdle);
  link.board.Reply({232});
  link.wire.ExpectNothing();
  EXPECT_TRUE(State().LinkIdle);
}

TEST_F(EngineTest, AWrongAcknowledgementSendsTheSameWriteAgain) {
  Write();
  link.wire.Expect(kWrite);
  link.board.Reply({244});
  link.wire.Expect(kWrite);
  EXPECT_TRUE(link.notices.empty());
}

TEST_F(EngineTest, ABadReadReplySendsTheFrameAgainAndAGoodOneEndsTheCount) {
  Read();
  link.board.Reply(kBad);
  EXPECT_EQ(link.lamps.Tag(4), 6);
  link.wire.Expect(kRead);
  EXPECT_EQ(State().RetryCount, 1);
  EXPECT_TRUE(link.notices.empty());
  EXPECT_EQ(link.Value(1), (Bytes{7, 0}));
  link.board.Reply(kGood);
  EXPECT_EQ(State().RetryCount, 0);
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
}

TEST_F(EngineTest, AnExtraByteMakesAReadReplyBad) {
  Read();
  link.board.Reply({44, 1, 45, 0});
  link.wire.Expect(kRead);
}

TEST_F(EngineTest, OnlyTheLastByteOfAReadReplyIsItsCheck) {
  Read();
  link.board.Reply({44, 1, 99, 45});
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
}

TEST_F(EngineTest, FourBadRepliesAndAGoodOneAreAFailedExchange) {
  Read();
  for (int i = 0; i < 4; ++i) {
    link.board.Reply(kBad);
    link.wire.Expect(kRead);
  }
  link.board.Reply(kGood);
  link.wire.ExpectNothing();
  EXPECT_EQ(State().ReplyValue, Bytes{});
  EXPECT_EQ(State().RetryCount, 0);
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_EQ(State().SweepPosition, 2);
  EXPECT_EQ(link.Value(1), (Bytes{7, 0}));
  EXPECT_EQ(link.Record(1).At(6), 6);
  EXPECT_TRUE(link.notices.empty());
}

TEST_F(EngineTest, AFailedExchangeIsTriedAgainOnTheNextPassWithAllItsRetries) {
  Read();
  for (int i = 0; i < 5; ++i) link.board.Reply(kBad);
  link.wire.Forget();
  link.Tick(2);
  link.wire.Expect(kRead);
  for (int i = 0; i < 4; ++i) {
    link.board.Reply(kBad);
    link.wire.Expect(kRead);
  }
  link.board.Reply(kBad);
  link.wire.ExpectNothing();
  EXPECT_TRUE(State().LinkIdle);
}

TEST_F(EngineTest, EventsOtherThanReceptionAreIgnored) {
  Write();
  link.wire.Expect(kWrite);
  for (const int event : {0, 1, 3, 1010}) link.wire.RaiseEvent(event);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.lamps.Tag(3), 2);
}

TEST_F(EngineTest, TheTickDoesNothingDuringAnExchangeAndGoesOn) {
  Read();
  link.access.WatchParameter(2);
  link.Tick(5);
  link.wire.ExpectNothing();
  link.board.Reply(kGood);
  link.Tick();
  link.wire.Expect({0, 0, 0, 2, 2});
}

TEST_F(EngineTest, ATickComes40MillisecondsAfterTheOneBefore) {
  link.access.WatchParameter(1);
  link.clock.Advance(39);
  link.wire.ExpectNothing();
  link.clock.Advance(1);
  link.wire.Expect(kRead);
}

TEST_F(EngineTest, TheTicksIntervalBeginsAtTheEndOfItsStep) {
  link.access.WatchParameter(1);
  link.access.WatchParameter(2);
  // Putting a frame out takes 100 ms here.
  link.wire.on_output = [this](const Bytes&) { link.clock.Advance(100); };
  link.Tick();
  link.wire.Expect(kRead);
  link.board.Reply(kGood);
  link.clock.Advance(39);
  link.wire.ExpectNothing();
  link.clock.Advance(1);
  link.wire.Expect({0, 0, 0, 2, 2});
}

TEST_F(EngineTest, AStrayByteSpoilsTheNextReplySinceTheBufferIsNotEmptied) {
  link.board.Reply({7});
  Read();
  link.board.Reply(kGood);
  link.wire.Expect(kRead);
  link.board.Reply(kGood);
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
}

TEST_F(EngineTest, StrayBytesThatFitMoveTheSweepOnAndTellNobody) {
  ASSERT_EQ(State().SweepPosition, 0);
  link.board.Reply({5, 5});
  EXPECT_EQ(State().SweepPosition, 1);
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_TRUE(link.notices.empty());
  EXPECT_EQ(link.Record(0), ParameterRecord());
}

TEST_F(EngineTest, StrayBytesThatDontFitSendTheLastFrameAgain) {
  link.board.Reply({5, 6});
  link.wire.Expect({0, 240, 0, 18, 2});
  EXPECT_FALSE(State().LinkIdle);
}

TEST(EngineOfALongParameter, WritesSixteenBytesAndReadsSeventeen) {
  Link link(PlainRows(2, 15));
  link.Connect();
  link.board.SwitchOff();
  link.access.WriteParameter(1, "ABCDEFGHIJKLMNOP");
  link.Tick();
  // 143 + 1 and the letters, whose sum is 16 * 65 + 120: 1304, 24 modulo 256.
  link.wire.Expect({143, 0,   0,   1,   'A', 'B', 'C', 'D', 'E', 'F', 'G',
                    'H', 'I', 'J', 'K', 'L', 'M', 'N', 'O', 'P', 24});
  link.board.Reply({48});
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect({15, 0, 0, 1, 16});
  link.board.Reply({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
  EXPECT_EQ(link.notices.size(), 1U);
  link.board.Reply({136});
  ASSERT_EQ(link.notices.size(), 2U);
  EXPECT_EQ(link.notices[1].bytes.size(), 16U);
  EXPECT_EQ(link.Record(1).At(23), 16);
}

TEST(EngineOfCommand127, FramesAWriteAndWaitsForAReadReply) {
  Link link(PlainRows(2, 127));
  link.Connect();
  link.board.SwitchOff();
  link.access.WatchParameter(1);
  link.Tick();
  // 4 default bytes of 0 and 12 blanks of 32: 127 + 1 + 384 is 512.
  link.wire.Expect({127, 0, 0, 1, 0, 0, 0, 0, 32, 32, 32, 32, 32, 32, 32, 32, 32, 32, 32, 32, 0});
  link.board.Reply({0});
  EXPECT_FALSE(link.ser.State().LinkIdle);
  link.board.Reply({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
  EXPECT_TRUE(link.ser.State().LinkIdle);
  EXPECT_EQ(link.notices.size(), 1U);
}

}  // namespace
}  // namespace sorvane::test
