// Index files of both levels. An input is a kind, and then either three numbers that name a file,
// or the length of the first file and the content of both.

#include "board/index_file.h"

#include <cstddef>
#include <fstream>
#include <optional>

#include "board/errors.h"
#include "input.h"
#include "support/index_files.h"

namespace sorvane::fuzz {
namespace {

constexpr std::size_t kMostSystem = 20;
constexpr int32_t kLastParameter = 33000;

using File = std::vector<uint8_t>;

void Fill(const std::filesystem::path& path, const File& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  for (const uint8_t byte : bytes) out.put(static_cast<char>(byte));
  out.close();
  Require(!out.fail(), "an index file can be written");
}

// The error that a load ends with, if any.
template <typename Load>
std::optional<ErrorCode> ErrorOf(const Load& load) {
  try {
    load();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return error.Code();
  }
}

// The byte of a record's position that its file gives, or what a load puts into the others.
uint8_t ExpectedByte(const File& file, std::size_t record, std::size_t record_size, int position) {
  const std::size_t start = (record - 1) * record_size;
  if (position <= 4) return file[start + static_cast<std::size_t>(position) - 1];
  if (position == 7) return file[start + 4];
  if (position <= 6 || record_size == kFirstLevelSize) return 0;
  return position <= 11 ? file[start + static_cast<std::size_t>(position) - 3] : ' ';
}

template <typename TableRecord>
void CheckRecord(const TableRecord& record, const File& file, std::size_t number,
                 std::size_t record_size) {
  for (int position = 1; position <= TableRecord::kPositions; ++position) {
    Require(record.At(position) == ExpectedByte(file, number, record_size, position),
            "a record holds the bytes of the file");
  }
}

void CheckFirstLevel(BoardTables& tables, const std::filesystem::path& folder, const File& file) {
  Fill(folder / "W0309.inx", file);
  const auto error = ErrorOf([&] { LoadFirstLevel(tables, folder); });
  const std::size_t records = file.size() / kFirstLevelSize;
  if (records > kMostSystem) {
    Require(error == ErrorCode::kSubscriptOutOfRange, "20 system parameters are the limit");
  } else {
    Require(!error, "a first-level file that can be read is taken");
    Require(tables.RecordCount(0) == static_cast<int16_t>(records), "records are counted");
  }
  for (std::size_t k = 1; k <= std::min(records, kMostSystem); ++k) {
    CheckRecord(tables.SystemTable(static_cast<int32_t>(k), 0), file, k, kFirstLevelSize);
  }
  for (std::size_t k = 0; k <= kMostSystem; k += records + 1) {
    Require(tables.SystemTable(static_cast<int32_t>(k), 0) == SystemRecord(),
            "records beyond the file's, and record 0, are zeros");
  }
}

void CheckParameters(BoardTables& tables, const File& file, std::size_t first, std::size_t last) {
  for (std::size_t k = first; k <= last; ++k) {
    CheckRecord(tables.ParameterTable(static_cast<int32_t>(k), 0), file, k, kSecondLevelSize);
  }
  Require(tables.ParameterTable(0, 0) == ParameterRecord(), "record 0 stays empty");
}

void CheckZeros(const BoardTables& tables, std::size_t first, std::size_t last) {
  for (std::size_t k = first; k <= last; ++k) {
    Require(tables.ParameterTable(static_cast<int32_t>(k), 0) == ParameterRecord(),
            "a record beyond the file's is zeros");
  }
}

// Loads a file, and then one that has the first half of it only.
void CheckSecondLevel(BoardTables& tables, const std::filesystem::path& folder, const File& file) {
  const std::filesystem::path path = folder / "W0309AA00.inx";
  const std::size_t records = file.size() / kSecondLevelSize;
  std::string name;
  Fill(path, file);
  const auto error = ErrorOf([&] { LoadSecondLevel(tables, folder, name); });
  Require(name == "W0309AA00.inx", "the file's name is told");
  Require(!error, "a second-level file that can be read is taken");
  Require(tables.RecordCount(0) == static_cast<int16_t>(records), "records are counted");
  CheckParameters(tables, file, 1, records);
  CheckZeros(tables, records + 1, records + 1);
  CheckZeros(tables, kLastParameter, kLastParameter);

  File half(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(file.size() / 2));
  for (uint8_t& byte : half) byte = static_cast<uint8_t>(~byte);
  const std::size_t fewer = half.size() / kSecondLevelSize;
  Fill(path, half);
  LoadSecondLevel(tables, folder, name);
  Require(tables.RecordCount(0) == static_cast<int16_t>(fewer), "records are counted anew");
  CheckParameters(tables, half, 1, fewer);
  CheckZeros(tables, fewer + 1, records + 1);
}

// Names of any numbers at all, in a folder that holds no file.
void CheckNames(BoardTables& tables, const std::filesystem::path& folder, Input& input) {
  tables.BoardTypeNumber = static_cast<int16_t>(input.Word());
  tables.IndexType = tables.BoardTypeNumber;
  tables.IndexSoftware = static_cast<int16_t>(input.Word());
  tables.IndexRevision = static_cast<int16_t>(input.Word());
  std::string name = "before";
  const auto error = ErrorOf([&] { LoadSecondLevel(tables, folder, name); });
  const int letter = 'A' + tables.IndexSoftware;
  if (letter < 0 || letter > 255) {
    Require(error == ErrorCode::kOverflow && name == "before", "a letter is one byte");
    return;
  }
  Require(error == ErrorCode::kFileNotFound, "a file that is missing isn't found");
  const std::string type = "0000" + std::to_string(tables.IndexType);
  const std::string revision = "00" + std::to_string(tables.IndexRevision);
  const std::string first = "W" + type.substr(type.size() - 4);
  Require(name == first + "A" + static_cast<char>(letter) + revision.substr(revision.size() - 2) +
                      ".inx",
          "a second-level name is made of three numbers");
  Require(FirstLevelName(tables.BoardTypeNumber) == first + ".inx",
          "a first-level name is made of the type");
}

void Run(Input input) {
  static const test::TempFolder kFolder;
  static BoardTables tables;
  const std::filesystem::path& folder = kFolder.Path();
  for (int k = 1; k < BoardTables::kSystemPlaces; ++k) tables.SystemTable(k, 0).At(11) = 7;
  tables.ParameterTable(kLastParameter, 0).At(23) = 7;
  SetBoardDefaults(tables);
  tables.RecordCount(0) = -1;
  tables.BoardPresent(0) = true;

  const uint8_t kind = input.Byte();
  if (kind % 4 == 3) {
    CheckNames(tables, folder / "none", input);
    return;
  }
  CheckFirstLevel(tables, folder, input.Take(input.Byte()));
  tables.IndexType = tables.BoardTypeNumber;
  tables.IndexSoftware = 0;
  tables.IndexRevision = 0;
  const std::string rest = input.Rest();
  if (kind % 4 == 2) {
    tables.BoardPresent(0) = false;
    const int16_t before = tables.RecordCount(0);
    std::string name = "before";
    LoadSecondLevel(tables, folder, name);
    Require(name == "before" && tables.RecordCount(0) == before,
            "nothing is loaded while no board is there");
    tables.BoardPresent(0) = true;
  }
  CheckSecondLevel(tables, folder, File(rest.begin(), rest.end()));
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run({data, size});
  return 0;
}
