#include "link_parts.h"

#include <array>
#include <utility>

#include "board/index_file.h"
#include "input.h"
#include "line_watch.h"
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

std::vector<IndexRecord> SmallRows() {
  std::vector<IndexRecord> rows = Rows();
  return {rows.end() - kSmallRecords, rows.end()};
}

}  // namespace

std::vector<ParameterRecord> LoadedRecords(int revision) {
  std::vector<ParameterRecord> records;
  for (const IndexRecord& row : revision % 100 == 0 ? Rows() : SmallRows()) {
    ParameterRecord& record = records.emplace_back();
    for (int i = 1; i <= ParameterRecord::kPositions; ++i) record.At(i) = i < 12 ? 0 : 32;
    record.At(1) = row.address3;
    record.At(2) = row.address2;
    record.At(3) = row.command;
    record.At(4) = row.divider;
    record.At(7) = row.address1;
    record.At(8) = row.default_value[0];
  }
  return records;
}

const std::filesystem::path& SampleFolder() {
  static const test::TempFolder kFolder;
  static const bool kFilled = [] {
    std::vector<IndexRecord> system = test::SystemRows();
    system[12].command = 3;
    kFolder.WriteFile("W0309.inx", test::FirstLevelBytes(system));
    kFolder.WriteFile("W0309AA00.inx", test::SecondLevelBytes(Rows()));
    kFolder.WriteFile("W0309AA07.inx", test::SecondLevelBytes(SmallRows()));
    return true;
  }();
  Require(kFilled, "the index files stand");
  return kFolder.Path();
}

BoardTables& CleanTables() {
  static BoardTables tables;
  for (int k = 0; k < LineWatch::kWatchedRecords; ++k) {
    tables.ParameterTable(k, 0) = ParameterRecord();
  }
  SetBoardDefaults(tables);
  tables.RecordCount(0) = 0;
  tables.BoardPresent(0) = false;
  return tables;
}

void OneBox::Show(const MessageBox& box, std::function<void(Answer)> answered) {
  Require(!Stands(), "one box stands at a time");
  retry_ = box.flags == kExclamationIcon + kRetryCancel;
  answered_ = std::move(answered);
}

void OneBox::AnswerWith(bool retry) {
  const Answer answer = !retry_ ? Answer::kOk : retry ? Answer::kRetry : Answer::kCancel;
  std::exchange(answered_, nullptr)(answer);
}

}  // namespace sorvane::fuzz
