#include "simulator/board_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>

#include <chrono>
#include <fstream>

#include "simulator/real_board.h"

namespace sorvane::simulator {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// A running board, with the PC's port open.
class RunningBoard : public RealBoard {
 protected:
  void Start(const std::vector<std::string>& more = {}) {
    board_.emplace(Arguments(more));
    ExpectLine(*board_);
    Open();
  }
  void Open() {
    pc_.emplace(link_);
    ASSERT_TRUE(pc_->IsOpen());
  }

  std::optional<BoardProcess> board_;
  std::optional<PcPort> pc_;
};

TEST_F(RunningBoard, AnswersReadsAndWrites) {
  Start();
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  EXPECT_EQ(board_->NextLine(), "read 25 = 150");
  // 129 + 32 + 25 + 44 + 1 = 231, and twice that is 462: 206.
  pc_->Send({129, 32, 0, 25, 44, 1, 231});
  EXPECT_THAT(pc_->Receive(1), ElementsAre(206));
  EXPECT_EQ(board_->NextLine(), "write 25 = 300");
  board_->Type("get 25");
  EXPECT_EQ(board_->NextLine(), "25 = 300");
}

TEST_F(RunningBoard, TellsWhatItIs) {
  Start({"--type", "308", "--number", "17", "--software", "1", "--revision", "3"});
  pc_->Send({0, 1, 0, 17, 18});
  EXPECT_THAT(pc_->Receive(2), ElementsAre(3, 3));
  EXPECT_EQ(board_->NextLine(), "read system 17 = 3");
  pc_->Send({0, 1, 0, 12, 13});
  EXPECT_THAT(pc_->Receive(2), ElementsAre(17, 17));
  pc_->Send({0, 1, 0, 11, 12});
  EXPECT_THAT(pc_->Receive(2), ElementsAre(1, 1));
  pc_->Send({0, 1, 0, 13, 14});
  EXPECT_THAT(pc_->Receive(2), ElementsAre(52, 52));
  pc_->Send({0, 1, 0, 14, 15});
  EXPECT_THAT(pc_->Receive(2), ElementsAre(1, 1));
}

TEST_F(RunningBoard, All256ByteValuesPassBothWays) {
  Start({"--quiet"});
  for (unsigned block = 0; block < 256; block += 16) {
    Bytes value;
    unsigned sum = 0;
    for (unsigned i = block; i < block + 16; ++i) {
      value.push_back(static_cast<uint8_t>(i));
      sum += i;
    }
    pc_->Send(WriteFrame(12, value));
    // 143 + 32 + 0 + 12 = 187 stand before the value.
    EXPECT_THAT(pc_->Receive(1), ElementsAre(2 * (187 + sum) % 256)) << block;
    pc_->Send(ReadFrame(12));
    value.push_back(static_cast<uint8_t>(sum % 256));
    EXPECT_EQ(pc_->Receive(17), value) << block;
  }
}

TEST_F(RunningBoard, ThePcMayCloseAndOpenItsPort) {
  Start();
  for (int i = 0; i < 3; ++i) {
    pc_.reset();
    Open();
    pc_->Send({1, 32, 0, 25, 58});
    EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  }
}

TEST_F(RunningBoard, HalfARequestIsForgotten) {
  Start();
  pc_->Send({1, 32, 0});
  EXPECT_EQ(board_->NextLine(), "half a request: 1 32 0");
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
}

TEST_F(RunningBoard, FaultsStrikeWhileItRuns) {
  Start();
  board_->Type("fault wrong checksum once");
  EXPECT_EQ(board_->NextLine(), "fault wrong checksum 1");
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 151));
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
}

TEST_F(RunningBoard, FaultsStrikeFromTheStart) {
  Start({"--fault", "extra byte 1"});
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(4), ElementsAre(150, 0, 150, 0));
}

TEST_F(RunningBoard, Day0CanBeRefusedFromTheStart) {
  Start({"--refuse-day-0"});
  pc_->Send({128, 32, 0, 56, 0, 216});
  EXPECT_THAT(pc_->Receive(1), ElementsAre(177));
  EXPECT_EQ(board_->NextLine(), "write 56 = 0 [refuses day 0]");
}

TEST_F(RunningBoard, ALateReplyTakes1200Milliseconds) {
  Start({"--fault", "late reply once"});
  const auto start = steady_clock::now();
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  EXPECT_GE(steady_clock::now() - start, milliseconds(1200));
}

// 5 bytes there and 17 back, at 10 bits each, are 733 milliseconds at 300 baud.
TEST_F(RunningBoard, ASlowWireTakesItsTime) {
  Start({"--baud", "300"});
  const auto start = steady_clock::now();
  pc_->Send(ReadFrame(12));
  EXPECT_EQ(pc_->Receive(17).size(), 17u);
  EXPECT_GE(steady_clock::now() - start, milliseconds(733));
}

TEST_F(RunningBoard, UnpluggedThePortVanishesAndComesBackAnew) {
  Start();
  board_->Type("fault unplugged");
  EXPECT_EQ(board_->NextLine(), "fault unplugged");
  EXPECT_EQ(board_->NextLine(), "line " + link_.string() + " is unplugged");
  EXPECT_TRUE(pc_->Vanishes());
  EXPECT_FALSE(PcPort(link_).IsOpen());
  // Not the old terminal's name, which the system gives to the next one who asks.
  EXPECT_EQ(fs::read_symlink(link_), "/dev/pts/unplugged");

  board_->Type("fault none");
  EXPECT_EQ(board_->NextLine(), "fault none");
  ExpectLine(*board_);
  Open();
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
}

TEST_F(RealBoard, CanStartUnplugged) {
  BoardProcess board(Arguments({"--fault", "unplugged"}));
  EXPECT_EQ(board.NextLine(), "line " + link_.string() + " is unplugged");
  EXPECT_TRUE(fs::is_symlink(link_));
  EXPECT_FALSE(PcPort(link_).IsOpen());
  board.Signal(SIGTERM);
  EXPECT_EQ(board.Exit(), 0);
  EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(RunningBoard, QuietPrintsAnswersAndNoExchanges) {
  Start({"--quiet"});
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  board_->Type("get 26");
  EXPECT_EQ(board_->NextLine(), "26 = 150");
}

TEST_F(RunningBoard, TheEndOfItsInputIsNotItsEnd) {
  Start();
  board_->CloseInput();
  pc_->Send({1, 32, 0, 25, 58});
  EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  EXPECT_EQ(board_->NextLine(), "read 25 = 150");
}

TEST_F(RunningBoard, TheEndOfItsInputEndsAnUnfinishedLine) {
  Start();
  board_->TypeUnfinished("get 25");
  board_->CloseInput();
  EXPECT_EQ(board_->NextLine(), "25 = 150");
}

TEST_F(RunningBoard, AReaderOfItsOutputMayGoAway) {
  Start();
  board_->CloseOutput();
  for (int i = 0; i < 2; ++i) {
    pc_->Send({1, 32, 0, 25, 58});
    EXPECT_THAT(pc_->Receive(3), ElementsAre(150, 0, 150));
  }
  board_->Signal(SIGTERM);
  EXPECT_EQ(board_->Exit(), 0);
}

TEST_F(RunningBoard, TheClockIsThatOfThePc) {
  Start();
  board_->Type("clock");
  char before[64];
  const std::time_t now = std::time(nullptr);
  std::strftime(before, sizeof before, "clock %Y-%m-%d %H:", std::localtime(&now));
  const std::string line = board_->NextLine();
  const std::time_t later = std::time(nullptr);
  char after[64];
  std::strftime(after, sizeof after, "clock %Y-%m-%d %H:", std::localtime(&later));
  EXPECT_THAT(line, testing::AnyOf(StartsWith(before), StartsWith(after)));
}

class EndingBoard : public RealBoard, public testing::WithParamInterface<int> {};

TEST_P(EndingBoard, ASignalEndsItCleanly) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  EXPECT_TRUE(fs::is_symlink(link_));
  board.Signal(GetParam());
  EXPECT_EQ(board.Exit(), 0);
  EXPECT_FALSE(fs::is_symlink(link_));
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingBoard, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_F(RealBoard, QuitEndsItCleanly) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  board.Type("quit");
  EXPECT_EQ(board.NextLine(), "quit");
  EXPECT_EQ(board.Exit(), 0);
  EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(RealBoard, AnOldLinkIsReplaced) {
  fs::create_symlink("/nowhere", link_);
  BoardProcess board(Arguments());
  ExpectLine(board);
  EXPECT_THAT(fs::canonical(link_).string(), StartsWith("/dev/pts/"));
}

TEST_F(RealBoard, AFileInThePlaceOfTheLinkIsLeftAlone) {
  std::ofstream(link_) << "kept";
  BoardProcess board(Arguments());
  EXPECT_THAT(board.NextLine(), HasSubstr("no link"));
  EXPECT_EQ(board.Exit(), 1);
  EXPECT_TRUE(fs::is_regular_file(link_));
}

TEST_F(RealBoard, AnotherBoardsLinkIsNotRemoved) {
  BoardProcess first(Arguments());
  ExpectLine(first);
  BoardProcess second(Arguments());
  ExpectLine(second);
  first.Signal(SIGTERM);
  EXPECT_EQ(first.Exit(), 0);
  EXPECT_TRUE(PcPort(link_).IsOpen());
}

TEST_F(RealBoard, WithoutIndexFilesItSaysSoAndEnds) {
  fs::remove(folder_.Path() / "W0309.inx");
  BoardProcess board(Arguments());
  EXPECT_THAT(board.NextLine(), HasSubstr("W0309.inx"));
  EXPECT_EQ(board.Exit(), 1);
  EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(RealBoard, ABadCommandLineIsRefused) {
  for (const std::vector<std::string>& bad :
       std::vector<std::vector<std::string>>{{"--fault", "silence"},
                                             {"--baud", "299"},
                                             {"--number", "256"},
                                             {"--type", "65536"},
                                             {"--colour"},
                                             {"--fault", "slow", "--refuse-day-0"}}) {
    BoardProcess board(Arguments(bad));
    EXPECT_THAT(board.NextLine(), HasSubstr(bad.front())) << bad.front();
    EXPECT_EQ(board.Exit(), 2) << bad.front();
  }
  EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(RealBoard, HelpIsShown) {
  BoardProcess board({"--help"});
  EXPECT_THAT(board.NextLine(), HasSubstr("simulated"));
  EXPECT_EQ(board.Exit(), 0);
}

TEST(Terminal, TheLineStaysUpWhileThePcHasItClosed) {
  const Terminal terminal;
  const auto hung_up = [&] {
    pollfd watched{terminal.Number(), 0, 0};
    return poll(&watched, 1, 0) == 1;
  };
  EXPECT_FALSE(hung_up());
  { EXPECT_TRUE(PcPort(terminal.Path()).IsOpen()); }
  EXPECT_FALSE(hung_up());
}

}  // namespace
}  // namespace sorvane::simulator
