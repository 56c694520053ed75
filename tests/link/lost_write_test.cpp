#include <gtest/gtest.h>

#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const Bytes kRead = {1, 0, 0, 1, 2};
const Bytes kWrite = {129, 0, 0, 1, 44, 1, 175};

// Parameter 1 of two records: two bytes, and 500 on the board.
struct LostWrite : Link {
  explicit LostWrite(uint8_t divider) : Link(PlainRows(2, 1, divider)) {
    SetBoardNumber(1, 500);
    Connect();
  }
};

TEST(LostWrites, AFailedExchangeIsFollowedByAReadOfTheBoardsValue) {
  LostWrite link(0);
  link.board.SwitchOff();
  link.access.WriteParameter(1, 300);
  link.Tick();
  for (int i = 0; i < 5; ++i) {
    link.wire.Expect(kWrite);
    link.board.Reply({0});
  }
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(6), 6);
  link.board.SwitchOn();
  link.Tick(2);
  link.wire.Expect(kRead);
  EXPECT_EQ(link.Value(1), (Bytes{244, 1}));
  ASSERT_EQ(link.notices.size(), 1U);
  EXPECT_EQ(link.notices[0].Number(), 500);
}

TEST(LostWrites, ATimeoutThatHandsTheLineBackIsFollowedByARead) {
  LostWrite link(0);
  link.board.StaySilent(1);
  link.access.WriteParameter(1, 300);
  link.Tick();
  link.wire.Expect(kWrite);
  link.clock.Advance(1100);
  link.wire.Expect(kRead);
  EXPECT_EQ(link.Value(1), (Bytes{244, 1}));
}

TEST(LostWrites, ATimeoutThatRepeatsTheFrameLosesNothing) {
  LostWrite link(2);
  link.board.StaySilent(3);
  link.access.WriteParameter(1, 300);
  link.Tick();
  link.clock.Advance(3010);
  for (int i = 0; i < 4; ++i) link.wire.Expect(kWrite);
  EXPECT_EQ(link.BoardValue(1), (Bytes{44, 1}));
  EXPECT_EQ(link.Value(1), (Bytes{44, 1}));
}

TEST(LostWrites, AReadInFlightOverwritesTheValueAndItsBytesGoOutAsTheWrite) {
  LostWrite link(1);
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect(kRead);
  link.access.WriteParameter(1, 300);
  link.clock.Advance(5);
  EXPECT_EQ(link.Value(1), (Bytes{244, 1}));
  EXPECT_EQ(link.Record(1).At(6), 135);
  link.Tick(2);
  link.wire.Expect({129, 0, 0, 1, 244, 1, 119});
  EXPECT_EQ(link.BoardValue(1), (Bytes{244, 1}));
}

TEST(LostWrites, WithoutADividerTheReadInFlightTakesThePollingToo) {
  LostWrite link(0);
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect(kRead);
  link.access.WriteParameter(1, 300);
  link.Tick(5);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(6), 133);
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect({129, 0, 0, 1, 244, 1, 119});
}

TEST(LostWrites, AWriteWhoseLastWatcherLeftWaitsUntilTheNextOneComes) {
  LostWrite link(0);
  link.access.WatchParameter(1);
  link.access.WriteParameter(1, 300);
  link.access.UnwatchParameter(1);
  EXPECT_EQ(link.Record(1).At(6), 128);
  link.Tick(5);
  link.wire.ExpectNothing();
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect(kWrite);
}

TEST(LostWrites, AWriteWhoseLastWatcherLeftGoesOutWithTheNextWrite) {
  LostWrite link(0);
  link.access.WatchParameter(1);
  link.access.WriteParameter(1, 7);
  link.access.UnwatchParameter(1);
  link.access.WriteParameter(1, 300);
  link.Tick();
  link.wire.Expect(kWrite);
}

TEST(LostWrites, TheLastRecordOfTheFileIsNeverWritten) {
  LostWrite link(0);
  link.access.WriteParameter(2, 300);
  link.Tick(10);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(2).At(6), 134);
}

}  // namespace
}  // namespace sorvane::test
