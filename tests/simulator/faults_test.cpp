#include "simulator/faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/command_error.h"
#include "simulator/index_folder.h"
#include "simulator/reply.h"
#include "simulator/simulated_board.h"

namespace sorvane::simulator {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Reply, AReadIsAnsweredByTheValueAndItsSum) {
  EXPECT_THAT(ReadReply({44, 1}).bytes, ElementsAre(44, 1, 45));
  EXPECT_THAT(ReadReply({200, 100}).bytes, ElementsAre(200, 100, 44));
}

TEST(Reply, AWriteIsAnsweredByTwiceItsChecksum) {
  EXPECT_THAT(WriteReply(244).bytes, ElementsAre(232));
  EXPECT_THAT(WriteReply(200).bytes, ElementsAre(144));
  EXPECT_THAT(WriteReply(0).bytes, ElementsAre(0));
}

struct FaultWordsCase {
  const char* words;
  Fault fault;
  std::optional<int> count;
};

class FaultWordsTest : public testing::TestWithParam<FaultWordsCase> {};

TEST_P(FaultWordsTest, AreUnderstood) {
  const FaultOrder order = ParseFault(GetParam().words);
  EXPECT_EQ(order.fault, GetParam().fault);
  EXPECT_EQ(order.count, GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(All, FaultWordsTest,
                         testing::Values(FaultWordsCase{"none", Fault::kNone, {}},
                                         FaultWordsCase{"silent", Fault::kSilent, {}},
                                         FaultWordsCase{"silent 3", Fault::kSilent, 3},
                                         FaultWordsCase{"silent once", Fault::kSilent, 1},
                                         FaultWordsCase{"  wrong   checksum  4 ",
                                                        Fault::kWrongChecksum, 4},
                                         FaultWordsCase{"short reply", Fault::kShortReply, {}},
                                         FaultWordsCase{"extra byte 1", Fault::kExtraByte, 1},
                                         FaultWordsCase{"slow 2", Fault::kSlow, 2},
                                         FaultWordsCase{"late reply once", Fault::kLateReply, 1},
                                         FaultWordsCase{"refuses day 0", Fault::kRefusesDay0, {}},
                                         FaultWordsCase{"refuses day 0 5", Fault::kRefusesDay0, 5},
                                         FaultWordsCase{"unplugged", Fault::kUnplugged, {}}));

TEST(FaultWords, WhatIsNoFaultIsRefused) {
  for (const char* const words :
       {"", "silence", "silent 0", "silent -1", "silent 3 4", "silent three", "silent 99999999999",
        "slower", "wrong", "none 2", "unplugged 1", "refuses day 00"}) {
    EXPECT_THROW(ParseFault(words), CommandError) << words;
  }
}

TEST(FaultWords, AnOrderIsShownAsItIsTyped) {
  EXPECT_EQ(FaultWords({Fault::kSilent, 3}), "silent 3");
  EXPECT_EQ(FaultWords({Fault::kRefusesDay0, {}}), "refuses day 0");
  EXPECT_EQ(FaultWords({}), "none");
}

TEST(Faults, ACountIsUsedUpByRequests) {
  Faults faults;
  faults.Set({Fault::kSlow, 2});
  EXPECT_EQ(faults.HitRequest(false), Fault::kSlow);
  EXPECT_EQ(faults.HitRequest(false), Fault::kSlow);
  EXPECT_EQ(faults.HitRequest(false), Fault::kNone);
}

TEST(Faults, WithoutACountAFaultLastsUntilItIsLifted) {
  Faults faults;
  faults.Set({Fault::kSlow, {}});
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(faults.HitRequest(false), Fault::kSlow);
  faults.Set({});
  EXPECT_EQ(faults.HitRequest(false), Fault::kNone);
}

TEST(Faults, ARefusalOfDay0IsCountedByThatWriteAlone) {
  Faults faults;
  faults.Set({Fault::kRefusesDay0, 1});
  EXPECT_EQ(faults.HitRequest(false), Fault::kNone);
  EXPECT_EQ(faults.HitRequest(true), Fault::kRefusesDay0);
  EXPECT_EQ(faults.HitRequest(true), Fault::kNone);
}

// A board with a fault, and parameter 25 at 150.
class FaultyBoard : public testing::Test {
 protected:
  SimulatedBoard::Answer Serve(const char* fault, const Request& request) {
    board_.FaultState().Set(ParseFault(fault));
    return board_.Serve(request);
  }
  uint32_t Held(int parameter) const { return board_.Contents().Number(Parameter(parameter)); }

  IndexFolder folder_;
  SimulatedBoard board_{folder_.Path(), {}, {2024, 5, 3, 12, 30, 0}};
};

// A read of parameter 25 is 1, 32, 0, 25 and the sum 58; a write of 160 to it 129, 32, 0, 25, 160,
// 0 and the sum 346 - 256 = 90, so that its acknowledgement is 180.

TEST_F(FaultyBoard, WithoutAFaultAnswersAndObeys) {
  EXPECT_THAT(Serve("none", ReadOf(25)).reply.bytes, ElementsAre(150, 0, 150));
  const auto answer = Serve("none", WriteOf(25, {160, 0}));
  EXPECT_THAT(answer.reply.bytes, ElementsAre(180));
  EXPECT_EQ(answer.words, "write 25 = 160");
  EXPECT_EQ(Held(25), 160u);
}

TEST_F(FaultyBoard, SilentNeitherObeysNorAnswers) {
  const auto read = Serve("silent", ReadOf(25));
  EXPECT_THAT(read.reply.bytes, IsEmpty());
  EXPECT_EQ(read.words, "read 25 [silent]");
  const auto write = Serve("silent", WriteOf(25, {160, 0}));
  EXPECT_THAT(write.reply.bytes, IsEmpty());
  EXPECT_EQ(write.words, "write 25 = 160 [silent]");
  EXPECT_EQ(Held(25), 150u);
}

TEST_F(FaultyBoard, SilentOnceAnswersTheSecondRequest) {
  EXPECT_THAT(Serve("silent once", ReadOf(25)).reply.bytes, IsEmpty());
  EXPECT_THAT(board_.Serve(ReadOf(25)).reply.bytes, ElementsAre(150, 0, 150));
}

TEST_F(FaultyBoard, WrongChecksumSpoilsTheLastByteAlone) {
  const auto read = Serve("wrong checksum", ReadOf(25));
  EXPECT_THAT(read.reply.bytes, ElementsAre(150, 0, 151));
  EXPECT_EQ(read.words, "read 25 = 150 [wrong checksum]");
  EXPECT_THAT(Serve("wrong checksum", WriteOf(25, {160, 0})).reply.bytes, ElementsAre(181));
  EXPECT_EQ(Held(25), 160u);
}

TEST_F(FaultyBoard, ShortReplyLacksItsLastByte) {
  EXPECT_THAT(Serve("short reply", ReadOf(25)).reply.bytes, ElementsAre(150, 0));
  EXPECT_THAT(Serve("short reply", WriteOf(25, {160, 0})).reply.bytes, IsEmpty());
}

TEST_F(FaultyBoard, ExtraByteFollowsTheReply) {
  EXPECT_THAT(Serve("extra byte", ReadOf(25)).reply.bytes, ElementsAre(150, 0, 150, 0));
  EXPECT_THAT(Serve("extra byte", WriteOf(25, {160, 0})).reply.bytes, ElementsAre(180, 0));
}

TEST_F(FaultyBoard, SlowSpacesTheBytesOfTheReply) {
  const auto answer = Serve("slow", ReadOf(25));
  EXPECT_THAT(answer.reply.bytes, ElementsAre(150, 0, 150));
  EXPECT_EQ(answer.reply.spacing, Micros(milliseconds(20)));
}

TEST_F(FaultyBoard, LateReplyComesAfter1200Milliseconds) {
  const auto answer = Serve("late reply", ReadOf(25));
  EXPECT_THAT(answer.reply.bytes, ElementsAre(150, 0, 150));
  EXPECT_EQ(answer.reply.delay, Micros(milliseconds(1200)));
}

// The write is 128, 32, 0, 56, 0 and the sum 216, so that 432 - 256 = 176 would acknowledge it.
TEST_F(FaultyBoard, RefusesDay0KeepsTheDayAndAcknowledgesWrongly) {
  const auto answer = Serve("refuses day 0", WriteOf(56, {0}));
  EXPECT_THAT(answer.reply.bytes, ElementsAre(177));
  EXPECT_EQ(answer.words, "write 56 = 0 [refuses day 0]");
  EXPECT_EQ(Held(56), 3u);
}

TEST_F(FaultyBoard, RefusesDay0ObeysEveryOtherWrite) {
  EXPECT_THAT(Serve("refuses day 0", WriteOf(56, {4})).words, "write 56 = 4");
  EXPECT_EQ(Held(56), 4u);
  EXPECT_THAT(Serve("refuses day 0", WriteOf(57, {0})).words, "write 57 = 0");
  EXPECT_EQ(Held(57), 0u);
}

TEST_F(FaultyBoard, WithoutAFaultDay0IsTaken) {
  EXPECT_THAT(Serve("none", WriteOf(56, {0})).reply.bytes, ElementsAre(176));
  EXPECT_EQ(Held(56), 0u);
}

TEST_F(FaultyBoard, APlaceThatNoFileNamesIsNotAnswered) {
  const auto wrong_address = Serve("none", {false, {40, 0, 25}, 2, {}, 0});
  EXPECT_THAT(wrong_address.reply.bytes, IsEmpty());
  EXPECT_EQ(wrong_address.words, "no parameter: read 2 bytes at 40 0 25");
  EXPECT_THAT(Serve("none", {false, {32, 0, 25}, 1, {}, 0}).reply.bytes, IsEmpty());
}

TEST_F(FaultyBoard, ARequestThatReachesNothingUsesUpNoFault) {
  Serve("silent once", {false, {40, 0, 25}, 2, {}, 0});
  EXPECT_THAT(board_.Serve(ReadOf(25)).reply.bytes, IsEmpty());
}

}  // namespace
}  // namespace sorvane::simulator
