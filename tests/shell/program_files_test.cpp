#include <gtest/gtest.h>

#include <QAction>
#include <filesystem>

#include "shell/program.h"
#include "support/scarce_memory.h"

// Files of the program folder that can't be read or written, or have a folder in their place.
namespace sorvane::test {
namespace {

constexpr const char* kAccessError = "Run-time error '75':\n\nPath/File access error";
constexpr const char* kNotFound = "Run-time error '53':\n\nFile not found";
constexpr const char* kOverflow = "Run-time error '6':\n\nOverflow";
constexpr const char* kSubscript = "Run-time error '9':\n\nSubscript out of range";

// A folder where the program looks for a file.
void PutFolder(const Program& program, const std::string& name) {
  std::filesystem::remove(program.link.folder.Path() / name);
  std::filesystem::create_directory(program.link.folder.Path() / name);
}

// The program has ended with a report, and saves and hands over nothing on its way out.
void ExpectReport(Program& program, const std::string& report) {
  EXPECT_EQ(program.reports, std::vector<std::string>{report});
  EXPECT_TRUE(program.gate.IsShut());
  program.link.dialogs.ExpectNone();
  program.frame->close();
  EXPECT_TRUE(program.started.empty());
}

TEST(IndexFiles, AreThoseOfTheBoardThatIsServedWhateverStoodInTheTables) {
  Program program;
  program.link.tables.BoardTypeNumber = 17;
  program.link.tables.BoardSoftwareNumber = 3;
  program.Start();
  EXPECT_EQ(program.link.tables.IndexType, 309);
  EXPECT_EQ(program.link.tables.IndexSoftware, 0);
  program.link.dialogs.ExpectNone();
}

TEST(SettingsFile, ThatIsAFolderCountsAsNone) {
  Program program({.settings = ""});
  PutFolder(program, "Sorvane.ini");
  program.Start();
  EXPECT_TRUE(program.frame->isVisible());
  EXPECT_TRUE(program.Entry("mnuCox(1)").isChecked());
  EXPECT_TRUE(program.Entry("smnuLingue(0)").isChecked());
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
  EXPECT_TRUE(program.reports.empty());
}

TEST(SettingsFile, ThatIsAFolderEndsTheProgramWhenAPortIsChosen) {
  Program program;
  program.Start();
  PutFolder(program, "Sorvane.ini");
  program.Choose("mnuCox(2)");
  ExpectReport(program, kAccessError);
}

TEST(SettingsFile, ThatIsAFolderEndsTheProgramWhenTheAdapterIsChosen) {
  Program program({.usb_port = "COM5"});
  program.Start();
  PutFolder(program, "Sorvane.ini");
  program.Choose("mnuUSB");
  ExpectReport(program, kAccessError);
}

TEST(SettingsFile, ThatIsAFolderEndsTheProgramWhenALanguageIsChosen) {
  Program program;
  program.Start();
  PutFolder(program, "Sorvane.ini");
  program.Choose("smnuLingue(3)");
  ExpectReport(program, kAccessError);
}

TEST(SettingsFile, OfOddBytesIsReadAsFarAsItGoes) {
  const std::string odd = std::string("\0\xFF\xFE", 3) + "3\r\n" + std::string(10, '\0');
  Program program({.settings = odd});
  program.Start();
  EXPECT_TRUE(program.frame->isVisible());
  EXPECT_TRUE(program.Entry("mnuCox(3)").isChecked());
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
}

TEST(LanguageFile, ThatIsAFolderIsNoLanguage) {
  Program program({.language_files = false});
  PutFolder(program, "Alfa.lng");
  program.Start();
  program.link.dialogs.Expect("File missing!\nReinstall program", "Error", 16);
  EXPECT_FALSE(program.frame->isVisible());
}

TEST(LanguageFile, OfTheSettingsThatIsAFolderGivesWayToTheFirstLanguage) {
  Program program({.settings = "Com=3\r\nLingua=Charlie\r\n"});
  PutFolder(program, "Charlie.lng");
  program.Start();
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=3\r\nLingua=\r\n");
}

TEST(LanguageFile, ThatHasGoneEndsTheProgramWhenItIsChosen) {
  Program program;
  program.Start();
  program.link.folder.RemoveFile("Delta.lng");
  program.Choose("smnuLingue(3)");
  ExpectReport(program, kNotFound);
}

TEST(LanguageFile, ThatHasBecomeAFolderEndsTheProgramWhenItIsChosen) {
  Program program;
  program.Start();
  PutFolder(program, "Delta.lng");
  program.Choose("smnuLingue(3)");
  ExpectReport(program, kNotFound);
}

TEST(LanguageFile, InUseThatHasGoneEndsTheProgramWhenAnotherIsChosen) {
  Program program;
  program.Start();
  program.link.folder.RemoveFile("Alfa.lng");
  program.Choose("smnuLingue(3)");
  ExpectReport(program, kNotFound);
}

TEST(LanguageFile, ThatIsTooLongEndsTheStartWithTheReport) {
  Program program;
  std::string lines;
  for (int line = 1; line <= 1001; ++line) lines += "x\r\n";
  program.WriteText("Alfa.lng", lines);
  program.Start();
  EXPECT_FALSE(program.frame->isVisible());
  ExpectReport(program, kSubscript);
}

TEST(LanguageFile, OfALineWithoutEndEndsTheStartWithTheReport) {
  Program program;
  program.WriteText("Alfa.lng", "one\r\n");
  std::filesystem::resize_file(program.link.folder.Path() / "Alfa.lng", std::size_t{64} << 20);
  {
    const ScarceMemory memory(std::size_t{1} << 20);
    program.Start();
  }
  EXPECT_FALSE(program.frame->isVisible());
  ExpectReport(program, kOverflow);
}

TEST(LanguageFile, ThatIsEmptyLeavesTheCaptionsEmpty) {
  Program program;
  program.WriteText("Alfa.lng", "");
  program.Connect();
  program.Open("MnuSconti");
  EXPECT_EQ(program.Entry("MnuSconti").text(), "");
  EXPECT_TRUE(program.IsOpen("FrmSconti"));
  EXPECT_TRUE(program.reports.empty());
}

TEST(IndexFile, OfTheFirstLevelThatIsAFolderCountsAsMissing) {
  Program program;
  PutFolder(program, "W0309.inx");
  program.Start();
  program.link.dialogs.Expect(" not found !", "ERROR", 16);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(IndexFile, OfTheSecondLevelThatIsAFolderCountsAsMissing) {
  Program program;
  PutFolder(program, "W0309AA00.inx");
  program.Start();
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(IndexFile, ThatMemoryDoesntHoldCountsAsMissing) {
  Program program;
  const Bytes longest(32767 * 9, 0);
  program.link.folder.WriteFile("W0309AA00.inx", longest);
  {
    const ScarceMemory memory(longest.size() - 1);
    program.Start();
  }
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  EXPECT_TRUE(program.reports.empty());
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(IndexFile, ThatHasNoEndCountsAsMissing) {
  Program program;
  std::filesystem::resize_file(program.link.folder.Path() / "W0309AA00.inx", std::size_t{64} << 20);
  {
    const ScarceMemory memory(std::size_t{1} << 20);
    program.Start();
  }
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  EXPECT_TRUE(program.reports.empty());
}

TEST(IndexFile, OfAConnectionThatIsShorterLeavesNothingOfTheDefaultOne) {
  Program program;
  program.Start();
  ASSERT_NE(program.link.Record(400), ParameterRecord());
  program.link.folder.WriteFile("W0309AA07.inx", SecondLevelBytes(PlainRows(300)));
  program.link.SetSystem(17, 7);
  program.Connect();
  EXPECT_EQ(program.link.tables.RecordCount(0), 300);
  EXPECT_NE(program.link.Record(300), ParameterRecord());
  for (const int k : {301, 400, 419}) EXPECT_EQ(program.link.Record(k), ParameterRecord()) << k;
}

TEST(IndexFile, ThatHasGoneSinceTheStartEndsTheConnectionAndTheProgram) {
  Program program;
  program.Start();
  program.link.folder.RemoveFile("W0309AA00.inx");
  program.Choose("mnuConnect");
  program.gate.Run([&] { program.link.clock.Advance(0); });
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
  EXPECT_FALSE(program.Entry("MnuSconti").isEnabled());
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.link.ended, 1);
}

TEST(IndexFile, ThatIsEmptyLeavesAnIdleProgramWithoutRecords) {
  Program program;
  program.WriteText("W0309.inx", "");
  program.WriteText("W0309AA00.inx", "");
  program.Start();
  EXPECT_EQ(program.link.tables.RecordCount(0), 0);
  EXPECT_TRUE(program.Entry("mnuConnect").isEnabled());
  program.link.dialogs.ExpectNone();
}

TEST(ProgramFolder, ThatHasGoneIsNoHindranceToLeaving) {
  Program program;
  program.Start();
  std::filesystem::current_path(std::filesystem::temp_directory_path());
  std::filesystem::remove_all(program.link.folder.Path());
  program.Close();
  EXPECT_TRUE(program.started.empty());
  EXPECT_TRUE(program.reports.empty());
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

}  // namespace
}  // namespace sorvane::test
