#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include "platform/event_loop.h"
#include "platform/pseudo_terminal.h"
#include "platform/serial_port.h"
#include "platform/start_program.h"
#include "support/index_files.h"

namespace sorvane::test {
namespace {

// Runs a shell script as the program, in a folder of its own. What it says comes in the file
// "said"; $out is where its output went before.
class StartProgramTest : public ::testing::Test {
 protected:
  std::filesystem::path Program() const { return folder_.Path() / "PROGRAM.EXE"; }

  void WriteProgram(const std::string& lines) {
    const std::string folder = folder_.Path().string();
    const std::string script = "#!/bin/sh\nout=$(readlink /proc/$$/fd/1)\n{\n" + lines + "\n} > " +
                               folder + "/saying\nmv " + folder + "/saying " + folder + "/said\n";
    folder_.WriteFile("PROGRAM.EXE", Bytes(script.begin(), script.end()));
    std::filesystem::permissions(Program(), std::filesystem::perms::owner_all);
  }

  std::string Said() const {
    const std::filesystem::path said = folder_.Path() / "said";
    EXPECT_TRUE(RunUntil([&] { return std::filesystem::exists(said); }));
    std::ifstream in(said);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  TempFolder folder_;
};

TEST_F(StartProgramTest, AProgramIsStarted) {
  WriteProgram("echo hello");
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_EQ(Said(), "hello\n");
}

TEST_F(StartProgramTest, AProgramWhosePathIsNoTextIsStarted) {
  WriteProgram("echo hello");
  const std::filesystem::path odd = folder_.Path() / "caf\xE9";
  std::filesystem::create_directory(odd);
  std::filesystem::rename(Program(), odd / "PROGRAM.EXE");
  EXPECT_TRUE(StartProgram(odd / "PROGRAM.EXE"));
  EXPECT_EQ(Said(), "hello\n");
}

TEST_F(StartProgramTest, AMissingProgramIsSilent) {
  testing::internal::CaptureStderr();
  EXPECT_FALSE(StartProgram(Program()));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(StartProgramTest, AFileThatIsNoProgramIsSilent) {
  folder_.WriteFile("PROGRAM.EXE", {});
  testing::internal::CaptureStderr();
  EXPECT_FALSE(StartProgram(Program()));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(StartProgramTest, TheProgramIsNotWaitedFor) {
  const std::filesystem::path fifo = folder_.Path() / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  WriteProgram("cat " + fifo.string());
  EXPECT_TRUE(StartProgram(Program()));
  std::ofstream(fifo) << "go on";
  EXPECT_EQ(Said(), "go on");
}

TEST_F(StartProgramTest, TheProgramHasASessionOfItsOwn) {
  WriteProgram("cut -d ' ' -f 6 /proc/$$/stat");
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_NE(Said(), std::to_string(getsid(0)) + "\n");
}

TEST_F(StartProgramTest, TheProgramStartsInTheCurrentFolder) {
  WriteProgram("pwd");
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_EQ(Said(), std::filesystem::current_path().string() + "\n");
}

TEST_F(StartProgramTest, TheProgramInheritsNoOpenPort) {
  const PseudoTerminal line;
  const auto port =
      MakeSerialPort([&](int) { return line.Device(); }, [](const std::function<void()>&) {});
  port->SetCommPort(1);
  port->Open();
  WriteProgram("ls -l /proc/$$/fd");
  EXPECT_TRUE(StartProgram(Program()));
  const std::string said = Said();
  EXPECT_EQ(said.find(line.Device().string() + "\n"), std::string::npos) << said;
  EXPECT_NE(said.find("-> /dev/null\n"), std::string::npos) << said;
}

TEST_F(StartProgramTest, TheProgramsOwnWordsGoNowhere) {
  WriteProgram("readlink /proc/$$/fd/2");
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_EQ(Said(), "/dev/null\n");
}

TEST_F(StartProgramTest, TheProgramInheritsNeitherInputNorOutputNorTheOutputOfErrors) {
  WriteProgram("readlink /proc/$$/fd/0\necho $out\nreadlink /proc/$$/fd/2");
  const FILE* from = std::freopen(Program().c_str(), "r", stdin);
  EXPECT_NE(from, nullptr);
  // Both go to files meanwhile, whatever the caller of the tests had them go to.
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const bool started = StartProgram(Program());
  const std::string said = Said();
  testing::internal::GetCapturedStdout();
  testing::internal::GetCapturedStderr();
  EXPECT_TRUE(started);
  EXPECT_EQ(said, "/dev/null\n/dev/null\n/dev/null\n");
}

}  // namespace
}  // namespace sorvane::test
