#include "index_compiler/commands.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "board/errors.h"
#include "board/index_file.h"
#include "index_compiler/index_table.h"

namespace sorvane {
namespace {

using std::filesystem::path;

constexpr int kDone = 0;
constexpr int kFailed = 1;

int Fail(const path& file, const std::string& words, std::ostream& errors) {
  errors << file.string() << ": " << words << "\n";
  return kFailed;
}

// Nothing if the file can't be read or has an error, which then has been told.
std::optional<IndexTable> ReadTable(const path& file, std::ostream& errors) {
  // Opening a pipe would wait for one who writes into it.
  std::error_code error;
  std::ifstream in;
  if (std::filesystem::is_regular_file(file, error)) in.open(file, std::ios::binary);
  if (!in.is_open()) {
    Fail(file, "can't be read", errors);
    return std::nullopt;
  }
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  ParsedTable parsed = ParseIndexTable(text);
  for (const TableError& found : parsed.errors) {
    errors << file.string() << ":" << found.line << ": " << found.words << "\n";
  }
  if (!parsed.errors.empty()) return std::nullopt;
  return std::move(parsed.table);
}

// Whether writing to a file would overwrite the one that is read; if so, it has been told.
bool IsSource(const path& file, const path& source, std::ostream& errors) {
  std::error_code error;
  if (!std::filesystem::equivalent(file, source, error)) return false;
  Fail(file, "is the source itself, which isn't overwritten", errors);
  return true;
}

int WriteBytes(const path& file, const std::string& bytes, std::ostream& errors) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  out.close();
  return out ? kDone : Fail(file, "can't be written", errors);
}

}  // namespace

int CompileTable(const path& table, const path& index_file, std::ostream& errors) {
  if (IsSource(index_file, table, errors)) return kFailed;
  const auto read = ReadTable(table, errors);
  if (!read) return kFailed;
  const std::vector<uint8_t> bytes = IndexFileBytes(*read);
  return WriteBytes(index_file, std::string(bytes.begin(), bytes.end()), errors);
}

int DecompileIndex(const path& index_file, int level, const path& names, const path& table,
                   std::ostream& errors) {
  if (IsSource(table, index_file, errors)) return kFailed;
  IndexTable result{level, {}};
  try {
    for (const IndexRecord& record : ReadIndexFile(index_file, RecordSize(level))) {
      result.rows.push_back({{}, record, {}});
    }
  } catch (const RuntimeError&) {
    return Fail(index_file, "can't be read", errors);
  }
  const auto size = static_cast<std::size_t>(RecordSize(level));
  if (std::filesystem::file_size(index_file) % size != 0) {
    return Fail(index_file, "its length is not a multiple of " + std::to_string(size) + " bytes",
                errors);
  }
  if (!names.empty()) {
    const auto named = ReadTable(names, errors);
    if (!named) return kFailed;
    const std::size_t count = std::min(named->rows.size(), result.rows.size());
    for (std::size_t i = 0; i < count; ++i) {
      result.rows[i].name = named->rows[i].name;
      result.rows[i].remark = named->rows[i].remark;
    }
  }
  if (WriteBytes(table, FormatIndexTable(result), errors) != kDone) return kFailed;
  return CheckTables({table}, errors);
}

int CheckTables(const std::vector<path>& tables, std::ostream& errors) {
  int result = kDone;
  for (const path& table : tables) {
    if (!ReadTable(table, errors)) result = kFailed;
  }
  return result;
}

}  // namespace sorvane
