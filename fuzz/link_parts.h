#pragma once

#include <filesystem>
#include <map>
#include <vector>

#include "board/board_tables.h"
#include "board/index_file.h"

// What stands around the connection in the target of the reply stream.
namespace sorvane::fuzz {

// Of the sample files: revision 0 has this many records, revision 7 the last three of them.
inline constexpr int kRecords = 12;
inline constexpr uint8_t kSmallRevision = 7;

// The rows of the sample files: of the first level, and of each of the second by its revision. Some
// system parameters have more than one byte there; identification takes one all the same.
const std::vector<IndexRecord>& SystemFile();
const std::map<int, std::vector<IndexRecord>>& Files();

// A program folder with the sample files.
const std::filesystem::path& SampleFolder();

// The one table of all runs, empty: making one costs more than a run.
BoardTables& CleanTables();

}  // namespace sorvane::fuzz
