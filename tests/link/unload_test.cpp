#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

const uint8_t kAnswers[] = {9, 0, 0, 18, 53, 1, 5};

// The test speaks in the board's place, so that every timer of the clock is the connection's.
struct UnloadTest : ::testing::Test {
  UnloadTest() { link.board.SwitchOff(); }

  void Start() {
    link.Load();
    link.clock.Advance(0);
  }
  // Answers the first questions of a connection; what the last answer posts hasn't run yet.
  void ReplyTo(int questions) {
    Start();
    for (int i = 0; i < questions; ++i) {
      link.clock.Advance(0);
      link.board.Reply({kAnswers[i], kAnswers[i]});
    }
  }

  // Unloads; from then on nothing comes of the connection, whatever arrives or is answered.
  void UnloadAndExpectPeace() {
    const int loaded = link.loaded;
    const std::size_t boxes = link.dialogs.Shown().size();
    link.wire.Forget();
    link.ser.Unload();
    EXPECT_FALSE(link.ser.IsLoaded());
    EXPECT_FALSE(link.ser.State().Identifying);
    EXPECT_EQ(link.clock.Armed(), 0);
    EXPECT_FALSE(link.wire.PortOpen());
    link.board.Reply({9, 9});
    link.wire.RaiseEvent(kCommEventReceive);
    EXPECT_EQ(link.clock.Armed(), 0);
    link.clock.Advance(10000);
    for (const Answer answer : {Answer::kRetry, Answer::kCancel, Answer::kOk}) {
      if (!link.dialogs.Standing().empty()) link.dialogs.Answer(answer);
    }
    EXPECT_EQ(link.clock.Armed(), 0);
    link.clock.Advance(10000);
    EXPECT_EQ(link.dialogs.Shown().size(), boxes);
    EXPECT_EQ(link.loaded, loaded);
    EXPECT_EQ(link.ended, 0);
    EXPECT_FALSE(link.wire.PortOpen());
    link.wire.ExpectNothing();
  }

  // A connection is possible again.
  void ExpectToConnectAnew() {
    link.ser.ConnectAbandoned = false;
    link.wire.RefuseOpen(false);
    link.board.SwitchOn();
    link.Connect();
  }

  Link link{PlainRows(3)};
};

TEST_F(UnloadTest, WhatIsNotLoadedStaysAsItIs) {
  UnloadAndExpectPeace();
  EXPECT_EQ(link.wire.Closes(), 0);
}

TEST_F(UnloadTest, WhileOpening) {
  link.Load();
  UnloadAndExpectPeace();
  EXPECT_EQ(link.wire.OpenAttempts(), 0);
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileWaitingInEachOfTheSevenSteps) {
  for (int step = 0; step < 7; ++step) {
    SCOPED_TRACE(step);
    ReplyTo(step);
    link.clock.Advance(0);
    EXPECT_EQ(link.wire.Frames().size(), static_cast<std::size_t>(step + 1));
    link.clock.Advance(300);
    UnloadAndExpectPeace();
  }
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileTheNextOfTheSevenStepsIsPosted) {
  for (int step = 1; step <= 7; ++step) {
    SCOPED_TRACE(step);
    ReplyTo(step);
    EXPECT_EQ(link.wire.Frames().size(), static_cast<std::size_t>(step));
    UnloadAndExpectPeace();
  }
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileTheBoxOfTheSilentBoardStands) {
  Start();
  link.clock.Advance(1000);
  ASSERT_EQ(link.dialogs.Standing().size(), 1U);
  UnloadAndExpectPeace();
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileTheBoxOfTheSilentBoardStandsAndIsCancelledLater) {
  Start();
  link.clock.Advance(1000);
  link.ser.Unload();
  link.dialogs.Answer(Answer::kCancel);
  EXPECT_EQ(link.loaded, 0);
  EXPECT_FALSE(link.ser.ConnectAbandoned);
}

TEST_F(UnloadTest, WhileTheBoxOfThePortStands) {
  link.wire.RefuseOpen();
  Start();
  ASSERT_EQ(link.dialogs.Standing().size(), 1U);
  UnloadAndExpectPeace();
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileTheBoxOfTheWrongBoardStands) {
  ReplyTo(3);
  link.clock.Advance(0);
  for (const uint8_t value : {17, 53, 1, 5}) {
    link.board.Reply({value, value});
    link.clock.Advance(0);
  }
  ASSERT_EQ(link.dialogs.Standing().size(), 1U);
  UnloadAndExpectPeace();
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileTheBoxOfTheMissingFileStands) {
  link.folder.RemoveFile("W0309AA00.inx");
  ReplyTo(7);
  link.clock.Advance(0);
  ASSERT_EQ(link.dialogs.Standing().size(), 1U);
  UnloadAndExpectPeace();
}

TEST_F(UnloadTest, WhileTheFileIsAboutToBeLoaded) {
  std::unique_ptr<Timer> between;
  between = link.clock.Maker()(std::chrono::milliseconds(0), [&] {
    between->Disable();
    UnloadAndExpectPeace();
  });
  ReplyTo(7);
  // The last answer has posted the decision, which posts the load behind this timer.
  between->Enable();
  link.clock.Advance(0);
  EXPECT_EQ(link.tables.RecordCount(0), 18);
  EXPECT_EQ(link.loaded, 0);
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileItStands) {
  ReplyTo(7);
  link.clock.Advance(0);
  ASSERT_EQ(link.loaded, 1);
  link.clock.Advance(100);
  UnloadAndExpectPeace();
  EXPECT_EQ(link.wire.Closes(), 1);
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileAFrameIsInFlightTheFrameIsLost) {
  ReplyTo(7);
  link.clock.Advance(0);
  link.access.WatchParameter(1);
  link.Tick();
  EXPECT_EQ(link.wire.Frames().size(), 8U);
  UnloadAndExpectPeace();
  EXPECT_TRUE(link.notices.empty());
  EXPECT_FALSE(link.access.IsParameterFresh(1, 0));
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WhileAWriteIsInFlightTheWriteIsLost) {
  ReplyTo(7);
  link.clock.Advance(0);
  link.access.WriteParameter(1, 300);
  link.Tick();
  EXPECT_EQ(link.wire.Frames().size(), 8U);
  UnloadAndExpectPeace();
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, AfterAnAbandonedAttempt) {
  Start();
  link.clock.Advance(1000);
  link.dialogs.Answer(Answer::kCancel);
  EXPECT_EQ(link.loaded, 1);
  UnloadAndExpectPeace();
  ExpectToConnectAnew();
}

TEST_F(UnloadTest, WithinTheNoticeThatTheLoadHasEnded) {
  link.wire.RefuseOpen();
  link.ser.on_loaded = [&] {
    ++link.loaded;
    link.ser.Unload();
  };
  Start();
  link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(link.loaded, 1);
  UnloadAndExpectPeace();
}

}  // namespace
}  // namespace sorvane::test
