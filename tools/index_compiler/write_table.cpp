#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "board/record.h"
#include "index_compiler/index_table.h"

namespace sorvane {
namespace {

using Columns = std::vector<std::string>;

std::string Hex(uint8_t byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  return {kDigits[byte >> 4], kDigits[byte & 15]};
}

std::string AddressColumn(const IndexRecord& record) {
  return Hex(record.address1) + " " + Hex(record.address2) + " " + Hex(record.address3);
}

std::string SizeColumn(const IndexRecord& record) {
  const std::string size = std::to_string((record.command & kSizeMask) + 1);
  const int nibble = record.command >> 4;
  return nibble == 0 ? size : size + "/" + std::to_string(nibble);
}

std::string DividerColumn(const IndexRecord& record) {
  return record.divider == 0 ? "0" : "0x" + Hex(record.divider);
}

std::string DefaultColumn(const IndexRecord& record) {
  const auto& bytes = record.default_value;
  const bool long_value = (record.command & kSizeMask) >= bytes.size();
  const auto plain = [](uint8_t c) { return c >= ' ' && c <= '~' && c != '"' && c != '|'; };
  if (long_value && std::all_of(bytes.begin(), bytes.end(), plain)) {
    return "\"" + std::string(bytes.begin(), bytes.end()) + "\"";
  }
  const uint32_t number = std::accumulate(
      bytes.rbegin(), bytes.rend(), 0U, [](uint32_t sum, uint8_t byte) { return sum << 8 | byte; });
  return std::to_string(number);
}

Columns ToColumns(const TableRow& row, std::size_t number, int level) {
  Columns columns{std::to_string(number), row.name, AddressColumn(row.record),
                  SizeColumn(row.record), DividerColumn(row.record)};
  if (level == 2) columns.push_back(DefaultColumn(row.record));
  columns.push_back(row.remark);
  return columns;
}

// Each column but the last as wide as its widest text.
std::string Align(const std::vector<Columns>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const Columns& row : rows) {
    for (std::size_t i = 0; i + 1 < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  std::string text;
  for (const Columns& row : rows) {
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      text += row[i] + std::string(widths[i] - row[i].size(), ' ') + " |";
      if (i + 2 < row.size() || !row.back().empty()) text += ' ';
    }
    text += row.back() + "\n";
  }
  return text;
}

}  // namespace

int RecordSize(int level) { return level == 1 ? kFirstLevelSize : kSecondLevelSize; }

std::string FormatIndexTable(const IndexTable& table) {
  Columns heads{"# number", "name", "address", "size", "divider", "remark"};
  if (table.level == 2) heads.insert(heads.end() - 1, "default");
  std::vector<Columns> rows{heads};
  for (const TableRow& row : table.rows) {
    rows.push_back(ToColumns(row, rows.size(), table.level));
  }
  return "level " + std::to_string(table.level) + "\n" + Align(rows);
}

std::vector<uint8_t> IndexFileBytes(const IndexTable& table) {
  std::vector<uint8_t> bytes;
  for (const TableRow& row : table.rows) {
    const IndexRecord& record = row.record;
    bytes.insert(bytes.end(), {record.address3, record.address2, record.command, record.divider,
                               record.address1});
    if (table.level == 2) {
      bytes.insert(bytes.end(), record.default_value.begin(), record.default_value.end());
    }
  }
  return bytes;
}

}  // namespace sorvane
