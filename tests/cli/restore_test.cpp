#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

// A copy of the machine as it was, and a change since.
struct Restoring : testing::Test, Workshop {
  Restoring() {
    SetBoard("temperature.difference", 2);
    SetBoard("motor.timeout", 120);
    SetBoard("defrost.time", 10);
    SetBoard("payment.system", 3);
    SetBoard("credit.timeout", 10);
    for (int i = 1; i <= 5; ++i) SetBoard("tube." + std::to_string(i), 5);
    for (int i = 1; i <= 10; ++i) {
      SetBoard("key." + std::to_string(i), 1);
      SetBoard("product." + std::to_string(i), 1);
      SetBoard("price." + std::to_string(i), 100);
    }
    for (const CatalogueEntry& entry : catalogue.Entries()) {
      if (entry.mirror != 0) SetBoardAt(entry.mirror, BoardAt(entry.number));
    }
    EXPECT_EQ(Type({"backup", File("copy.json")}), 0);
  }

  // Replaces a piece of the copy's text, which must stand there.
  void Change(const std::string& from, const std::string& to) {
    std::string text = TextOf("copy.json");
    const std::size_t place = text.find(from);
    ASSERT_NE(place, std::string::npos) << from;
    WriteFile("copy.json", text.replace(place, from.size(), to));
  }

  int Restore(std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"restore", File("copy.json"), "-y"});
    return Type(options);
  }
};

TEST_F(Restoring, OnlyWhatDiffersIsSent) {
  SetBoard("price.3", 1);
  SetBoard("language", 4);
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(out,
            "language: 4 -> 0\nprice.3: 0.01 -> 1.00\nconfirmed language\nconfirmed price.3\n");
  EXPECT_EQ(board.Writes(), 4);
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(board.Writes(), 4) << "twice is harmless";
}

TEST_F(Restoring, ASecondCopyThatAWriteLeftBehindIsMadeGood) {
  SetBoardAt(393, 1);
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(BoardAt(393), 100U);
}

TEST_F(Restoring, CountsAlarmsClockAndNumbersStayAsTheyAre) {
  for (const char* name : {"vends.total", "alarm.newest", "clock.day", "machine.number"}) {
    SetBoard(name, Board(name) + 1);
  }
  Change("\"machine\": 7", "\"machine\": 8");
  Change("\"size\": 3, \"raw\": 7", "\"size\": 3, \"raw\": 8");
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(board.Writes(), 0);
  EXPECT_EQ(err, "nothing differs\n");
}

TEST_F(Restoring, TheClockIsPutBackWhereItIsAskedFor) {
  Change("\"name\": \"clock.day\", \"size\": 1, \"raw\": 0",
         "\"name\": \"clock.day\", \"size\": 1, \"raw\": 9");
  EXPECT_EQ(Restore({"--only", "clock", "--except", "audit"}), 0);
  EXPECT_EQ(Board("clock.day"), 9U);
}

TEST_F(Restoring, TheNumbersArePutBackWhereTheyAreAskedFor) {
  SetBoard("location.number", 9);
  EXPECT_EQ(Restore({"--identity"}), 0);
  EXPECT_EQ(Board("location.number"), 3U);
}

TEST_F(Restoring, WhatTheMachineRecordsIsNeverWritten) {
  SetBoard("vends.total", 5);
  EXPECT_EQ(Restore({"--only", "audit,alarms"}), 0);
  EXPECT_EQ(board.Writes(), 0);
}

TEST_F(Restoring, GroupsCanBeLeftOut) {
  SetBoard("price.3", 1);
  SetBoard("language", 4);
  EXPECT_EQ(Restore({"--except", "prices"}), 0);
  EXPECT_EQ(Board("price.3"), 1U);
  EXPECT_EQ(Board("language"), 0U);
}

TEST_F(Restoring, AnotherTypeOrSoftwareIsRefusedWithoutAnOverride) {
  SetBoard("price.3", 1);
  Change("\"type\": 309", "\"type\": 310");
  EXPECT_EQ(Restore({"--other-revision"}), 4);
  EXPECT_THAT(err, HasSubstr("another type of board"));
  Change("\"type\": 310", "\"type\": 309");
  Change("\"software\": 0", "\"software\": 1");
  EXPECT_EQ(Restore({"--other-revision"}), 4);
  EXPECT_EQ(board.Writes(), 0);
}

TEST_F(Restoring, AnotherRevisionIsRestoredByNameWhereItIsAskedFor) {
  SetBoard("price.3", 1);
  Change("\"revision\": 0", "\"revision\": 7");
  EXPECT_EQ(Restore(), 4);
  EXPECT_THAT(err, HasSubstr("the snapshot is of revision 7, the board of 0; --other-revision"));
  EXPECT_EQ(board.Writes(), 0);
  EXPECT_EQ(Restore({"--other-revision"}), 0);
  EXPECT_EQ(Board("price.3"), 100U);
}

TEST_F(Restoring, WhatDoesNotFitStaysBehindAndIsListedBeforeTheFirstWrite) {
  SetBoard("price.3", 1);
  Change("\"name\": \"price.2\", \"size\": 2", "\"name\": \"price.2\", \"size\": 4");
  std::string before;
  EXPECT_EQ(Restore(), 0);
  EXPECT_THAT(err, HasSubstr("left behind price.2: of another size\n"));
  EXPECT_LT(err.find("left behind"), err.find("a copy is kept"));
  EXPECT_EQ(Board("price.3"), 100U);
}

TEST_F(Restoring, AnotherMachineIsAskedForEvenWithYes) {
  SetBoard("machine.number", 8);
  SetBoard("price.3", 1);
  EXPECT_EQ(Restore(), 4);
  EXPECT_EQ(board.Writes(), 0);
  Answer("n\n");
  EXPECT_EQ(Restore(), 4);
  EXPECT_THAT(err, HasSubstr("The snapshot is of machine 7, this is machine 8."));
  EXPECT_EQ(board.Writes(), 0);
  Answer("y\n");
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(Board("price.3"), 100U);
  EXPECT_EQ(Board("machine.number"), 8U);
}

TEST_F(Restoring, ValuesOutOfRangeKeepEverythingFromBeingWritten) {
  SetBoard("price.3", 1);
  Change("\"name\": \"selections\", \"size\": 1, \"raw\": 10",
         "\"name\": \"selections\", \"size\": 1, \"raw\": 11");
  EXPECT_EQ(Restore(), 2);
  EXPECT_THAT(err, HasSubstr("selections: 11 is not 5 to 10\n"));
  EXPECT_THAT(err, EndsWith("out of range, nothing is written\n"));
  EXPECT_EQ(board.Writes(), 0);
}

TEST_F(Restoring, AValueOutOfRangeThatTheBoardHoldsAlreadyHindersNothing) {
  SetBoard("temperature.difference", 9);
  SetBoardAt(356, 9);
  EXPECT_EQ(Type({"backup", File("copy.json")}), 0);
  SetBoard("price.3", 1);
  EXPECT_EQ(Restore(), 0);
}

TEST_F(Restoring, APartialCopyIsRestoredWhereItIsAskedFor) {
  SetBoard("price.3", 1);
  Change("\"complete\": true", "\"complete\": false");
  EXPECT_EQ(Restore(), 2);
  EXPECT_THAT(err, HasSubstr("isn't complete; --partial restores what it holds"));
  EXPECT_EQ(Restore({"--partial"}), 0);
  EXPECT_EQ(Board("price.3"), 100U);
}

TEST_F(Restoring, ABadFileIsToldByItsLinesAndTheBoardIsNotAsked) {
  Change("\"name\": \"price.2\"", "\"name\": \"price.9\"");
  EXPECT_EQ(Restore(), 2);
  EXPECT_THAT(err, HasSubstr("copy.json:36: parameter 24 is called \"price.2\"\n"));
  EXPECT_EQ(frames, 0);
}

TEST_F(Restoring, AMissingFileIsTold) {
  EXPECT_EQ(Type({"restore", File("none.json"), "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("none.json: no such file\n"));
}

TEST_F(Restoring, ThePasswordComesBackOnlyOutOfACopyThatHoldsIt) {
  SetBoard("password.1", 4);
  SetBoardAt(415, 4);
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(Board("password.1"), 4U);
  EXPECT_EQ(Type({"backup", "--password", File("copy.json")}), 0);
  SetBoard("password.1", 5);
  EXPECT_EQ(Restore(), 0);
  EXPECT_EQ(Board("password.1"), 4U);
}

struct Undoing : Restoring {};

TEST_F(Undoing, TheLastChangeIsTakenBackAndTakingThatBackBringsItAgain) {
  EXPECT_EQ(Type({"set", "price.3=2.00", "machine.number=9", "-y"}), 0);
  EXPECT_EQ(Type({"undo", "-y"}), 0);
  EXPECT_THAT(err, HasSubstr("putting back " + (data.Path() / "copies").string()));
  EXPECT_EQ(Board("price.3"), 100U);
  EXPECT_EQ(Board("machine.number"), 7U);
  EXPECT_EQ(Type({"undo", "-y"}), 0);
  EXPECT_EQ(Board("price.3"), 200U);
  EXPECT_EQ(Board("machine.number"), 9U);
}

TEST_F(Undoing, WithoutACopyOfThisMachineThereIsNothingToPutBack) {
  EXPECT_EQ(Type({"undo", "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("there is no copy of machine 7\n"));
  EXPECT_EQ(Type({"set", "price.3=2.00", "-y"}), 0);
  SetBoard("machine.number", 8);
  EXPECT_EQ(Type({"undo", "-y"}), 2);
}

TEST_F(Undoing, ACopyOfAnotherBoardIsRefused) {
  EXPECT_EQ(Type({"set", "price.3=2.00", "-y"}), 0);
  const std::string copy = "copies/7/000001.json";
  std::filesystem::rename(data.Path() / copy, scratch.Path() / "copy.json");
  Change("\"revision\": 0", "\"revision\": 7");
  std::filesystem::rename(scratch.Path() / "copy.json", data.Path() / copy);
  EXPECT_EQ(Type({"undo", "-y"}), 4);
  EXPECT_EQ(Board("price.3"), 200U);
}

TEST_F(Undoing, TheClockStaysAsItIs) {
  EXPECT_EQ(Type({"clock", "set", "-y"}), 0);
  EXPECT_EQ(Type({"undo", "-y"}), 0);
  EXPECT_EQ(Board("clock.hours"), 14U);
}

}  // namespace
}  // namespace sorvane::test
