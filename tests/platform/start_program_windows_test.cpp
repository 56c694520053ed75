#include <gtest/gtest.h>
#include <windows.h>

#include <QtGlobal>
#include <fstream>
#include <string>

#include "platform/event_loop.h"
#include "platform/start_program.h"
#include "support/index_files.h"

namespace sorvane::test {
namespace {

int warnings = 0;

// Starts the stand-in, which tells what it was started with.
class StartProgramTest : public ::testing::Test {
 protected:
  StartProgramTest() {
    warnings = 0;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
  }
  ~StartProgramTest() override { qInstallMessageHandler(nullptr); }

  std::filesystem::path Program() const { return folder_.Path() / "A PROGRAM.EXE"; }
  void PutProgram() const { std::filesystem::copy_file(SORVANE_PROGRAM_STAND_IN, Program()); }

  // A program that is held says nothing until it is let go.
  void Hold() const { folder_.WriteFile("hold", {}); }
  void LetGo() const { folder_.RemoveFile("hold"); }

  bool HasSaid() const { return std::filesystem::exists(folder_.Path() / "said"); }

  struct Words {
    std::string folder;
    int show = 0;
  };
  Words Said() const {
    Words words;
    // The file can't be opened yet in the moment in which it gets its name.
    EXPECT_TRUE(RunUntil([&] {
      std::ifstream in(folder_.Path() / "said");
      return std::getline(in, words.folder) && in >> words.show;
    }));
    return words;
  }

  TempFolder folder_;
};

TEST_F(StartProgramTest, TheProgramStartsInTheCurrentFolder) {
  PutProgram();
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_EQ(Said().folder, std::filesystem::current_path().string());
}

TEST_F(StartProgramTest, TheProgramStartsInAnOrdinaryWindow) {
  PutProgram();
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_EQ(Said().show, SW_SHOWNORMAL);
}

TEST_F(StartProgramTest, TheProgramIsNotWaitedFor) {
  PutProgram();
  Hold();
  EXPECT_TRUE(StartProgram(Program()));
  EXPECT_FALSE(HasSaid());
  LetGo();
  Said();
}

TEST_F(StartProgramTest, TheProgramInheritsNoOpenFile) {
  PutProgram();
  Hold();
  const auto open_alone = [this] {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW((folder_.Path() / "file").c_str(), GENERIC_WRITE, 0, &inherited, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
  };
  const HANDLE before = open_alone();
  EXPECT_TRUE(StartProgram(Program()));
  CloseHandle(before);
  const HANDLE after = open_alone();
  EXPECT_NE(after, INVALID_HANDLE_VALUE);
  CloseHandle(after);
  LetGo();
  Said();
}

TEST_F(StartProgramTest, AMissingProgramIsSilent) {
  EXPECT_FALSE(StartProgram(Program()));
  EXPECT_EQ(warnings, 0);
}

TEST_F(StartProgramTest, AFileThatIsNoProgramIsSilent) {
  folder_.WriteFile("A PROGRAM.EXE", {});
  EXPECT_FALSE(StartProgram(Program()));
  EXPECT_EQ(warnings, 0);
}

}  // namespace
}  // namespace sorvane::test
