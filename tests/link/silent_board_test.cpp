#include "link/frm_ser.h"
#include "link/identification_fixture.h"

namespace sorvane::test {
namespace {

struct SilentBoardTest : IdentificationTest {};

TEST_F(SilentBoardTest, ASilentBoardIsNotReadyAfterOneSecond) {
  Start();
  link.clock.Advance(999);
  link.dialogs.ExpectNone();
  link.clock.Advance(1);
  ExpectNotReady();
  EXPECT_EQ(link.loaded, 0);
  EXPECT_EQ(link.wire.Closes(), 1);
}

TEST_F(SilentBoardTest, ARecordThatRepeatsFramesStretchesTheWaitToTwoSeconds) {
  link.tables.ParameterTable(0, 0).At(4) = 2;
  Start();
  link.wire.Expect(kQuestions[0]);
  link.clock.Advance(1999);
  link.wire.Expect(kQuestions[0]);
  link.wire.ExpectNothing();
  link.dialogs.ExpectNone();
  link.clock.Advance(1);
  ExpectNotReady();
}

TEST_F(SilentBoardTest, EveryAttemptHasTheFullLimit) {
  link.tables.ParameterTable(0, 0).At(4) = 2;
  Start();
  link.clock.Advance(1500);
  Reply(9);
  link.clock.Advance(1999);
  link.dialogs.ExpectNone();
  link.clock.Advance(1);
  ExpectNotReady();
}

TEST_F(SilentBoardTest, RetryAsksTheSameParameterAndKeepsWhatWasRead) {
  Start();
  ReplyTo(3);
  link.wire.Expect(kQuestions[3]);
  link.clock.Advance(1000);
  link.wire.ExpectNothing();
  link.dialogs.Answer(Answer::kRetry);
  link.dialogs.ExpectNone();
  link.wire.Expect(kQuestions[3]);
  Reply(18);
  link.wire.Expect(kQuestions[4]);
  Reply(53);
  Reply(1);
  Reply(5);
  EXPECT_EQ(link.loaded, 1);
  link.dialogs.ExpectNone();
}

TEST_F(SilentBoardTest, RetryMayBeChosenWithoutLimit) {
  Start();
  link.wire.Expect(kQuestions[0]);
  for (int i = 0; i < 20; ++i) {
    link.clock.Advance(1000);
    ExpectNotReady();
    link.dialogs.Answer(Answer::kRetry);
    link.wire.Expect(kQuestions[0]);
    link.wire.ExpectNothing();
  }
  EXPECT_EQ(link.loaded, 0);
}

TEST_F(SilentBoardTest, ARetryLetsAReplyTimeoutThatRunsGoOn) {
  link.tables.ParameterTable(0, 0).At(4) = 2;
  Start();
  link.clock.Advance(2500);
  link.wire.Forget();
  link.dialogs.Answer(Answer::kRetry);
  link.wire.Expect(kQuestions[0]);
  link.clock.Advance(499);
  link.wire.ExpectNothing();
  link.clock.Advance(1);
  link.wire.Expect(kQuestions[0]);
}

TEST_F(SilentBoardTest, CancelAbandonsTheConnection) {
  Start();
  ReplyTo(2);
  link.clock.Advance(1000);
  link.dialogs.Answer(Answer::kCancel);
  EXPECT_TRUE(link.ser.ConnectAbandoned);
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.ended, 0);
  link.wire.Forget();
  link.clock.Advance(10000);
  link.wire.ExpectNothing();
  link.dialogs.ExpectNone();
}

TEST_F(SilentBoardTest, AReplyBehindTheBoxChangesNothing) {
  Start();
  ReplyTo(1);
  link.clock.Advance(1000);
  link.wire.Expect(kQuestions[1]);
  Reply(7);
  link.clock.Advance(5000);
  ExpectNotReady();
  link.wire.ExpectNothing();
  link.dialogs.Answer(Answer::kRetry);
  link.wire.Expect(kQuestions[1]);
}

TEST_F(SilentBoardTest, AStrayReplyBeforeTheNextQuestionReopensTheOneThatWasAnswered) {
  Start();
  link.board.Reply({9, 9});
  link.board.Reply({1, 2});
  link.clock.Advance(0);
  link.wire.Expect(kQuestions[0]);
  link.wire.Expect(kQuestions[0]);
  link.wire.ExpectNothing();
  Reply(9);
  link.wire.Expect(kQuestions[1]);
}

TEST_F(SilentBoardTest, ARetryBeginsItsLimitAnew) {
  link.tables.ParameterTable(0, 0).At(4) = 2;
  Start();
  link.clock.Advance(2000);
  link.wire.Forget();
  link.dialogs.Answer(Answer::kRetry);
  EXPECT_FALSE(State().IdentifyTimeout);
  link.board.Reply({9, 9});
  link.board.Reply({1, 2});
  link.clock.Advance(0);
  link.wire.Expect(kQuestions[0]);
  link.wire.Expect(kQuestions[0]);
  link.wire.ExpectNothing();
}

TEST_F(SilentBoardTest, BadRepliesHaveFourRetriesWithinTheSameWait) {
  Start();
  for (int i = 0; i < 4; ++i) {
    link.wire.Expect(kQuestions[0]);
    link.board.Reply({1, 2});
  }
  link.wire.Expect(kQuestions[0]);
  link.dialogs.ExpectNone();
  Reply(1);
  ExpectNotReady();
  link.wire.ExpectNothing();
}

TEST_F(SilentBoardTest, AGoodReplyOnARetryIsTaken) {
  Start();
  link.board.Reply({1, 2});
  link.board.Reply({1, 2});
  Reply(1);
  EXPECT_EQ(State().RetryCount, 0);
  link.wire.Forget();
  link.dialogs.ExpectNone();
}

TEST_F(SilentBoardTest, WhatABadReplyLeftIsTakenWhenTheBoardFallsSilent) {
  Start();
  ReplyTo(1);
  link.board.Reply({0, 77});
  link.wire.Expect(kQuestions[1]);
  link.wire.Expect(kQuestions[1]);
  link.clock.Advance(1000);
  link.dialogs.ExpectNone();
  link.wire.Expect(kQuestions[2]);
}

TEST_F(SilentBoardTest, ARetryForgetsWhatABadReplyLeft) {
  Start();
  for (int i = 0; i < 5; ++i) link.board.Reply({1, 2});
  link.clock.Advance(0);
  link.dialogs.Answer(Answer::kRetry);
  EXPECT_EQ(State().ReplyValue, Bytes{});
  link.clock.Advance(1000);
  ExpectNotReady();
}

}  // namespace
}  // namespace sorvane::test
