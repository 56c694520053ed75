#pragma once

#include <filesystem>
#include <ostream>
#include <vector>

namespace sorvane {

// The commands of SorvaneIndex. Each tells all that is wrong to errors, one finding a line, as
// "file:line: words", or "file: words" for a file as a whole, and returns the program's exit code:
// 0 if nothing was wrong, else 1. A file that is both read and to be written, be it by another path
// or link, is an error and stays as it was.

// Writes the index file of a table; a table with an error leaves the index file as it was.
int CompileTable(const std::filesystem::path& table, const std::filesystem::path& index_file,
                 std::ostream& errors);

// Writes the table of an index file of the level, 1 or 2. Names and remarks come from the table
// names, record by record, or stay empty if that path is empty. Records that break a rule are
// written too and then told by the lines of the new table.
int DecompileIndex(const std::filesystem::path& index_file, int level,
                   const std::filesystem::path& names, const std::filesystem::path& table,
                   std::ostream& errors);

int CheckTables(const std::vector<std::filesystem::path>& tables, std::ostream& errors);

}  // namespace sorvane
