#include "texts/language_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_time_errors.h"
#include "texts/choices.h"
#include "texts/file_texts.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using test::TempFolder;
using test::WriteText;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A program folder, its menu and its messages.
class LanguageFilesTest : public ::testing::Test {
 protected:
  void Write(const std::string& language, const std::string& text) {
    WriteText(folder_, language + ".lng", text);
  }

  // Languages A, B, C and so on; the first line of each is its name.
  void WriteLanguages(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name(1, static_cast<char>('A' + i));
      Write(name, name + "\r\n");
    }
  }

  bool Compare(const std::string& in_use, const std::string& chosen) {
    Write("Old", in_use);
    Write("New", chosen);
    return CompareLanguageFiles(folder_.Path(), "Old.lng", "New.lng", choices_.messages);
  }

  bool Start() { return choices_.CeckLingue(); }
  bool Choose(int i) { return choices_.ChooseLanguage(i); }

  std::vector<int> Checked() const {
    std::vector<int> checked;
    for (int i = 0; i < MenuMarks::kLanguages; ++i) {
      if (choices_.marks.smnuLingue[static_cast<std::size_t>(i)].checked) checked.push_back(i);
    }
    return checked;
  }

  std::vector<std::string> Captions() const {
    std::vector<std::string> captions;
    for (const MenuMarks::Language& entry : choices_.marks.smnuLingue)
      captions.push_back(entry.caption);
    return captions;
  }

  int CountVisible() const {
    int count = 0;
    for (const MenuMarks::Language& entry : choices_.marks.smnuLingue)
      count += entry.visible ? 1 : 0;
    return count;
  }

  TempFolder folder_;
  Choices choices_{folder_.Path() / "Sorvane.ini"};
};

using MessageTableTest = LanguageFilesTest;

TEST_F(MessageTableTest, HasTheElements0To1000) {
  choices_.messages[0] = "first";
  choices_.messages[1000] = "last";
  EXPECT_EQ(choices_.messages[0], "first");
  EXPECT_EQ(choices_.messages[1000], "last");
}

TEST_F(MessageTableTest, IsEmptyAtTheStart) {
  for (int n = 0; n <= 1000; ++n) EXPECT_EQ(choices_.messages[n], "") << n;
}

TEST_F(MessageTableTest, Element1001IsASubscriptError) {
  EXPECT_EQ(ErrorOf([&] { choices_.messages[1001]; }), ErrorCode::kSubscriptOutOfRange);
}

TEST_F(MessageTableTest, ANegativeElementIsASubscriptError) {
  EXPECT_EQ(ErrorOf([&] { std::as_const(choices_.messages)[-1]; }),
            ErrorCode::kSubscriptOutOfRange);
}

TEST_F(LanguageFilesTest, LineNIsMessageNBlanksMarksAndAll) {
  Write("A", " one \r\n\r\n;--mark\r\nfour & more");
  LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages);
  EXPECT_EQ(choices_.messages[0], "");
  EXPECT_EQ(choices_.messages[1], " one ");
  EXPECT_EQ(choices_.messages[2], "");
  EXPECT_EQ(choices_.messages[3], ";--mark");
  EXPECT_EQ(choices_.messages[4], "four & more");
  EXPECT_EQ(choices_.messages[5], "");
}

TEST_F(LanguageFilesTest, ElementsBeyondTheFileKeepWhatTheyHeld) {
  choices_.messages[3] = "kept";
  Write("A", "one\r\ntwo\r\n");
  LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages);
  EXPECT_EQ(choices_.messages[2], "two");
  EXPECT_EQ(choices_.messages[3], "kept");
}

TEST_F(LanguageFilesTest, AThousandLinesAreLoaded) {
  std::string text;
  for (int n = 1; n <= 1000; ++n) text += "line " + std::to_string(n) + "\r\n";
  Write("A", text);
  LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages);
  EXPECT_EQ(choices_.messages[1000], "line 1000");
}

TEST_F(LanguageFilesTest, Line1001IsASubscriptError) {
  std::string text;
  for (int n = 1; n <= 1001; ++n) text += "x\n";
  Write("A", text);
  EXPECT_EQ(ErrorOf([&] { LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages); }),
            ErrorCode::kSubscriptOutOfRange);
}

TEST_F(LanguageFilesTest, ALineWithoutEndOverflowsWithTheLinesBeforeItLoaded) {
  Write("A", "one\r\n" + std::string(10001, 'x'));
  EXPECT_EQ(ErrorOf([&] { LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages); }),
            ErrorCode::kOverflow);
  EXPECT_EQ(choices_.messages[1], "one");
  EXPECT_EQ(choices_.messages[2], "");
}

TEST_F(LanguageFilesTest, ALineWithoutEndBehindTheEndOfTheFileInUseIsNotRead) {
  EXPECT_TRUE(Compare("one\r\n", "ONE\r\n" + std::string(10001, 'x')));
  EXPECT_EQ(choices_.messages[1], "ONE");
}

TEST_F(LanguageFilesTest, AMissingFileIsAnError) {
  EXPECT_EQ(ErrorOf([&] { LoadLanguageFile(folder_.Path(), "A.lng", choices_.messages); }),
            ErrorCode::kFileNotFound);
}

TEST_F(LanguageFilesTest, FilesOfEqualMarksFit) {
  EXPECT_TRUE(Compare(";--a\r\nold\r\n;--b\r\n", ";--a\r\nnew\r\n;--b\r\n"));
  EXPECT_EQ(choices_.messages[1], ";--a");
  EXPECT_EQ(choices_.messages[2], "new");
  EXPECT_EQ(choices_.messages[3], ";--b");
}

TEST_F(LanguageFilesTest, AFileLongerThanTheOneInUseFits) {
  EXPECT_TRUE(Compare("one\r\n", "ONE\r\nTWO\r\n"));
}

TEST_F(LanguageFilesTest, LinesBehindTheEndOfTheFileInUseAreNotLoaded) {
  choices_.messages[2] = "kept";
  Compare("one\r\n", "ONE\r\nTWO\r\n");
  EXPECT_EQ(choices_.messages[1], "ONE");
  EXPECT_EQ(choices_.messages[2], "kept");
}

TEST_F(LanguageFilesTest, AMarkOfDifferentTextFits) {
  EXPECT_TRUE(Compare(";--settings\r\n", ";--impostazioni\r\n"));
  EXPECT_EQ(choices_.messages[1], ";--impostazioni");
}

TEST_F(LanguageFilesTest, AMarkThatTheFileInUseLacksFits) {
  EXPECT_TRUE(Compare("one\r\n", ";--one\r\n"));
  EXPECT_EQ(choices_.messages[1], ";--one");
}

TEST_F(LanguageFilesTest, AMissingMarkIsRefusedWithTheLinesBeforeItLoaded) {
  choices_.messages[2] = "kept";
  EXPECT_FALSE(Compare("one\r\n;--mark\r\nthree\r\n", "ONE\r\ntwo\r\n;--mark\r\n"));
  EXPECT_EQ(choices_.messages[1], "ONE");
  EXPECT_EQ(choices_.messages[2], "kept");
}

TEST_F(LanguageFilesTest, TwoCharactersOfAMarkAreNone) {
  EXPECT_FALSE(Compare(";--mark\r\n", ";-\r\n"));
}

TEST_F(LanguageFilesTest, AMarkStandsAtTheBeginningOfItsLine) {
  EXPECT_FALSE(Compare(";--mark\r\n", " ;--mark\r\n"));
}

TEST_F(LanguageFilesTest, AShorterFileIsRefused) {
  EXPECT_FALSE(Compare("one\r\ntwo\r\n", "ONE\r\n"));
  EXPECT_EQ(choices_.messages[1], "ONE");
}

TEST_F(LanguageFilesTest, ComparingWithAMissingFileIsAnError) {
  Write("A", "one\r\n");
  const auto compare = [&](const char* in_use, const char* chosen) {
    CompareLanguageFiles(folder_.Path(), in_use, chosen, choices_.messages);
  };
  EXPECT_EQ(ErrorOf([&] { compare("A.lng", "B.lng"); }), ErrorCode::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { compare("B.lng", "A.lng"); }), ErrorCode::kFileNotFound);
  EXPECT_EQ(choices_.messages[1], "");
}

TEST_F(LanguageFilesTest, TheMenuShowsTheBaseNamesOfTheFiles) {
  Write("Italiano", "");
  Write("English", "");
  FindLanguages(folder_.Path(), choices_.marks);
  EXPECT_THAT(Captions(), ElementsAre("English", "Italiano", "", "", "", "", "", "", "", ""));
  EXPECT_EQ(CountVisible(), 2);
}

TEST_F(LanguageFilesTest, ElevenFilesListTenLanguages) {
  WriteLanguages(11);
  FindLanguages(folder_.Path(), choices_.marks);
  EXPECT_EQ(CountVisible(), 10);
}

TEST_F(LanguageFilesTest, TheFirstTenNamesAreListed) {
  for (const char* name : {"k", "J", "i", "H", "g", "F", "e", "D", "c", "B", "a"}) Write(name, "");
  FindLanguages(folder_.Path(), choices_.marks);
  EXPECT_THAT(Captions(), ElementsAre("a", "B", "c", "D", "e", "F", "g", "H", "i", "J"));
}

TEST_F(LanguageFilesTest, WithoutFilesOnlyTheEmptyFirstEntryShows) {
  EXPECT_THAT(FindLanguages(folder_.Path(), choices_.marks), IsEmpty());
  EXPECT_THAT(Captions(), Each(""));
  EXPECT_EQ(CountVisible(), 1);
}

TEST_F(LanguageFilesTest, StartWithoutLanguageFilesFails) {
  EXPECT_FALSE(Start());
  EXPECT_THAT(Checked(), IsEmpty());
}

TEST_F(LanguageFilesTest, StartWithoutANameTakesTheFirstLanguage) {
  WriteLanguages(3);
  EXPECT_TRUE(Start());
  EXPECT_EQ(choices_.messages[1], "A");
  EXPECT_EQ(choices_.LanguageName, "A");
  EXPECT_THAT(Checked(), ElementsAre(0));
}

TEST_F(LanguageFilesTest, StartLoadsTheNamedLanguageAndChecksItsEntry) {
  WriteLanguages(3);
  choices_.LanguageName = "C";
  EXPECT_TRUE(Start());
  EXPECT_EQ(choices_.messages[1], "C");
  EXPECT_EQ(choices_.LanguageName, "C");
  EXPECT_THAT(Checked(), ElementsAre(2));
}

TEST_F(LanguageFilesTest, StartWithAnUnknownNameTakesTheFirstLanguage) {
  WriteLanguages(3);
  choices_.LanguageName = "Z";
  Start();
  EXPECT_EQ(choices_.LanguageName, "A");
  EXPECT_THAT(Checked(), ElementsAre(0));
}

TEST_F(LanguageFilesTest, ANameInOtherCaseIsUnknown) {
  WriteLanguages(3);
  choices_.LanguageName = "b";
  Start();
  EXPECT_EQ(choices_.LanguageName, "A");
}

TEST_F(LanguageFilesTest, TheLanguageOfEntry8IsRestored) {
  WriteLanguages(10);
  choices_.LanguageName = "I";
  Start();
  EXPECT_EQ(choices_.messages[1], "I");
  EXPECT_THAT(Checked(), ElementsAre(8));
}

TEST_F(LanguageFilesTest, TheLanguageOfEntry9IsNotRestored) {
  WriteLanguages(10);
  choices_.LanguageName = "J";
  Start();
  EXPECT_EQ(choices_.messages[1], "A");
  EXPECT_EQ(choices_.LanguageName, "A");
  EXPECT_THAT(Checked(), ElementsAre(0));
}

TEST_F(LanguageFilesTest, TheFirstFileIsLoadedUnderTheNameThatItHas) {
  WriteText(folder_, "A.LNG", "upper\r\n");
  Start();
  EXPECT_EQ(choices_.messages[1], "upper");
}

TEST_F(LanguageFilesTest, ALanguageWithItsExtensionInOtherCaseCanBeChosen) {
  WriteLanguages(1);
  WriteText(folder_, "B.LNG", "upper\r\n");
  Start();
  EXPECT_TRUE(Choose(1));
  EXPECT_EQ(choices_.messages[1], "upper");
}

TEST_F(LanguageFilesTest, AChosenLanguageThatFitsIsLoadedAndChecked) {
  WriteLanguages(3);
  Start();
  EXPECT_TRUE(Choose(1));
  EXPECT_EQ(choices_.messages[1], "B");
  EXPECT_EQ(choices_.LanguageName, "B");
  EXPECT_THAT(Checked(), ElementsAre(1));
}

TEST_F(LanguageFilesTest, TheLanguageInUseCanBeChosenAgain) {
  WriteLanguages(2);
  Start();
  EXPECT_TRUE(Choose(0));
  EXPECT_THAT(Checked(), ElementsAre(0));
}

class RefusedLanguageTest : public LanguageFilesTest {
 protected:
  void SetUp() override {
    Write("A", "one\r\n;--mark\r\n");
    Write("B", "ONE\r\nno mark\r\n");
    Start();
    EXPECT_FALSE(Choose(1));
  }
};

TEST_F(RefusedLanguageTest, TheCheckMarkGoesBackToTheOldLanguage) {
  EXPECT_THAT(Checked(), ElementsAre(0));
}

TEST_F(RefusedLanguageTest, TheOldLanguageIsLoadedAgain) { EXPECT_EQ(choices_.messages[1], "one"); }

TEST_F(RefusedLanguageTest, LanguageNameIsTheOldOne) { EXPECT_EQ(choices_.LanguageName, "A"); }

TEST_F(LanguageFilesTest, OfSeveralCheckedEntriesTheLastIsTheOneInUse) {
  WriteLanguages(2);
  Write("C", "C\r\n;--mark\r\n");
  FindLanguages(folder_.Path(), choices_.marks);
  choices_.marks.smnuLingue[0].checked = true;
  choices_.marks.smnuLingue[2].checked = true;
  EXPECT_FALSE(Choose(1));
  EXPECT_EQ(choices_.LanguageName, "C");
  EXPECT_THAT(Checked(), ElementsAre(2));
}

TEST_F(LanguageFilesTest, AMarkOnAnUnusedEntryEndsTheFirstChoiceInFileNotFound) {
  WriteLanguages(2);
  WriteText(folder_, "Sorvane.ini", "Com=1\r\nLingua=B\r\n");
  ASSERT_TRUE(choices_.ReadSettings());
  ASSERT_TRUE(Start());
  EXPECT_THAT(Checked(), ElementsAre(0, 2));
  EXPECT_EQ(ErrorOf([&] { Choose(1); }), ErrorCode::kFileNotFound);
}

TEST(LanguageBoxes, SpeakTheirWords) {
  EXPECT_EQ(NoLanguageBox(), (MessageBox{"File missing!\nReinstall program", "Error", 16}));
  EXPECT_EQ(WrongFileBox(), (MessageBox{"Check file message !!!", "Wrong file", 48}));
}

}  // namespace
}  // namespace sorvane
