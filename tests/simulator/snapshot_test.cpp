#include "simulator/snapshot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "simulator/command_error.h"
#include "simulator/index_folder.h"
#include "simulator/real_board.h"
#include "simulator/second_copies.h"

namespace sorvane::simulator {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

const char* const kHead =
    "{\n"
    "  \"format\": 1,\n"
    "  \"time\": \"2026-11-22T12:43:58Z\",\n"
    "  \"program\": \"sorvane-cli 1.0.0\",\n"
    "  \"type\": 308,\n"
    "  \"software\": 2,\n"
    "  \"revision\": 3,\n"
    "  \"index\": \"W0308AC03.inx\",\n"
    "  \"index-sha256\": \"00\",\n"
    "  \"machine\": 100234,\n"
    "  \"location\": 152,\n"
    "  \"decimals\": 1,\n"
    "  \"complete\": true,\n"
    "  \"values\": [\n";

// A parameter as its line tells it; raw as it stands there.
std::string Line(int number, int size, const std::string& raw) {
  return "    {\"number\": " + std::to_string(number) +
         ", \"name\": \"a.name\", \"size\": " + std::to_string(size) + ", \"raw\": " + raw +
         ", \"shown\": \"as \\\"shown\\\"\"}";
}

class SnapshotFile : public RealBoard {
 protected:
  fs::path Write(const std::string& text) const {
    std::ofstream(file_, std::ios::binary) << text;
    return file_;
  }
  fs::path WriteValues(const std::string& values) const {
    return Write(kHead + values + "\n  ]\n}\n");
  }
  std::string ReasonAgainst(const std::string& text) const {
    try {
      LayDown(ReadSnapshot(Write(text)), *board_);
    } catch (const CommandError& error) {
      return std::string(error.what()).substr(file_.string().size());
    }
    return "(none)";
  }
  std::string ReasonAgainstValues(const std::string& values) const {
    return ReasonAgainst(kHead + values + "\n  ]\n}\n");
  }
  uint32_t Number(int parameter) const { return board_->Contents().Number(Parameter(parameter)); }

  fs::path file_ = folder_.Path() / "held.json";
  std::unique_ptr<SimulatedBoard> board_ = std::make_unique<SimulatedBoard>(
      folder_.Path(), Identity{}, DateTime{2024, 3, 10, 12, 30, 0});
};

TEST_F(SnapshotFile, TellsWhatTheBoardIs) {
  const Snapshot snapshot = ReadSnapshot(WriteValues(Line(23, 2, "150")));
  EXPECT_EQ(snapshot.type, 308);
  EXPECT_EQ(snapshot.software, 2);
  EXPECT_EQ(snapshot.revision, 3);
}

TEST_F(SnapshotFile, RawValuesOfEverySizeAreLaidDown) {
  LayDown(ReadSnapshot(WriteValues(Line(2, 1, "255") + ",\n" + Line(9, 3, "16777215") + ",\n" +
                                   Line(12, 16, "\"46e700ff000102030405060708090a0b\"") + ",\n" +
                                   Line(23, 2, "65535") + ",\n" + Line(279, 4, "4294967295"))),
          *board_);
  EXPECT_EQ(Number(2), 255u);
  EXPECT_EQ(Number(9), 16777215u);
  EXPECT_THAT(board_->Contents().Value(Parameter(12)),
              ElementsAre(0x46, 0xe7, 0, 0xff, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
  EXPECT_EQ(Number(23), 65535u);
  EXPECT_EQ(Number(279), 4294967295u);
}

TEST_F(SnapshotFile, WhatItDoesNotTellHasTheDefaultOfTheIndexFile) {
  ASSERT_NE(Number(320), 7u);
  LayDown(ReadSnapshot(WriteValues(Line(23, 2, "150"))), *board_);
  EXPECT_EQ(Number(320), 7u);
  EXPECT_EQ(Number(54), 7u);
  EXPECT_EQ(Number(411), 7u);
}

TEST_F(SnapshotFile, MachineLocationAndDecimalsComeFromItsHead) {
  LayDown(ReadSnapshot(WriteValues(Line(23, 2, "150"))), *board_);
  EXPECT_EQ(Number(9), 100234u);
  EXPECT_EQ(Number(10), 152u);
  EXPECT_EQ(Number(85), 1u);
  EXPECT_EQ(Number(22), 1u);
}

// The pages draw amounts with the second copy, which the head tells.
TEST_F(SnapshotFile, DecimalsThatTheBoardHoldsInTwoWaysStayTwo) {
  LayDown(ReadSnapshot(WriteValues(Line(85, 1, "3"))), *board_);
  EXPECT_EQ(Number(85), 3u);
  EXPECT_EQ(Number(22), 1u);
}

TEST_F(SnapshotFile, ASecondCopyGetsTheFirstOnesValueUnlessItIsTold) {
  LayDown(ReadSnapshot(WriteValues(Line(23, 2, "150") + ",\n" + Line(24, 2, "160") + ",\n" +
                                   Line(392, 2, "99"))),
          *board_);
  EXPECT_EQ(Number(391), 150u);
  EXPECT_EQ(Number(392), 99u);
  EXPECT_EQ(Number(393), 7u);
}

TEST_F(SnapshotFile, ABoardWithoutAPlaceForTheSecondCopyIsFilledAllTheSame) {
  EXPECT_EQ(SecondCopyOf(26), 394);
  EXPECT_EQ(SecondCopyOf(418), 0);
  fs::resize_file(folder_.Path() / "W0309AA00.inx", 9 * 390);
  board_ = std::make_unique<SimulatedBoard>(folder_.Path(), Identity{}, DateTime{});
  LayDown(ReadSnapshot(WriteValues(Line(26, 2, "150"))), *board_);
  EXPECT_EQ(Number(26), 150u);
}

TEST_F(SnapshotFile, WithoutAnyValueItIsOneAllTheSame) {
  EXPECT_EQ(ReasonAgainst(std::string(kHead) + "  ]\n}\n"), "(none)");
  EXPECT_EQ(Number(9), 100234u);
}

TEST_F(SnapshotFile, ALineThatIsNotAsItShouldBeIsToldByItsNumber) {
  const std::string good = Line(23, 2, "150");
  EXPECT_EQ(ReasonAgainstValues(good), "(none)");
  EXPECT_THAT(ReasonAgainstValues(Line(23, 2, "65536")), HasSubstr(":15: \"65536\" isn't right"));
  EXPECT_THAT(ReasonAgainstValues(Line(23, 2, "-1")), HasSubstr(":15: \"-1\" isn't right"));
  EXPECT_THAT(ReasonAgainstValues(Line(23, 17, "1")), HasSubstr(":15: \"17\" isn't right"));
  EXPECT_EQ(ReasonAgainstValues(Line(23, 0, "1")), ":15: a parameter has a byte at least");
  EXPECT_EQ(ReasonAgainstValues(good + ",\n" + good), ":16: the numbers of the parameters rise");
  EXPECT_EQ(ReasonAgainstValues(Line(24, 2, "1") + ",\n" + good),
            ":16: the numbers of the parameters rise");
  EXPECT_EQ(ReasonAgainstValues(good + " "), ":15: too much:  ");
  EXPECT_EQ(ReasonAgainstValues(good + ","), ":16: no     {\"number\": ");
  EXPECT_EQ(ReasonAgainstValues(Line(12, 16, "\"46\"")),
            ":15: a text has two digits for each of its bytes");
  EXPECT_EQ(ReasonAgainstValues(Line(12, 16, "\"46E700ff000102030405060708090a0b\"")),
            ":15: a text has hexadecimal digits");
  EXPECT_EQ(ReasonAgainstValues("    {\"number\": 23, \"name\": \"price"),
            ":15: a text has no end");
  EXPECT_EQ(ReasonAgainst(kHead + good), ":16: the file ends too early");
  EXPECT_EQ(ReasonAgainst(kHead + good + "\n  ]\n}\nmore\n"), ":18: more behind the end");
  EXPECT_EQ(ReasonAgainst("{\n  \"format\": 2,\n"), ":2: another format than 1");
  EXPECT_EQ(ReasonAgainst(""), ":1: the file ends too early");
}

TEST_F(SnapshotFile, EveryLineOfTheHeadCounts) {
  const std::string whole = std::string(kHead) + "  ]\n}\n";
  int line = 1;
  for (std::size_t at = 0; at != std::string::npos; at = whole.find('\n', at + 1)) {
    std::string spoilt = whole;
    spoilt.insert(at == 0 ? 0 : at, "?");
    if (at == whole.size() - 1) break;
    EXPECT_THAT(ReasonAgainst(spoilt), testing::StartsWith(':' + std::to_string(line) + ": "));
    line += at == 0 ? 0 : 1;
  }
  EXPECT_EQ(line, 16);
}

TEST_F(SnapshotFile, AValueThatTheBoardHasNoPlaceForIsToldAndNothingIsChanged) {
  EXPECT_EQ(ReasonAgainstValues(Line(23, 2, "1") + ",\n" + Line(420, 1, "7")),
            ":16: W0309AA00.inx has no parameter 420");
  EXPECT_EQ(ReasonAgainstValues(Line(23, 4, "1")),
            ":15: W0309AA00.inx has parameter 23 with size 2");
  EXPECT_EQ(Number(23), 100u);
  EXPECT_EQ(Number(320), 412u);
}

TEST_F(SnapshotFile, WhatIsNoFileIsNotOpened) {
  EXPECT_THROW(ReadSnapshot(folder_.Path()), CommandError);
  EXPECT_THROW(ReadSnapshot(folder_.Path() / "missing"), CommandError);
}

TEST_F(SnapshotFile, TheRealBoardHoldsIt) {
  BoardProcess board(Arguments({"--load", WriteValues(Line(23, 2, "321"))}));
  ExpectLine(board);
  board.Type("get 23");
  EXPECT_EQ(board.NextLine(), "23 = 321");
  board.Type("system 11");
  EXPECT_EQ(board.NextLine(), "system 11 = 2");
  board.Type("system 17");
  EXPECT_EQ(board.NextLine(), "system 17 = 3");
  board.Type("system 12");
  EXPECT_EQ(board.NextLine(), "system 12 = 18");
}

TEST_F(SnapshotFile, TheRealBoardRefusesABadOneWithItsLine) {
  for (const std::string& bad : {Line(23, 2, "?"), Line(23, 4, "1")}) {
    BoardProcess board(Arguments({"--load", WriteValues(bad)}));
    EXPECT_THAT(board.NextLine(), HasSubstr(file_.string() + ":15: "));
    EXPECT_EQ(board.Exit(), 2);
  }
  BoardProcess board(Arguments({"--load", ""}));
  EXPECT_NE(board.NextLine(), "(nothing)");
  EXPECT_EQ(board.Exit(), 2);
  EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(SnapshotFile, TellsTheIdentityThatNobodyElseMayTellThen) {
  for (const char* const told : {"--type", "--software", "--revision"}) {
    BoardProcess board(Arguments({"--load", WriteValues(Line(23, 2, "1")), told, "7"}));
    EXPECT_THAT(board.NextLine(), HasSubstr(told));
    EXPECT_EQ(board.Exit(), 2);
  }
}

}  // namespace
}  // namespace sorvane::simulator
