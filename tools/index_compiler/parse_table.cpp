#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "board/record.h"
#include "index_compiler/index_table.h"
#include "index_compiler/table_columns.h"

namespace sorvane {
namespace {

constexpr std::size_t kFirstLevelLimit = 20;      // places of the program's system table
constexpr std::size_t kSecondLevelLimit = 32767;  // the program counts records in 16 bits with sign
constexpr std::size_t kFirstLevelColumns = 6;
constexpr std::size_t kSecondLevelColumns = 7;

class TableParser {
 public:
  ParsedTable Parse(std::string_view text) {
    for (const std::string_view line : Split(text, '\n')) {
      ++line_;
      if (!line.empty() && line.front() != '#') ReadLine(line);
    }
    if (!content_seen_) ReadLevel({});
    return std::move(result_);
  }

 private:
  // Empty words are no error.
  void Report(std::string words) {
    if (!words.empty()) result_.errors.push_back({line_, std::move(words)});
  }

  void ReadLine(std::string_view line) {
    const bool first = !std::exchange(content_seen_, true);
    if (first && ReadLevel(line)) return;
    ReadRow(line);
  }

  // Tells whether the line names a level at all; if not, it is still to be read as a row.
  bool ReadLevel(std::string_view line) {
    const std::vector<std::string_view> words = Split(line, ' ');
    const auto level = words.size() == 2 ? ReadNumber(words[1]) : std::nullopt;
    if (words[0] == "level" && level && *level >= 1 && *level <= 2) {
      level_ = static_cast<int>(*level);
      result_.table.level = *level_;
    } else {
      Report("unknown level: the first line must be \"level 1\" or \"level 2\"");
    }
    return words[0] == "level";
  }

  void ReadRow(std::string_view line) {
    const std::vector<std::string_view> columns = Split(line, '|');
    CheckNumber(columns.front());
    // Without a known level each row is judged as the kind of row that it looks like.
    const bool second_level = level_ ? level_ == 2 : columns.size() == kSecondLevelColumns;
    const std::size_t expected = second_level ? kSecondLevelColumns : kFirstLevelColumns;
    TableRow row;
    if (columns.size() == expected) {
      ReadColumns(columns, second_level, row);
    } else {
      Report("expected " + std::to_string(expected) +
             " columns (number | name | address | size | divider | " +
             (second_level ? "default | " : "") + "remark), found " +
             std::to_string(columns.size()));
    }
    result_.table.rows.push_back(std::move(row));
    CheckCount();
  }

  void ReadColumns(const std::vector<std::string_view>& columns, bool second_level, TableRow& row) {
    row.name = columns[1];
    const std::string address_words = ReadAddress(columns[2], row.record);
    Report(address_words.empty() ? UsedAddress(columns[2], row.record) : address_words);
    const std::string size_words = ReadSize(columns[3], row.record);
    Report(size_words);
    Report(ReadDivider(columns[4], row.record));
    if (second_level) {
      const int size = (row.record.command & kSizeMask) + 1;
      const auto known_size = size_words.empty() ? std::optional(size) : std::nullopt;
      Report(ReadDefault(columns[5], known_size, row.record));
    }
    row.remark = columns.back();
  }

  std::string UsedAddress(std::string_view text, const IndexRecord& record) {
    const std::array<uint8_t, 3> address{record.address1, record.address2, record.address3};
    const auto [first, is_new] = address_lines_.emplace(address, line_);
    if (is_new) return {};
    return "address " + Quoted(text) + " stands in line " + std::to_string(first->second) +
           " already";
  }

  void CheckNumber(std::string_view text) {
    const auto number = ReadNumber(text);
    if (!number) {
      Report("number " + Quoted(text) + " is not a whole number");
    } else if (*number != next_number_) {
      Report("number " + std::to_string(*number) + " where " + std::to_string(next_number_) +
             " was expected: records are numbered from 1 without a gap");
    }
    // One gap is one error, so the count goes on from the number that was found.
    next_number_ = number.value_or(next_number_) + 1;
  }

  void CheckCount() {
    const std::size_t limit = level_ == 1 ? kFirstLevelLimit : kSecondLevelLimit;
    if (result_.table.rows.size() == limit + 1) {
      Report("more than " + std::to_string(limit) + " records");
    }
  }

  ParsedTable result_;
  int line_ = 0;
  bool content_seen_ = false;
  std::optional<int> level_;
  uint32_t next_number_ = 1;
  std::map<std::array<uint8_t, 3>, int> address_lines_;  // where each address stands first
};

}  // namespace

ParsedTable ParseIndexTable(std::string_view text) { return TableParser().Parse(text); }

}  // namespace sorvane
