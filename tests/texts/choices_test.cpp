#include "texts/choices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_time_errors.h"
#include "texts/file_texts.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using test::ReadText;
using test::TempFolder;
using test::WriteText;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSettingsFile = "Sorvane.ini";

// A program folder, with one language unless a test says otherwise, and one run of the program.
class SettingsTest : public ::testing::Test {
 protected:
  void WriteLanguages(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name(1, static_cast<char>('A' + i));
      WriteText(folder_, name + ".lng", name + "\r\n");
    }
  }

  bool Read() { return choices_.ReadSettings(); }

  void ReadFrom(const std::string& text) {
    WriteText(folder_, kSettingsFile, text);
    WriteLanguages(1);
    EXPECT_TRUE(Read());
  }

  // The program is left and started again.
  void Restart() {
    Save();
    choices_ = Choices(Path());
    EXPECT_TRUE(Read());
    EXPECT_TRUE(choices_.CeckLingue());
  }

  void Save() { choices_.SaveSettings(); }
  void ChoosePort(uint8_t i) { choices_.ChooseCox(i); }
  bool ChooseAdapter(const std::string& name) {
    return choices_.ChooseUsb([&] { return name; });
  }

  std::filesystem::path Path() const { return folder_.Path() / kSettingsFile; }
  std::string File() const { return ReadText(folder_, kSettingsFile); }

  // The ports whose entries are checked; 0 is the USB adapter's.
  std::vector<int> CheckedPorts() {
    std::vector<int> checked;
    for (int i = 1; i <= 4; ++i) {
      if (choices_.marks.mnuCox(i)) checked.push_back(i);
    }
    if (choices_.marks.mnuUSB) checked.push_back(0);
    return checked;
  }

  std::vector<std::size_t> CheckedLanguages() const {
    std::vector<std::size_t> checked;
    for (std::size_t i = 0; i < choices_.marks.smnuLingue.size(); ++i) {
      if (choices_.marks.smnuLingue[i].checked) checked.push_back(i);
    }
    return checked;
  }

  TempFolder folder_;
  Choices choices_{Path()};
};

TEST_F(SettingsTest, NothingIsCheckedBeforeTheStart) {
  EXPECT_THAT(CheckedPorts(), IsEmpty());
  EXPECT_EQ(choices_.PortNumber, 1);
}

TEST_F(SettingsTest, WithoutAFilePort1IsCheckedAndNoLanguageNamed) {
  WriteLanguages(1);
  EXPECT_TRUE(Read());
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_THAT(CheckedPorts(), ElementsAre(1));
  EXPECT_EQ(choices_.LanguageName, "");
}

TEST_F(SettingsTest, AMissingFileIsNotCreatedAtTheStart) {
  WriteLanguages(1);
  Read();
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / kSettingsFile));
}

TEST_F(SettingsTest, AnEmptyFileReadsLikeNone) {
  ReadFrom("");
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_THAT(CheckedPorts(), ElementsAre(1));
}

TEST_F(SettingsTest, AFirstLineWithoutEndReadsLikeNone) {
  ReadFrom(std::string(20000, '3'));
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_THAT(CheckedPorts(), ElementsAre(1));
}

TEST_F(SettingsTest, LinesBehindTheSecondAreNotRead) {
  ReadFrom("Com=3\r\nLingua=\r\n" + std::string(20000, 'x'));
  EXPECT_EQ(choices_.PortNumber, 3);
  EXPECT_THAT(CheckedPorts(), ElementsAre(3));
}

TEST_F(SettingsTest, AFolderInPlaceOfTheFileReadsLikeNone) {
  std::filesystem::create_directory(folder_.Path() / kSettingsFile);
  WriteLanguages(1);
  EXPECT_TRUE(Read());
  EXPECT_THAT(CheckedPorts(), ElementsAre(1));
}

TEST_F(SettingsTest, ALineThatEndsIn1To4NamesThePort) {
  for (int port = 1; port <= 4; ++port) {
    choices_ = Choices(Path());
    ReadFrom("Com=" + std::to_string(port) + "\r\nLingua=\r\n");
    EXPECT_EQ(choices_.PortNumber, port);
    EXPECT_THAT(CheckedPorts(), ElementsAre(port));
  }
}

TEST_F(SettingsTest, OtherDigitsLeadToPort1Unchecked) {
  for (const char digit : {'0', '5', '6', '7', '8', '9'}) {
    choices_ = Choices(Path());
    ReadFrom(std::string("Com=") + digit + "\r\nLingua=English\r\n");
    EXPECT_EQ(choices_.PortNumber, 1) << digit;
    EXPECT_THAT(CheckedPorts(), IsEmpty()) << digit;
    EXPECT_EQ(choices_.LanguageName, "") << digit;
  }
}

TEST_F(SettingsTest, ANonDigitLeadsToPort1Checked) {
  for (const char* line : {"Com=x", "Com=3 ", "Com=", "", "Com=-", "Com=\xB2"}) {
    choices_ = Choices(Path());
    ReadFrom(std::string(line) + "\r\nLingua=English\r\n");
    EXPECT_EQ(choices_.PortNumber, 1) << line;
    EXPECT_THAT(CheckedPorts(), ElementsAre(1)) << line;
    EXPECT_EQ(choices_.LanguageName, "") << line;
  }
}

TEST_F(SettingsTest, AfterAnErrorTheLanguageIsNotRead) {
  WriteLanguages(10);
  WriteText(folder_, kSettingsFile, "Com=5\r\nLingua=B\r\n");
  Read();
  EXPECT_EQ(choices_.LanguageName, "");
}

TEST_F(SettingsTest, OneLineOnlyLeadsToPort1BesideTheMarkOfTheNamedPort) {
  for (const char* text : {"Com=3", "Com=3\r\n", "My own port is Com=3"}) {
    choices_ = Choices(Path());
    ReadFrom(text);
    EXPECT_EQ(choices_.PortNumber, 1) << text;
    EXPECT_EQ(choices_.LanguageName, "") << text;
    EXPECT_THAT(CheckedPorts(), ElementsAre(3)) << text;
  }
}

TEST_F(SettingsTest, AMissingSecondLineNamesNoLanguageHoweverLongTheFirst) {
  WriteLanguages(10);
  WriteText(folder_, kSettingsFile, "My own port is Com=3\r\n");
  Read();
  EXPECT_EQ(choices_.LanguageName, "");
}

TEST_F(SettingsTest, AShortSecondLineLeadsToPort1BesideTheMarkOfTheNamedPort) {
  ReadFrom("Com=2\r\nLingua\r\n");
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_EQ(choices_.LanguageName, "");
  EXPECT_THAT(CheckedPorts(), ElementsAre(2));
}

TEST_F(SettingsTest, AnEmptyLanguageStartsOnTheNamedPortWithTheFirstLanguage) {
  ReadFrom("Com=3\r\nLingua=\r\n");
  EXPECT_TRUE(choices_.CeckLingue());
  EXPECT_EQ(choices_.PortNumber, 3);
  EXPECT_THAT(CheckedPorts(), ElementsAre(3));
  EXPECT_EQ(choices_.LanguageName, "A");
  EXPECT_THAT(CheckedLanguages(), ElementsAre(0));
}

TEST_F(SettingsTest, AnEmptySecondLineStartsOnPort1WithTheNamedPortChecked) {
  ReadFrom("Com=3\r\n\r\n");
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_THAT(CheckedPorts(), ElementsAre(3));
}

TEST_F(SettingsTest, OnlyTheLastCharacterOfLine1Counts) {
  ReadFrom("Com=12\r\nLingua=\r\n");
  EXPECT_EQ(choices_.PortNumber, 2);
  EXPECT_THAT(CheckedPorts(), ElementsAre(2));
}

TEST_F(SettingsTest, TheKeysAreNotLookedAt) {
  WriteLanguages(10);
  WriteText(folder_, kSettingsFile, "4\nSprache:B\n");
  Read();
  EXPECT_EQ(choices_.PortNumber, 4);
  EXPECT_EQ(choices_.LanguageName, ":B");
}

TEST_F(SettingsTest, WithTenLanguageFilesTheLanguageSurvives) {
  WriteLanguages(10);
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  EXPECT_TRUE(Read());
  EXPECT_EQ(choices_.LanguageName, "B");
  EXPECT_THAT(CheckedLanguages(), IsEmpty());
  EXPECT_EQ(File(), "Com=2\r\nLingua=B\r\n");
}

TEST_F(SettingsTest, WithNineLanguageFilesTheLanguageIsDropped) {
  WriteLanguages(9);
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  EXPECT_TRUE(Read());
  EXPECT_EQ(choices_.LanguageName, "");
}

TEST_F(SettingsTest, DroppingTheLanguageWritesTheFile) {
  WriteLanguages(9);
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  Read();
  EXPECT_EQ(File(), "Com=2\r\nLingua=\r\n");
}

TEST_F(SettingsTest, DroppingTheLanguageChecksTheFirstUnusedEntry) {
  WriteLanguages(3);
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  Read();
  EXPECT_THAT(CheckedLanguages(), ElementsAre(3));
  EXPECT_FALSE(choices_.marks.smnuLingue[3].visible);
}

TEST_F(SettingsTest, TheMarkOnTheUnusedEntryStaysBesideTheFirstLanguages) {
  WriteLanguages(3);
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  Read();
  EXPECT_TRUE(choices_.CeckLingue());
  EXPECT_THAT(CheckedLanguages(), ElementsAre(0, 3));
}

TEST_F(SettingsTest, WithoutLanguageFilesReadingFails) {
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  EXPECT_FALSE(Read());
}

TEST_F(SettingsTest, WithoutLanguageFilesNothingIsSaved) {
  WriteText(folder_, kSettingsFile, "Com=2\r\nLingua=B\r\n");
  Read();
  EXPECT_EQ(File(), "Com=2\r\nLingua=B\r\n");
  EXPECT_THAT(CheckedLanguages(), IsEmpty());
}

TEST_F(SettingsTest, TheFileIsTwoLinesOfPortAndCheckedLanguage) {
  choices_.PortNumber = 3;
  choices_.LanguageName = "not asked";
  choices_.marks.smnuLingue[4].caption =
      "Fran\xE7"
      "ais";
  choices_.marks.smnuLingue[4].checked = true;
  WriteText(folder_, kSettingsFile, "an older file, longer than the new one will be");
  Save();
  EXPECT_EQ(File(),
            "Com=3\r\nLingua=Fran\xE7"
            "ais\r\n");
}

TEST_F(SettingsTest, OfSeveralCheckedLanguagesTheFirstIsSaved) {
  choices_.marks.smnuLingue[1].caption = "B";
  choices_.marks.smnuLingue[1].checked = true;
  choices_.marks.smnuLingue[2].caption = "C";
  choices_.marks.smnuLingue[2].checked = true;
  Save();
  EXPECT_EQ(File(), "Com=1\r\nLingua=B\r\n");
}

TEST_F(SettingsTest, WithNoCheckedLanguageTheFirstEntryIsSaved) {
  choices_.marks.smnuLingue[0].caption = "A";
  Save();
  EXPECT_EQ(File(), "Com=1\r\nLingua=A\r\n");
}

TEST_F(SettingsTest, TheLanguageOfEntry9IsSavedLikeAnyOther) {
  WriteLanguages(10);
  Restart();
  EXPECT_TRUE(choices_.ChooseLanguage(9));
  Save();
  EXPECT_EQ(File(), "Com=1\r\nLingua=J\r\n");
}

TEST_F(SettingsTest, AFileThatCannotBeWrittenIsAnError) {
  std::filesystem::create_directory(folder_.Path() / kSettingsFile);
  EXPECT_EQ(ErrorOf([&] { Save(); }), ErrorCode::kFileAccess);
}

TEST_F(SettingsTest, AChosenPortIsCheckedAloneAndSaved) {
  WriteLanguages(1);
  Restart();
  choices_.marks.mnuUSB = true;
  ChoosePort(4);
  EXPECT_EQ(choices_.PortNumber, 4);
  EXPECT_THAT(CheckedPorts(), ElementsAre(4));
  EXPECT_EQ(File(), "Com=4\r\nLingua=A\r\n");
}

TEST_F(SettingsTest, APortAbove4CountsAsTheAdapters) {
  choices_.marks.mnuCox(1) = true;
  ChoosePort(5);
  EXPECT_THAT(CheckedPorts(), ElementsAre(0));
  EXPECT_EQ(File(), "Com=5\r\nLingua=\r\n");
}

TEST_F(SettingsTest, TheMenuHasNoPort0AndNoPort5) {
  EXPECT_EQ(ErrorOf([&] { choices_.marks.mnuCox(0); }), ErrorCode::kNoSuchElement);
  EXPECT_EQ(ErrorOf([&] { choices_.marks.mnuCox(5); }), ErrorCode::kNoSuchElement);
}

TEST_F(SettingsTest, AFoundAdapterIsCheckedAloneAndSaved) {
  ChoosePort(2);
  EXPECT_TRUE(ChooseAdapter("COM5"));
  EXPECT_EQ(choices_.PortNumber, 5);
  EXPECT_THAT(CheckedPorts(), ElementsAre(0));
  EXPECT_EQ(File(), "Com=5\r\nLingua=\r\n");
}

TEST_F(SettingsTest, AfterAMissingAdapterNothingIsChecked) {
  ChoosePort(3);
  EXPECT_FALSE(ChooseAdapter(""));
  EXPECT_THAT(CheckedPorts(), IsEmpty());
}

TEST_F(SettingsTest, AMissingAdapterTakesTheMarkFromTheAdapterToo) {
  ChooseAdapter("COM5");
  ChooseAdapter("");
  EXPECT_THAT(CheckedPorts(), IsEmpty());
}

TEST_F(SettingsTest, AfterAMissingAdapterTheOldPortIsWhatTheNextSaveWrites) {
  ChoosePort(3);
  WriteText(folder_, kSettingsFile, "untouched");
  ChooseAdapter("");
  EXPECT_EQ(choices_.PortNumber, 3);
  EXPECT_EQ(File(), "untouched");
  Save();
  EXPECT_EQ(File(), "Com=3\r\nLingua=\r\n");
}

TEST_F(SettingsTest, AnAdapterOnCom5IsPort1UncheckedAfterARestart) {
  WriteLanguages(1);
  ChooseAdapter("COM5");
  Restart();
  EXPECT_EQ(choices_.PortNumber, 1);
  EXPECT_THAT(CheckedPorts(), IsEmpty());
}

TEST_F(SettingsTest, AnAdapterOnCom5IsSavedAsPort1AfterARestart) {
  WriteLanguages(1);
  ChooseAdapter("COM5");
  Restart();
  Save();
  EXPECT_EQ(File(), "Com=1\r\nLingua=A\r\n");
}

TEST_F(SettingsTest, AnAdapterOnCom12IsSavedAs12) {
  ChooseAdapter("COM12");
  EXPECT_EQ(choices_.PortNumber, 12);
  EXPECT_EQ(File(), "Com=12\r\nLingua=\r\n");
}

TEST_F(SettingsTest, AnAdapterOnCom12ComesBackAsPort2) {
  WriteLanguages(1);
  ChooseAdapter("COM12");
  Restart();
  EXPECT_EQ(choices_.PortNumber, 2);
  EXPECT_THAT(CheckedPorts(), ElementsAre(2));
}

TEST_F(SettingsTest, AnAdaptersNameWithoutANumberIsATypeError) {
  for (const char* name : {"COM", "CO", "COMx", "COM5:", "COM "}) {
    EXPECT_EQ(ErrorOf([&] { ChooseAdapter(name); }), ErrorCode::kTypeMismatch) << name;
  }
  EXPECT_EQ(choices_.PortNumber, 1);
}

TEST_F(SettingsTest, AnAdaptersNumberAbove255Overflows) {
  EXPECT_TRUE(ChooseAdapter("COM255"));
  EXPECT_EQ(ErrorOf([&] { ChooseAdapter("COM256"); }), ErrorCode::kOverflow);
  EXPECT_EQ(choices_.PortNumber, 255);
}

TEST(SettingsFile, BearsTheNameOfTheProgram) {
  const std::filesystem::path folder = "folder";
  EXPECT_EQ(SettingsFile(folder / "Sorvane"), folder / "Sorvane.ini");
  EXPECT_EQ(SettingsFile(folder / "Sorvane.exe"), folder / "Sorvane.ini");
  EXPECT_EQ(SettingsFile(folder / "DEMO.EXE"), folder / "DEMO.ini");
  EXPECT_EQ(SettingsFile(folder / u8"Prüfstand 日本.exe"), folder / u8"Prüfstand 日本.ini");
}

TEST(SettingsFile, KeepsTheDotsOfTheName) {
  EXPECT_EQ(SettingsFile("Sorvane 1.2"), "Sorvane 1.2.ini");
  EXPECT_EQ(SettingsFile("Sorvane 1.2.exe"), "Sorvane 1.2.ini");
  EXPECT_EQ(SettingsFile("Sorvane.exe.old"), "Sorvane.exe.old.ini");
  EXPECT_EQ(SettingsFile("Sorvane.ini"), "Sorvane.ini.ini");
  EXPECT_EQ(SettingsFile(u8"Sorvane.日本"), std::filesystem::path(u8"Sorvane.日本.ini"));
}

TEST(SettingsBox, SpeaksItsWords) {
  EXPECT_EQ(
      NoUsbPortBox(),
      (MessageBox{"USB port not available\rPlease select a different COM port", "Error", 16}));
}

}  // namespace
}  // namespace sorvane
