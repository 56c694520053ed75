#include "link/frm_ser.h"
#include "link/identification_fixture.h"

namespace sorvane::test {
namespace {

TEST_F(IdentificationTest, NothingHappensWithinTheCallThatLoads) {
  link.Load();
  EXPECT_EQ(link.wire.OpenAttempts(), 0);
  EXPECT_TRUE(link.ser.IsLoaded());
}

TEST_F(IdentificationTest, AsksSevenParametersInTheirOrderAndThenStands) {
  Start();
  ReplyTo(7);
  link.wire.ExpectNothing();
  link.dialogs.ExpectNone();
  EXPECT_EQ(link.loaded, 1);
  EXPECT_FALSE(link.ser.ConnectAbandoned);
  EXPECT_FALSE(State().Identifying);
  EXPECT_TRUE(State().LinkIdle);
  EXPECT_EQ(link.tables.RecordCount(0), 3);
}

TEST_F(IdentificationTest, TakesTheNumbersFromTheirParameters) {
  link.folder.WriteFile("W0309AA07.inx", SecondLevelBytes(PlainRows(5)));
  Start();
  for (const uint8_t value : {99, 7, 0, 18, 53, 1, 200}) Reply(value);
  EXPECT_EQ(link.tables.IndexRevision, 7);
  EXPECT_EQ(link.tables.IndexSoftware, 0);
  EXPECT_EQ(link.tables.IndexType, 309);
  EXPECT_EQ(link.ser.Told().BoardParameter18, 200);
  EXPECT_EQ(link.tables.RecordCount(0), 5);
  EXPECT_EQ(link.loaded, 1);
}

TEST_F(IdentificationTest, AnAnswerChangesItsOwnNumberOnly) {
  link.tables.IndexSoftware = 3;
  link.tables.IndexType = 4;
  Start();
  ReplyTo(2);
  EXPECT_EQ(link.tables.IndexSoftware, 3);
  link.wire.Expect(kQuestions[2]);
  Reply(0);
  link.wire.Expect(kQuestions[3]);
  Reply(18);
  EXPECT_EQ(link.tables.IndexSoftware, 0);
  EXPECT_EQ(link.tables.IndexType, 4);
  link.wire.Expect(kQuestions[4]);
  Reply(53);
  EXPECT_EQ(link.tables.IndexType, 53);
  Reply(1);
  EXPECT_EQ(link.tables.IndexType, 309);
  EXPECT_EQ(link.ser.Told().BoardParameter18, 0);
}

TEST_F(IdentificationTest, AsksAtTheWholeAddressThatTheFileGives) {
  std::vector<IndexRecord> rows = SystemRows();
  rows[0] = {3, 2, 0, 0, 1, {}};
  link.folder.WriteFile("W0309.inx", FirstLevelBytes(rows));
  Start();
  link.wire.Expect({0, 1, 2, 3, 6});
}

TEST_F(IdentificationTest, AnAnswerShowsThatABoardIsPresent) {
  Start();
  EXPECT_FALSE(link.tables.BoardPresent(0));
  Reply(1);
  EXPECT_TRUE(link.tables.BoardPresent(0));
}

TEST_F(IdentificationTest, NoNoticeGoesOutAndTheSweepStaysStill) {
  link.tables.BoardPresent(0) = true;
  link.access.WatchParameter(1);
  Start();
  ReplyTo(6);
  link.clock.Advance(500);
  EXPECT_TRUE(link.notices.empty());
  EXPECT_EQ(State().SweepPosition, 0);
  link.wire.Expect(kQuestions[6]);
  link.wire.ExpectNothing();
}

TEST_F(IdentificationTest, TheFirstTickComes40MillisecondsAfterTheEnd) {
  Start();
  ReplyTo(7);
  link.access.WatchParameter(1);
  link.clock.Advance(39);
  link.wire.ExpectNothing();
  link.clock.Advance(1);
  link.wire.Expect({1, 0, 0, 1, 2});
}

TEST_F(IdentificationTest, TheLimitOfTheWaitGoesOnTickingAndNobodyLooks) {
  Start();
  ReplyTo(7);
  EXPECT_FALSE(State().IdentifyTimeout);
  link.clock.Advance(10000);
  EXPECT_TRUE(State().IdentifyTimeout);
  link.wire.ExpectNothing();
  EXPECT_TRUE(link.dialogs.Shown().empty());
  EXPECT_EQ(link.loaded, 1);
}

TEST_F(IdentificationTest, TheEndStopsTheReplyTimeoutAndPutsTheErrorLampOut) {
  link.tables.ParameterTable(0, 0).At(4) = 2;
  Start();
  ReplyTo(6);
  // A bad answer to the last question, whose value counts when the limit of the wait comes.
  link.board.Reply({5, 6});
  link.clock.Advance(1500);
  EXPECT_EQ(link.lamps.Tag(4), 6);
  link.clock.Advance(500);
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.ser.Told().BoardParameter18, 5);
  EXPECT_EQ(link.lamps.Tag(4), 3);
  link.wire.Forget();
  const int closes = link.wire.Closes();
  link.clock.Advance(5000);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.wire.Closes(), closes);
  // The repeated question is still open, which doesn't keep the sweep from its work.
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.Expect({1, 0, 0, 1, 2});
}

TEST(IdentificationFrames, OneValueByteCountsWhateverTheCommandSays) {
  Link::Setup setup;
  setup.system[0].command = 3;
  Link link(setup);
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(0);
  link.wire.Expect({3, 240, 0, 1, 244});
  link.board.Reply({9, 9});
  link.clock.Advance(0);
  link.wire.Expect(kQuestions[1]);
}

TEST(IdentificationFrames, AWriteCommandWouldSendTheFirstAddressByte) {
  Link::Setup setup;
  setup.system[0].command = 128;
  Link link(setup);
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(0);
  link.wire.Expect({128, 240, 0, 1, 240, 97});
}

TEST(IdentificationFrames, AnIndexWithoutRecordIsAskedByFiveZerosIntoSilence) {
  Link::Setup setup;
  setup.system = SystemRows(12);
  Link link(setup);
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(0);
  link.board.Reply({9, 9});
  link.clock.Advance(1000);
  link.wire.Expect(kQuestions[0]);
  link.wire.Expect({0, 0, 0, 0, 0});
  link.wire.ExpectNothing();
  link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
}

}  // namespace
}  // namespace sorvane::test
