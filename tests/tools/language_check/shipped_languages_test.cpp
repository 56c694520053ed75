#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "language_check/language_check.h"
#include "language_check/language_file.h"

namespace sorvane {
namespace {

using ::testing::ElementsAre;

// Which lines a form takes its words from.
struct FormLines {
  const char* form;
  std::vector<int> lines;
};

const std::vector<FormLines> kFormLines = {
    {"MDIForm1", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
    {"FrmImposta", {2, 17, 18, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30}},
    {"FrmPassword", {17, 18, 19}},
    {"FrmPrezzi", {32, 33, 34}},
    {"FrmSconti", {4, 36}},
    {"FrmTastiColonna", {38, 39}},
    {"FrmColonnaProd", {41, 42, 43}},
    {"FrmOrologio", {8, 17, 18, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 55, 56}},
    {"FrmPagamento, what every system has", {5, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88}},
    {"FrmPagamento, coins and banknotes", {75, 77}},
    {"FrmPagamento, MDB", {89, 90, 91, 92, 93, 94, 95, 96, 97, 98, 99, 100, 101, 102}},
    {"FrmContatori", {11, 68, 69, 70, 71, 72, 73}},
    {"FrmTotali", {10, 58, 59, 60, 61, 62, 63, 64, 65, 66}},
    {"FrmMonete", {12, 75}},
    {"FrmBanconote", {13, 77}},
};

const std::filesystem::path& DataFolder() {
  static const std::filesystem::path folder = SORVANE_DATA_FOLDER;
  return folder;
}

std::map<std::string, LanguageLines> ShippedLanguages() {
  std::map<std::string, LanguageLines> languages;
  for (const std::string& name : LanguageNames(DataFolder() / "languages")) {
    languages[name] = ReadLanguageFile(DataFolder() / "languages" / (name + ".lng"));
  }
  return languages;
}

// Empty for a line that the file hasn't.
std::string Text(const LanguageLines& lines, int line) {
  const auto element = static_cast<std::size_t>(line - 1);
  return element < lines.size() ? lines[element].text : "";
}

TEST(ShippedLanguages, HaveNoFindings) {
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(ReportLanguages(DataFolder() / "languages", "Italiano", out, errors), 0);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(errors.str(), "");
}

TEST(ShippedLanguages, AreTenAndItalianAndEnglishAreNotTheTenthByName) {
  std::vector<std::string> names;
  for (const auto& [name, lines] : ShippedLanguages()) {
    std::string folded = name;
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    names.push_back(folded);
  }
  std::sort(names.begin(), names.end());
  ASSERT_EQ(names.size(), 10U);
  EXPECT_EQ(std::count(names.begin(), names.begin() + 9, "italiano"), 1);
  EXPECT_EQ(std::count(names.begin(), names.begin() + 9, "english"), 1);
}

TEST(ShippedLanguages, HaveFileNamesOfAsciiLettersOnly) {
  for (const auto& [name, lines] : ShippedLanguages()) {
    EXPECT_TRUE(std::all_of(name.begin(), name.end(), [](char c) {
      return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    })) << name;
  }
}

TEST(ShippedLanguages, HaveWordsOnEveryLineThatAFormShows) {
  for (const auto& [name, lines] : ShippedLanguages()) {
    for (const FormLines& form : kFormLines) {
      for (const int line : form.lines) {
        const std::string text = Text(lines, line);
        EXPECT_NE(text, "") << name << ':' << line << ", " << form.form;
        EXPECT_FALSE(IsMark(text)) << name << ':' << line << ", " << form.form;
      }
    }
  }
}

TEST(ShippedLanguages, HaveTheirMarksOnTheLinesThatNoFormShows) {
  for (const auto& [name, lines] : ShippedLanguages()) {
    std::vector<int> marks;
    for (int line = 1; line <= static_cast<int>(lines.size()); ++line) {
      if (IsMark(Text(lines, line))) marks.push_back(line);
    }
    EXPECT_THAT(marks, ElementsAre(16, 20, 31, 35, 37, 40, 44, 57, 67, 74, 76, 78)) << name;
    EXPECT_EQ(lines.size(), 102U) << name;
  }
}

// A line too many or too few would shift whole sections and still look complete.
TEST(ShippedLanguages, BeginAndEndEachSectionWithTheRightWordsInItalian) {
  const std::map<int, std::string> expected = {{1, "Password"},
                                               {15, "Lingue"},
                                               {17, "Si"},
                                               {18, "No"},
                                               {21, "Lingue"},
                                               {30, "Prodotti Uguali"},
                                               {32, "Prezzo"},
                                               {34, "Impostazione prezzi"},
                                               {36, "Sconto"},
                                               {38, "Set Tasti/Colonna"},
                                               {39, "Tasto n\xB0"},
                                               {41, "Set Colonna/Prodotti"},
                                               {43, "Prodotto"},
                                               {45, "Orologio"},
                                               {56, "Fine Sconto"},
                                               {58, "Incasso Totale non Azzerabile"},
                                               {66, "Overpay"},
                                               {68, "N\xB0 Accensioni"},
                                               {73, "Gratis Selezione"},
                                               {75, "Moneta"},
                                               {77, "Banconota"},
                                               {79, "Abil. Generali"},
                                               {102, "Valori token MDB"}};
  const LanguageLines italian = ReadLanguageFile(DataFolder() / "languages" / "Italiano.lng");
  for (const auto& [line, words] : expected) EXPECT_EQ(Text(italian, line), words) << line;
}

TEST(SampleSettings, StartInItalianOnPortOne) {
  std::ifstream file(DataFolder() / "Sorvane.ini", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(bytes, "Com=1\r\nLingua=Italiano\r\n");
}

}  // namespace
}  // namespace sorvane
