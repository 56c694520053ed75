#include <gtest/gtest.h>

#include "board/errors.h"
#include "link/frm_ser.h"
#include "shell/program.h"

namespace sorvane::test {
namespace {

using std::chrono::milliseconds;

// Closes the frame in some state of a connection that is being made. The board is switched off, so
// that the test decides how far it comes.
class Closing : public testing::Test {
 protected:
  Closing() {
    program.link.board.SwitchOff();
    program.Start();
    program.WriteText("Sorvane.ini", "");
    program.Choose("mnuConnect");
  }

  void Advance(int span) {
    program.gate.Run([&] { program.link.clock.Advance(span); });
  }
  // Brings the connection to the question of a step, 1 to 7.
  void AdvanceToStep(int step) {
    static constexpr uint8_t kAnswers[] = {9, 0, 0, 18, 53, 1};
    Advance(0);
    for (int i = 0; i < step - 1; ++i) {
      program.gate.Run([&] { program.link.board.Reply({kAnswers[i], kAnswers[i]}); });
      Advance(0);
    }
    ASSERT_EQ(program.link.wire.Frames().size(), static_cast<std::size_t>(step));
  }

  // The exit steps are done once, the loop is left at once, and nothing comes after it.
  static void CloseAndExpectTheEnd(Program& program) {
    const std::size_t boxes = program.link.dialogs.Shown().size();
    program.Close();
    EXPECT_EQ(program.exits, std::vector<int>{0});
    EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Alfa\r\n");
    EXPECT_EQ(program.started.size(), 1U);
    EXPECT_FALSE(program.link.wire.PortOpen());
    EXPECT_EQ(program.link.clock.Armed(), 0);
    program.gate.Run([&] { program.link.board.Reply({9, 9}); });
    program.gate.Run([&] { program.link.clock.Advance(10000); });
    program.Close();
    EXPECT_EQ(program.link.dialogs.Shown().size(), boxes);
    EXPECT_EQ(program.started.size(), 1U);
    EXPECT_EQ(program.link.ended, 0);
    EXPECT_TRUE(program.reports.empty());
  }

  Program program;
};

TEST_F(Closing, WhileThePortIsBeingOpened) { CloseAndExpectTheEnd(program); }

class ClosingInStep : public Closing, public testing::WithParamInterface<int> {};

TEST_P(ClosingInStep, WhileTheAnswerIsAwaited) {
  AdvanceToStep(GetParam());
  Advance(300);
  CloseAndExpectTheEnd(program);
}

TEST_P(ClosingInStep, WhileTheBoxOfTheSilentBoardStands) {
  AdvanceToStep(GetParam());
  Advance(1000);
  program.link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  CloseAndExpectTheEnd(program);
}

INSTANTIATE_TEST_SUITE_P(OfIdentification, ClosingInStep, testing::Range(1, 8));

TEST(ClosingWithoutAPort, WhileTheBoxStands) {
  Program program;
  program.link.wire.RefuseOpen();
  program.Start();
  program.Choose("mnuConnect");
  program.gate.Run([&] { program.link.clock.Advance(0); });
  program.link.dialogs.Expect("Error com", "ERROR ", 16);
  program.Close();
  EXPECT_EQ(program.exits, std::vector<int>{0});
  EXPECT_EQ(program.started.size(), 1U);
}

// The program with a box in front that has one answer, the end.
class ClosingBeforeTheEnd : public testing::Test {
 protected:
  static void Connect(Program& program) {
    if (!program.frame->isVisible()) program.Start();
    program.Choose("mnuConnect");
    program.gate.Run([&] { program.link.clock.Advance(100); });
  }

  // Closing is that answer: the program ends, and none of the exit steps is done.
  static void CloseAndExpectNothingElse(Program& program) {
    ASSERT_EQ(program.link.dialogs.Standing().size(), 1U);
    for (int i = 0; i < 2; ++i) {
      program.Close();
      EXPECT_EQ(program.File("Sorvane.ini"), kSettings);
      EXPECT_TRUE(program.started.empty());
      EXPECT_TRUE(program.gate.IsShut());
    }
    EXPECT_EQ(program.exits.at(0), 0);
    EXPECT_EQ(program.link.dialogs.Shown().size(), 1U);
    EXPECT_TRUE(program.reports.empty());
  }

  // A saved file names the language in use.
  static constexpr const char* kSettings = "Com=2\r\nLingua=\r\n";
};

TEST_F(ClosingBeforeTheEnd, WithoutALanguageFile) {
  Program program({.language_files = false, .settings = kSettings});
  program.Start();
  program.link.dialogs.Expect("File missing!\nReinstall program", "Error", 16);
  CloseAndExpectNothingElse(program);
}

TEST_F(ClosingBeforeTheEnd, WithoutAnIndexFileAtTheStart) {
  Program program({.settings = kSettings});
  program.link.folder.RemoveFile("W0309AA00.inx");
  program.Start();
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  CloseAndExpectNothingElse(program);
}

TEST_F(ClosingBeforeTheEnd, WithoutAnIndexFileWhileConnecting) {
  Program program({.settings = kSettings});
  program.Start();
  program.link.folder.RemoveFile("W0309AA00.inx");
  Connect(program);
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  CloseAndExpectNothingElse(program);
}

TEST_F(ClosingBeforeTheEnd, OnABoardThatDoesNotFit) {
  Program program({.settings = kSettings});
  program.link.SetSystem(12, 17);
  Connect(program);
  program.link.dialogs.Expect("Board\nNot Compatible", "ERROR", 16);
  CloseAndExpectNothingElse(program);
}

TEST_F(ClosingBeforeTheEnd, OnAPortThatFailsAndIsLostMeanwhile) {
  Program program({.settings = kSettings});
  program.link.wire.FailNextOutput();
  Connect(program);
  program.link.wire.RefuseOpen();
  program.gate.Run([&] { program.link.clock.Advance(10000); });
  program.link.dialogs.Expect(" not found !", "ERROR", 16);
  EXPECT_FALSE(program.link.wire.PortOpen());
  CloseAndExpectNothingElse(program);
}

// The tick of the sweep, the last step of the connection, can't be enabled.
class FailingTimer : public Timer {
 public:
  void Enable() override { throw RuntimeError(ErrorCode::kOverflow); }
  void Disable() override {}
};

TEST_F(ClosingBeforeTheEnd, OnALoadThatFails) {
  Program program({.timers = [](const TimerMaker& maker) -> TimerMaker {
                     return [maker](milliseconds interval,
                                    std::function<void()> handler) -> std::unique_ptr<Timer> {
                       if (interval == milliseconds(40)) return std::make_unique<FailingTimer>();
                       return maker(interval, std::move(handler));
                     };
                   },
                   .settings = kSettings});
  Connect(program);
  program.link.dialogs.Expect("Reinstall Program", "ERROR  0", 16);
  CloseAndExpectNothingElse(program);
}

TEST(ClosingWhileLoading, EndsWithoutTheFileHavingBeenRead) {
  // The posted steps are the opening, seven ends of a wait, of which the last decides, and the
  // loading. The frame closes behind the eighth.
  int steps = 0;
  Program* running = nullptr;
  Program program({.timers = [&](const TimerMaker& maker) -> TimerMaker {
    return [&, maker](milliseconds interval, std::function<void()> handler) {
      if (interval != milliseconds(0)) return maker(interval, std::move(handler));
      return maker(interval, [&, handler = std::move(handler)] {
        handler();
        if (++steps == 8) running->Close();
      });
    };
  }});
  running = &program;
  program.Start();
  program.link.folder.RemoveFile("W0309AA00.inx");
  program.Choose("mnuConnect");
  program.gate.Run([&] { program.link.clock.Advance(5000); });
  EXPECT_EQ(steps, 8);
  EXPECT_EQ(program.exits, std::vector<int>{0});
  EXPECT_EQ(program.started.size(), 1U);
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
  EXPECT_EQ(program.link.clock.Armed(), 0);
}

TEST(ClosingWhileConnected, EndsWithOpenPages) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Close();
  EXPECT_EQ(program.exits, std::vector<int>{0});
  EXPECT_EQ(program.started.size(), 1U);
  EXPECT_FALSE(program.IsOpen("FrmSconti") && program.link.ser.IsLoaded());
}

}  // namespace
}  // namespace sorvane::test
