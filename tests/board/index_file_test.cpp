#include "board/index_file.h"

#include <gtest/gtest.h>

#include "board/errors.h"
#include "board/parameter_access.h"
#include "support/index_files.h"
#include "support/scarce_memory.h"

namespace sorvane::test {
namespace {

constexpr std::size_t kEndless = std::size_t{64} << 20;  // bytes

template <typename Call>
void ExpectError(ErrorCode code, Call call) {
  try {
    call();
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), code);
  }
}

struct IndexFileTest : ::testing::Test {
  IndexFileTest() {
    SetBoardDefaults(tables);
    tables.IndexType = 309;
    tables.BoardPresent(0) = true;
  }

  void LoadFirst(const Bytes& bytes) {
    folder.WriteFile("W0309.inx", bytes);
    LoadFirstLevel(tables, folder.Path());
  }
  void LoadSecond(const Bytes& bytes) {
    folder.WriteFile("W0309AA00.inx", bytes);
    LoadSecondLevel(tables, folder.Path(), name);
  }

  TempFolder folder;
  BoardTables tables;
  std::string name;
};

TEST(IndexFileNames, FirstLevelTakesTheLastFourDigitsOfTheType) {
  EXPECT_EQ(FirstLevelName(309), "W0309.inx");
  EXPECT_EQ(FirstLevelName(7), "W0007.inx");
  EXPECT_EQ(FirstLevelName(12345), "W2345.inx");
}

TEST(IndexFileNames, SecondLevelTakesTheLastTwoDigitsOfTheRevision) {
  EXPECT_EQ(SecondLevelName(309, 0, 0), "W0309AA00.inx");
  EXPECT_EQ(SecondLevelName(309, 0, 7), "W0309AA07.inx");
  EXPECT_EQ(SecondLevelName(309, 0, 99), "W0309AA99.inx");
  EXPECT_EQ(SecondLevelName(309, 0, 123), "W0309AA23.inx");
}

TEST(IndexFileNames, SecondLevelTakesTheLastFourDigitsOfTheType) {
  EXPECT_EQ(SecondLevelName(12345, 0, 0), "W2345AA00.inx");
}

TEST(IndexFileNames, SoftwareIsALetter) {
  EXPECT_EQ(SecondLevelName(309, 1, 0), "W0309AB00.inx");
  EXPECT_EQ(SecondLevelName(309, 25, 0), "W0309AZ00.inx");
}

TEST_F(IndexFileTest, AFirstLevelRecordFillsTheFirstFourPositionsAndTheSeventh) {
  LoadFirst({11, 12, 13, 14, 15, 21, 22, 23, 24, 25});
  EXPECT_EQ(tables.RecordCount(0), 2);
  const int expected[] = {21, 22, 23, 24, 0, 0, 25, 0, 0, 0, 0};
  for (int i = 1; i <= 11; ++i) EXPECT_EQ(tables.SystemTable(2, 0).At(i), expected[i - 1]) << i;
  EXPECT_EQ(tables.SystemTable(0, 0), SystemRecord());
}

TEST_F(IndexFileTest, ASecondLevelRecordHasNoMarksAndItsDefaultAsValue) {
  LoadSecond({1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_EQ(tables.RecordCount(0), 1);
  const int expected[] = {1, 2, 3, 4, 0, 0, 5, 6, 7, 8, 9};
  for (int i = 1; i <= 11; ++i) EXPECT_EQ(tables.ParameterTable(1, 0).At(i), expected[i - 1]) << i;
}

TEST_F(IndexFileTest, TheValueBehindTheDefaultHoldsBlanks) {
  LoadSecond(SecondLevelBytes(PlainRows(1)));
  for (int i = 12; i <= 23; ++i) EXPECT_EQ(tables.ParameterTable(1, 0).At(i), 32) << i;
}

TEST_F(IndexFileTest, Index0OfTheParameterTableStaysEmpty) {
  LoadSecond(SecondLevelBytes(PlainRows(3)));
  EXPECT_EQ(tables.ParameterTable(0, 0), ParameterRecord());
}

TEST_F(IndexFileTest, AnEmptyFirstLevelFileHoldsNoRecords) {
  tables.RecordCount(0) = 5;
  LoadFirst({});
  EXPECT_EQ(tables.RecordCount(0), 0);
  EXPECT_EQ(tables.SystemTable(1, 0), SystemRecord());
}

TEST_F(IndexFileTest, AnEmptySecondLevelFileHoldsNoRecords) {
  tables.RecordCount(0) = 5;
  LoadSecond({});
  EXPECT_EQ(tables.RecordCount(0), 0);
  EXPECT_EQ(tables.ParameterTable(1, 0), ParameterRecord());
}

TEST_F(IndexFileTest, ARestOfLessThanOneRecordIsIgnored) {
  LoadSecond(Bytes(23, 1));
  EXPECT_EQ(tables.RecordCount(0), 2);
  EXPECT_EQ(tables.ParameterTable(2, 0).At(1), 1);
  EXPECT_EQ(tables.ParameterTable(3, 0), ParameterRecord());
}

TEST_F(IndexFileTest, ATwoByteParameterReadsTheFirstTwoBytesOfItsDefault) {
  LoadSecond({52, 18, 1, 0, 0, 44, 1, 9, 9});
  EXPECT_EQ(ParameterAccess(tables).ReadParameter(1, 0), 300);
}

TEST_F(IndexFileTest, ALoadLeavesNothingOfWhatTheTableHeld) {
  LoadSecond(SecondLevelBytes(PlainRows(3)));
  for (const int k : {1, 3, 33000}) {
    tables.ParameterTable(k, 0).At(5) = 2;
    tables.ParameterTable(k, 0).At(6) = 7;
    tables.ParameterTable(k, 0).At(23) = 9;
  }
  LoadSecond(SecondLevelBytes(PlainRows(2)));
  EXPECT_EQ(tables.RecordCount(0), 2);
  EXPECT_EQ(tables.ParameterTable(1, 0).At(5), 0);
  EXPECT_EQ(tables.ParameterTable(1, 0).At(6), 0);
  EXPECT_EQ(tables.ParameterTable(2, 0).At(1), 2);
  EXPECT_EQ(tables.ParameterTable(3, 0), ParameterRecord());
  EXPECT_EQ(tables.ParameterTable(33000, 0), ParameterRecord());
}

TEST_F(IndexFileTest, ALoadOfTheFirstLevelLeavesNothingOfWhatTheTableHeld) {
  LoadFirst(FirstLevelBytes(SystemRows(18)));
  tables.SystemTable(20, 0).At(11) = 7;
  LoadFirst(FirstLevelBytes(SystemRows(10)));
  EXPECT_EQ(tables.SystemTable(10, 0).At(1), 10);
  EXPECT_EQ(tables.SystemTable(11, 0), SystemRecord());
  EXPECT_EQ(tables.SystemTable(20, 0), SystemRecord());
}

TEST_F(IndexFileTest, AFileThatCannotBeReadLeavesTheTablesAsTheyWere) {
  LoadFirst(FirstLevelBytes(SystemRows(18)));
  LoadSecond(SecondLevelBytes(PlainRows(3)));
  folder.RemoveFile("W0309.inx");
  folder.RemoveFile("W0309AA00.inx");
  ExpectError(ErrorCode::kFileNotFound, [&] { LoadFirstLevel(tables, folder.Path()); });
  ExpectError(ErrorCode::kFileNotFound, [&] { LoadSecondLevel(tables, folder.Path(), name); });
  EXPECT_EQ(tables.RecordCount(0), 3);
  EXPECT_EQ(tables.SystemTable(18, 0).At(1), 18);
  EXPECT_EQ(tables.ParameterTable(3, 0).At(1), 3);
}

TEST_F(IndexFileTest, TheSecondLevelIsLoadedOnlyWhileABoardIsPresent) {
  tables.BoardPresent(0) = false;
  LoadSecond(SecondLevelBytes(PlainRows(3)));
  EXPECT_EQ(tables.RecordCount(0), 0);
  EXPECT_EQ(name, "");
}

TEST_F(IndexFileTest, AMissingFileIsFileNotFound) {
  ExpectError(ErrorCode::kFileNotFound, [&] { LoadFirstLevel(tables, folder.Path()); });
  tables.IndexRevision = 7;
  ExpectError(ErrorCode::kFileNotFound, [&] { LoadSecondLevel(tables, folder.Path(), name); });
  EXPECT_EQ(name, "W0309AA07.inx");
}

TEST_F(IndexFileTest, AFolderOfTheFilesNameIsFileNotFound) {
  std::filesystem::create_directory(folder.Path() / "W0309.inx");
  ExpectError(ErrorCode::kFileNotFound, [&] { LoadFirstLevel(tables, folder.Path()); });
}

TEST_F(IndexFileTest, TwentyIsTheLimitOfTheFirstLevel) {
  LoadFirst(Bytes(20 * 5, 1));
  EXPECT_EQ(tables.RecordCount(0), 20);
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { LoadFirst(Bytes(21 * 5, 2)); });
  EXPECT_EQ(tables.SystemTable(20, 0).At(1), 2);
}

TEST_F(IndexFileTest, TheLargestCountIsTheLimitOfTheSecondLevel) {
  LoadSecond(Bytes(32767 * 9, 1));
  EXPECT_EQ(tables.RecordCount(0), 32767);
  ExpectError(ErrorCode::kOverflow, [&] { LoadSecond(Bytes(32768 * 9, 2)); });
  EXPECT_EQ(name, "W0309AA00.inx");
  EXPECT_EQ(tables.ParameterTable(32767, 0).At(1), 2);
}

TEST_F(IndexFileTest, AnEndlessFileFailsLikeOneOfARecordTooMany) {
  for (const char* file : {"W0309.inx", "W0309AA00.inx"}) {
    folder.WriteFile(file, {});
    std::filesystem::resize_file(folder.Path() / file, kEndless);
  }
  const ScarceMemory memory(kEndless / 64);
  ExpectError(ErrorCode::kSubscriptOutOfRange, [&] { LoadFirstLevel(tables, folder.Path()); });
  ExpectError(ErrorCode::kOverflow, [&] { LoadSecondLevel(tables, folder.Path(), name); });
}

}  // namespace
}  // namespace sorvane::test
