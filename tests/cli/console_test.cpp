#include "cli/console.h"

#include <gtest/gtest.h>

#include <sstream>

namespace sorvane::cli {
namespace {

struct Consoles : testing::Test {
  std::istringstream in{"y\n"};
  std::ostringstream out;
  std::ostringstream err;

  Console Of(bool asks, bool watched, bool quiet = false) {
    return {{.in = in, .out = out, .err = err, .asks = asks, .watched = watched}, quiet};
  }
};

TEST_F(Consoles, ResultsAndWordsGoToStreamsOfTheirOwn) {
  Console console = Of(false, false);
  console.Print("result\n");
  console.Tell("words");
  console.Complain("trouble");
  EXPECT_EQ(out.str(), "result\n");
  EXPECT_EQ(err.str(), "words\ntrouble\n");
}

TEST_F(Consoles, AQuietOneStillComplains) {
  Console console = Of(false, true, true);
  console.ShowProgress("reading", 1, 2);
  console.Tell("words");
  console.Complain("trouble");
  EXPECT_EQ(err.str(), "trouble\n");
}

TEST_F(Consoles, NobodyCanBeAskedWithoutATerminal) {
  EXPECT_FALSE(Of(false, false).Confirm("Go on?"));
  EXPECT_EQ(err.str(), "");
}

TEST_F(Consoles, OnlyYesIsYes) {
  for (const char* yes : {"y\n", "Y\n", "yes\n", "y"}) {
    in.clear();
    in.str(yes);
    EXPECT_TRUE(Of(true, true).Confirm("Go on?")) << yes;
  }
  for (const char* no : {"\n", "n\n", "yup\n", ""}) {
    in.clear();
    in.str(no);
    EXPECT_FALSE(Of(true, true).Confirm("Go on?")) << no;
  }
}

TEST_F(Consoles, ProgressIsABarOnATerminalAndNothingElsewhere) {
  Of(false, false).ShowProgress("reading", 1, 2);
  EXPECT_EQ(err.str(), "");
  Console console = Of(true, true);
  console.ShowProgress("reading", 1, 2);
  EXPECT_EQ(err.str(), "\rreading [###############               ] 1/2");
}

TEST_F(Consoles, OneStepIsProgressTooAndNoneIsNot) {
  Console console = Of(true, true);
  console.ShowProgress("writing", 1, 0);
  EXPECT_EQ(err.str(), "");
  console.ShowProgress("writing", 0, 1);
  EXPECT_EQ(err.str(), "\rwriting [                              ] 0/1");
}

TEST_F(Consoles, ABarIsWipedAwayByWhatComesNext) {
  Console console = Of(true, true);
  console.ShowProgress("reading", 2, 2);
  err.str("");
  console.Complain("trouble");
  EXPECT_EQ(err.str(), '\r' + std::string(44, ' ') + "\rtrouble\n");
}

TEST_F(Consoles, ABarIsWipedAwayAtTheEnd) {
  {
    Console console = Of(true, true);
    console.ShowProgress("reading", 2, 2);
    err.str("");
  }
  EXPECT_EQ(err.str(), '\r' + std::string(44, ' ') + '\r');
}

}  // namespace
}  // namespace sorvane::cli
