#include "language_check/language_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kLineCount = 102;

// A folder of two small languages, "Prima" as the reference and "Seconda", which fit each other
// until a test changes a line.
class LanguageCheckTest : public ::testing::Test {
 protected:
  LanguageCheckTest() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(::testing::TempDir()) /
              (std::string("language_check_") + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    const std::set<int> marks = {16, 20, 31, 35, 37, 40, 44, 57, 67, 74, 76, 78};
    for (int line = 1; line <= kLineCount; ++line) {
      const bool mark = marks.contains(line);
      prima_.push_back(mark ? ";-- marca" : "p" + std::to_string(line));
      seconda_.push_back(mark ? ";-- other words" : "s" + std::to_string(line));
    }
  }

  ~LanguageCheckTest() override { std::filesystem::remove_all(folder_); }

  std::string& Prima(int line) { return prima_.at(static_cast<std::size_t>(line - 1)); }
  std::string& Seconda(int line) { return seconda_.at(static_cast<std::size_t>(line - 1)); }

  void Write(const std::string& file, std::string_view bytes) const {
    std::ofstream(folder_ / file, std::ios::binary) << bytes;
  }

  // Each finding as it is printed.
  std::vector<std::string> Findings() {
    WriteLanguages();
    std::vector<std::string> found;
    for (const Finding& finding : CheckLanguages(folder_, "Prima")) {
      found.push_back(finding.file + ":" + std::to_string(finding.line) + ": " + finding.words);
    }
    return found;
  }

  void WriteLanguages() const {
    Write("Prima.lng", Joined(prima_));
    Write("Seconda.lng", Joined(seconda_));
  }

  static std::string Joined(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return bytes;
  }

  std::filesystem::path folder_;
  std::vector<std::string> prima_;
  std::vector<std::string> seconda_;
};

TEST_F(LanguageCheckTest, FilesThatFitEachOtherHaveNoFinding) {
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(LanguageCheckTest, EachMissingLineIsFound) {
  seconda_.resize(100);
  EXPECT_THAT(Findings(),
              ElementsAre("Seconda.lng:101: missing line", "Seconda.lng:102: missing line"));
}

TEST_F(LanguageCheckTest, AnExtraLineIsFound) {
  seconda_.push_back("s103");
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:103: extra line"));
}

TEST_F(LanguageCheckTest, AMarkOnAnotherLineIsFoundOnBothLines) {
  std::swap(Seconda(35), Seconda(36));
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:35: no mark where the reference has one",
                                      "Seconda.lng:36: mark where the reference has none"));
}

TEST_F(LanguageCheckTest, AnEmptyOrBlankLineIsFoundWhereTheReferenceHasWords) {
  Seconda(24) = "";
  Seconda(25) = "   ";
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:24: empty where the reference has words",
                                      "Seconda.lng:25: empty where the reference has words"));
}

TEST_F(LanguageCheckTest, AReferenceWithoutWordsOnAShownLineIsFound) {
  Prima(1) = Seconda(1) = "";
  Prima(75) = Seconda(75) = ";--";
  prima_.resize(101);
  seconda_.resize(101);
  EXPECT_THAT(Findings(),
              ElementsAre("Prima.lng:1: the program shows this line, and it has no words",
                          "Prima.lng:75: the program shows this line, and it has no words",
                          "Prima.lng:102: the program shows this line, and it has no words"));
}

TEST_F(LanguageCheckTest, AmpersandsAreFoundInTheMenuLinesOnly) {
  Seconda(1) = "&s";
  Seconda(15) = "s & t";
  Seconda(19) = "s & t";
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:1: ampersand in a menu caption",
                                      "Seconda.lng:15: ampersand in a menu caption"));
}

TEST_F(LanguageCheckTest, CommasAreFoundInTheWordsForYesAndNo) {
  Seconda(17) = "a,b";
  Seconda(18) = ",";
  Seconda(71) = "a, b";
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:17: comma in the position of a slider",
                                      "Seconda.lng:18: comma in the position of a slider"));
}

TEST_F(LanguageCheckTest, BytesThatTheCodePageLacksAreFound) {
  int line = 21;
  for (const char* text : {"\x81", "\x8D", "\x8F", "\x90", "\x9D"}) Seconda(line++) = text;
  EXPECT_THAT(Findings(),
              ElementsAre("Seconda.lng:21: byte 0x81, which code page 1252 doesn't define",
                          "Seconda.lng:22: byte 0x8D, which code page 1252 doesn't define",
                          "Seconda.lng:23: byte 0x8F, which code page 1252 doesn't define",
                          "Seconda.lng:24: byte 0x90, which code page 1252 doesn't define",
                          "Seconda.lng:25: byte 0x9D, which code page 1252 doesn't define"));
}

TEST_F(LanguageCheckTest, AllOtherBytesArePrintable) {
  int line = 58;  // totals have room for 36 characters
  std::string text;
  for (int byte = 0x20; byte <= 0xFF; ++byte) {
    if (std::set<int>{0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D}.contains(byte)) continue;
    text += static_cast<char>(byte);
    if (text.size() == 30) {
      Seconda(line++) = text + ".";
      text.clear();
    }
  }
  Seconda(line++) = text;
  EXPECT_EQ(line, 66);  // 218 bytes, 30 on a line
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(LanguageCheckTest, ControlCharactersAreFoundInMarksToo) {
  Seconda(16) = ";--\t";
  Seconda(21) = std::string("s\0", 2);
  Seconda(22) = "s\rt";
  Seconda(23) = "\x1F";
  Seconda(24) = "\x7F";
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:16: control character 0x09",
                                      "Seconda.lng:21: control character 0x00",
                                      "Seconda.lng:22: control character 0x0D",
                                      "Seconda.lng:23: control character 0x1F",
                                      "Seconda.lng:24: control character 0x7F"));
}

TEST_F(LanguageCheckTest, ALineSavedAsUtf8IsFound) {
  Seconda(52) = "a\xC3\xB1o";      // two bytes for one letter
  Seconda(53) = "a\xF1o";          // the same word as it should be
  Seconda(54) = "\xC3\xB1o \xE9";  // a letter that UTF-8 would not let stand
  Seconda(23) = "\xE0\x80\xAF";    // longer than UTF-8 lets it be
  Seconda(24) = "\xE2\x82\xAC";    // the Euro sign, three bytes
  Seconda(25) =
      "20 \xB0"
      "C";
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:24: saved as UTF-8 instead of code page 1252",
                                      "Seconda.lng:52: saved as UTF-8 instead of code page 1252"));
}

TEST_F(LanguageCheckTest, ALineAsLongAsItsRoomPassesAndOneMoreIsFound) {
  Seconda(15) = std::string(20, 'x');
  Seconda(14) = std::string(21, 'x');
  Seconda(66) = std::string(36, 'x');
  Seconda(58) = std::string(37, 'x');
  Prima(94) = std::string(11, 'x');
  EXPECT_THAT(Findings(), ElementsAre("Prima.lng:94: 11 characters, at most 10 fit",
                                      "Seconda.lng:14: 21 characters, at most 20 fit",
                                      "Seconda.lng:58: 37 characters, at most 36 fit"));
}

TEST_F(LanguageCheckTest, AMarkMayBeOfAnyLength) {
  Seconda(16) = ";--" + std::string(200, '-');
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(LanguageCheckTest, ALineLikeTheReferenceIsFoundButForMarks) {
  Seconda(99) = Prima(99) = "Token";
  Seconda(78) = Prima(78);
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:99: not translated"));
}

TEST_F(LanguageCheckTest, AListedWordMayBeTheSame) {
  Seconda(91) = Prima(91) = "Gettone blu";
  Write("same-words.txt", "# words\r\n\r\n91 Terza,Seconda Gettone blu\r\n");
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(LanguageCheckTest, AListedWordCountsForItsLanguageLineAndWordsAlone) {
  Seconda(99) = Prima(99) = "Token";
  Write("same-words.txt", "99 Terza Token\n98 Seconda Token\n99 Seconda Gettone\n");
  EXPECT_THAT(Findings(), ElementsAre("Seconda.lng:99: not translated"));
}

TEST_F(LanguageCheckTest, AnEntryOfTheListWithoutLineOrWordsIsRefusedWithItsNumber) {
  WriteLanguages();
  for (const char* entry : {"Seconda Token", "99 Seconda", "0 Seconda Token"}) {
    Write("same-words.txt", std::string("# words\n") + entry + "\n");
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(ReportLanguages(folder_, "Prima", out, errors), 2);
    EXPECT_EQ(errors.str(), "same-words.txt:2: not a line number, languages and words\n");
    EXPECT_EQ(out.str(), "");
  }
}

TEST_F(LanguageCheckTest, ATrailingBlankIsFoundUnlessTheReferenceHasOne) {
  Seconda(21) = "s ";
  Seconda(22) = "s ";
  Prima(22) = "p ";
  EXPECT_THAT(Findings(),
              ElementsAre("Seconda.lng:21: trailing blank where the reference has none"));
}

TEST_F(LanguageCheckTest, ALineThatEndsInALineFeedAloneOrNotAtAllIsFound) {
  WriteLanguages();
  std::string bytes = Joined(seconda_);
  bytes.replace(bytes.find("s2\r\n"), 4, "s2\n");
  bytes.resize(bytes.size() - 2);
  Write("Seconda.lng", bytes);
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(ReportLanguages(folder_, "Prima", out, errors), 1);
  EXPECT_EQ(out.str(),
            "Seconda.lng:2: doesn't end in carriage return and line feed\n"
            "Seconda.lng:102: doesn't end in carriage return and line feed\n");
  EXPECT_EQ(errors.str(), "");
}

TEST_F(LanguageCheckTest, FindingsComeReferenceFirstThenByNameAndLine) {
  Seconda(3) = "";
  Seconda(1) = Seconda(5) = "&";
  for (const char* name : {"Terza", "Nona", "Altra", "Quarta", "Bella"}) {
    Write(std::string(name) + ".lng", Joined(seconda_));
  }
  Seconda(1) = Seconda(5) = "s";
  Prima(2) = "&";
  std::vector<std::string> places;
  for (const std::string& finding : Findings()) {
    places.push_back(finding.substr(0, finding.find(": ")));
  }
  EXPECT_THAT(places,
              ElementsAre("Prima.lng:2", "Altra.lng:1", "Altra.lng:3", "Altra.lng:5", "Bella.lng:1",
                          "Bella.lng:3", "Bella.lng:5", "Nona.lng:1", "Nona.lng:3", "Nona.lng:5",
                          "Quarta.lng:1", "Quarta.lng:3", "Quarta.lng:5", "Seconda.lng:3",
                          "Terza.lng:1", "Terza.lng:3", "Terza.lng:5"));
}

TEST_F(LanguageCheckTest, FilesOfOtherKindsArePassedOver) {
  Write("README.md", "words");
  EXPECT_THAT(Findings(), IsEmpty());
}

TEST_F(LanguageCheckTest, TheReportEndsInZeroWithoutFindingsAndPrintsNothing) {
  WriteLanguages();
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(ReportLanguages(folder_, "Prima", out, errors), 0);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(errors.str(), "");
}

TEST_F(LanguageCheckTest, TheReportEndsInTwoIfTheReferenceIsMissing) {
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(ReportLanguages(folder_, "Prima", out, errors), 2);
  EXPECT_THAT(errors.str(), HasSubstr("Prima.lng"));
  EXPECT_EQ(out.str(), "");
}

TEST_F(LanguageCheckTest, AFolderInPlaceOfAFileCantBeRead) {
  for (const char* name : {"Seconda.lng", "same-words.txt"}) {
    WriteLanguages();
    std::filesystem::remove(folder_ / name);
    std::filesystem::create_directory(folder_ / name);
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(ReportLanguages(folder_, "Prima", out, errors), 2);
    EXPECT_EQ(errors.str(), "can't read " + (folder_ / name).string() + "\n");
    EXPECT_EQ(out.str(), "");
    std::filesystem::remove(folder_ / name);
  }
}

}  // namespace
}  // namespace sorvane
