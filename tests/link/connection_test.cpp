#include <gtest/gtest.h>

#include "board/errors.h"
#include "link/frm_ser.h"
#include "support/link_fixture.h"
#include "support/scarce_memory.h"

namespace sorvane::test {
namespace {

// A connection whose board answers everything.
struct ConnectionTest : ::testing::Test {
  void Play() {
    link.Load();
    link.clock.Advance(100);
  }
  // This box stands with one button, and the program ends by it.
  void ExpectTheEnd(const std::string& text, const std::string& title) {
    link.dialogs.Expect(text, title, 16);
    EXPECT_EQ(link.ended, 0);
    link.dialogs.Answer(Answer::kOk);
    EXPECT_EQ(link.ended, 1);
    EXPECT_EQ(link.loaded, 0);
    EXPECT_EQ(link.dialogs.Shown().size(), 1U);
  }

  Link link{PlainRows(3)};
};

TEST_F(ConnectionTest, APortThatCantBeOpenedIsErrorCom) {
  link.wire.RefuseOpen();
  Play();
  link.dialogs.Expect("Error com", "ERROR ", 16);
  EXPECT_EQ(link.loaded, 0);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_TRUE(link.ser.ConnectAbandoned);
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.ended, 0);
  link.clock.Advance(10000);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.wire.OpenAttempts(), 1);
  EXPECT_EQ(link.dialogs.Shown().size(), 1U);
}

TEST_F(ConnectionTest, EachLoadOpensPortNumberOne) {
  for (int loads = 1; loads <= 4; ++loads) {
    link.ser.Load();
    link.clock.Advance(100);
    EXPECT_TRUE(link.wire.PortOpen());
    link.ser.Unload();
  }
  EXPECT_EQ(link.loaded, 4);
}

TEST_F(ConnectionTest, AnOpenPortIsTakenAsItIs) {
  link.wire.SetCommPort(1);
  link.wire.Open();
  Play();
  EXPECT_EQ(link.wire.OpenAttempts(), 1);
  EXPECT_EQ(link.loaded, 1);
}

TEST_F(ConnectionTest, LoadingALoadedConnectionDoesNothing) {
  Play();
  link.wire.Forget();
  Play();
  link.wire.ExpectNothing();
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.wire.OpenAttempts(), 1);
}

TEST_F(ConnectionTest, AWrongBoardNumberIsNotCompatible) {
  link.SetSystem(12, 17);
  Play();
  EXPECT_EQ(link.wire.Frames().size(), 7U);
  ExpectTheEnd("Board\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, AWrongLowByteOfTheTypeIsNotCompatible) {
  link.SetSystem(13, 54);
  Play();
  ExpectTheEnd("Board Type\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, AWrongHighByteOfTheTypeIsNotCompatible) {
  link.SetSystem(14, 0);
  Play();
  ExpectTheEnd("Board Type\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, AnotherSoftwareIsNotCompatibleAlthoughItsFileExists) {
  link.folder.WriteFile("W0309AB00.inx", SecondLevelBytes(PlainRows(3)));
  link.SetSystem(11, 1);
  Play();
  ExpectTheEnd("Board Software\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, OfANumberAndATypeThatAreWrongTheTypeIsTold) {
  link.SetSystem(12, 17);
  link.SetSystem(13, 54);
  Play();
  ExpectTheEnd("Board Type\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, OfThreeThatAreWrongTheSoftwareIsTold) {
  link.SetSystem(11, 1);
  link.SetSystem(12, 17);
  link.SetSystem(13, 54);
  Play();
  ExpectTheEnd("Board Software\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, Parameter18MayHaveAnyValue) {
  link.SetSystem(18, 255);
  Play();
  EXPECT_EQ(link.ser.Told().BoardParameter18, 255);
  EXPECT_EQ(link.loaded, 1);
}

TEST_F(ConnectionTest, TheHighestTypeThatFitsIsJustAnotherType) {
  link.SetSystem(13, 255);
  link.SetSystem(14, 127);
  Play();
  EXPECT_EQ(link.tables.IndexType, 32767);
  ExpectTheEnd("Board Type\nNot Compatible", "ERROR");
}

TEST_F(ConnectionTest, ATypeThatDoesntFitEndsInTheBoxOfTheFiles) {
  link.SetSystem(14, 128);
  Play();
  EXPECT_EQ(link.wire.Frames().size(), 6U);
  ExpectTheEnd(" not found !", "ERROR");
}

TEST_F(ConnectionTest, ARevisionWithoutAFileIsNamed) {
  link.SetSystem(17, 7);
  Play();
  ExpectTheEnd("W0309AA07.inx not found !", "ERROR");
}

TEST_F(ConnectionTest, AnyRevisionWithAFileIsWelcome) {
  link.folder.WriteFile("W0309AA55.inx", SecondLevelBytes(PlainRows(8)));
  link.SetSystem(17, 255);
  Play();
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.tables.RecordCount(0), 8);
}

TEST_F(ConnectionTest, AMissingFirstLevelFileHasNoName) {
  link.folder.RemoveFile("W0309.inx");
  Play();
  link.wire.ExpectNothing();
  EXPECT_TRUE(link.wire.PortOpen());
  ExpectTheEnd(" not found !", "ERROR");
}

TEST_F(ConnectionTest, AFirstLevelFileThatIsTooLongHasNoName) {
  link.folder.WriteFile("W0309.inx", FirstLevelBytes(SystemRows(21)));
  Play();
  ExpectTheEnd(" not found !", "ERROR");
}

TEST_F(ConnectionTest, ASecondLevelFileThatIsTooLongIsNamed) {
  link.folder.WriteFile("W0309AA00.inx", Bytes(32768 * 9, 0));
  Play();
  ExpectTheEnd("W0309AA00.inx not found !", "ERROR");
}

TEST_F(ConnectionTest, ASecondLevelFileThatMemoryDoesntHoldIsNamed) {
  const Bytes longest(32767 * 9, 0);
  link.folder.WriteFile("W0309AA00.inx", longest);
  const ScarceMemory memory(longest.size() - 1);
  Play();
  ExpectTheEnd("W0309AA00.inx not found !", "ERROR");
}

TEST_F(ConnectionTest, AFirstLevelFileThatMemoryDoesntHoldHasNoName) {
  const Bytes long_one(100000, 0);
  link.folder.WriteFile("W0309.inx", long_one);
  const ScarceMemory memory(long_one.size() - 1);
  Play();
  ExpectTheEnd(" not found !", "ERROR");
}

TEST_F(ConnectionTest, ANameFromAnEarlierConnectionIsForgotten) {
  link.Connect();
  link.ser.Unload();
  link.loaded = 0;
  link.folder.RemoveFile("W0309.inx");
  Play();
  ExpectTheEnd(" not found !", "ERROR");
}

TEST_F(ConnectionTest, AnEndThatNobodyAnswersRunsNothingMore) {
  link.SetSystem(12, 17);
  Play();
  link.wire.Forget();
  link.clock.Advance(10000);
  link.wire.ExpectNothing();
  EXPECT_EQ(link.dialogs.Shown().size(), 1U);
  EXPECT_EQ(link.ended, 0);
}

TEST_F(ConnectionTest, ANewConnectionFillsTheTableAnewAndGoesOnFromThePosition) {
  link.Connect();
  link.access.WatchParameter(1);
  link.clock.Advance(45);
  EXPECT_EQ(link.ser.State().SweepPosition, 2);
  link.access.WriteParameter(2, 5);
  link.ser.Unload();
  link.Connect();
  EXPECT_EQ(link.ser.State().SweepPosition, 2);
  EXPECT_EQ(link.Record(1).At(5), 0);
  EXPECT_EQ(link.Record(1).At(6), 0);
  EXPECT_EQ(link.Record(2).At(6), 0);
  EXPECT_EQ(link.Value(2), (Bytes{0, 0}));
  link.Tick(3);
  link.wire.ExpectNothing();
}

TEST_F(ConnectionTest, ANewConnectionStartsItsCountOfBadRepliesAnew) {
  link.Connect();
  link.board.SwitchOff();
  link.access.WatchParameter(1);
  link.Tick();
  for (int i = 0; i < 4; ++i) link.board.Reply({1, 0, 9});
  EXPECT_EQ(link.ser.State().RetryCount, 4);
  link.ser.Unload();
  link.board.SwitchOn();
  link.Connect();
}

TEST_F(ConnectionTest, TheSweepPositionOfTheLastConnectionDecidesOnTimeoutsOfTheNext) {
  link.Connect();
  link.access.WatchParameter(1);
  link.clock.Advance(45);
  link.Record(2).At(4) = 0x22;
  link.ser.Unload();
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(1999);
  EXPECT_EQ(link.wire.Frames().size(), 3U);
  link.dialogs.ExpectNone();
  link.clock.Advance(1);
  link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
}

}  // namespace
}  // namespace sorvane::test
