#include "session/exchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/session_rig.h"

namespace sorvane::test {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::Optional;

// Two bytes at 0, 18, 52.
constexpr Address kPrice{.command = 1, .address1 = 0, .address2 = 18, .address3 = 52};
const Bytes kReadPrice = {1, 0, 18, 52, 71};

struct Exchanges : testing::Test, Line {
  std::vector<TryOutcome> tries;

  Exchanges() {
    board.Set(ScriptedBoard::Address(0, 18, 52), {44, 1});
    exchange.on_try = [this](const Bytes&, const Bytes&, TryOutcome outcome) {
      tries.push_back(outcome);
    };
  }
};

TEST_F(Exchanges, AReadGivesTheValueWithoutItsSum) {
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  wire.Expect(kReadPrice);
  wire.ExpectNothing();
}

TEST_F(Exchanges, AReadTakesNoLongerThanItsAnswer) {
  board.SetDelay(5);
  exchange.Read(kPrice, 2);
  EXPECT_EQ(clock.Now(), milliseconds(5));
}

TEST_F(Exchanges, AnAnswerMayComeByteByByte) {
  board.AnswerByteByByte(true);
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_THAT(tries, ElementsAre(TryOutcome::kGood));
}

TEST_F(Exchanges, AWriteIsAcknowledgedByOneByte) {
  EXPECT_TRUE(exchange.Write(kPrice, {44, 1}));
  wire.Expect({129, 0, 18, 52, 44, 1, 244});
  wire.ExpectNothing();
}

TEST_F(Exchanges, AWrongSumIsAskedForAgain) {
  board.SpoilChecksum(2);
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_THAT(tries,
              ElementsAre(TryOutcome::kWrongAnswer, TryOutcome::kWrongAnswer, TryOutcome::kGood));
}

TEST_F(Exchanges, AThirdWrongSumIsTheEnd) {
  board.SpoilChecksum(3);
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_EQ(wire.Frames().size(), 3U);
}

TEST_F(Exchanges, AnswersWithAByteTooManyAreWrong) {
  board.AddByte(3);
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_EQ(tries.front(), TryOutcome::kWrongAnswer);
}

TEST_F(Exchanges, ASilentBoardIsAskedThreeTimesASecondEach) {
  board.StaySilent(3);
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_EQ(wire.Frames().size(), 3U);
  // A second for each, and half a second of silence before each repetition.
  EXPECT_EQ(clock.Now(), milliseconds(4000));
}

TEST_F(Exchanges, ACutAnswerIsSilence) {
  board.CutReply(1);
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_THAT(tries, ElementsAre(TryOutcome::kSilent, TryOutcome::kGood));
}

TEST_F(Exchanges, AnAnswerThatComesLateIsNotTakenForTheNextOne) {
  const Address other{.command = 1, .address1 = 0, .address2 = 18, .address3 = 54};
  board.Set(ScriptedBoard::Address(0, 18, 54), {7, 0});
  board.SetDelay(1200);
  // The delay is over with the first try.
  exchange.on_try = [this](const Bytes&, const Bytes&, TryOutcome) { board.SetDelay(5); };
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_THAT(exchange.Read(other, 2), Optional(ElementsAre(7, 0)));
}

TEST_F(Exchanges, WhatNobodyAskedForIsThrownAway) {
  wire.Deliver({1, 2, 3});
  EXPECT_THAT(exchange.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_THAT(tries, ElementsAre(TryOutcome::kGood));
}

TEST_F(Exchanges, ALineThatNeverFallsSilentIsWaitedForTwentyTimesAtMost) {
  int waits = 0;
  Exchange busy(wire, [&](milliseconds, const std::function<bool()>& done) {
    ++waits;
    wire.Deliver({0, 0, 0, 0, 0});
    return done();
  });
  EXPECT_EQ(busy.Read(kPrice, 2), std::nullopt);
  EXPECT_EQ(waits, 3 + 2 * 20);
}

TEST_F(Exchanges, WhatSuchALineSaidLastIsNoPartOfTheNextAnswer) {
  int waits = 0;
  Exchange busy(wire, [&](milliseconds, const std::function<bool()>& done) {
    wire.Deliver(++waits == 22 ? Bytes{44, 1, 45} : Bytes{0, 0, 0, 0, 0});
    return done();
  });
  EXPECT_THAT(busy.Read(kPrice, 2), Optional(ElementsAre(44, 1)));
  EXPECT_EQ(waits, 22) << "one for each answer, twenty between them";
}

TEST_F(Exchanges, AVanishedDeviceEndsAllTries) {
  wire.Vanish();
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_THAT(tries, ElementsAre(TryOutcome::kLost));
  EXPECT_TRUE(exchange.IsLost());
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_FALSE(exchange.Write(kPrice, {1, 0}));
  EXPECT_EQ(tries.size(), 1U);
}

TEST_F(Exchanges, ARefusedFrameIsALostLine) {
  wire.FailNextOutput();
  EXPECT_EQ(exchange.Read(kPrice, 2), std::nullopt);
  EXPECT_TRUE(exchange.IsLost());
}

TEST_F(Exchanges, AWriteWithoutAnswerIsRepeated) {
  board.StaySilent(2);
  EXPECT_TRUE(exchange.Write(kPrice, {5, 0}));
  EXPECT_EQ(wire.Frames().size(), 3U);
  EXPECT_THAT(board.Get(ScriptedBoard::Address(0, 18, 52)), ElementsAre(5, 0));
}

TEST_F(Exchanges, EachTryIsTold) {
  Bytes sent;
  Bytes received;
  exchange.on_try = [&](const Bytes& out, const Bytes& in, TryOutcome) {
    sent = out;
    received = in;
  };
  exchange.Read(kPrice, 2);
  EXPECT_EQ(sent, kReadPrice);
  EXPECT_THAT(received, ElementsAre(44, 1, 45));
}

}  // namespace
}  // namespace sorvane::test
