#include "board/board_tables.h"

#include <algorithm>

#include "board/errors.h"

namespace sorvane {
namespace {

void CheckBoard(int board) {
  if (board != 0) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
}

std::size_t Place(int32_t index, int board, int places) {
  CheckBoard(board);
  if (index < 0 || index >= places) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
  return static_cast<std::size_t>(index);
}

}  // namespace

BoardTables::BoardTables() : parameters_(kParameterPlaces), systems_(kSystemPlaces) {}

ParameterRecord& BoardTables::ParameterTable(int32_t index, int board) {
  return parameters_[Place(index, board, kParameterPlaces)];
}

const ParameterRecord& BoardTables::ParameterTable(int32_t index, int board) const {
  return parameters_[Place(index, board, kParameterPlaces)];
}

SystemRecord& BoardTables::SystemTable(int32_t index, int board) {
  return systems_[Place(index, board, kSystemPlaces)];
}

void BoardTables::ClearParameterTable(int board) {
  CheckBoard(board);
  std::fill(parameters_.begin(), parameters_.end(), ParameterRecord());
}

void BoardTables::ClearSystemTable(int board) {
  CheckBoard(board);
  std::fill(systems_.begin(), systems_.end(), SystemRecord());
}

std::span<const ParameterRecord> BoardTables::Records(int board) const {
  CheckBoard(board);
  return parameters_;
}

int16_t& BoardTables::RecordCount(int board) {
  CheckBoard(board);
  return record_count_;
}

int16_t BoardTables::RecordCount(int board) const {
  CheckBoard(board);
  return record_count_;
}

bool& BoardTables::BoardPresent(int board) {
  CheckBoard(board);
  return board_present_;
}

bool BoardTables::BoardPresent(int board) const {
  CheckBoard(board);
  return board_present_;
}

void SetBoardDefaults(BoardTables& tables) {
  tables.BoardRevisionNumber = 0;
  tables.BoardTypeNumber = 309;
  tables.BoardSoftwareNumber = 0;
}

}  // namespace sorvane
