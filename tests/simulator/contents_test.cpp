#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "simulator/index_folder.h"
#include "simulator/simulated_board.h"

namespace sorvane::simulator {
namespace {

// What a person finds believable, parameter by parameter; ends included.
struct Bounds {
  int first;
  int last;
  uint32_t lowest;
  uint32_t highest;
};

constexpr Bounds kBounds[] = {
    {1, 1, 0, 9},         {2, 2, 5, 10},
    {3, 3, 0, 255},       {4, 4, 1, 5},
    {5, 5, 0, 16},        {6, 6, 50, 250},
    {7, 7, 1, 30},        {8, 8, 0, 12},
    {9, 9, 1, 16777215},  {10, 10, 1, 65535},
    {11, 11, 0, 255},     {22, 22, 2, 2},
    {23, 32, 50, 500},    {33, 42, 1, 65535},
    {43, 52, 1, 50},      {53, 53, 0, 255},
    {54, 54, 0, 23},      {55, 55, 0, 59},
    {56, 56, 1, 31},      {57, 57, 1, 12},
    {58, 58, 0, 99},      {59, 59, 0, 23},
    {60, 60, 0, 59},      {61, 61, 0, 23},
    {62, 62, 0, 59},      {63, 63, 0, 23},
    {64, 64, 0, 59},      {65, 65, 0, 23},
    {66, 66, 0, 59},      {67, 67, 0, 23},
    {68, 68, 0, 59},      {69, 69, 0, 23},
    {70, 70, 0, 59},      {71, 71, 3, 3},
    {72, 72, 0, 63},      {73, 73, 1, 9999},
    {74, 75, 1, 65535},   {76, 80, 1, 20},
    {81, 83, 1, 65535},   {84, 84, 1, 255},
    {85, 85, 2, 2},       {86, 86, 1, 30},
    {87, 87, 0, 2},       {88, 89, 0, 255},
    {90, 95, 1, 200},     {96, 97, 0, 255},
    {98, 107, 1, 10},     {108, 117, 1, 100},
    {278, 278, 0, 19},    {279, 287, 100, 1000000},
    {288, 303, 0, 65535}, {304, 319, 0, 65535},
    {320, 329, 1, 65535}, {330, 339, 0, 100},
    {340, 349, 0, 1000},  {350, 352, 1, 1000},
    {353, 410, 0, 65535}, {411, 418, 0, 9},
};

struct Pair {
  int first;
  int last;
  int mirror;
};

constexpr Pair kPairs[] = {
    {1, 1, 353},   {2, 2, 354},   {3, 3, 355},   {4, 4, 356},    {5, 5, 357},
    {6, 6, 358},   {7, 7, 359},   {8, 8, 360},   {67, 70, 361},  {71, 71, 365},
    {72, 72, 366}, {73, 73, 367}, {74, 74, 368}, {75, 75, 369},  {76, 80, 370},
    {81, 83, 375}, {84, 84, 378}, {85, 85, 22},  {86, 86, 379},  {87, 87, 380},
    {88, 89, 381}, {90, 95, 383}, {23, 32, 391}, {98, 107, 401}, {411, 414, 415},
};

class Contents : public testing::Test {
 protected:
  uint32_t Number(int parameter) const { return board_.Contents().Number(Parameter(parameter)); }
  uint32_t Sum(int first, int count) const {
    uint32_t sum = 0;
    for (int i = 0; i < count; ++i) sum += Number(first + i);
    return sum;
  }

  IndexFolder folder_;
  // In a leap year, so that the alarms lie on both sides of 29 February.
  SimulatedBoard board_{folder_.Path(), {}, {2024, 3, 10, 12, 30, 15}};
};

TEST_F(Contents, EveryNumberIsBelievable) {
  std::vector<int> seen(kParameters + 1);
  for (const Bounds& bounds : kBounds) {
    for (int i = bounds.first; i <= bounds.last; ++i) {
      ++seen[static_cast<std::size_t>(i)];
      EXPECT_GE(Number(i), bounds.lowest) << i;
      EXPECT_LE(Number(i), bounds.highest) << i;
    }
  }
  // The rest are ten texts, the ring of alarms and the spare record behind the last.
  for (int i = 1; i < kParameters; ++i) {
    const bool elsewhere = (i >= 12 && i <= 21) || (i >= 118 && i <= 277);
    EXPECT_EQ(seen[static_cast<std::size_t>(i)], elsewhere ? 0 : 1) << i;
  }
}

TEST_F(Contents, MirrorsEqualTheirPrimaries) {
  for (const Pair& pair : kPairs) {
    for (int i = pair.first; i <= pair.last; ++i) {
      EXPECT_EQ(Number(pair.mirror + i - pair.first), Number(i)) << i;
    }
  }
}

TEST_F(Contents, WhatNobodyUsesKeepsItsDefault) {
  for (const int parameter : {11, 53, 96, 97, 389, 390, 419}) EXPECT_EQ(Number(parameter), 7u);
}

TEST_F(Contents, NamesOfLanguagesAreDifferentTextsPaddedWithBlanks) {
  std::vector<Bytes> names;
  for (int i = 12; i <= 21; ++i) {
    const Bytes& name = board_.Contents().Value(Parameter(i));
    ASSERT_EQ(name.size(), 16u);
    EXPECT_NE(name.front(), ' ');
    EXPECT_EQ(name.back(), ' ');
    for (const Bytes& other : names) EXPECT_NE(name, other) << i;
    names.push_back(name);
  }
  const std::string french =
      "Fran\xe7"
      "ais        ";
  EXPECT_EQ(names[2], Bytes(french.begin(), french.end()));
}

TEST_F(Contents, TheClockIsThatOfThePc) {
  EXPECT_EQ(ShowClock(board_.Contents()), "2024-03-10 12:30");
  EXPECT_EQ(Number(58), 24u);
}

TEST_F(Contents, TotalsAgreeWithTheCountersOfTheSelections) {
  EXPECT_EQ(Number(282), Sum(320, 10));
  uint32_t worth = 0;
  for (int i = 0; i < 10; ++i) worth += Number(320 + i) * Number(23 + i);
  EXPECT_EQ(Number(280) + Number(284) + Number(286), worth);
  for (const int resettable : {279, 281, 283, 285}) {
    EXPECT_LT(Number(resettable), Number(resettable + 1));
  }
  for (int i = 0; i < 10; ++i) EXPECT_LT(Number(43 + i), Number(23 + i));
}

TEST_F(Contents, TwentyAlarmsRunBackFromThePointerOverSomeWeeks) {
  const auto moment = [&](uint32_t record) {
    const int first = 118 + 8 * static_cast<int>(record);
    return std::vector<uint32_t>{Number(first + 5), Number(first + 4), Number(first + 3),
                                 Number(first + 2), Number(first + 1)};
  };
  uint32_t record = Number(278);
  std::vector<uint32_t> newer = {24, 3, 10, 12, 30};
  for (int i = 0; i < 20; ++i) {
    EXPECT_LT(moment(record), newer) << i;
    newer = moment(record);
    record = record == 0 ? 19 : record - 1;
  }
  EXPECT_GT(newer, (std::vector<uint32_t>{24, 2, 1, 0, 0}));
  EXPECT_EQ(moment(Number(278)), (std::vector<uint32_t>{24, 3, 9, 16, 42}));
}

TEST_F(Contents, AlarmsHaveCodesThatMeanSomethingAndTrueDates) {
  for (int first = 118; first < 278; first += 8) {
    const uint32_t code = Number(first + 6);
    const bool known = (code >= 1 && code <= 3) || code == 9 || code == 10 ||
                       (code >= 17 && code <= 26) || (code >= 33 && code <= 42);
    EXPECT_TRUE(known) << code;
    EXPECT_EQ(Number(first), 0u);
    EXPECT_LE(Number(first + 1), 59u);
    EXPECT_LE(Number(first + 2), 23u);
    EXPECT_GE(Number(first + 3), 1u);
    EXPECT_LE(Number(first + 3), 31u);
    EXPECT_EQ(Number(first + 5), 24u);
    EXPECT_EQ(Number(first + 7), 0u);
  }
}

TEST_F(Contents, TheBoardSaysWhatItIs) {
  const auto system = [&](int which) { return board_.Contents().Number(SystemParameter(which)); };
  EXPECT_EQ(system(11), 0u);
  EXPECT_EQ(system(12), 18u);
  EXPECT_EQ(system(13), 53u);  // 309 is 256 + 53
  EXPECT_EQ(system(14), 1u);
  EXPECT_EQ(system(17), 0u);
  EXPECT_EQ(system(18), 0u);
}

TEST_F(Contents, ARevisionHasTheAddressesOfItsFileAndKeepsValues) {
  board_.Contents().SetNumber(Parameter(25), 777);
  board_.Become({309, 18, 0, 7});
  EXPECT_EQ(board_.IndexName(), "W0309AA07.inx");
  EXPECT_EQ(board_.Contents().ParameterCount(), kParameters + 1);
  EXPECT_EQ(Number(25), 777u);
  EXPECT_EQ(board_.Contents().Number(SystemParameter(17)), 7u);
  EXPECT_EQ(board_.Contents().NameOf({{32, 0, 25}, 2}), nullptr);
  ASSERT_NE(board_.Contents().NameOf({{33, 0, 25}, 2}), nullptr);
  EXPECT_EQ(*board_.Contents().NameOf({{33, 0, 25}, 2}), Parameter(25));
}

TEST_F(Contents, ARevisionWithoutAFileHasTheParametersOfRevision0) {
  board_.Become({309, 18, 0, 3});
  EXPECT_EQ(board_.IndexName(), "W0309AA00.inx");
  EXPECT_EQ(board_.Contents().Number(SystemParameter(17)), 3u);
}

TEST_F(Contents, AnyTypeAndSoftwareCanBeClaimed) {
  board_.Become({308, 17, 1, 0});
  EXPECT_EQ(board_.Contents().Number(SystemParameter(11)), 1u);
  EXPECT_EQ(board_.Contents().Number(SystemParameter(12)), 17u);
  EXPECT_EQ(board_.Contents().Number(SystemParameter(13)), 52u);
  EXPECT_EQ(board_.Contents().Number(SystemParameter(14)), 1u);
}

TEST_F(Contents, AMissingFileIsNamed) {
  std::filesystem::remove(folder_.Path() / "W0309.inx");
  try {
    const SimulatedBoard board(folder_.Path(), {}, {});
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("W0309.inx"));
  }
}

TEST_F(Contents, AShortIndexFileIsEnough) {
  // One parameter of one byte, at address 9, 8, 7: the language.
  std::ofstream(folder_.Path() / "W0309AA05.inx", std::ios::binary)
      .write("\7\10\0\0\11\0\0\0\0", 9);
  SimulatedBoard board(folder_.Path(), {309, 18, 0, 5}, {2024, 3, 10, 23, 59, 59});
  board.PassSeconds(1);
  EXPECT_EQ(board.Contents().ParameterCount(), 1);
  EXPECT_EQ(*board.Contents().NameOf({{9, 8, 7}, 1}), Parameter(1));
}

IndexRecord Record(uint8_t address3, uint8_t command, std::array<uint8_t, 4> value = {}) {
  return {address3, 0, command, 0, 0, value};
}

TEST(Memory, ACellStartsWithItsDefaultAndBlanksBehindIt) {
  const Memory memory({}, {Record(1, 1, {44, 1, 9, 9}), Record(2, 5, {'a', 'b', 'c', 'd'})});
  EXPECT_EQ(memory.Number(Parameter(1)), 300u);
  EXPECT_EQ(memory.Value(Parameter(2)), (Bytes{'a', 'b', 'c', 'd', ' ', ' '}));
}

TEST(Memory, TwoNamesOfOnePlaceShareACell) {
  Memory memory({Record(1, 0)}, {Record(2, 0), Record(1, 0, {5}), Record(1, 1, {6})});
  EXPECT_EQ(memory.Number(SystemParameter(1)), 5u);
  memory.SetNumber(Parameter(2), 9);
  EXPECT_EQ(memory.Number(SystemParameter(1)), 9u);
  EXPECT_EQ(memory.Number(Parameter(3)), 6u);
  EXPECT_EQ(*memory.NameOf({{0, 0, 1}, 1}), SystemParameter(1));
}

TEST(Memory, TheHighNibbleOfACommandIsNoPartOfTheSize) {
  const Memory memory({}, {Record(1, 0x71)});
  EXPECT_EQ(memory.Value(Parameter(1)).size(), 2u);
}

TEST(Memory, ANumberThatDoesNotFitChangesNothing) {
  Memory memory({}, {Record(1, 0, {5}), Record(2, 4)});
  EXPECT_TRUE(memory.SetNumber(Parameter(1), 255));
  EXPECT_FALSE(memory.SetNumber(Parameter(1), 256));
  EXPECT_EQ(memory.Number(Parameter(1)), 255u);
  EXPECT_FALSE(memory.SetNumber(Parameter(2), 1));
  EXPECT_FALSE(memory.SetNumber(Parameter(3), 1));
  EXPECT_EQ(memory.Number(Parameter(3)), 0u);
}

}  // namespace
}  // namespace sorvane::simulator
