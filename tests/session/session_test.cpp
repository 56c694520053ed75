#include "session/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "session/session_rig.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

struct Identifying : testing::Test, Conversation {};

TEST_F(Identifying, TheBoardIsAskedForSevenSystemParametersAndItsFileIsLoaded) {
  EXPECT_EQ(session.Identify(), Identified::kServed);
  for (const uint8_t k : {1, 17, 11, 12, 13, 14, 18}) {
    wire.Expect({0, 240, 0, k, static_cast<uint8_t>(240 + k)});
  }
  wire.ExpectNothing();
  EXPECT_EQ(session.IndexName(), "W0309AA00.inx");
  EXPECT_EQ(session.Type(), 309);
  EXPECT_EQ(session.Software(), 0);
  EXPECT_EQ(session.Revision(), 0);
  EXPECT_THAT(session.Refusal(), IsEmpty());
}

TEST_F(Identifying, TheRevisionNamesTheFile) {
  SetSystem(17, 7);
  folder.WriteFile("W0309AA07.inx", SecondLevelBytes(PlainRows(3)));
  EXPECT_EQ(session.Identify(), Identified::kServed);
  EXPECT_EQ(session.IndexName(), "W0309AA07.inx");
  EXPECT_EQ(session.Revision(), 7);
  EXPECT_EQ(session.SizeOf(3), 2);
  EXPECT_EQ(session.SizeOf(4), 0);
}

TEST_F(Identifying, ABoardOfAnotherNumberIsRefused) {
  SetSystem(12, 17);
  EXPECT_EQ(session.Identify(), Identified::kRefused);
  EXPECT_EQ(session.Refusal(), "Board\nNot Compatible");
}

TEST_F(Identifying, ABoardOfAnotherTypeIsRefused) {
  SetSystem(13, 54);
  EXPECT_EQ(session.Identify(), Identified::kRefused);
  EXPECT_EQ(session.Refusal(), "Board Type\nNot Compatible");
}

TEST_F(Identifying, ATypeThatNoVariableHoldsIsAnotherType) {
  SetSystem(14, 128);
  EXPECT_EQ(session.Identify(), Identified::kRefused);
  EXPECT_EQ(session.Refusal(), "Board Type\nNot Compatible");
}

TEST_F(Identifying, ABoardOfOtherSoftwareIsRefused) {
  SetSystem(11, 1);
  EXPECT_EQ(session.Identify(), Identified::kRefused);
  EXPECT_EQ(session.Refusal(), "Board Software\nNot Compatible");
}

TEST_F(Identifying, ASilentBoardGivesNoAnswer) {
  board.SwitchOff();
  EXPECT_EQ(session.Identify(), Identified::kNoAnswer);
  EXPECT_EQ(wire.Frames().size(), 3U);
}

TEST_F(Identifying, AMissingFileIsNamed) {
  folder.RemoveFile("W0309AA00.inx");
  EXPECT_EQ(session.Identify(), Identified::kNoIndexFile);
  EXPECT_EQ(session.IndexName(), "W0309AA00.inx");
}

TEST_F(Identifying, WithoutTheFirstLevelFileNothingIsAsked) {
  folder.RemoveFile("W0309.inx");
  EXPECT_EQ(session.Identify(), Identified::kNoIndexFile);
  EXPECT_EQ(session.IndexName(), "W0309.inx");
  wire.ExpectNothing();
}

struct Conversing : testing::Test, Conversation {
  Conversing() {
    session.Identify();
    wire.Forget();
    board.Set(Place(3), {1, 0});
    board.Set(Place(5), {1, 0});
  }
};

TEST_F(Conversing, ParametersCountFromOneToTheLastOfTheFile) {
  EXPECT_EQ(session.SizeOf(0), 0);
  EXPECT_EQ(session.SizeOf(-1), 0);
  EXPECT_EQ(session.SizeOf(1), 2);
  EXPECT_EQ(session.SizeOf(10), 2);
  EXPECT_EQ(session.SizeOf(11), 0);
  EXPECT_EQ(session.SizeOf(40000), 0);
}

TEST_F(Conversing, AParameterIsRead) { EXPECT_THAT(session.Read(3), Optional(ElementsAre(1, 0))); }

TEST_F(Conversing, AWriteGoesToBothPlacesAndIsReadBack) {
  EXPECT_EQ(session.Write(3, 5, {44, 1}).proof, Proof::kConfirmed);
  wire.Expect({129, 0, 0, 3, 44, 1, 177});
  wire.Expect({129, 0, 0, 5, 44, 1, 179});
  wire.Expect({1, 0, 0, 3, 4});
  wire.ExpectNothing();
}

TEST_F(Conversing, WithoutASecondCopyOneIsWritten) {
  EXPECT_EQ(session.Write(3, 0, {44, 1}).proof, Proof::kConfirmed);
  wire.Expect({129, 0, 0, 3, 44, 1, 177});
  wire.Expect({1, 0, 0, 3, 4});
  wire.ExpectNothing();
}

TEST_F(Conversing, ASecondCopyThatIsNotAcknowledgedIsTriedThreeTimesAndToldOf) {
  int frames = 0;
  exchange.on_try = [&](const Bytes&, const Bytes&, TryOutcome) {
    ++frames;
    if (frames == 1) board.StaySilent(3);
  };
  EXPECT_EQ(session.Write(3, 5, {44, 1}).proof, Proof::kMirrorUnsure);
  EXPECT_EQ(frames, 5);
  EXPECT_THAT(board.Get(Place(3)), ElementsAre(44, 1));
  EXPECT_THAT(board.Get(Place(5)), ElementsAre(1, 0));
}

TEST_F(Conversing, AValueThatDoesNotStandIsToldOf) {
  exchange.on_try = [&](const Bytes& sent, const Bytes&, TryOutcome) {
    if (sent.front() == 129) board.Set(Place(3), {9, 0});
  };
  const WriteOutcome outcome = session.Write(3, 0, {44, 1});
  EXPECT_EQ(outcome.proof, Proof::kDiffers);
  EXPECT_THAT(outcome.read_back, ElementsAre(9, 0));
}

TEST_F(Conversing, AWriteWhoseAcknowledgementIsSpoiltIsProvenByReadingBack) {
  board.SpoilChecksum(3);
  EXPECT_EQ(session.Write(3, 5, {44, 1}).proof, Proof::kConfirmed);
  EXPECT_THAT(board.Get(Place(5)), ElementsAre(44, 1));
}

TEST_F(Conversing, AWriteThatTheBoardDidNotObeyLeavesTheSecondCopyAlone) {
  board.StaySilent(3);
  const WriteOutcome outcome = session.Write(3, 5, {44, 1});
  EXPECT_EQ(outcome.proof, Proof::kDiffers);
  EXPECT_THAT(outcome.read_back, ElementsAre(1, 0));
  EXPECT_THAT(board.Get(Place(5)), ElementsAre(1, 0));
}

TEST_F(Conversing, AWriteThatCanNotBeReadBackIsUnsure) {
  board.StaySilent(6);
  const WriteOutcome outcome = session.Write(3, 5, {44, 1});
  EXPECT_EQ(outcome.proof, Proof::kUnsure);
  EXPECT_THAT(outcome.read_back, IsEmpty());
  EXPECT_FALSE(session.IsLost());
}

TEST_F(Conversing, AnswersThatGotOutOfStepAreAskedForAgain) {
  // A millisecond for each byte, and a byte too many behind the first answer. With the zeros of the
  // second it makes a good answer to the second frame, and what is left of that with 7, 7 one to
  // the third: 0, 7.
  std::vector<Bytes> answers = {{7, 7, 14}, {0, 0, 0}, {0, 0, 0},
                                {7, 7, 14}, {0, 0, 0}, {0, 0, 0, 0}};
  std::vector<std::unique_ptr<Timer>> on_the_way;
  wire.on_output = [&](const Bytes&) {
    ASSERT_FALSE(answers.empty());
    int delay = 5;
    for (const uint8_t byte : answers.back()) {
      on_the_way.push_back(clock.Maker()(std::chrono::milliseconds(delay++),
                                         [this, byte, &on_the_way, k = on_the_way.size()] {
                                           on_the_way[k]->Disable();
                                           wire.Deliver({byte});
                                         }));
      on_the_way.back()->Enable();
    }
    answers.pop_back();
  };
  const std::vector<int32_t> numbers = {1, 2, 3};
  EXPECT_THAT(session.Read(numbers),
              ElementsAre(ElementsAre(0, 0), ElementsAre(0, 0), ElementsAre(7, 7)));
  EXPECT_TRUE(answers.empty());
}

TEST_F(Conversing, ALineThatNeverKeepsStepAnswersNothing) {
  board.AnswerByteByByte(true);
  board.AddByte(100);
  EXPECT_EQ(session.Read(3), std::nullopt);
}

TEST_F(Conversing, ReadingStopsAtTheFirstThatIsNotAnswered) {
  int frame = 0;
  exchange.on_try = [&](const Bytes&, const Bytes&, TryOutcome) {
    if (++frame == 1) board.StaySilent(3);
  };
  const std::vector<int32_t> numbers = {3, 5, 3};
  EXPECT_THAT(session.Read(numbers), ElementsAre(ElementsAre(1, 0)));
  EXPECT_EQ(frame, 4);
}

TEST_F(Conversing, ACableThatIsPulledIsTold) {
  wire.Vanish();
  EXPECT_EQ(session.Write(3, 5, {44, 1}).proof, Proof::kUnsure);
  EXPECT_TRUE(session.IsLost());
}

TEST_F(Conversing, AParameterIsFoundByItsAddress) {
  EXPECT_EQ(session.ParameterAt({.command = 1, .address1 = 0, .address2 = 0, .address3 = 3}), 3);
  EXPECT_EQ(session.ParameterAt({.command = 1, .address1 = 0, .address2 = 0, .address3 = 10}), 10);
  EXPECT_EQ(session.ParameterAt({.command = 1, .address1 = 0, .address2 = 0, .address3 = 11}), 0);
}

}  // namespace
}  // namespace sorvane::test
