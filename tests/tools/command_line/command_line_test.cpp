#include "command_line/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sorvane {
namespace {

// The line of a program that has one of each.
class OneOfEach : public testing::Test {
 protected:
  OneOfEach() {
    line_.AddNumber("--level", level, {.least = 1, .most = 9, .also = {0, 20}}, "a number");
    line_.AddOption("--name", name, "a text");
    line_.AddOption(
        "--colour", colour, "COLOUR",
        [](const std::string& text) { return text == "red" ? "not that one" : ""; }, "another");
    line_.AddFlag("--grey", grey, "no colour");
    line_.Exclude("--grey", "--colour");
    CommandLine& add = line_.AddCommand("add", "puts files together");
    add.AddArguments("files", files, "the files");
    add.AddRequiredNumber("--parts", parts, {.least = 1, .most = 2}, "a number");
    line_.AddCommand("list", "tells them");
  }

  // Whether the program goes on after the words behind its name.
  bool Read(std::vector<const char*> words) {
    words.insert(words.begin(), "program");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const bool goes_on = line_.Read(static_cast<int>(words.size()), words.data(), exit_code);
    printed = testing::internal::GetCapturedStdout();
    complaint = testing::internal::GetCapturedStderr();
    return goes_on;
  }

  // A refused line tells why on standard error and ends the program with 2.
  void ExpectRefused(const std::vector<const char*>& words, const std::string& why) {
    EXPECT_FALSE(Read(words));
    EXPECT_EQ(exit_code, 2);
    EXPECT_EQ(printed, "");
    EXPECT_NE(complaint.find(why), std::string::npos) << complaint;
  }

  int level = 5;
  std::string name = "none";
  std::string colour = "blue";
  bool grey = false;
  std::vector<std::string> files;
  int parts = 0;
  int exit_code = 0;
  std::string printed;
  std::string complaint;

 private:
  CommandLine line_{"Has one of each."};
};

TEST_F(OneOfEach, WhatIsNotOnTheLineKeepsItsDefault) {
  ASSERT_TRUE(Read({"list"}));
  EXPECT_EQ(level, 5);
  EXPECT_EQ(name, "none");
  EXPECT_EQ(colour, "blue");
  EXPECT_FALSE(grey);
}

TEST_F(OneOfEach, ValuesAreTaken) {
  ASSERT_TRUE(
      Read({"--level", "9", "--name", "/a path", "--grey", "add", "one", "two", "--parts", "2"}));
  EXPECT_EQ(level, 9);
  EXPECT_EQ(name, "/a path");
  EXPECT_TRUE(grey);
  EXPECT_EQ(files, (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(parts, 2);
}

TEST_F(OneOfEach, ANumberIsInItsRangeOrOneOfTheOthers) {
  EXPECT_TRUE(Read({"--level", "1", "list"}));
  EXPECT_TRUE(Read({"--level", "0", "list"}));
  EXPECT_TRUE(Read({"--level", "20", "list"}));
  ExpectRefused({"--level", "10", "list"}, "--level");
  ExpectRefused({"--level", "-1", "list"}, "--level");
  ExpectRefused({"--level", "two", "list"}, "--level");
  ExpectRefused({"add", "one", "--parts", "3"}, "--parts");
}

TEST_F(OneOfEach, ACheckRefusesInItsOwnWords) {
  EXPECT_TRUE(Read({"--colour", "green", "list"}));
  ExpectRefused({"--colour", "red", "list"}, "not that one");
}

TEST_F(OneOfEach, AFlagRefusesTheOptionThatItExcludes) {
  ExpectRefused({"--grey", "--colour", "green", "list"}, "--colour");
}

TEST_F(OneOfEach, ArgumentsAndRequiredNumbersCantBeMissing) {
  ExpectRefused({"add", "--parts", "1"}, "files");
  ExpectRefused({"add", "one"}, "--parts");
}

TEST_F(OneOfEach, OneCommandMustStandOnTheLine) {
  ExpectRefused({}, "subcommand");
  ExpectRefused({"list", "add", "one", "--parts", "1"}, "not expected");
}

TEST_F(OneOfEach, HelpTellsDefaultsAndEndsWithoutAnError) {
  exit_code = 1;
  EXPECT_FALSE(Read({"--help"}));
  EXPECT_EQ(exit_code, 0);
  EXPECT_NE(printed.find("Has one of each."), std::string::npos);
  EXPECT_NE(printed.find("--name TEXT=none"), std::string::npos) << printed;
  EXPECT_NE(printed.find("--colour TEXT:COLOUR=blue"), std::string::npos) << printed;
}

TEST(CommandLine, TellsWhichCommandWasChosen) {
  CommandLine line("Two commands.");
  const CommandLine& first = line.AddCommand("first", "one");
  const CommandLine& second = line.AddCommand("second", "the other");
  const char* const words[] = {"program", "second"};
  int exit_code = 0;
  ASSERT_TRUE(line.Read(2, words, exit_code));
  EXPECT_FALSE(first.IsChosen());
  EXPECT_TRUE(second.IsChosen());
}

}  // namespace
}  // namespace sorvane
