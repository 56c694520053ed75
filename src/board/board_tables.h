#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "board/record.h"

namespace sorvane {

// The numbers that name the second-level file of a board.
struct IndexNumbers {
  int16_t IndexType = 0;
  int16_t IndexSoftware = 0;
  int16_t IndexRevision = 0;
};

// The PC's mirror of the board, for the whole run, with the numbers of the second-level file to
// load. There is room for one board, number 0.
class BoardTables : public IndexNumbers {
 public:
  static constexpr int kParameterPlaces = 33001;  // index 0 to 33000; 0 is never filled
  static constexpr int kSystemPlaces = 21;        // index 0 to 20; 0 is never filled

  BoardTables();

  // The record of a parameter or system parameter. Each throws RuntimeError kSubscriptOutOfRange
  // for an index without a place and for a board other than 0.
  ParameterRecord& ParameterTable(int32_t index, int board);
  const ParameterRecord& ParameterTable(int32_t index, int board) const;
  SystemRecord& SystemTable(int32_t index, int board);

  // Makes every record of one of the tables zeros. Bounds of board as above.
  void ClearParameterTable(int board);
  void ClearSystemTable(int board);

  // All places of the parameter table, index 0 first. Bounds of board as above.
  std::span<const ParameterRecord> Records(int board) const;

  // Records in the table that was loaded last: the system table first, then the parameter table.
  // Throws RuntimeError kSubscriptOutOfRange for a board other than 0.
  int16_t& RecordCount(int board);
  int16_t RecordCount(int board) const;

  // Whether a board has answered; the load at start-up sets it too. Bounds as for RecordCount.
  bool& BoardPresent(int board);
  bool BoardPresent(int board) const;

  // The board that the program serves; the first-level file is named after the type.
  int16_t BoardTypeNumber = 0;
  int16_t BoardSoftwareNumber = 0;
  int16_t BoardRevisionNumber = 0;

  uint8_t BoardIndex = 0;

 private:
  std::vector<ParameterRecord> parameters_;
  std::vector<SystemRecord> systems_;
  int16_t record_count_ = 0;
  bool board_present_ = false;
};

// Sets the numbers of the board that the program serves: revision 0, type 309, software 0.
void SetBoardDefaults(BoardTables& tables);

}  // namespace sorvane
