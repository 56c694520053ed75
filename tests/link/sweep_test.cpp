#include "link/sweep.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const Bytes kRead1 = {1, 0, 0, 1, 2};
const Bytes kRead2 = {1, 0, 0, 2, 3};

// A standing connection to a board that answers 5 ms after each frame, so that an exchange is over
// before the next tick.
struct Standing : Link {
  explicit Standing(const std::vector<IndexRecord>& rows) : Link(rows) { Connect(); }
  int32_t Position() const { return ser.State().SweepPosition; }
};

// A sweep of its own, with no line and nobody to tell.
struct SweepAlone : ::testing::Test {
  // Makes a step, and notes the record that is to be sent.
  void Step() {
    if (sweep.SweepStep()) sent.push_back(state.SweepPosition);
  }

  LinkState state;
  BoardTables tables;
  std::function<void(const Reply&)> reply_notice;
  Sweep sweep{state, tables, reply_notice};
  std::vector<int32_t> sent;
};

TEST(Sweep, ATableWithoutMarksIsWalkedToItsEndOnEveryTick) {
  Standing link(PlainRows(10));
  for (int i = 0; i < 3; ++i) {
    link.Tick();
    link.wire.ExpectNothing();
    EXPECT_EQ(link.Position(), 0);
  }
}

TEST(Sweep, FromWithinTheTableTheWalkEndsAtItsStart) {
  Standing link(PlainRows(10));
  link.access.WatchParameter(5);
  link.clock.Advance(45);
  EXPECT_EQ(link.Position(), 6);
  link.Tick();
  EXPECT_EQ(link.Position(), 0);
}

// The position outlives a connection, and the next file may be shorter.
TEST_F(SweepAlone, APositionBeyondTheTableIsLookedAtBeforeTheWalkEnds) {
  tables.RecordCount(0) = 3;
  tables.ParameterTable(8, 0).At(position::kFlags) = flag::kPolled;
  state.SweepPosition = 7;
  Step();
  EXPECT_EQ(state.SweepPosition, 0);
  EXPECT_TRUE(sent.empty());
  state.SweepPosition = 8;
  Step();
  EXPECT_EQ(sent, std::vector<int32_t>{8});
}

TEST_F(SweepAlone, FromTheLastPlaceOfAllTheWalkEndsAtItsStart) {
  tables.RecordCount(0) = 3;
  state.SweepPosition = BoardTables::kParameterPlaces - 1;
  Step();
  EXPECT_EQ(state.SweepPosition, 0);
  EXPECT_TRUE(sent.empty());
}

TEST_F(SweepAlone, RecordsThatWaitAreEachPassedOnceInAPass) {
  tables.RecordCount(0) = 40;
  for (const int32_t index : {1, 2, 17, 39}) {
    tables.ParameterTable(index, 0).At(position::kFlags) = flag::kPolled;
    tables.ParameterTable(index, 0).At(position::kDivider) = 0x23;
  }
  Step();
  EXPECT_TRUE(sent.empty());
  EXPECT_EQ(state.SweepPosition, 0);
  for (const int32_t index : {1, 2, 17, 39}) {
    EXPECT_EQ(tables.ParameterTable(index, 0).At(position::kDivider), 0x13) << index;
  }
}

TEST(Sweep, ATableOfNoRecordsWrapsAtOnce) {
  Standing link({});
  link.access.WatchParameter(1);
  link.Tick(3);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Position(), 0);
}

TEST(Sweep, ATableOfOneRecordWrapsAtOnce) {
  Standing link(PlainRows(1));
  link.access.WatchParameter(1);
  link.Tick(3);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Position(), 0);
}

TEST(Sweep, TheLastRecordOfTheFileIsNeverSent) {
  Standing link(PlainRows(3));
  link.access.WatchParameter(3);
  link.access.WriteParameter(3, 5);
  link.Tick(5);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(3).At(6), 134);
  link.access.WatchParameter(2);
  link.Tick();
  link.wire.Expect(kRead2);
}

TEST(Sweep, AFileOf418RecordsNeverSendsItsLastPasswordCopy) {
  Standing link(PlainRows(418, 0));
  link.access.WriteParameterPair(414, 418, 7);
  link.Tick(5);
  link.wire.Expect({128, 0, 1, 158, 7, 38});
  link.wire.ExpectNothing();
}

TEST(Sweep, AFileOf419RecordsSendsTheLastPasswordCopy) {
  Standing link(PlainRows(419, 0));
  link.access.WriteParameterPair(414, 418, 7);
  link.Tick(5);
  link.wire.Expect({128, 0, 1, 158, 7, 38});
  link.wire.Expect({128, 0, 1, 162, 7, 42});
  link.wire.ExpectNothing();
}

TEST(Sweep, AParameterBeyondTheFileCanBeWatchedWithoutHarm) {
  Standing link(PlainRows(3));
  link.access.WatchParameter(500);
  link.Tick(5);
  link.wire.ExpectNothing();
  EXPECT_TRUE(link.notices.empty());
  EXPECT_FALSE(link.access.IsParameterFresh(500, 0));
  EXPECT_EQ(link.access.ReadParameter(500, 0), 0);
}

TEST(Sweep, OneFrameGoesOutPerTick) {
  Standing link(PlainRows(3));
  link.access.WatchParameter(1);
  link.access.WatchParameter(2);
  link.Tick();
  link.wire.Expect(kRead1);
  link.wire.ExpectNothing();
  link.Tick();
  link.wire.Expect(kRead2);
  link.wire.ExpectNothing();
  link.Tick(5);
  link.wire.ExpectNothing();
}

TEST(Sweep, ARecordWithoutDividerIsReadOnce) {
  Standing link(PlainRows(2));
  link.access.WatchParameter(1);
  link.Tick(10);
  link.wire.Expect(kRead1);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(6), 5);
}

TEST(Sweep, Divider23WaitsTwoPassesThenComesEveryFourth) {
  Standing link(PlainRows(2, 1, 0x23));
  link.access.WatchParameter(1);
  link.Tick(2);
  link.wire.ExpectNothing();
  link.Tick();
  link.wire.Expect(kRead1);
  EXPECT_EQ(link.Record(1).At(4), 0x33);
  for (int i = 0; i < 3; ++i) {
    // The exchange leaves the sweep at the end of the table, so that each tick is a pass.
    link.Tick(3);
    link.wire.ExpectNothing();
    EXPECT_EQ(link.Record(1).At(4), 0x03);
    link.Tick();
    link.wire.Expect(kRead1);
  }
  EXPECT_EQ(link.Record(1).At(6), 7);
}

TEST(Sweep, Divider30WaitsThreePassesAndIsReadOnce) {
  Standing link(PlainRows(2, 1, 0x30));
  link.access.WatchParameter(1);
  link.Tick(3);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(4), 0);
  link.Tick();
  link.wire.Expect(kRead1);
  link.Tick(10);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(6), 5);
}

TEST(Sweep, AnUnwatchedParameterIsDueAtOnceWhenWatchedAgain) {
  Standing link(PlainRows(2, 1, 0x03));
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect(kRead1);
  link.access.UnwatchParameter(1);
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect(kRead1);
}

TEST(Sweep, AWriteWaitsForTheTurnOfItsDivider) {
  Standing link(PlainRows(2, 1, 0x22));
  link.access.WriteParameter(1, 300);
  link.Tick(2);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.Record(1).At(6), 134);
  link.Tick();
  link.wire.Expect({129, 0, 0, 1, 44, 1, 175});
}

TEST(Sweep, AFrameTakesThePendingMarkAndTheNextOneIsARead) {
  Standing link(PlainRows(2, 1, 0x01));
  link.access.WriteParameter(1, 300);
  link.Tick();
  link.wire.Expect({129, 0, 0, 1, 44, 1, 175});
  EXPECT_EQ(link.Record(1).At(6), 6);
  link.Tick(2);
  link.wire.Expect(kRead1);
}

TEST(Sweep, AMirrorFollowsOnItsOwnTurn) {
  Standing link(PlainRows(400));
  link.access.WriteParameterPair(25, 393, 300);
  link.Tick(2);
  link.wire.Expect({129, 0, 0, 25, 44, 1, 199});
  link.wire.Expect({129, 0, 1, 137, 44, 1, 56});
  EXPECT_EQ(link.BoardValue(393), (Bytes{44, 1}));
}

TEST(Sweep, AValueIsSentAsItStandsWhenItsTurnComes) {
  Standing link(PlainRows(2, 1, 0x22));
  link.access.WriteParameter(1, 5);
  link.Tick(2);
  link.access.WriteParameter(1, 300);
  link.Tick(1);
  link.wire.Expect({129, 0, 0, 1, 44, 1, 175});
  link.wire.ExpectNothing();
}

}  // namespace
}  // namespace sorvane::test
