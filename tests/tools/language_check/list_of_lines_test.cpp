#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "board/message.h"
#include "language_check/line_rules.h"

namespace sorvane::test {
namespace {

// The list of lines as translators read it: what its first column names, by line, with what the
// second says of it and how many characters the third allows.
class ListOfLines {
 public:
  ListOfLines() {
    std::ifstream in(SORVANE_DATA_FOLDER "/languages/README.md");
    const std::regex row(R"(\| ([\d, to]+) \| ([^|]*) \| (\d*) *\|.*)");
    std::smatch found;
    for (std::string text; std::getline(in, text);) {
      if (std::regex_match(text, found, row)) Take(found[1], {found[2], found[3]});
    }
  }

  // How often a line is named.
  int Count(int line) const { return static_cast<int>(said_.count(line)); }
  bool IsMark(int line) const { return said_.find(line)->second.words == "mark"; }
  std::string MostCharacters(int line) const { return said_.find(line)->second.most_characters; }
  int Last() const { return said_.rbegin()->first; }

 private:
  struct Said {
    std::string words;
    std::string most_characters;
  };

  // "1 to 15", "17, 18", "19" or "79, 81, 82".
  void Take(const std::string& lines, const Said& says) {
    const std::regex span(R"((\d+)(?: to (\d+))?)");
    for (std::sregex_iterator it(lines.begin(), lines.end(), span), end; it != end; ++it) {
      const int first = std::stoi((*it)[1]);
      const int last = (*it)[2].matched ? std::stoi((*it)[2]) : first;
      for (int line = first; line <= last; ++line) said_.emplace(line, says);
    }
  }

  std::multimap<int, Said> said_;
};

TEST(ListOfLinesTest, NamesEveryLineOnceUpToTheLast) {
  const ListOfLines list;
  ASSERT_EQ(list.Count(message::kLast), 1);
  EXPECT_EQ(list.Last(), message::kLast);
  for (int line = 1; line <= message::kLast; ++line) EXPECT_EQ(list.Count(line), 1) << line;
}

TEST(ListOfLinesTest, CallsThoseLinesMarksThatNoMessageNames) {
  const ListOfLines list;
  const std::set<int> marks = {16, 20, 31, 35, 37, 40, 44, 57, 67, 74, 76, 78};
  for (int line = 1; line <= message::kLast; ++line) {
    ASSERT_EQ(list.Count(line), 1) << line;
    EXPECT_EQ(list.IsMark(line), marks.contains(line)) << line;
    EXPECT_EQ(list.IsMark(line), RuleOfLine(line) == nullptr) << line;
  }
}

TEST(ListOfLinesTest, TellsHowManyCharactersTheCheckAllowsOnEachLine) {
  const ListOfLines list;
  int rules = 0;
  for (int line = 1; line <= message::kLast; ++line) {
    const LineRule* rule = RuleOfLine(line);
    const std::string most = rule == nullptr ? "" : std::to_string(rule->most_characters);
    ASSERT_EQ(list.Count(line), 1) << line;
    EXPECT_EQ(list.MostCharacters(line), most) << line;
    rules += rule == nullptr ? 0 : 1;
  }
  EXPECT_EQ(rules, 90);
  EXPECT_EQ(RuleOfLine(message::kLast + 1), nullptr);
}

}  // namespace
}  // namespace sorvane::test
