#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "index_compiler/index_table.h"

namespace sorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Each as "line: words".
std::vector<std::string> ErrorsOf(std::string_view text) {
  std::vector<std::string> errors;
  for (const TableError& error : ParseIndexTable(text).errors) {
    errors.push_back(std::to_string(error.line) + ": " + error.words);
  }
  return errors;
}

// The errors of a second-level table whose line 2 is row.
std::vector<std::string> ErrorsOfRow(const std::string& row) {
  return ErrorsOf("level 2\n" + row + "\n");
}

std::string Rows(int level, int count) {
  std::string text = "level " + std::to_string(level) + "\n";
  for (int i = 1; i <= count; ++i) {
    char address[16];
    std::snprintf(address, sizeof(address), "%02X %02X %02X", static_cast<unsigned>(i) >> 16,
                  static_cast<unsigned>(i) >> 8 & 255U, static_cast<unsigned>(i) & 255U);
    text += std::to_string(i) + " || " + address + " | 1 | 0 |" + (level == 2 ? " 0 |\n" : "\n");
  }
  return text;
}

TEST(TableErrors, GapInTheNumbersIsToldOnce) {
  EXPECT_THAT(ErrorsOf("level 1\n"
                       "1 || 00 00 01 | 1 | 0 |\n"
                       "3 || 00 00 03 | 1 | 0 |\n"
                       "4 || 00 00 04 | 1 | 0 |\n"),
              ElementsAre("3: number 3 where 2 was expected: records are numbered from 1 without a "
                          "gap"));
}

TEST(TableErrors, NumberThatComesAgainIsTold) {
  EXPECT_THAT(ErrorsOf("level 1\n1 || 00 00 01 | 1 | 0 |\n1 || 00 00 02 | 1 | 0 |\n"),
              ElementsAre("3: number 1 where 2 was expected: records are numbered from 1 without a "
                          "gap"));
}

TEST(TableErrors, FirstNumberIsOne) {
  EXPECT_THAT(ErrorsOf("level 1\n0 || 00 00 01 | 1 | 0 |\n"),
              ElementsAre("2: number 0 where 1 was expected: records are numbered from 1 without a "
                          "gap"));
}

TEST(TableErrors, NumberIsAWholeNumber) {
  EXPECT_THAT(ErrorsOfRow("-1 || 00 00 01 | 1 | 0 | 0 |"),
              ElementsAre("2: number \"-1\" is not a whole number"));
}

TEST(TableErrors, AddressIsThreeBytes) {
  for (const std::string address :
       {"100 00 00", "00 00", "00 00 00 00", "00 1 00", "00 0G 00", ""}) {
    EXPECT_THAT(ErrorsOfRow("1 || " + address + " | 1 | 0 | 0 |"),
                ElementsAre("2: address \"" + address +
                            "\" is out of range: it takes three bytes from 00 to FF, such as "
                            "\"00 1F 80\""));
  }
}

TEST(TableErrors, AddressStandsOnce) {
  EXPECT_THAT(ErrorsOf("level 1\n"
                       "1 || 00 0A 01 | 1 | 0 |\n"
                       "2 || 00 01 0A | 1 | 0 |\n"
                       "# in small letters it is the same\n"
                       "3 || 00 0a 01 | 2 | 0 |\n"),
              ElementsAre("5: address \"00 0a 01\" stands in line 2 already"));
}

TEST(TableErrors, SizeIsOneToSixteen) {
  for (const std::string size : {"0", "17", "two", "", "4294967297"}) {
    EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | " + size + " | 0 | 0 |"),
                ElementsAre("2: size \"" + size + "\" is not a number of bytes, 1 to 16"));
  }
}

TEST(TableErrors, CommandNibbleLeavesBit7Clear) {
  for (const std::string nibble : {"8", "15", "16", "x", ""}) {
    EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 2/" + nibble + " | 0 | 0 |"),
                ElementsAre("2: command nibble \"" + nibble +
                            "\" is not 0 to 7: bit 7 of the command byte is the mark of a write"));
  }
}

TEST(TableErrors, SizeHasOneSlashAtMost) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 2/1/1 | 0 | 0 |"),
              ElementsAre("2: size \"2/1/1\" has more than one slash"));
}

TEST(TableErrors, NoCommandByteIs127) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 16/7 | 0 | 0 |"),
              ElementsAre("2: size \"16/7\" makes the command byte 127, which no record may have"));
}

TEST(TableErrors, DividerIsOneByte) {
  for (const std::string divider : {"256", "-1", "", "0x100"}) {
    EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 1 | " + divider + " | 0 |"),
                ElementsAre("2: divider \"" + divider + "\" is not 0 to 255"));
  }
}

TEST(TableErrors, DefaultFitsTheSize) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 1 | 0 | 256 |"),
              ElementsAre("2: default 256 does not fit a size of 1"));
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 2 | 0 | 65536 |"),
              ElementsAre("2: default 65536 does not fit a size of 2"));
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 3 | 0 | 0x1000000 |"),
              ElementsAre("2: default 0x1000000 does not fit a size of 3"));
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 4 | 0 | 4294967296 |"),
              ElementsAre("2: default \"4294967296\" is neither a whole number of 4 bytes at most "
                          "nor a text in double quotes"));
}

TEST(TableErrors, DefaultIsNotJudgedBySizeWhereTheSizeIsWrong) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 17 | 0 | 300 |"),
              ElementsAre("2: size \"17\" is not a number of bytes, 1 to 16"));
}

TEST(TableErrors, TextDefaultTakesALongValue) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 4 | 0 | \"ITA\" |"),
              ElementsAre("2: default \"ITA\" is a text, which takes a size of 5 to 16"));
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 5 | 0 | \"ITA\" |"), IsEmpty());
}

TEST(TableErrors, TextDefaultHasFourPlainCharactersAtMost) {
  for (const std::string text : {"\"ITALY\"", "\"", "\"IT", "\"I\"T\"", "\"\xE9\""}) {
    EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 16 | 0 | " + text + " |"),
                ElementsAre("2: default " + text +
                            " is not a text of at most 4 plain characters in double quotes"));
  }
}

TEST(TableErrors, EveryColumnStandsEvenIfEmpty) {
  EXPECT_THAT(ErrorsOfRow("1 || 00 00 01 | 1 | 0 | 0"),
              ElementsAre("2: expected 7 columns (number | name | address | size | divider | "
                          "default | remark), found 6"));
}

TEST(TableErrors, FirstLevelHasNoDefaults) {
  EXPECT_THAT(ErrorsOf("level 1\n1 || 00 00 01 | 1 | 0 | 0 |\n"),
              ElementsAre("2: expected 6 columns (number | name | address | size | divider | "
                          "remark), found 7"));
}

TEST(TableErrors, LevelIsOneOrTwo) {
  const std::string words = "unknown level: the first line must be \"level 1\" or \"level 2\"";
  for (const std::string level : {"level 3", "level 0", "level", "level one", "level 1 2"}) {
    EXPECT_THAT(ErrorsOf("# head\n" + level + "\n1 || 00 00 01 | 1 | 0 |\n"),
                ElementsAre("2: " + words));
  }
  EXPECT_THAT(ErrorsOf(""), ElementsAre("1: " + words));
}

TEST(TableErrors, RowsWithoutALevelAreCheckedAllTheSame) {
  EXPECT_THAT(
      ErrorsOf("1 || 00 00 01 | 1 | 256 |\n2 || 00 00 02 | 1 | 0 | 256 |\n"),
      ElementsAre("1: unknown level: the first line must be \"level 1\" or \"level 2\"",
                  "1: divider \"256\" is not 0 to 255", "2: default 256 does not fit a size of 1"));
}

TEST(TableErrors, FirstLevelHoldsTwentyRecordsAtMost) {
  EXPECT_THAT(ErrorsOf(Rows(1, 20)), IsEmpty());
  EXPECT_THAT(ErrorsOf(Rows(1, 22)), ElementsAre("22: more than 20 records"));
}

TEST(TableErrors, SecondLevelHolds32767RecordsAtMost) {
  EXPECT_THAT(ErrorsOf(Rows(2, 32767)), IsEmpty());
  EXPECT_THAT(ErrorsOf(Rows(2, 32769)), ElementsAre("32769: more than 32767 records"));
}

TEST(TableErrors, AllErrorsOfALineAndOfAFileAreTold) {
  EXPECT_THAT(
      ErrorsOf("level 2\n"
               "2 || 00 00 | 0 | 256 | x |\n"
               "3 | too short\n"
               "4 || 00 00 01 | 1 | 0 | 300 |\n"),
      ElementsAre("2: number 2 where 1 was expected: records are numbered from 1 without a "
                  "gap",
                  "2: address \"00 00\" is out of range: it takes three bytes from 00 to "
                  "FF, such as \"00 1F 80\"",
                  "2: size \"0\" is not a number of bytes, 1 to 16",
                  "2: divider \"256\" is not 0 to 255",
                  "2: default \"x\" is neither a whole number of 4 bytes at most nor a text "
                  "in double quotes",
                  "3: expected 7 columns (number | name | address | size | divider | "
                  "default | remark), found 2",
                  "4: default 300 does not fit a size of 1"));
}

}  // namespace
}  // namespace sorvane
