#include "board/board_tables.h"

#include <gtest/gtest.h>

#include <utility>

#include "board/errors.h"

namespace sorvane {
namespace {

template <typename Call>
void ExpectSubscriptError(Call call) {
  try {
    call();
    ADD_FAILURE() << "no subscript error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kSubscriptOutOfRange);
    EXPECT_EQ(error.Number(), 9);
  }
}

TEST(Tables, HoldZerosAtFirst) {
  const BoardTables tables;
  EXPECT_EQ(tables.ParameterTable(0, 0), ParameterRecord());
  EXPECT_EQ(tables.ParameterTable(0, 0).At(6), 0);
  EXPECT_EQ(tables.ParameterTable(33000, 0), ParameterRecord());
  EXPECT_EQ(tables.RecordCount(0), 0);
  EXPECT_FALSE(tables.BoardPresent(0));
}

TEST(Tables, HavePlacesFor33000Parameters) {
  BoardTables tables;
  tables.ParameterTable(33000, 0).At(23) = 7;
  EXPECT_EQ(std::as_const(tables).ParameterTable(33000, 0).At(23), 7);
  for (const int32_t index : {33001, 40000, -1}) {
    ExpectSubscriptError([&] { tables.ParameterTable(index, 0); });
    ExpectSubscriptError([&] { std::as_const(tables).ParameterTable(index, 0); });
  }
}

TEST(Tables, HavePlacesFor20SystemParameters) {
  BoardTables tables;
  tables.SystemTable(20, 0).At(11) = 7;
  EXPECT_EQ(tables.SystemTable(20, 0).At(11), 7);
  ExpectSubscriptError([&] { tables.SystemTable(21, 0); });
  ExpectSubscriptError([&] { tables.SystemTable(-1, 0); });
}

TEST(Tables, HaveRoomForOneBoard) {
  BoardTables tables;
  const BoardTables& same = tables;
  ExpectSubscriptError([&] { tables.ParameterTable(1, 1); });
  ExpectSubscriptError([&] { same.ParameterTable(1, 1); });
  ExpectSubscriptError([&] { tables.SystemTable(1, 1); });
  ExpectSubscriptError([&] { tables.ClearParameterTable(1); });
  ExpectSubscriptError([&] { tables.ClearSystemTable(1); });
  ExpectSubscriptError([&] { same.Records(1); });
  ExpectSubscriptError([&] { tables.RecordCount(1); });
  ExpectSubscriptError([&] { same.RecordCount(1); });
  ExpectSubscriptError([&] { tables.BoardPresent(1); });
  ExpectSubscriptError([&] { same.BoardPresent(255); });
}

TEST(Tables, TakeTheNumbersOfTheServedBoard) {
  BoardTables tables;
  tables.BoardRevisionNumber = 3;
  tables.BoardSoftwareNumber = 4;
  SetBoardDefaults(tables);
  EXPECT_EQ(tables.BoardTypeNumber, 309);
  EXPECT_EQ(tables.BoardSoftwareNumber, 0);
  EXPECT_EQ(tables.BoardRevisionNumber, 0);
}

}  // namespace
}  // namespace sorvane
