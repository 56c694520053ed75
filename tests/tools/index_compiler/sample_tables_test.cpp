#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "board/board_tables.h"
#include "board/index_file.h"
#include "board/record.h"
#include "index_compiler/index_table.h"

namespace sorvane {
namespace {

enum class Poll {
  kNever,     // read once each time a page asks
  kDecimals,  // every second or every fifth pass
  kSlowly,    // every tenth or every fourteenth pass
};

struct Expected {
  int first;
  int last;
  int size;
  Poll poll;
  uint32_t least;     // of the default
  uint32_t greatest;  // of the default
  const char* words;  // that the name holds
};

constexpr int kMachineNumberSize = 0;  // 3 or 4 bytes
constexpr int kTextSize = 16;

constexpr Expected kExpected[] = {
    {1, 1, 1, Poll::kNever, 0, 9, "language"},
    {2, 2, 1, Poll::kNever, 5, 10, "number of selections"},
    {3, 3, 1, Poll::kNever, 0, 127, "option bits"},
    {4, 4, 1, Poll::kNever, 1, 5, "temperature difference"},
    {5, 5, 1, Poll::kNever, 0, 16, "temperature setting"},
    {6, 6, 1, Poll::kNever, 50, 250, "motor timeout"},
    {7, 7, 1, Poll::kNever, 1, 30, "defrosting time"},
    {8, 8, 1, Poll::kNever, 0, 12, "hours between defrostings"},
    {9, 9, kMachineNumberSize, Poll::kNever, 1, 16777215, "machine number"},
    {10, 10, 2, Poll::kNever, 1, 65535, "location number"},
    {11, 11, 1, Poll::kNever, 0, 255, "no page"},
    {12, 21, kTextSize, Poll::kNever, 0x20202020, 0x7E7E7E7E, "name of language"},
    {22, 22, 1, Poll::kDecimals, 0, 4, "number of decimals"},
    {23, 32, 2, Poll::kNever, 0, 65535, "price of selection"},
    {33, 42, 2, Poll::kNever, 0, 65535, "item number of selection"},
    {43, 52, 2, Poll::kNever, 0, 65535, "discount of selection"},
    {53, 53, 1, Poll::kNever, 0, 255, "no page"},
    {54, 54, 1, Poll::kNever, 0, 23, "clock: hours"},
    {55, 55, 1, Poll::kNever, 0, 59, "clock: minutes"},
    {56, 56, 1, Poll::kNever, 1, 31, "clock: day"},
    {57, 57, 1, Poll::kNever, 1, 12, "clock: month"},
    {58, 58, 1, Poll::kNever, 0, 99, "clock: year"},
    {59, 59, 1, Poll::kNever, 0, 23, "band 1, start: hours"},
    {60, 60, 1, Poll::kNever, 0, 59, "band 1, start: minutes"},
    {61, 61, 1, Poll::kNever, 0, 23, "band 1, end: hours"},
    {62, 62, 1, Poll::kNever, 0, 59, "band 1, end: minutes"},
    {63, 63, 1, Poll::kNever, 0, 23, "band 2, start: hours"},
    {64, 64, 1, Poll::kNever, 0, 59, "band 2, start: minutes"},
    {65, 65, 1, Poll::kNever, 0, 23, "band 2, end: hours"},
    {66, 66, 1, Poll::kNever, 0, 59, "band 2, end: minutes"},
    {67, 67, 1, Poll::kNever, 0, 23, "on: hours"},
    {68, 68, 1, Poll::kNever, 0, 59, "on: minutes"},
    {69, 69, 1, Poll::kNever, 0, 23, "off: hours"},
    {70, 70, 1, Poll::kNever, 0, 59, "off: minutes"},
    {71, 71, 1, Poll::kNever, 1, 3, "payment system"},
    {72, 72, 1, Poll::kNever, 0, 63, "changer and token flags"},
    {73, 73, 2, Poll::kNever, 0, 9999, "greatest change"},
    {74, 74, 2, Poll::kNever, 0, 65535, "credit from coins"},
    {75, 75, 2, Poll::kNever, 0, 65535, "credit on a key"},
    {76, 80, 1, Poll::kNever, 1, 20, "level of tube"},
    {81, 83, 2, Poll::kNever, 0, 65535, "value of token"},
    {84, 84, 1, Poll::kNever, 0, 255, "base coin"},
    {85, 85, 1, Poll::kNever, 0, 4, "decimal point"},
    {86, 86, 1, Poll::kNever, 1, 30, "credit timeout"},
    {87, 87, 1, Poll::kNever, 0, 2, "sale mode"},
    {88, 88, 1, Poll::kNever, 0, 255, "banknote channels 1 to 8"},
    {89, 89, 1, Poll::kNever, 0, 255, "banknote channels 9 to 16"},
    {90, 95, 2, Poll::kNever, 0, 65535, "value of coin channel"},
    {96, 97, 1, Poll::kNever, 0, 255, "no page"},
    {98, 107, 1, Poll::kNever, 1, 10, "column of key"},
    {108, 117, 1, Poll::kNever, 1, 100, "product of column"},
    {118, 277, 1, Poll::kNever, 0, 255, "alarm"},
    {278, 278, 1, Poll::kNever, 0, 19, "newest"},
    {279, 280, 4, Poll::kNever, 0, 0, "takings"},
    {281, 282, 4, Poll::kNever, 0, 0, "vends"},
    {283, 284, 4, Poll::kNever, 0, 0, "discounts"},
    {285, 286, 4, Poll::kNever, 0, 0, "discounts by key"},
    {287, 287, 4, Poll::kNever, 0, 0, "overpaid"},
    {288, 303, 4, Poll::kSlowly, 0, 0, "coins taken"},
    {304, 319, 4, Poll::kSlowly, 0, 0, "banknotes taken"},
    {320, 329, 4, Poll::kSlowly, 0, 0, "vends of selection"},
    {330, 339, 4, Poll::kSlowly, 0, 0, "blocks of motor"},
    {340, 349, 4, Poll::kSlowly, 0, 0, "free vends of selection"},
    {350, 350, 4, Poll::kSlowly, 0, 0, "resets of the motors"},
    {351, 351, 4, Poll::kSlowly, 0, 0, "technician"},
    {352, 352, 4, Poll::kSlowly, 0, 0, "switched on"},
    {353, 364, 1, Poll::kNever, 0, 255, "second copy"},
    {365, 366, 1, Poll::kNever, 0, 255, "second copy"},
    {367, 369, 2, Poll::kNever, 0, 65535, "second copy"},
    {370, 374, 1, Poll::kNever, 1, 20, "second copy"},
    {375, 377, 2, Poll::kNever, 0, 65535, "second copy"},
    {378, 382, 1, Poll::kNever, 0, 255, "second copy"},
    {383, 388, 2, Poll::kNever, 0, 65535, "second copy"},
    {389, 390, 1, Poll::kNever, 0, 255, "no page"},
    {391, 400, 2, Poll::kNever, 0, 65535, "second copy"},
    {401, 410, 1, Poll::kNever, 1, 10, "second copy"},
    {411, 414, 1, Poll::kNever, 0, 9, "password digit"},
    {415, 418, 1, Poll::kNever, 0, 9, "second copy"},
    {419, 419, 1, Poll::kNever, 0, 0, "spare"},
};

struct Copies {
  int setting;
  int copy;
  int count;
};

constexpr Copies kCopies[] = {{1, 353, 8},   {67, 361, 4},  {71, 365, 14},
                              {86, 379, 4},  {90, 383, 6},  {23, 391, 10},
                              {98, 401, 10}, {411, 415, 4}, {85, 22, 1}};

ParsedTable Parse(const std::string& name) {
  std::ifstream in(std::filesystem::path(SAMPLE_TABLES) / (name + ".txt"), std::ios::binary);
  EXPECT_TRUE(in) << name;
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  ParsedTable parsed = ParseIndexTable(text);
  EXPECT_TRUE(parsed.errors.empty()) << name;
  return parsed;
}

int SizeOf(const TableRow& row) { return (row.record.command & 15) + 1; }

uint32_t DefaultOf(const TableRow& row) {
  const auto& bytes = row.record.default_value;
  return bytes[0] + 256U * bytes[1] + 65536U * bytes[2] + 16777216U * bytes[3];
}

// Counts the bytes of the rows in used, by address.
void UseBytes(const std::vector<TableRow>& rows, std::map<int, int>& used) {
  for (const TableRow& row : rows) {
    const IndexRecord& record = row.record;
    const int address = record.address1 * 65536 + record.address2 * 256 + record.address3;
    for (int i = 0; i < SizeOf(row); ++i) ++used[address + i];
  }
}

class SecondLevelSample : public testing::TestWithParam<const char*> {
 protected:
  const TableRow& Row(int number) const { return rows_.at(static_cast<std::size_t>(number - 1)); }

  const ParsedTable parsed_ = Parse(GetParam());
  const std::vector<TableRow>& rows_ = parsed_.table.rows;
};

TEST_P(SecondLevelSample, ReachesBehindTheLastParameterByOneSpareRecord) {
  EXPECT_EQ(parsed_.table.level, 2);
  EXPECT_EQ(rows_.size(), 419U);
}

TEST_P(SecondLevelSample, EveryRecordHasItsSizeAndADefaultInRangeAndItsName) {
  int next = 1;
  for (const Expected& expected : kExpected) {
    ASSERT_EQ(expected.first, next);
    next = expected.last + 1;
    for (int number = expected.first; number <= expected.last; ++number) {
      const TableRow& row = Row(number);
      if (expected.size == kMachineNumberSize) {
        EXPECT_TRUE(SizeOf(row) == 3 || SizeOf(row) == 4) << number;
      } else {
        EXPECT_EQ(SizeOf(row), expected.size) << number;
      }
      EXPECT_GE(DefaultOf(row), expected.least) << number;
      EXPECT_LE(DefaultOf(row), expected.greatest) << number;
      EXPECT_NE(row.name.find(expected.words), std::string::npos) << number << row.name;
    }
  }
  EXPECT_EQ(next, 420);
}

TEST_P(SecondLevelSample, OnlyTheDecimalsAndTheCountersArePolled) {
  for (const Expected& expected : kExpected) {
    for (int number = expected.first; number <= expected.last; ++number) {
      const int divider = Row(number).record.divider;
      const int low = divider & 15;
      switch (expected.poll) {
        case Poll::kNever:
          EXPECT_EQ(divider, 0) << number;
          break;
        case Poll::kDecimals:
          EXPECT_TRUE(low == 1 || low == 4) << number;
          break;
        case Poll::kSlowly:
          EXPECT_TRUE(low == 9 || low == 13) << number;
          break;
      }
    }
  }
}

TEST_P(SecondLevelSample, NoRecordHoldsTheLineWhenTheBoardIsSilent) {
  for (const TableRow& row : rows_) EXPECT_EQ(row.record.divider & 0x22, 0) << row.name;
}

TEST_P(SecondLevelSample, SecondCopiesHaveTheSizeAndTheDefaultOfTheirSettings) {
  for (const Copies& copies : kCopies) {
    for (int i = 0; i < copies.count; ++i) {
      const TableRow& setting = Row(copies.setting + i);
      const TableRow& copy = Row(copies.copy + i);
      EXPECT_EQ(copy.record.command, setting.record.command) << copy.name;
      EXPECT_EQ(copy.record.default_value, setting.record.default_value) << copy.name;
    }
  }
}

TEST_P(SecondLevelSample, AlarmRecordsAreMarkedAsNotFilledUntilTheBoardAnswers) {
  for (int record = 0; record < 20; ++record) {
    EXPECT_GT(DefaultOf(Row(124 + 8 * record)), 50U) << record;
    EXPECT_LE(DefaultOf(Row(122 + 8 * record)), 12U) << record;
  }
}

TEST_P(SecondLevelSample, NamesAreThereAndDiffer) {
  std::set<std::string> names;
  for (const TableRow& row : rows_) {
    EXPECT_FALSE(row.name.empty());
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
  }
}

TEST_P(SecondLevelSample, NoByteOfTheBoardBelongsToTwoRecordsOfEitherFile) {
  std::map<int, int> used;
  UseBytes(rows_, used);
  UseBytes(Parse("W0309").table.rows, used);
  for (const auto& [address, count] : used) EXPECT_EQ(count, 1) << std::hex << address;
}

TEST_P(SecondLevelSample, AddressesFitThreeBytesToTheEnd) {
  std::map<int, int> used;
  UseBytes(rows_, used);
  EXPECT_LE(used.rbegin()->first, 0xFFFFFF);
}

INSTANTIATE_TEST_SUITE_P(Revisions, SecondLevelSample, testing::Values("W0309AA00", "W0309AA07"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST(SampleTables, RevisionsDifferInAddressesAndInTheSizeOfTheMachineNumber) {
  const ParsedTable first = Parse("W0309AA00");
  const ParsedTable second = Parse("W0309AA07");
  EXPECT_EQ(SizeOf(first.table.rows[8]), 3);
  EXPECT_EQ(SizeOf(second.table.rows[8]), 4);
  for (const std::size_t number : {2U, 22U, 25U, 56U, 118U, 279U, 288U, 393U, 411U}) {
    const IndexRecord& a = first.table.rows[number - 1].record;
    const IndexRecord& b = second.table.rows[number - 1].record;
    EXPECT_FALSE(a.address1 == b.address1 && a.address2 == b.address2 && a.address3 == b.address3)
        << number;
  }
}

TEST(SampleTables, SystemParametersAreSingleBytesWhichAreNeverPolled) {
  const ParsedTable parsed = Parse("W0309");
  EXPECT_EQ(parsed.table.level, 1);
  EXPECT_GE(parsed.table.rows.size(), 18U);
  EXPECT_LE(parsed.table.rows.size(), 20U);
  for (const TableRow& row : parsed.table.rows) {
    EXPECT_EQ(SizeOf(row), 1) << row.name;
    EXPECT_EQ(row.record.divider, 0) << row.name;
  }
  EXPECT_EQ(parsed.table.rows[10].name, "software number");
  EXPECT_EQ(parsed.table.rows[11].name, "board number");
  EXPECT_EQ(parsed.table.rows[12].name, "board type, low byte");
  EXPECT_EQ(parsed.table.rows[13].name, "board type, high byte");
  EXPECT_EQ(parsed.table.rows[16].name, "revision");
}

TEST(SampleTables, ProgramLoadsTheCompiledFiles) {
  BoardTables tables;
  SetBoardDefaults(tables);
  LoadFirstLevel(tables, PROGRAM_FOLDER);
  EXPECT_EQ(tables.RecordCount(0), 18);
  tables.BoardPresent(0) = true;
  tables.IndexType = 309;
  for (const int16_t revision : {int16_t{0}, int16_t{7}}) {
    tables.IndexRevision = revision;
    std::string name;
    LoadSecondLevel(tables, PROGRAM_FOLDER, name);
    EXPECT_EQ(tables.RecordCount(0), 419) << name;
    EXPECT_EQ(tables.ParameterTable(22, 0).At(position::kDivider), revision == 0 ? 1 : 4);
    EXPECT_EQ(tables.ParameterTable(12, 0).At(position::kValue), 'I');
  }
}

}  // namespace
}  // namespace sorvane
