#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "board/index_file.h"

namespace sorvane {

// One row of a readable table; name and remark are for people and reach no index file.
struct TableRow {
  std::string name;
  IndexRecord record;
  std::string remark;
};

// The contents of an index file: row n is record n + 1.
struct IndexTable {
  int level = 2;  // 1: system parameters, without defaults; 2: parameters
  std::vector<TableRow> rows;
};

struct TableError {
  int line = 0;  // counts from 1
  std::string words;
};

struct ParsedTable {
  IndexTable table;                // complete only if there are no errors
  std::vector<TableError> errors;  // all of them, in the order of the lines
};

// Bytes of one record in an index file of the level, 1 or 2.
int RecordSize(int level);

// Reads the table language that docs/files.md describes and tests every rule of it.
ParsedTable ParseIndexTable(std::string_view text);

// The table in that language, with columns that stand below each other. Records that break a rule
// are written as they are, so that reading them again tells what is wrong with them.
std::string FormatIndexTable(const IndexTable& table);

// The bytes of the index file.
std::vector<uint8_t> IndexFileBytes(const IndexTable& table);

}  // namespace sorvane
