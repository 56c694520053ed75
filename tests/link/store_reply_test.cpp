#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "board/errors.h"
#include "link/sweep.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

constexpr uint8_t kPolledAndWatched = 6;

// A sweep of its own that stands at record 1 of 3, which is polled, watched and without divider.
struct StoreReplyTest : ::testing::Test {
  StoreReplyTest() {
    tables.RecordCount(0) = 3;
    state.SweepPosition = 1;
    state.ExchangeSize = 1;
    state.ReplyValue = {44, 1};
    Record().At(6) = kPolledAndWatched;
    for (int i = 8; i <= 23; ++i) Record().At(i) = 32;
    reply_notice = [this](const Reply& reply) {
      notices.push_back(reply);
      EXPECT_EQ(state.SweepPosition, reply.index);
      EXPECT_FALSE(state.LinkIdle);
      EXPECT_TRUE(Record().At(6) & 1);
    };
  }

  ParameterRecord& Record() { return tables.ParameterTable(1, 0); }
  void ExpectMovedOn() {
    EXPECT_EQ(state.SweepPosition, 2);
    EXPECT_TRUE(state.LinkIdle);
  }

  LinkState state;
  BoardTables tables;
  std::function<void(const Reply&)> reply_notice;
  Sweep sweep{state, tables, reply_notice};
  std::vector<Reply> notices;
};

TEST_F(StoreReplyTest, StoresTheValueTellsItAndMovesOn) {
  sweep.StoreReply();
  EXPECT_EQ(Record().At(8), 44);
  EXPECT_EQ(Record().At(9), 1);
  EXPECT_EQ(Record().At(10), 32);
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_EQ(notices[0].index, 1);
  EXPECT_EQ(notices[0].size, 1);
  EXPECT_EQ(notices[0].bytes, (Bytes{44, 1}));
  ExpectMovedOn();
}

TEST_F(StoreReplyTest, ARecordThatIsNotPolledKeepsAllAndNobodyIsTold) {
  Record().At(6) = 4;
  const ParameterRecord before = Record();
  sweep.StoreReply();
  EXPECT_EQ(Record(), before);
  EXPECT_TRUE(notices.empty());
  ExpectMovedOn();
}

TEST_F(StoreReplyTest, AnEmptyReplyKeepsTheRecordPolledAndNobodyIsTold) {
  state.ReplyValue.clear();
  const ParameterRecord before = Record();
  sweep.StoreReply();
  EXPECT_EQ(Record(), before);
  EXPECT_TRUE(notices.empty());
  ExpectMovedOn();
}

TEST_F(StoreReplyTest, WithoutADividerTheReplyEndsThePolling) {
  sweep.StoreReply();
  EXPECT_EQ(Record().At(6), 5);
}

TEST_F(StoreReplyTest, WithADividerThePollingGoesOn) {
  Record().At(4) = 0x33;
  sweep.StoreReply();
  EXPECT_EQ(Record().At(6), 7);
}

TEST_F(StoreReplyTest, EitherReadOnceFlagEndsThePollingInSpiteOfADivider) {
  for (const uint8_t once : {32, 64}) {
    state.SweepPosition = 1;
    state.LinkIdle = false;
    Record().At(4) = 0x33;
    Record().At(6) = static_cast<uint8_t>(kPolledAndWatched + once);
    sweep.StoreReply();
    EXPECT_EQ(Record().At(6), 5 + once);
  }
}

TEST_F(StoreReplyTest, APendingWriteStaysPending) {
  Record().At(6) = 134;
  sweep.StoreReply();
  EXPECT_EQ(Record().At(6), 133);
}

TEST_F(StoreReplyTest, AReplyOnAPolledRecordThatNobodyWatchedStopsTheProgram) {
  Record().At(6) = 2;
  EXPECT_THROW(sweep.StoreReply(), InternalFault);
  EXPECT_EQ(Record().At(6), 2);
  EXPECT_TRUE(notices.empty());
}

TEST_F(StoreReplyTest, AReplyOfOneByteFillsTheSecondWithZero) {
  state.ReplyValue = {7};
  sweep.StoreReply();
  EXPECT_EQ(Record().At(8), 7);
  EXPECT_EQ(Record().At(9), 0);
  EXPECT_EQ(Record().At(10), 32);
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_EQ(notices[0].bytes, (Bytes{7}));
}

TEST_F(StoreReplyTest, NoMoreThanThreeBytesAreFilledUp) {
  state.ExchangeSize = 5;
  state.ReplyValue = {'A'};
  sweep.StoreReply();
  const int expected[] = {'A', 0, 0, 0, 32, 32};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(Record().At(8 + i), expected[i]) << i;
}

TEST_F(StoreReplyTest, AReplyThatIsTooLongIsCutInTheRecord) {
  state.ReplyValue = {1, 2, 3, 4};
  sweep.StoreReply();
  EXPECT_EQ(Record().At(9), 2);
  EXPECT_EQ(Record().At(10), 32);
}

TEST_F(StoreReplyTest, AReplyEqualToTheRecordIsToldAllTheSame) {
  Record().At(4) = 0x11;
  sweep.StoreReply();
  state.SweepPosition = 1;
  state.LinkIdle = false;
  sweep.StoreReply();
  EXPECT_EQ(notices.size(), 2U);
}

TEST_F(StoreReplyTest, AReplyOfFiveBytesIsAText) {
  state.ExchangeSize = 4;
  state.ReplyValue = {'C', 'a', 'f', 'f', 233};
  sweep.StoreReply();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_TRUE(notices[0].IsText());
  EXPECT_EQ(notices[0].Text(), "Caff\xE9");
  EXPECT_EQ(Record().At(12), 233);
}

TEST_F(StoreReplyTest, AReplyOfFourBytesIsANumber) {
  state.ExchangeSize = 3;
  state.ReplyValue = {255, 255, 255, 255};
  sweep.StoreReply();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_FALSE(notices[0].IsText());
  EXPECT_EQ(notices[0].Number(), 4294967295.0);
}

TEST_F(StoreReplyTest, BehindTheLastRecordButOneComesTheStart) {
  tables.RecordCount(0) = 2;
  sweep.StoreReply();
  EXPECT_EQ(state.SweepPosition, 0);
  EXPECT_TRUE(state.LinkIdle);
}

TEST_F(StoreReplyTest, BeyondTheTableThePositionGoesOnUntilTheSweepWraps) {
  tables.RecordCount(0) = 1;
  sweep.StoreReply();
  EXPECT_EQ(state.SweepPosition, 2);
  EXPECT_FALSE(sweep.SweepStep());
  EXPECT_EQ(state.SweepPosition, 0);
}

TEST(ReplyNotice, APageMayWriteInItsNoticeAndTheSweepSendsItInItsTurn) {
  Link link(PlainRows(4));
  link.Connect();
  link.on_notice = [&](const Reply& reply) {
    if (reply.index == 1) link.access.WriteParameter(2, 300);
  };
  link.access.WatchParameter(1);
  link.Tick(2);
  link.wire.Expect({1, 0, 0, 1, 2});
  link.wire.Expect({129, 0, 0, 2, 44, 1, 176});
}

}  // namespace
}  // namespace sorvane::test
