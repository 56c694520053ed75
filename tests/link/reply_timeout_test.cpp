#include <gtest/gtest.h>

#include "link/frm_ser.h"
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const Bytes kRead = {1, 0, 0, 1, 2};
const Bytes kGood = {44, 1, 45};
const Bytes kBad = {44, 1, 46};

// A read of parameter 1 that had one bad reply 10 ms after its tick, so that timeouts fall between
// two ticks and it can be seen which of them sends.
struct ReadUnderWay {
  ReadUnderWay() {
    link.Connect();
    link.board.SwitchOff();
    link.access.WatchParameter(1);
    link.Tick();
    link.wire.Expect(kRead);
    link.clock.Advance(10);
    link.board.Reply(kBad);
    link.wire.Expect(kRead);
  }

  void SetDivider(uint8_t divider) { link.Record(1).At(4) = divider; }
  const LinkState& State() const { return link.ser.State(); }

  Link link{PlainRows(3)};
};

struct TimeoutTest : ::testing::Test, ReadUnderWay {};

TEST_F(TimeoutTest, AReplyThatLacksItsCheckNeverCompletes) {
  link.board.Reply({44, 1});
  link.clock.Advance(999);
  EXPECT_FALSE(State().LinkIdle);
  EXPECT_EQ(link.wire.Closes(), 0);
  link.clock.Advance(1);
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_TRUE(link.notices.empty());
}

TEST_F(TimeoutTest, ThePortIsClosedAndOpenedWhichEmptiesItsBuffer) {
  const int opens = link.wire.Opens();
  link.board.Reply({44});
  link.clock.Advance(1000);
  EXPECT_EQ(link.wire.Closes(), 1);
  EXPECT_EQ(link.wire.Opens(), opens + 1);
  EXPECT_TRUE(link.wire.PortOpen());
  EXPECT_EQ(link.wire.InBufferCount(), 0U);
}

TEST_F(TimeoutTest, ARecordWithoutDividerIsTriedOverAndOver) {
  link.clock.Advance(1000);
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_EQ(State().SweepPosition, 1);
  link.wire.ExpectNothing();
  link.clock.Advance(30);
  link.wire.Expect(kRead);
  for (int i = 0; i < 20; ++i) {
    link.clock.Advance(1000);
    link.wire.Expect(kRead);
    link.wire.ExpectNothing();
  }
}

TEST_F(TimeoutTest, BitOneOfTheLowNibbleRepeatsTheFrameWithoutLimit) {
  for (const uint8_t divider : {0x02, 0x22, 0x33, 0x12, 0xFF}) {
    SetDivider(divider);
    for (int i = 0; i < 20; ++i) {
      link.clock.Advance(999);
      link.wire.ExpectNothing();
      link.clock.Advance(1);
      link.wire.Expect(kRead);
      EXPECT_FALSE(State().LinkIdle);
    }
  }
  EXPECT_EQ(State().RetryCount, 1);
}

TEST_F(TimeoutTest, WithoutThatBitTheLineIsHandedBack) {
  // The test is one of the whole byte: bit 1 of the high nibble doesn't count.
  for (const uint8_t divider : {0x00, 0x01, 0x11, 0x44, 0x88, 0xDD, 0x20}) {
    ReadUnderWay read;
    read.SetDivider(divider);
    read.link.clock.Advance(1000);
    EXPECT_TRUE(read.State().LinkIdle) << int{divider};
    EXPECT_EQ(read.State().SweepPosition, 1);
    read.link.wire.ExpectNothing();
  }
}

TEST_F(TimeoutTest, AReplyAfterRepeatsEndsTheExchange) {
  SetDivider(2);
  link.clock.Advance(3000);
  link.wire.Forget();
  link.board.Reply(kGood);
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
  link.clock.Advance(30);
  EXPECT_EQ(link.wire.Closes(), 3);
}

TEST_F(TimeoutTest, AReplyStopsTheTimeout) {
  link.clock.Advance(999);
  link.board.Reply(kGood);
  link.clock.Advance(5000);
  EXPECT_EQ(link.wire.Closes(), 0);
  EXPECT_EQ(link.lamps.Tag(4), 3);
}

TEST_F(TimeoutTest, ABadReplyGivesTheBoardAFullSecondAgain) {
  link.clock.Advance(900);
  link.board.Reply(kBad);
  link.clock.Advance(999);
  EXPECT_EQ(link.wire.Closes(), 0);
  link.clock.Advance(1);
  EXPECT_EQ(link.wire.Closes(), 1);
}

TEST_F(TimeoutTest, TimeoutsDontCountAsBadReplies) {
  SetDivider(2);
  for (int i = 0; i < 2; ++i) link.board.Reply(kBad);
  link.clock.Advance(2000);
  EXPECT_EQ(State().RetryCount, 3);
  link.wire.Forget();
  link.board.Reply(kBad);
  link.wire.Expect(kRead);
  link.board.Reply(kGood);
  link.wire.ExpectNothing();
  EXPECT_TRUE(link.notices.empty());
}

TEST_F(TimeoutTest, TheCountOfBadRepliesOutlivesATimeoutThatHandsTheLineBack) {
  for (int i = 0; i < 3; ++i) link.board.Reply(kBad);
  link.clock.Advance(1000);
  EXPECT_EQ(State().RetryCount, 4);
  link.Tick();
  link.board.Reply(kGood);
  EXPECT_TRUE(link.notices.empty());
  EXPECT_EQ(State().RetryCount, 0);
}

TEST_F(TimeoutTest, APolledRecordOfOddDividerLetsTheNextOneGo) {
  SetDivider(0x11);
  link.access.WatchParameter(2);
  link.clock.Advance(1000);
  link.Tick();
  link.wire.Expect({1, 0, 0, 2, 3});
  EXPECT_EQ(link.Record(1).At(4), 0x01);
}

TEST_F(TimeoutTest, ARecordThatItsPageLeftIsRepeatedByItsReload) {
  SetDivider(0x22);
  link.access.UnwatchParameter(1);
  EXPECT_EQ(link.Record(1).At(4), 0x02);
  link.clock.Advance(1000);
  link.wire.Expect(kRead);
  link.board.Reply(kGood);
  EXPECT_TRUE(link.notices.empty());
  EXPECT_TRUE(State().LinkIdle);
}

}  // namespace
}  // namespace sorvane::test
