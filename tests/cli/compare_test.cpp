#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Comparing : testing::Test, Workshop {
  Comparing() {
    EXPECT_EQ(Type({"backup", "--password", File("a.json")}), 0);
    SetBoard("price.3", 150);
    SetBoard("vends.total", 9);
    SetBoard("clock.day", 3);
  }
};

TEST_F(Comparing, ASnapshotAndTheBoardDifferInWhatWasSetSince) {
  EXPECT_EQ(Type({"diff", File("a.json"), "-"}), 1);
  EXPECT_EQ(out, "price.3: 0.00 -> 1.50\n");
  EXPECT_EQ(Type({"diff", "-", File("a.json")}), 1);
  EXPECT_EQ(out, "price.3: 1.50 -> 0.00\n");
}

TEST_F(Comparing, EqualOnesAreEqual) {
  EXPECT_EQ(Type({"diff", File("a.json"), File("a.json")}), 0);
  EXPECT_THAT(out, IsEmpty());
  EXPECT_EQ(Type({"diff", "--json", File("a.json"), File("a.json")}), 0);
  EXPECT_EQ(out, "{\"differences\": [\n]}\n");
}

TEST_F(Comparing, TwoSnapshotsNeedNoBoard) {
  EXPECT_EQ(Type({"backup", File("b.json")}), 0);
  wire.RefuseOpen();
  EXPECT_EQ(Type({"diff", "--json", File("a.json"), File("b.json")}), 1);
  EXPECT_EQ(
      out,
      "{\"differences\": [\n  {\"name\": \"price.3\", \"a\": \"0.00\", \"b\": \"1.50\"}\n]}\n");
}

TEST_F(Comparing, OtherGroupsAreComparedOnRequest) {
  EXPECT_EQ(Type({"diff", "--only", "audit,clock", File("a.json"), "-"}), 1);
  EXPECT_EQ(out, "clock.day: 0 -> 3\nvends.total: 0 -> 9\n");
}

TEST_F(Comparing, SecondCopiesAreComparedOnRequest) {
  EXPECT_EQ(Type({"backup", "--mirrors", File("a.json")}), 0);
  SetBoardAt(393, 7);
  EXPECT_EQ(Type({"diff", File("a.json"), "-"}), 0);
  EXPECT_EQ(Type({"diff", "--mirrors", File("a.json"), "-"}), 1);
  EXPECT_EQ(out, "price.3.mirror: 0.00 -> 0.07\n");
}

TEST_F(Comparing, WhatOneSideLacksIsADifference) {
  EXPECT_EQ(Type({"backup", "--only", "prices", File("b.json")}), 0);
  EXPECT_EQ(Type({"diff", "--only", "general", File("a.json"), File("b.json")}), 1);
  EXPECT_THAT(out, StartsWith("language: 0 -> -\n"));
}

TEST_F(Comparing, DigitsOfThePasswordStayHidden) {
  SetBoard("price.3", 0);
  SetBoard("password.2", 8);
  EXPECT_EQ(Type({"diff", File("a.json"), "-"}), 1);
  EXPECT_EQ(out, "password.2: * -> *\n");
}

TEST_F(Comparing, ACopyWithoutThePasswordTellsNothingAboutIt) {
  SetBoard("price.3", 0);
  EXPECT_EQ(Type({"backup", File("a.json")}), 0);
  EXPECT_EQ(Type({"diff", File("a.json"), "-"}), 0);
}

TEST_F(Comparing, EachSideIsDrawnWithItsOwnDecimals) {
  SetBoardAt(22, 1);
  EXPECT_EQ(Type({"diff", "--only", "prices", File("a.json"), "-"}), 1);
  EXPECT_EQ(out, "price.3: 0.00 -> 15.0\n");
}

TEST_F(Comparing, AGoodSnapshotHasNoFindings) {
  SetBoard("selections", 0);
  EXPECT_EQ(Type({"backup", "--only", "prices", File("b.json")}), 0);
  EXPECT_EQ(Type({"check", File("b.json")}), 0);
  EXPECT_THAT(out, IsEmpty());
}

TEST_F(Comparing, EveryBadLineIsToldInItsOrder) {
  EXPECT_EQ(Type({"backup", "--only", "general,prices", File("b.json")}), 0);
  std::string text = TextOf("b.json");
  text.replace(text.find("\"price.1\""), 9, "\"price.2\"");
  WriteFile("b.json", text);
  EXPECT_EQ(Type({"check", File("b.json")}), 1);
  EXPECT_THAT(out, StartsWith(File("b.json") + ":17: temperature.difference: 0 is not 1 to 5\n"));
  EXPECT_THAT(out, HasSubstr(File("b.json") + ":32: parameter 23 is called \"price.1\"\n"));
  EXPECT_EQ(Type({"--json", "check", File("b.json")}), 1);
  EXPECT_THAT(out,
              StartsWith("{\"findings\": [\n  {\"line\": 17, \"words\": \"temperature.difference"));
}

TEST_F(Comparing, AMissingFileIsABadFile) {
  EXPECT_EQ(Type({"check", File("none.json")}), 2);
  EXPECT_EQ(Type({"diff", File("a.json"), File("none.json")}), 2);
}

}  // namespace
}  // namespace sorvane::test
