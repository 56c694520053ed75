#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "board/board_tables.h"
#include "board/parameter_access.h"
#include "link/frm_ser.h"
#include "platform/com_port_path.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"
#include "shell/gate/program_gate.h"
#include "shell/gate/qt_timer.h"
#include "simulator/board_process.h"
#include "simulator/index_folder.h"
#include "support/fake_dialogs.h"
#include "support/strangers.h"

namespace sorvane::test {
namespace {

using simulator::BoardProcess;
using simulator::IndexFolder;

// The real connection on real timers and the real serial port, and the real board at the other end.
// Parameters 25 and 26 are two bytes each; nobody polls them, so that each is read once.
class Wire : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(StrangersAt(files.Path() / "COM1"), ""); }

  void Connect(const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"--index", files.Path(), "--link", files.Path() / "COM1"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    board = std::make_unique<BoardProcess>(arguments);
    board->NextLine();  // the line is up
    SetBoardDefaults(tables);
    link.on_loaded = [this] { loaded = true; };
    link.reply_notice = [this](const Reply& reply) { notices.push_back(reply); };
    link.Load();
  }
  void ConnectAndStand(const std::vector<std::string>& more = {}) {
    Connect(more);
    ASSERT_TRUE(RunUntil([this] { return loaded; }));
    ASSERT_FALSE(link.ConnectAbandoned);
    ASSERT_TRUE(dialogs.Shown().empty());
  }
  void Fault(const std::string& words) { board->Type("fault " + words); }

  // Watches a parameter until the board's value has come.
  bool Fresh(int parameter) {
    access.WatchParameter(parameter);
    const bool came = RunUntil([&] { return access.IsParameterFresh(parameter, 0); });
    access.UnwatchParameter(parameter);
    return came;
  }
  // What the board's own memory says, in its words. Lines of exchanges before it are passed over.
  std::string Ask(const std::string& parameter) {
    board->Type("get " + parameter);
    for (int i = 0; i < 1000; ++i) {
      const std::string line = board->NextLine();
      if (line.starts_with(parameter + " = ") || line == "(nothing)") return line;
    }
    return "(no answer)";
  }
  // The exchanges of a parameter that the board has printed up to its answer to a question.
  int Exchanges(const std::string& words) {
    board->Type("get 1");
    int count = 0;
    for (;;) {
      const std::string line = board->NextLine();
      if (line.starts_with("1 = ") || line == "(nothing)") return count;
      if (line.starts_with(words)) ++count;
    }
  }

  IndexFolder files;
  std::unique_ptr<BoardProcess> board;
  BoardTables tables;
  ParameterAccess access{tables};
  LinkLamps lamps;
  FakeDialogs dialogs;
  bool loaded = false;
  int ended = 0;
  std::vector<Reply> notices;
  std::vector<std::string> reports;
  ProgramGate gate{{.report = [this](const std::string& text,
                                     const std::function<void()>&) { reports.push_back(text); },
                    .leave = [](int) {}}};
  std::unique_ptr<Port> port =
      MakeSerialPort([this](int number) { return ComPortPath(files.Path(), number); },
                     [this](const std::function<void()>& handler) { gate.Run(handler); });
  FrmSer link{{.tables = tables,
               .port = *port,
               .lamps = lamps,
               .dialogs = dialogs,
               .make_timer = MakeQtTimers(gate),
               .folder = files.Path(),
               .end_program = [this] { ++ended; }}};
};

TEST_F(Wire, ReadsWhatTheBoardHolds) {
  ConnectAndStand();
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Ask("25"), "25 = " + std::to_string(static_cast<int>(access.ReadParameter(25, 0))));
}

TEST_F(Wire, WritesWhatTheBoardHoldsThen) {
  ConnectAndStand();
  access.WriteParameter(25, 1234);
  EXPECT_TRUE(RunUntil([this] { return access.IsParameterFresh(25, 0); }));
  EXPECT_EQ(Ask("25"), "25 = 1234");
  EXPECT_EQ(access.ReadParameter(25, 0), 1234);
}

TEST_F(Wire, ConnectsOverALineOf19200Baud) {
  ConnectAndStand({"--baud", "19200"});
  ASSERT_TRUE(Fresh(25));
}

TEST_F(Wire, ASilentBoardIsAskedAgainUntilItAnswers) {
  ConnectAndStand();
  Fault("silent 2");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 3);
}

TEST_F(Wire, ABoardThatIsSilentOnceIsAskedOnceMore) {
  ConnectAndStand();
  Fault("silent once");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 2);
}

TEST_F(Wire, ASilentBoardLightsTheErrorLampAndShowsNoBox) {
  ConnectAndStand();
  Fault("silent");
  access.WatchParameter(25);
  EXPECT_TRUE(RunUntil([this] { return lamps.Tag(4) == lamp::kError; }));
  EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(Wire, AWriteIntoSilenceIsLostAndTheBoardsValueShown) {
  ConnectAndStand();
  const std::string before = Ask("25");
  Fault("silent once");
  access.WatchParameter(25);
  access.WriteParameter(25, 1234);
  EXPECT_TRUE(RunUntil([this] { return access.IsParameterFresh(25, 0); }));
  EXPECT_EQ(Ask("25"), before);
  EXPECT_EQ("25 = " + std::to_string(static_cast<int>(access.ReadParameter(25, 0))), before);
}

TEST_F(Wire, AWrongChecksumBringsTheSameFrameAgain) {
  ConnectAndStand();
  Fault("wrong checksum 3");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 4);
  EXPECT_TRUE(dialogs.Shown().empty());
}

TEST_F(Wire, TheFifthReplyIsDroppedThoughItIsGood) {
  ConnectAndStand();
  Fault("wrong checksum 4");
  ASSERT_TRUE(Fresh(25));
  // Four bad ones, the good one that is dropped, and the one of the next pass.
  EXPECT_EQ(Exchanges("read 25"), 6);
}

TEST_F(Wire, AShortReplyTimesOutAndIsAskedAgain) {
  ConnectAndStand();
  Fault("short reply 1");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 2);
}

TEST_F(Wire, AnExtraByteMakesTheReplyABadOne) {
  ConnectAndStand();
  Fault("extra byte 1");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 2);
}

TEST_F(Wire, AReplyThatComesByteByByteIsTakenWhole) {
  ConnectAndStand();
  Fault("slow");
  ASSERT_TRUE(Fresh(25));
  EXPECT_EQ(Exchanges("read 25"), 1);
}

TEST_F(Wire, ALateReplyCostsTheExchangeAndNothingElse) {
  ConnectAndStand();
  Fault("late reply 1");
  ASSERT_TRUE(Fresh(25));
  const std::string value = Ask("25");
  EXPECT_EQ("25 = " + std::to_string(static_cast<int>(access.ReadParameter(25, 0))), value);
}

TEST_F(Wire, ADayOfZeroThatIsRefusedIsNotTaken) {
  ConnectAndStand();
  const std::string before = Ask("56");
  Fault("refuses day 0");
  access.WatchParameter(56);
  access.WriteParameter(56, 0);
  EXPECT_TRUE(RunUntil([this] { return access.IsParameterFresh(56, 0); }));
  EXPECT_EQ(Ask("56"), before);
  EXPECT_EQ("56 = " + std::to_string(static_cast<int>(access.ReadParameter(56, 0))), before);
}

TEST_F(Wire, UnpluggedAndPluggedInAgainTheValuesComeWithoutABox) {
  ConnectAndStand();
  ASSERT_TRUE(Fresh(25));
  Fault("unplugged");
  access.WatchParameter(26);
  ASSERT_TRUE(RunUntil([this] { return lamps.Tag(4) == lamp::kError; }));
  Fault("none");
  EXPECT_TRUE(RunUntil([this] { return access.IsParameterFresh(26, 0); }));
  EXPECT_TRUE(dialogs.Shown().empty());
  EXPECT_TRUE(reports.empty());
}

TEST_F(Wire, WithoutTheBoardThereIsNoPort) {
  board = std::make_unique<BoardProcess>(std::vector<std::string>{
      "--index", files.Path(), "--link", files.Path() / "COM1", "--fault", "unplugged"});
  board->NextLine();
  SetBoardDefaults(tables);
  link.on_loaded = [this] { loaded = true; };
  link.Load();
  ASSERT_TRUE(RunUntil([this] { return !dialogs.Standing().empty(); }));
  dialogs.Expect("Error com", "ERROR ", 16);
}

TEST_F(Wire, ABoardOfAnotherTypeIsRefused) {
  Connect({"--type", "308"});
  ASSERT_TRUE(RunUntil([this] { return !dialogs.Standing().empty(); }));
  dialogs.Expect("Board Type\nNot Compatible", "ERROR", 16);
}

TEST_F(Wire, AfterSilenceRetryGoesOn) {
  Connect({"--fault", "silent 1"});
  ASSERT_TRUE(RunUntil([this] { return !dialogs.Standing().empty(); }));
  dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  dialogs.Answer(Answer::kRetry);
  EXPECT_TRUE(RunUntil([this] { return loaded; }));
  EXPECT_FALSE(link.ConnectAbandoned);
}

}  // namespace
}  // namespace sorvane::test
