#include "cli/request.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sorvane::cli {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Requests : testing::Test {
  int exit_code = -1;
  std::string out;
  std::string err;

  std::optional<Request> Read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "sorvane-cli");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    auto request = ReadRequest(static_cast<int>(arguments.size()), arguments.data(),
                               "sorvane-cli 9", exit_code);
    out = testing::internal::GetCapturedStdout();
    err = testing::internal::GetCapturedStderr();
    return request;
  }
};

TEST_F(Requests, OptionsMayStandOnBothSidesOfTheCommand) {
  const auto request = Read({"-p", "COM3", "get", "price.1", "price.2", "--json", "-q"});
  ASSERT_TRUE(request);
  EXPECT_EQ(request->command, Command::kGet);
  EXPECT_EQ(request->port, "COM3");
  EXPECT_THAT(request->arguments, ElementsAre("price.1", "price.2"));
  EXPECT_TRUE(request->json);
  EXPECT_TRUE(request->quiet);
  EXPECT_FALSE(request->yes);
}

TEST_F(Requests, GroupsStandBetweenCommas) {
  const auto request = Read({"--only", "prices,coins", "--except=mdb", "info"});
  ASSERT_TRUE(request);
  EXPECT_THAT(request->only, ElementsAre(Group::kPrices, Group::kCoins));
  EXPECT_THAT(request->except, ElementsAre(Group::kMdb));
}

TEST_F(Requests, TheBoardIsADash) {
  const auto request = Read({"diff", "a.json", "-"});
  ASSERT_TRUE(request) << err;
  EXPECT_THAT(request->arguments, ElementsAre("a.json", "-"));
}

TEST_F(Requests, TheClockIsSetByTwoWords) {
  const auto request = Read({"clock", "set"});
  ASSERT_TRUE(request);
  EXPECT_EQ(request->command, Command::kClockSet);
}

TEST_F(Requests, AFileMayBeNamed) {
  EXPECT_TRUE(Read({"backup"}));
  const auto request = Read({"backup", "a.json"});
  ASSERT_TRUE(request) << err;
  EXPECT_THAT(request->arguments, ElementsAre("a.json"));
}

TEST_F(Requests, WhatIsMissingOrTooMuchIsAUsageError) {
  const std::vector<std::vector<const char*>> wrong = {{},
                                                       {"sell"},
                                                       {"get"},
                                                       {"diff", "a.json"},
                                                       {"diff", "a", "b", "c"},
                                                       {"restore"},
                                                       {"restore", "a", "b"},
                                                       {"backup", "a", "b"},
                                                       {"clock"},
                                                       {"info", "--only", "drinks"},
                                                       {"info", "--nothing"},
                                                       {"watch", "price.1", "--every", "-1"},
                                                       {"info", "ports"}};
  for (const auto& arguments : wrong) {
    EXPECT_FALSE(Read(arguments)) << testing::PrintToString(arguments);
    EXPECT_EQ(exit_code, 2) << testing::PrintToString(arguments);
    EXPECT_NE(err, "");
    EXPECT_EQ(out, "");
  }
}

TEST_F(Requests, HelpAndVersionAreNoErrors) {
  EXPECT_FALSE(Read({"--help"}));
  EXPECT_EQ(exit_code, 0);
  EXPECT_THAT(out, HasSubstr("sorvane-cli undo"));
  EXPECT_THAT(out, HasSubstr("130 interrupted"));
  EXPECT_FALSE(Read({"--version"}));
  EXPECT_EQ(exit_code, 0);
  EXPECT_EQ(out, "sorvane-cli 9\n");
}

}  // namespace
}  // namespace sorvane::cli
