#include "link_parts.h"

#include <array>
#include <utility>

#include "support/index_files.h"

namespace sorvane::fuzz {
namespace {

constexpr std::size_t kSmallRecords = 3;

// Sizes from 1 to 16 bytes and all kinds of dividers: none, waiting, polled, repeating on a
// timeout.
std::vector<IndexRecord> Rows() {
  constexpr std::array<std::pair<uint8_t, uint8_t>, kRecords> kKinds = {{{0x00, 0x00},
                                                                         {0x01, 0x00},
                                                                         {0x13, 0x12},
                                                                         {0x02, 0x23},
                                                                         {0x0F, 0x00},
                                                                         {0x04, 0x01},
                                                                         {0x00, 0x02},
                                                                         {0x01, 0x30},
                                                                         {0x73, 0x0F},
                                                                         {0x0F, 0x13},
                                                                         {0x05, 0x20},
                                                                         {0x00, 0x00}}};
  std::vector<IndexRecord> rows;
  for (const auto& [command, divider] : kKinds) {
    const auto k = static_cast<uint8_t>(rows.size() + 1);
    rows.push_back({k, 2, command, divider, 1, {k, 0, 0, 0}});
  }
  return rows;
}

std::vector<IndexRecord> SystemRows() {
  std::vector<IndexRecord> rows = test::SystemRows();
  rows[12].command = 3;
  return rows;
}

}  // namespace

const std::vector<IndexRecord>& SystemFile() {
  static const std::vector<IndexRecord> kRows = SystemRows();
  return kRows;
}

const std::map<int, std::vector<IndexRecord>>& Files() {
  static const std::vector<IndexRecord> kAll = Rows();
  static const std::map<int, std::vector<IndexRecord>> kFiles = {
      {0, kAll}, {kSmallRevision, {kAll.end() - kSmallRecords, kAll.end()}}};
  return kFiles;
}

const std::filesystem::path& SampleFolder() {
  static const test::TempFolder kFolder;
  [[maybe_unused]] static const bool kFilled = [] {
    kFolder.WriteFile("W0309.inx", test::FirstLevelBytes(SystemFile()));
    kFolder.WriteFile("W0309AA00.inx", test::SecondLevelBytes(Files().at(0)));
    kFolder.WriteFile("W0309AA07.inx", test::SecondLevelBytes(Files().at(kSmallRevision)));
    return true;
  }();
  return kFolder.Path();
}

BoardTables& CleanTables() {
  static BoardTables tables;
  for (int k = 0; k < kRecords + 2; ++k) tables.ParameterTable(k, 0) = ParameterRecord();
  SetBoardDefaults(tables);
  tables.RecordCount(0) = 0;
  tables.BoardPresent(0) = false;
  return tables;
}

}  // namespace sorvane::fuzz
