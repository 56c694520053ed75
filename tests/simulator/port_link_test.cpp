#include "simulator/port_link.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "simulator/real_board.h"

namespace sorvane::simulator {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const fs::path kAdapter = "/dev/serial/by-id/adapter";

// What lies in a folder besides the index files.
std::vector<std::string> Others(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".inx") names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// A folder in which the technician's own link to an adapter stands.
class TechniciansLink : public RealBoard {
 protected:
  TechniciansLink() { fs::create_symlink(kAdapter, link_); }

  std::string Line(const std::string& words) const { return "line " + link_.string() + words; }
  std::string WillLead() const {
    return " will lead to " + kAdapter.string() + " again at the end";
  }

  // The line is up and takes the place of the technician's link.
  void ExpectReplacing(BoardProcess& board) {
    ExpectLine(board);
    EXPECT_EQ(board.NextLine(), Line(WillLead()));
    EXPECT_TRUE(PcPort(link_).IsOpen());
  }
  void ExpectTechnicians() const {
    EXPECT_EQ(fs::read_symlink(link_), kAdapter);
    EXPECT_THAT(Others(folder_.Path()), ElementsAre("COM1"));
  }
  // Kills a board and waits until its guard has ended too.
  static void Kill(BoardProcess& board) {
    const OtherProcess guard(board.Guard());
    board.Signal(SIGKILL);
    EXPECT_EQ(board.Exit(), std::nullopt);
    EXPECT_TRUE(guard.Ends());
  }
  // As a loss of power does it.
  static void KillWithGuard(BoardProcess& board) {
    const OtherProcess guard(board.Guard());
    kill(guard.Number(), SIGKILL);
    EXPECT_TRUE(guard.Ends());
    board.Signal(SIGKILL);
    EXPECT_EQ(board.Exit(), std::nullopt);
  }
  static void Quit(BoardProcess& board) {
    board.Type("quit");
    EXPECT_EQ(board.NextLine(), "quit");
  }
};

TEST_F(TechniciansLink, ComesBackWhenTheBoardEnds) {
  BoardProcess board(Arguments());
  ExpectReplacing(board);
  Quit(board);
  EXPECT_EQ(board.NextLine(), Line(" leads to " + kAdapter.string() + " again"));
  EXPECT_EQ(board.Exit(), 0);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackWhenASignalEndsTheBoard) {
  BoardProcess board(Arguments());
  ExpectReplacing(board);
  board.Signal(SIGTERM);
  EXPECT_EQ(board.NextLine(), Line(" leads to " + kAdapter.string() + " again"));
  EXPECT_EQ(board.Exit(), 0);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackWhenTheBoardIsKilled) {
  BoardProcess board(Arguments());
  ExpectReplacing(board);
  Kill(board);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackWhenTheBoardEndsWithoutItsGuard) {
  BoardProcess board(Arguments());
  ExpectReplacing(board);
  const OtherProcess guard(board.Guard());
  kill(guard.Number(), SIGKILL);
  EXPECT_TRUE(guard.Ends());
  Quit(board);
  EXPECT_EQ(board.Exit(), 0);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackAfterTheNextBoardWhereTheGuardWasKilledToo) {
  BoardProcess killed(Arguments());
  ExpectReplacing(killed);
  KillWithGuard(killed);
  EXPECT_NE(fs::read_symlink(link_), kAdapter);

  BoardProcess next(Arguments());
  ExpectLine(next);
  EXPECT_EQ(next.NextLine(), Line(" led to another board and" + WillLead()));
  Quit(next);
  EXPECT_EQ(next.NextLine(), Line(" leads to " + kAdapter.string() + " again"));
  EXPECT_EQ(next.Exit(), 0);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackAfterUnpluggingAndPluggingInIsToldOnce) {
  BoardProcess board(Arguments({"--fault", "unplugged"}));
  EXPECT_EQ(board.NextLine(), Line(" is unplugged"));
  EXPECT_EQ(board.NextLine(), Line(WillLead()));
  board.Type("fault none");
  EXPECT_EQ(board.NextLine(), "fault none");
  ExpectLine(board);
  board.Type("fault unplugged");
  EXPECT_EQ(board.NextLine(), "fault unplugged");
  EXPECT_EQ(board.NextLine(), Line(" is unplugged"));
  Kill(board);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackWhenTheBoardFindsNoIndexFiles) {
  fs::remove(folder_.Path() / "W0309.inx");
  BoardProcess board(Arguments());
  EXPECT_THAT(board.NextLine(), HasSubstr("W0309.inx"));
  EXPECT_EQ(board.Exit(), 1);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ThatIsMadeWhileTheBoardRunsIsLeftAlone) {
  BoardProcess board(Arguments());
  ExpectReplacing(board);
  fs::remove(link_);
  fs::create_symlink("/dev/ttyUSB1", link_);
  Quit(board);
  EXPECT_EQ(board.Exit(), 0);
  EXPECT_EQ(fs::read_symlink(link_), "/dev/ttyUSB1");
  EXPECT_THAT(Others(folder_.Path()), ElementsAre("COM1"));
}

TEST_F(TechniciansLink, ToATerminalIsNotTakenForABoards) {
  const Terminal other;
  fs::remove(link_);
  fs::create_symlink(other.Path(), link_);
  BoardProcess board(Arguments());
  ExpectLine(board);
  EXPECT_EQ(board.NextLine(), Line(" will lead to " + other.Path().string() + " again at the end"));
  Kill(board);
  EXPECT_EQ(fs::read_symlink(link_), other.Path());
}

TEST_F(TechniciansLink, ComesBackAfterTwoBoardsOfWhichTheFirstEndsFirst) {
  BoardProcess first(Arguments());
  ExpectReplacing(first);
  BoardProcess second(Arguments());
  ExpectLine(second);
  EXPECT_EQ(second.NextLine(), Line(" led to another board and" + WillLead()));
  Quit(first);
  EXPECT_EQ(first.Exit(), 0);
  EXPECT_TRUE(PcPort(link_).IsOpen());
  Quit(second);
  EXPECT_EQ(second.Exit(), 0);
  ExpectTechnicians();
}

TEST_F(TechniciansLink, ComesBackAfterTwoBoardsOfWhichTheSecondEndsFirst) {
  BoardProcess first(Arguments());
  ExpectReplacing(first);
  BoardProcess second(Arguments());
  ExpectLine(second);
  Kill(second);
  ExpectTechnicians();
  first.Type("fault unplugged");
  EXPECT_EQ(first.NextLine(), "fault unplugged");
  EXPECT_EQ(first.NextLine(), Line(" is unplugged"));
  EXPECT_EQ(first.NextLine(), Line(WillLead()));
  Kill(first);
  ExpectTechnicians();
}

// Each may find the folder as the other leaves it for a moment.
TEST_F(TechniciansLink, ComesBackAfterBoardsThatStartAndEndAtOnce) {
  for (int round = 0; round < 20; ++round) {
    BoardProcess first(Arguments());
    BoardProcess second(Arguments());
    first.Type("quit");
    second.Type("quit");
    ASSERT_EQ(first.Exit(), 0);
    ASSERT_EQ(second.Exit(), 0);
    ASSERT_EQ(fs::read_symlink(link_), kAdapter) << round;
  }
  ExpectTechnicians();
}

TEST_F(TechniciansLink, AFileInThePlaceOfTheKeptOneIsLeftAlone) {
  std::ofstream(folder_.Path() / "COM1.before") << "kept";
  BoardProcess board(Arguments());
  EXPECT_THAT(board.NextLine(), HasSubstr("COM1.before is there and is no link"));
  EXPECT_EQ(board.Exit(), 1);
  EXPECT_EQ(fs::read_symlink(link_), kAdapter);
  EXPECT_TRUE(fs::is_regular_file(folder_.Path() / "COM1.before"));
  EXPECT_THAT(Others(folder_.Path()), ElementsAre("COM1", "COM1.before"));
}

class NoFormerLink : public TechniciansLink {
 protected:
  NoFormerLink() { fs::remove(link_); }
};

TEST_F(NoFormerLink, AKilledBoardLeavesNone) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  // A link that it had no time to move.
  fs::create_symlink("/dev/pts/0", link_.string() + "." + std::to_string(board.Number()));
  Kill(board);
  EXPECT_THAT(Others(folder_.Path()), IsEmpty());
}

TEST_F(NoFormerLink, ABoardThatIsKilledWithItsGuardLeavesOneThatLeadsNowhere) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  KillWithGuard(board);
  EXPECT_TRUE(fs::is_symlink(link_));
  // The terminal is free, and is given to the next one who asks.
  const Terminal next;
  EXPECT_FALSE(PcPort(link_).IsOpen());
}

TEST_F(NoFormerLink, ALinkOfAKilledBoardIsReplacedAndNotKept) {
  BoardProcess killed(Arguments());
  ExpectLine(killed);
  KillWithGuard(killed);
  BoardProcess next(Arguments());
  ExpectLine(next);
  EXPECT_EQ(next.NextLine(), Line(" led to another board"));
  Quit(next);
  EXPECT_EQ(next.Exit(), 0);
  EXPECT_THAT(Others(folder_.Path()), IsEmpty());
}

TEST_F(NoFormerLink, TheGuardEndsWithTheBoard) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  const OtherProcess guard(board.Guard());
  Quit(board);
  EXPECT_EQ(board.Exit(), 0);
  EXPECT_TRUE(guard.Ends());
}

TEST_F(NoFormerLink, TheGuardHoldsNeitherOutputNorTerminal) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  PcPort pc(link_);
  const OtherProcess guard(board.Guard());
  kill(guard.Number(), SIGSTOP);
  board.Signal(SIGKILL);
  EXPECT_EQ(board.Exit(), std::nullopt);
  EXPECT_TRUE(board.OutputEnds());
  EXPECT_TRUE(pc.Vanishes());
  kill(guard.Number(), SIGCONT);
  EXPECT_TRUE(guard.Ends());
}

TEST_F(NoFormerLink, ASignalToTheBoardsGroupDoesNotReachTheGuard) {
  BoardProcess board(Arguments());
  ExpectLine(board);
  EXPECT_NE(getpgid(board.Guard()), getpgid(board.Number()));
  EXPECT_NE(getsid(board.Guard()), getsid(board.Number()));
}

// So that who kills all boards by their name leaves their guards.
TEST_F(NoFormerLink, TheGuardHasANameOfItsOwn) {
  const auto name = [](pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/comm");
    std::string text;
    std::getline(file, text);
    return text;
  };
  BoardProcess board(Arguments());
  ExpectLine(board);
  EXPECT_EQ(name(board.Number()), "SorvaneBoard");
  EXPECT_EQ(name(board.Guard()), "COM1 guard");
}

TEST_F(NoFormerLink, ABoardThatFollowsAKilledOneAtOnceKeepsItsLink) {
  BoardProcess killed(Arguments());
  ExpectLine(killed);
  const OtherProcess guard(killed.Guard());
  kill(guard.Number(), SIGSTOP);
  killed.Signal(SIGKILL);
  EXPECT_EQ(killed.Exit(), std::nullopt);
  BoardProcess next(Arguments());  // gets a terminal of the same number
  ExpectLine(next);
  kill(guard.Number(), SIGCONT);
  EXPECT_TRUE(guard.Ends());
  EXPECT_TRUE(PcPort(link_).IsOpen());
}

TEST(PortLink, ALinkThatCannotBeMovedToItsPlaceLeavesNothingBehind) {
  const IndexFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  {
    PortLink link("");  // a name that no file can have
    EXPECT_THROW(link.PointTo("/dev/pts/0"), fs::filesystem_error);
  }
  EXPECT_THAT(Others(folder.Path()), IsEmpty());
  fs::current_path(before);
}

}  // namespace
}  // namespace sorvane::simulator
