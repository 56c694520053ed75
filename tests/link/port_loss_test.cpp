#include <gtest/gtest.h>

#include "board/errors.h"
#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const Bytes kRead = {1, 0, 0, 1, 2};
const Bytes kFirstQuestion = {0, 240, 0, 1, 241};

struct PortLossTest : ::testing::Test {
  void Watch() {
    link.access.WatchParameter(1);
    link.Tick();
    link.wire.Expect(kRead);
  }

  Link link{PlainRows(3)};
};

TEST_F(PortLossTest, OnceConnectedAReopenThatFailsIsSilentAndEachTimeoutTriesAgain) {
  link.Connect();
  link.board.SwitchOff();
  Watch();
  link.wire.RefuseOpen();
  const int attempts = link.wire.OpenAttempts();
  for (int i = 1; i <= 10; ++i) {
    link.clock.Advance(1000);
    EXPECT_EQ(link.wire.OpenAttempts(), attempts + i);
    EXPECT_FALSE(link.wire.PortOpen());
    EXPECT_EQ(link.lamps.Tag(4), 6);
  }
  link.dialogs.ExpectNone();
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.ended, 0);
}

TEST_F(PortLossTest, APortThatComesBackIsUsedAgain) {
  link.Connect();
  link.SetBoardNumber(1, 300);
  link.wire.Vanish();
  Watch();
  link.clock.Advance(3500);
  EXPECT_FALSE(link.wire.PortOpen());
  EXPECT_TRUE(link.notices.empty());
  link.wire.ComeBack();
  link.clock.Advance(1500);
  EXPECT_TRUE(link.wire.PortOpen());
  ASSERT_EQ(link.notices.size(), 1U);
  EXPECT_EQ(link.notices[0].Number(), 300);
  EXPECT_TRUE(link.dialogs.Shown().empty());
}

TEST_F(PortLossTest, ARepeatingDividerGoesOnTryingToo) {
  link.Connect();
  link.wire.Vanish();
  Watch();
  link.Record(1).At(4) = 0x22;
  link.clock.Advance(3500);
  EXPECT_TRUE(link.notices.empty());
  link.wire.ComeBack();
  link.clock.Advance(600);
  EXPECT_EQ(link.notices.size(), 1U);
}

TEST_F(PortLossTest, OnceConnectedAnOutputThatFailsIsSilentAndTimesOut) {
  link.Connect();
  link.wire.FailNextOutput();
  link.access.WatchParameter(1);
  link.Tick();
  link.wire.ExpectNothing();
  EXPECT_FALSE(link.ser.State().LinkIdle);
  link.clock.Advance(1000);
  link.wire.Expect(kRead);
  link.dialogs.ExpectNone();
}

TEST_F(PortLossTest, DuringIdentificationAReopenThatFailsIsErrorCom) {
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(0);
  link.wire.Expect(kFirstQuestion);
  link.wire.FailNextOpen();
  link.clock.Advance(1000);
  link.dialogs.Expect("Error com", "ERROR ", 16);
  EXPECT_EQ(link.loaded, 0);
  link.clock.Advance(10000);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_TRUE(link.ser.ConnectAbandoned);
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.dialogs.Shown().size(), 1U);
  link.wire.ExpectNothing();
}

TEST_F(PortLossTest, OnlyConnectChoosesThePort) {
  link.Connect();
  EXPECT_EQ(link.wire.Choices(), 1);
  link.wire.Vanish();
  Watch();
  link.clock.Advance(2500);
  link.wire.ComeBack();
  link.clock.Advance(5000);
  EXPECT_EQ(link.wire.Choices(), 1);
  link.ser.Unload();
  link.Connect();
  EXPECT_EQ(link.wire.Choices(), 2);
}

TEST_F(PortLossTest, RetryAsksAtOnceWhenThePortIsBack) {
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(1000);
  link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  link.wire.Vanish();
  link.wire.ComeBack();
  link.board.SwitchOn();
  link.wire.Forget();
  link.dialogs.Answer(Answer::kRetry);
  link.wire.Expect(kFirstQuestion);
  link.clock.Advance(100);
  EXPECT_EQ(link.loaded, 1);
  EXPECT_FALSE(link.ser.ConnectAbandoned);
  link.dialogs.ExpectNone();
}

TEST_F(PortLossTest, RetryAsksAtOnceWhenThePortIsBackAfterTheProgramHasGivenItUp) {
  // With this divider the frame is repeated behind the box, and the port opened anew each time.
  link.tables.ParameterTable(0, 0).At(4) = 2;
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(2000);
  link.wire.Vanish();
  link.clock.Advance(5000);
  EXPECT_FALSE(link.wire.PortOpen());
  link.wire.ComeBack();
  link.wire.Forget();
  link.dialogs.Answer(Answer::kRetry);
  link.wire.Expect(kFirstQuestion);
  EXPECT_EQ(link.dialogs.Shown().size(), 1U);
}

TEST_F(PortLossTest, RetryWithoutThePortIsErrorCom) {
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(1000);
  link.wire.Vanish();
  link.wire.Forget();
  link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  link.dialogs.Answer(Answer::kRetry);
  link.dialogs.Expect("Error com", "ERROR ", 16);
  link.wire.ExpectNothing();
  link.dialogs.Answer(Answer::kOk);
  EXPECT_TRUE(link.ser.ConnectAbandoned);
}

TEST_F(PortLossTest, APortLostBehindTheBoxOfASilentBoardIsToldAfterRetry) {
  // With this divider the frame is repeated at 1000 and at 2000 ms, and again behind the box.
  link.tables.ParameterTable(0, 0).At(4) = 2;
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(2000);
  link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  link.wire.Vanish();
  link.clock.Advance(5000);
  EXPECT_FALSE(link.wire.PortOpen());
  EXPECT_EQ(link.dialogs.Shown().size(), 1U);
  link.dialogs.Answer(Answer::kRetry);
  link.dialogs.Expect("Error com", "ERROR ", 16);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_TRUE(link.ser.ConnectAbandoned);
  EXPECT_EQ(link.loaded, 1);
}

TEST_F(PortLossTest, AFirstQuestionThatThePortRefusesEndsTheProgram) {
  link.wire.FailNextOutput();
  link.Load();
  link.clock.Advance(0);
  link.dialogs.Expect(" not found !", "ERROR", 16);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(link.ended, 1);
}

TEST_F(PortLossTest, ARetryThatThePortRefusesEndsTheProgram) {
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(1000);
  link.wire.FailNextOutput();
  link.dialogs.Answer(Answer::kRetry);
  link.dialogs.Expect(" not found !", "ERROR", 16);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(link.ended, 1);
}

TEST_F(PortLossTest, ARepeatedQuestionThatThePortRefusesIsAnErrorNobodyHandles) {
  link.board.SwitchOff();
  link.Load();
  link.clock.Advance(0);
  link.wire.FailNextOutput();
  EXPECT_THROW(link.board.Reply({1, 2}), RuntimeError);
}

}  // namespace
}  // namespace sorvane::test
