#include "support/scripted_board.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "board/errors.h"

namespace sorvane::test {
namespace {

struct ScriptedBoardTest : ::testing::Test {
  ScriptedBoardTest() {
    port.SetCommPort(1);
    port.Open();
    port.on_comm = [this](int) { ++events; };
    board.Set(ScriptedBoard::Address(0, 18, 52), {44, 1});
  }

  Bytes Ask(const Bytes& frame) {
    port.Output(frame);
    clock.Advance(5);
    return port.Input();
  }

  const Bytes read = {1, 0, 18, 52, 71};
  const Bytes write = {129, 0, 18, 52, 44, 2, 245};
  VirtualClock clock;
  MemoryPort port;
  ScriptedBoard board{port, clock};
  int events = 0;
};

TEST_F(ScriptedBoardTest, AnswersAReadAfterItsDelay) {
  port.Output(read);
  clock.Advance(4);
  EXPECT_EQ(port.InBufferCount(), 0U);
  clock.Advance(1);
  EXPECT_EQ(port.Input(), (Bytes{44, 1, 45}));
  EXPECT_EQ(events, 1);
}

TEST_F(ScriptedBoardTest, AnswersAWriteByTwiceItsChecksumAndHoldsTheValue) {
  EXPECT_EQ(Ask(write), (Bytes{234}));
  EXPECT_EQ(board.Get(ScriptedBoard::Address(0, 18, 52)), (Bytes{44, 2}));
  EXPECT_EQ(Ask(read), (Bytes{44, 2, 46}));
}

TEST_F(ScriptedBoardTest, EveryFaultHitsAsManyFramesAsSaid) {
  board.StaySilent(1);
  board.SpoilChecksum(1);
  board.CutReply(1);
  board.AddByte(1);
  EXPECT_EQ(Ask(read), (Bytes{}));
  EXPECT_EQ(Ask(read), (Bytes{44, 1, 46}));
  EXPECT_EQ(Ask(read), (Bytes{44, 1}));
  EXPECT_EQ(Ask(read), (Bytes{44, 1, 45, 0}));
  EXPECT_EQ(Ask(read), (Bytes{44, 1, 45}));
  EXPECT_EQ(board.Reads(), 5);
}

TEST_F(ScriptedBoardTest, BytesCanArriveOneByOne) {
  board.AnswerByteByByte(true);
  EXPECT_EQ(Ask(read), (Bytes{44, 1, 45}));
  EXPECT_EQ(events, 3);
}

TEST_F(ScriptedBoardTest, AFrameOfAWrongSumFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(port.Output({1, 0, 18, 52, 70}), "wrong length or sum");
}

TEST_F(ScriptedBoardTest, AnotherPortThanNumberOneFailsTheTest) {
  port.Close();
  port.SetCommPort(2);
  EXPECT_NONFATAL_FAILURE(port.Open(), "another port than number 1");
}

TEST_F(ScriptedBoardTest, AVanishedPortSwallowsFramesAndCantBeOpenedAgain) {
  port.Vanish();
  EXPECT_EQ(Ask(read), (Bytes{}));
  EXPECT_TRUE(port.PortOpen());
  port.Close();
  EXPECT_THROW(port.Open(), RuntimeError);
  port.ComeBack();
  port.Open();
  EXPECT_EQ(Ask(read), (Bytes{44, 1, 45}));
}

}  // namespace
}  // namespace sorvane::test
