#include "board/parameter_access.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr uint8_t kOneByte = 0;
constexpr uint8_t kTwoBytes = 1;
constexpr uint8_t kFourBytes = 3;
constexpr uint8_t kText = 9;

struct AccessTest : ::testing::Test {
  AccessTest() { tables.BoardPresent(0) = true; }

  ParameterRecord& Record(int index) { return tables.ParameterTable(index, 0); }

  // The value bytes from position 8 on.
  std::vector<int> Value(int count) {
    std::vector<int> bytes;
    for (int i = 0; i < count; ++i) bytes.push_back(Record(1).At(8 + i));
    return bytes;
  }

  void Write(uint8_t command, const ParameterValue& value) {
    Record(1).At(3) = command;
    access.WriteParameter(1, value);
  }

  template <typename Call>
  void ExpectError(ErrorCode code, Call call) {
    const ParameterRecord before = Record(1);
    try {
      call();
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Code(), code);
    }
    EXPECT_EQ(Record(1), before);
  }

  BoardTables tables;
  ParameterAccess access{tables};
};

TEST_F(AccessTest, WriteLaysDownTheBytesOfANumberLeastSignificantFirst) {
  Write(kTwoBytes, 65535);
  EXPECT_EQ(Value(4), (std::vector<int>{255, 255, 0, 0}));
  Write(kFourBytes, 0x04030201);
  EXPECT_EQ(Value(4), (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(AccessTest, WriteCarriesIntoTheNextByteAfter255) {
  Write(kFourBytes, 0x100);
  EXPECT_EQ(Value(4), (std::vector<int>{0, 1, 0, 0}));
  Write(kFourBytes, 0x10000);
  EXPECT_EQ(Value(4), (std::vector<int>{0, 0, 1, 0}));
  Write(kFourBytes, 0x1000000);
  EXPECT_EQ(Value(4), (std::vector<int>{0, 0, 0, 1}));
}

TEST_F(AccessTest, WriteStoresFourBytesWhateverTheSize) {
  Write(kOneByte, 300);
  EXPECT_EQ(Value(4), (std::vector<int>{44, 1, 0, 0}));
}

TEST_F(AccessTest, ANumberLeavesWhatStandsBehindItsFourBytes) {
  Record(1).At(12) = 77;
  Write(kFourBytes, 0x04030201);
  EXPECT_EQ(Record(1).At(12), 77);
}

TEST_F(AccessTest, FiveBytesAreAText) {
  Write(4, "7");
  EXPECT_EQ(Value(2), (std::vector<int>{'7', 0}));
}

TEST_F(AccessTest, WriteLooksAtTheLowNibbleOfTheCommandOnly) {
  Write(0x71, 300);
  EXPECT_EQ(Value(4), (std::vector<int>{44, 1, 0, 0}));
}

TEST_F(AccessTest, WriteMarksAnUnmarkedRecord) {
  Write(kTwoBytes, 1);
  EXPECT_EQ(Record(1).At(6), 134);
}

TEST_F(AccessTest, WriteMakesAFreshRecordStale) {
  Record(1).At(6) = 7;
  Write(kTwoBytes, 1);
  EXPECT_EQ(Record(1).At(6), 134);
}

TEST_F(AccessTest, WriteKeepsTheOtherFlagsAndTheWatchers) {
  Record(1).At(6) = 64 + 8;
  Record(1).At(5) = 3;
  Record(1).At(4) = 0x23;
  Write(kTwoBytes, 1);
  EXPECT_EQ(Record(1).At(6), 134 + 64 + 8);
  EXPECT_EQ(Record(1).At(5), 3);
  EXPECT_EQ(Record(1).At(4), 0x23);
}

TEST_F(AccessTest, AShorterTextLeavesTheTailOfTheOldOne) {
  Write(kText, "ABCDEF");
  Write(kText, "xyz");
  EXPECT_EQ(Value(6), (std::vector<int>{'x', 'y', 'z', 'D', 'E', 'F'}));
}

TEST_F(AccessTest, ATextEndsAtTheEndOfTheRecord) {
  Write(15, "0123456789ABCDEFGH");
  EXPECT_EQ(Record(1).At(23), 'F');
  EXPECT_EQ(Record(2), ParameterRecord());
}

TEST_F(AccessTest, ANumberForATextIsWrittenInDigitsAndDigitsForANumberAreRead) {
  Write(kText, 42);
  EXPECT_EQ(Value(2), (std::vector<int>{'4', '2'}));
  Write(kTwoBytes, "300");
  EXPECT_EQ(Value(2), (std::vector<int>{44, 1}));
  ExpectError(ErrorCode::kTypeMismatch, [&] { access.WriteParameter(1, "3x"); });
}

TEST_F(AccessTest, AValueThatFitsNoFourBytesIsAnOverflowAndLeavesTheRecord) {
  Write(kFourBytes, 4294967295);
  EXPECT_EQ(Value(4), (std::vector<int>{255, 255, 255, 255}));
  for (const int64_t value : {int64_t{-1}, int64_t{-16777216}, int64_t{4294967296}}) {
    ExpectError(ErrorCode::kOverflow, [&] { access.WriteParameter(1, value); });
  }
}

TEST_F(AccessTest, AZeroIsTheLowestNumberThatIsWritten) {
  Write(kTwoBytes, 300);
  Write(kTwoBytes, 0);
  EXPECT_EQ(Value(2), (std::vector<int>{0, 0}));
}

TEST_F(AccessTest, WriteRefusesBadIndexes) {
  EXPECT_THROW(access.WriteParameter(0, 1), InternalFault);
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.WriteParameter(33001, 1); });
  access.WriteParameter(33000, 1);
  EXPECT_EQ(Record(33000).At(6), 134);
  tables.BoardIndex = 1;
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.WriteParameter(1, 1); });
}

TEST_F(AccessTest, APairWritesBothPlaces) {
  Record(1).At(3) = kTwoBytes;
  Record(353).At(3) = kTwoBytes;
  tables.BoardIndex = 1;
  access.WriteParameterPair(1, 353, 300);
  EXPECT_EQ(tables.BoardIndex, 0);
  for (const int index : {1, 353}) {
    EXPECT_EQ(Record(index).At(8), 44);
    EXPECT_EQ(Record(index).At(9), 1);
    EXPECT_EQ(Record(index).At(6), 134);
  }
}

TEST_F(AccessTest, APairWithoutAMirrorWritesOnePlace) {
  access.WriteParameterPair(1, 0, 5);
  EXPECT_EQ(Record(1).At(8), 5);
  EXPECT_EQ(Record(0), ParameterRecord());
}

TEST_F(AccessTest, ReadGivesANumberWithoutSign) {
  Record(1).At(3) = kFourBytes;
  for (int i = 8; i <= 11; ++i) Record(1).At(i) = 255;
  EXPECT_EQ(access.ReadParameter(1, 0), 4294967295.0);
}

TEST_F(AccessTest, ReadTakesAsManyBytesAsTheSizeSays) {
  Write(kOneByte, 300);
  EXPECT_EQ(access.ReadParameter(1, 0), 44);
  Record(2).At(3) = 15;
  Record(2).At(23) = 1;
  EXPECT_EQ(access.ReadParameter(2, 0), 1329227995784915872903807060280344576.0);
}

TEST_F(AccessTest, ReadAndFreshAllowIndexZeroAndRefuseWhatHasNoPlace) {
  EXPECT_EQ(access.ReadParameter(0, 0), 0);
  EXPECT_FALSE(access.IsParameterFresh(0, 0));
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.ReadParameter(33001, 0); });
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.ReadParameter(1, 1); });
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.IsParameterFresh(33001, 0); });
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.IsParameterFresh(1, 1); });
}

TEST_F(AccessTest, FreshIsTheLowestFlagAlone) {
  Record(1).At(6) = 254;
  EXPECT_FALSE(access.IsParameterFresh(1, 0));
  Record(1).At(6) = 1;
  EXPECT_TRUE(access.IsParameterFresh(1, 0));
}

TEST_F(AccessTest, WatchCountsAndMarksAndKeepsFreshness) {
  Record(1).At(6) = 1;
  access.WatchParameter(1);
  EXPECT_EQ(Record(1).At(5), 1);
  EXPECT_EQ(Record(1).At(6), 7);
}

TEST_F(AccessTest, OnlyTheLastOfTwoWatchersClearsTheMarks) {
  access.WatchParameter(1);
  access.WatchParameter(1);
  Record(1).At(6) = 7;
  Record(1).At(4) = 0x33;
  access.UnwatchParameter(1);
  EXPECT_EQ(Record(1).At(5), 1);
  EXPECT_EQ(Record(1).At(6), 7);
  EXPECT_EQ(Record(1).At(4), 0x33);
  access.UnwatchParameter(1);
  EXPECT_EQ(Record(1).At(5), 0);
  EXPECT_EQ(Record(1).At(6), 0);
  EXPECT_EQ(Record(1).At(4), 3);
}

TEST_F(AccessTest, AnUnwatchTooManyLeavesAllAsItIs) {
  access.WatchParameter(1);
  access.UnwatchParameter(1);
  Record(1).At(6) = 7;
  Record(1).At(4) = 0x33;
  const ParameterRecord before = Record(1);
  access.UnwatchParameter(1);
  EXPECT_EQ(Record(1), before);
}

TEST_F(AccessTest, APendingWriteSurvivesTheLastWatcher) {
  access.WatchParameter(1);
  access.WriteParameter(1, 5);
  access.UnwatchParameter(1);
  EXPECT_EQ(Record(1).At(6), 128);
}

TEST_F(AccessTest, WithoutABoardNothingIsWatchedOrGivenBack) {
  access.WatchParameter(2);
  tables.BoardPresent(0) = false;
  access.WatchParameter(1);
  access.WatchParameter(0);
  access.WatchParameter(33001);
  EXPECT_EQ(Record(1), ParameterRecord());
  access.UnwatchParameter(2);
  access.UnwatchParameter(33001);
  EXPECT_EQ(Record(2).At(5), 1);
  EXPECT_EQ(Record(2).At(6), 6);
}

TEST_F(AccessTest, WatchRefusesBadIndexesAndUnwatchAllowsZero) {
  EXPECT_THROW(access.WatchParameter(0), InternalFault);
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.WatchParameter(33001); });
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { access.UnwatchParameter(33001); });
  access.UnwatchParameter(0);
  EXPECT_EQ(Record(0), ParameterRecord());
}

}  // namespace
}  // namespace sorvane
