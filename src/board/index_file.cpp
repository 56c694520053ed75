#include "board/index_file.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "board/errors.h"
#include "board/numbers.h"

namespace sorvane {
namespace {

// The last width digits of number, filled with zeros from the left.
std::string LastDigits(int number, std::size_t width) {
  const std::string digits = std::string(width, '0') + std::to_string(number);
  return digits.substr(digits.size() - width);
}

// A record of either table with the bytes that both kinds of file have; the rest is 0.
template <typename TableRecord>
TableRecord WithAddress(const IndexRecord& from) {
  TableRecord record;
  record.At(position::kAddress3) = from.address3;
  record.At(position::kAddress2) = from.address2;
  record.At(position::kCommand) = from.command;
  record.At(position::kDivider) = from.divider;
  record.At(position::kAddress1) = from.address1;
  return record;
}

ParameterRecord ToParameterRecord(const IndexRecord& from) {
  auto record = WithAddress<ParameterRecord>(from);
  int at = position::kValue;
  for (const uint8_t byte : from.default_value) record.At(at++) = byte;
  for (; at <= ParameterRecord::kPositions; ++at) record.At(at) = ' ';
  return record;
}

// Counts one more record of the table that is being loaded and returns its index.
int16_t CountRecord(BoardTables& tables) {
  int16_t& count = tables.RecordCount(tables.BoardIndex);
  count = ToInt16(count + 1);
  return count;
}

}  // namespace

std::string FirstLevelName(int16_t type) { return "W" + LastDigits(type, 4) + ".inx"; }

std::string SecondLevelName(int16_t type, int16_t software, int16_t revision) {
  const char letter = static_cast<char>(ToByte('A' + software));
  return "W" + LastDigits(type, 4) + "A" + letter + LastDigits(revision, 2) + ".inx";
}

std::vector<IndexRecord> ReadIndexFile(const std::filesystem::path& file, int record_size) {
  std::error_code error;
  // Asked before the file is opened: opening a pipe would wait for its other end.
  if (!std::filesystem::is_regular_file(file, error)) {
    throw RuntimeError(ErrorCode::kFileNotFound);
  }
  const auto size = static_cast<std::size_t>(record_size);
  const std::uintmax_t count = std::filesystem::file_size(file, error) / size;
  std::vector<char> bytes(std::min<std::uintmax_t>(count, kMostRecordsRead) * size);
  std::ifstream in(file, std::ios::binary);
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (error || !in) throw RuntimeError(ErrorCode::kFileNotFound);

  std::vector<IndexRecord> records;
  for (std::size_t start = 0; start < bytes.size(); start += size) {
    const auto byte = [&](std::size_t offset) {
      return static_cast<uint8_t>(bytes[start + offset]);
    };
    IndexRecord record{byte(0), byte(1), byte(2), byte(3), byte(4), {}};
    for (std::size_t i = kFirstLevelSize; i < size; ++i) {
      record.default_value[i - kFirstLevelSize] = byte(i);
    }
    records.push_back(record);
  }
  return records;
}

void LoadFirstLevel(BoardTables& tables, const std::filesystem::path& folder) {
  const auto records =
      ReadIndexFile(folder / FirstLevelName(tables.BoardTypeNumber), kFirstLevelSize);
  tables.RecordCount(tables.BoardIndex) = 0;
  tables.ClearSystemTable(tables.BoardIndex);
  for (const IndexRecord& record : records) {
    const int16_t index = CountRecord(tables);
    tables.SystemTable(index, tables.BoardIndex) = WithAddress<SystemRecord>(record);
  }
}

void LoadSecondLevel(BoardTables& tables, const std::filesystem::path& folder, std::string& name) {
  if (!tables.BoardPresent(tables.BoardIndex)) return;
  name = SecondLevelName(tables.IndexType, tables.IndexSoftware, tables.IndexRevision);
  const auto records = ReadIndexFile(folder / name, kSecondLevelSize);
  tables.RecordCount(tables.BoardIndex) = 0;
  tables.ClearParameterTable(tables.BoardIndex);
  for (const IndexRecord& record : records) {
    const int16_t index = CountRecord(tables);
    tables.ParameterTable(index, tables.BoardIndex) = ToParameterRecord(record);
  }
}

}  // namespace sorvane
