#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>

#include "board/message.h"
#include "language_check/line_rules.h"

namespace sorvane::test {
namespace {

// The list of lines as translators read it: what its first column names, by line, with what its
// second column says of it.
class ListOfLines {
 public:
  ListOfLines() {
    std::ifstream in(SORVANE_DATA_FOLDER "/languages/README.md");
    const std::regex row(R"(\| ([\d, to]+) \| ([^|]*) \|.*)");
    std::smatch found;
    for (std::string text; std::getline(in, text);) {
      if (std::regex_match(text, found, row)) Take(found[1], found[2]);
    }
  }

  // How often a line is named.
  int Count(int line) const { return static_cast<int>(said_.count(line)); }
  bool IsMark(int line) const { return said_.find(line)->second == "mark"; }
  int Last() const { return said_.rbegin()->first; }

 private:
  // "1 to 15", "17, 18", "19" or "79, 81, 82".
  void Take(const std::string& lines, const std::string& says) {
    const std::regex span(R"((\d+)(?: to (\d+))?)");
    for (std::sregex_iterator it(lines.begin(), lines.end(), span), end; it != end; ++it) {
      const int first = std::stoi((*it)[1]);
      const int last = (*it)[2].matched ? std::stoi((*it)[2]) : first;
      for (int line = first; line <= last; ++line) said_.emplace(line, says);
    }
  }

  std::multimap<int, std::string> said_;
};

TEST(ListOfLinesTest, NamesEveryLineOnceUpToTheLast) {
  const ListOfLines list;
  ASSERT_EQ(list.Count(message::kLast), 1);
  EXPECT_EQ(list.Last(), message::kLast);
  for (int line = 1; line <= message::kLast; ++line) EXPECT_EQ(list.Count(line), 1) << line;
}

TEST(ListOfLinesTest, CallsThoseLinesMarksThatNoMessageNames) {
  const ListOfLines list;
  for (int line = 1; line <= message::kLast; ++line) {
    ASSERT_EQ(list.Count(line), 1) << line;
    EXPECT_EQ(list.IsMark(line), RuleOfLine(line) == nullptr) << line;
  }
}

}  // namespace
}  // namespace sorvane::test
