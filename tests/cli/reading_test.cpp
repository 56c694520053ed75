#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/snapshot_file.h"
#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Reading : testing::Test, Workshop {
  cli::Snapshot Copy(const std::string& name) const {
    return cli::ReadSnapshot(scratch.Path() / name, catalogue);
  }
};

TEST_F(Reading, InfoTellsWhoIsAtTheOtherEnd) {
  EXPECT_EQ(Type({"info"}), 0);
  EXPECT_EQ(out,
            "board     type 309, software 0, revision 0\n"
            "index     W0309AA00.inx\n"
            "machine   7\n"
            "location  3\n"
            "decimals  2\n"
            "port      COM1\n");
  EXPECT_EQ(Type({"info", "--json"}), 0);
  EXPECT_THAT(out, HasSubstr("\"index\": \"W0309AA00.inx\", \"index-sha256\": \""));
  EXPECT_THAT(out, HasSubstr("\"machine\": 7, \"location\": 3, \"decimals\": 2}\n"));
}

TEST_F(Reading, APortThatCanNotBeOpenedIsToldWithTheReason) {
  wire.RefuseOpen();
  EXPECT_EQ(Type({"info"}), 3);
  EXPECT_EQ(err, "sorvane-cli: can't open COM1\n");
  trouble = "held by Sorvane (process 5)";
  EXPECT_EQ(Type({"info"}), 3);
  EXPECT_EQ(err, "sorvane-cli: can't open COM1: held by Sorvane (process 5)\n");
}

TEST_F(Reading, ASilentBoardIsTold) {
  board.SwitchOff();
  EXPECT_EQ(Type({"info"}), 3);
  EXPECT_EQ(err, "sorvane-cli: no answer from the board at COM1\n");
}

TEST_F(Reading, ABoardOfAnotherKindIsRefusedInTheWordsOfTheWindowProgram) {
  SetSystem(11, 1);
  EXPECT_EQ(Type({"info"}), 4);
  EXPECT_EQ(err, "sorvane-cli: Board Software Not Compatible\n");
}

TEST_F(Reading, AMissingIndexFileIsNamed) {
  SetSystem(17, 3);
  EXPECT_EQ(Type({"info"}), 4);
  EXPECT_THAT(err, HasSubstr("W0309AA03.inx not found\n"));
}

TEST_F(Reading, ValuesAreShownByNameInTheOrderAsked) {
  SetBoard("price.3", 150);
  SetBoard("options", 1);
  SetBoard("motor.timeout", 125);
  EXPECT_EQ(Type({"get", "price.3", "option.free-vend", "option.password", "motor.timeout"}), 0);
  EXPECT_EQ(out,
            "price.3 = 1.50\noption.free-vend = on\noption.password = off\nmotor.timeout = 12.5\n");
  EXPECT_EQ(Type({"get", "price.3", "--json"}), 0);
  EXPECT_EQ(out, "{\"values\": [\n  {\"name\": \"price.3\", \"shown\": \"1.50\"}\n]}\n");
}

TEST_F(Reading, AmountsAreDrawnWithTheNumberThatThePagesDrawThemWith) {
  SetBoard("price.3", 150);
  SetBoardAt(22, 1);
  EXPECT_EQ(Type({"get", "price.3"}), 0);
  EXPECT_EQ(out, "price.3 = 15.0\n");
}

TEST_F(Reading, AParameterThatTheBoardDoesNotAnswerForIsNamed) {
  on_frame = [this](int, const Bytes& frame) {
    if (frame[3] == 25) board.StaySilent(1);
  };
  EXPECT_EQ(Type({"get", "price.3"}), 3);
  EXPECT_EQ(err, "sorvane-cli: the board doesn't answer for price.3\n");
  EXPECT_THAT(out, IsEmpty());
}

TEST_F(Reading, AParameterThatTheIndexFileLacksIsNamed) {
  index.WriteFile("W0309AA00.inx", SecondLevelBytes(PlainRows(30, 0)));
  EXPECT_EQ(Type({"get", "coin.1"}), 4);
  EXPECT_EQ(err, "sorvane-cli: this board has no coin.1\n");
}

TEST_F(Reading, ABackupHoldsAllButThePasswordAndTheSecondCopies) {
  EXPECT_EQ(Type({"backup", File("a.json")}), 0);
  const cli::Snapshot copy = Copy("a.json");
  EXPECT_TRUE(copy.complete);
  EXPECT_EQ(copy.values.size(), catalogue.Entries().size() - 4);
  EXPECT_EQ(copy.Find("password.1"), nullptr);
  EXPECT_NE(copy.Find("vends.total"), nullptr);
  EXPECT_EQ(copy.time, "2026-11-22T14:30:05Z");
  EXPECT_EQ(copy.program, "sorvane-cli test");
  EXPECT_EQ(copy.index_sum.size(), 64U);
  EXPECT_THAT(out, IsEmpty());
}

TEST_F(Reading, ThePasswordAndTheSecondCopiesAreKeptOnRequest) {
  EXPECT_EQ(Type({"backup", "--password", "--mirrors", "-o", File("a.json")}), 0);
  const cli::Snapshot copy = Copy("a.json");
  EXPECT_NE(copy.Find("password.1"), nullptr);
  EXPECT_NE(copy.Find("password.1.mirror"), nullptr);
  EXPECT_NE(copy.Find("price.3.mirror"), nullptr);
}

TEST_F(Reading, ABackupWithoutAFileIsPrinted) {
  EXPECT_EQ(Type({"backup"}), 0);
  EXPECT_THAT(cli::ParseSnapshot(out, catalogue).findings, IsEmpty());
}

TEST_F(Reading, GroupsAreChosen) {
  EXPECT_EQ(Type({"backup", "--only", "prices,coins", "--except", "coins", File("a.json")}), 0);
  EXPECT_EQ(Copy("a.json").values.size(), 10U);
  EXPECT_EQ(Type({"backup", "--only", "drinks", File("b.json")}), 2);
}

TEST_F(Reading, WhatTheBoardDoesNotAnswerEndsABackupWithoutAFile) {
  on_frame = [this](int, const Bytes& frame) {
    if (frame[3] == 25) board.StaySilent(1);
  };
  EXPECT_EQ(Type({"backup", File("a.json")}), 3);
  EXPECT_FALSE(std::filesystem::exists(File("a.json")));
  EXPECT_EQ(Type({"backup", "--partial", File("a.json")}), 1);
  EXPECT_FALSE(Copy("a.json").complete);
  EXPECT_EQ(Copy("a.json").Find("price.3"), nullptr);
  EXPECT_NE(Copy("a.json").Find("price.4"), nullptr);
  EXPECT_THAT(err, HasSubstr("the board doesn't answer for price.3\n"));
}

TEST_F(Reading, APulledCableEndsAPartialBackupToo) {
  on_frame = [this](int frame, const Bytes&) {
    if (frame == 50) wire.Vanish();
  };
  EXPECT_EQ(Type({"backup", "--partial", File("a.json")}), 3);
  EXPECT_FALSE(std::filesystem::exists(File("a.json")));
}

TEST_F(Reading, AnInterruptedBackupLeavesNoFile) {
  interrupted = [this] { return frames > 50; };
  EXPECT_EQ(Type({"backup", File("a.json")}), 130);
  EXPECT_FALSE(std::filesystem::exists(File("a.json")));
}

TEST_F(Reading, AnInterruptedProgramAsksForNoFurtherValue) {
  interrupted = [this] { return frames >= 8; };
  EXPECT_EQ(Type({"get", "decimals", "price.1"}), 130);
  EXPECT_EQ(frames, 8) << "seven to know the board, and the first value";
}

TEST_F(Reading, AFileThatCanNotBeWrittenIsTold) {
  EXPECT_EQ(Type({"backup", File("none/a.json")}), 2);
  EXPECT_THAT(err, HasSubstr("a.json: can't be written\n"));
}

TEST_F(Reading, NoPageHabitGetsToTheBoard) {
  EXPECT_EQ(Type({"backup", "--mirrors", "--password", File("a.json")}), 0);
  EXPECT_EQ(board.Writes(), 0) << "no day 0 to find out whether the clock can be set";
}

TEST_F(Reading, AWatchedValueIsShownWheneverItChanges) {
  int looks = 0;
  on_frame = [&](int, const Bytes& frame) {
    if (frame[3] == 282 - 256 && ++looks == 3) SetBoard("vends.total", 5);
  };
  interrupted = [&] { return looks == 4; };
  const auto before = clock.Now();
  EXPECT_EQ(Type({"watch", "vends.total", "--every", "10"}), 0);
  EXPECT_EQ(out, "2026-11-22T14:30:05Z  vends.total = 0\n2026-11-22T14:30:05Z  vends.total = 5\n");
  EXPECT_GE(clock.Now() - before, std::chrono::seconds(30));
}

}  // namespace
}  // namespace sorvane::test
