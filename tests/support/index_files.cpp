#include "support/index_files.h"

#include <fstream>
#include <random>
#include <stdexcept>

namespace sorvane::test {
namespace {

Bytes FileBytes(const std::vector<IndexRecord>& rows, int defaults) {
  Bytes bytes;
  for (const IndexRecord& row : rows) {
    bytes.insert(bytes.end(), {row.address3, row.address2, row.command, row.divider, row.address1});
    bytes.insert(bytes.end(), row.default_value.begin(), row.default_value.begin() + defaults);
  }
  return bytes;
}

// Parameters whose values take more than one byte.
struct Span {
  int first;
  int last;
  uint8_t size;  // in bytes
};

constexpr Span kWide[] = {
    {9, 9, 3},   {10, 10, 2},   {12, 21, 16},  {23, 52, 2},   {73, 75, 2},   {81, 83, 2},
    {90, 95, 2}, {279, 352, 4}, {367, 369, 2}, {375, 377, 2}, {383, 388, 2}, {391, 400, 2},
};

}  // namespace

TempFolder::TempFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("sorvane-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TempFolder::WriteFile(const std::filesystem::path& name, const Bytes& bytes) const {
  std::ofstream out(path_ / name, std::ios::binary);
  for (const uint8_t byte : bytes) out.put(static_cast<char>(byte));
  if (!out.flush()) throw std::runtime_error("can't write " + name.string());
}

void TempFolder::RemoveFile(const std::string& name) const {
  if (!std::filesystem::remove(path_ / name)) throw std::runtime_error("no file " + name);
}

Bytes FirstLevelBytes(const std::vector<IndexRecord>& rows) { return FileBytes(rows, 0); }
Bytes SecondLevelBytes(const std::vector<IndexRecord>& rows) { return FileBytes(rows, 4); }

std::vector<IndexRecord> SystemRows(int count) {
  std::vector<IndexRecord> rows;
  for (int k = 1; k <= count; ++k) rows.push_back({static_cast<uint8_t>(k), 0, 0, 0, 240, {}});
  return rows;
}

std::vector<IndexRecord> PlainRows(int count, uint8_t command, uint8_t divider) {
  std::vector<IndexRecord> rows;
  for (int k = 1; k <= count; ++k) {
    rows.push_back({static_cast<uint8_t>(k % 256),
                    static_cast<uint8_t>(k / 256 % 256),
                    command,
                    divider,
                    0,
                    {}});
  }
  return rows;
}

std::vector<IndexRecord> MachineRows() {
  std::vector<IndexRecord> rows = PlainRows(419, 0);
  for (const Span& span : kWide) {
    for (int k = span.first; k <= span.last; ++k) {
      rows[static_cast<std::size_t>(k - 1)].command = static_cast<uint8_t>(span.size - 1);
    }
  }
  return rows;
}

}  // namespace sorvane::test
