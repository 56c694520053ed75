#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "board/index_file.h"
#include "board/reply.h"

namespace sorvane::test {

// A folder of its own below the system's temporary one, gone with all it holds at the end.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  // Writes a file of this name, in place of one that is there.
  void WriteFile(const std::filesystem::path& name, const Bytes& bytes) const;
  void RemoveFile(const std::string& name) const;

 private:
  std::filesystem::path path_;
};

// The bytes of an index file: 5 of each row for the first level, 9 for the second.
Bytes FirstLevelBytes(const std::vector<IndexRecord>& rows);
Bytes SecondLevelBytes(const std::vector<IndexRecord>& rows);

// A first-level file of count records. System parameter k lies at address 240, 0, k and is read by
// command 0, one byte: the frame for k is 0, 240, 0, k, (240 + k) modulo 256.
std::vector<IndexRecord> SystemRows(int count = 18);

// A second-level file of count records, all alike: parameter k lies at address 0, k / 256,
// k modulo 256, has the given command and divider, and the default 0.
std::vector<IndexRecord> PlainRows(int count, uint8_t command = 1, uint8_t divider = 0);

// A second-level file of the 419 records that all pages together ask for, addressed like
// PlainRows, with divider 0 and default 0. Sizes: texts 16 bytes, totals and counts 4, the machine
// number 3, money and other numbers above 255 2, all else 1.
std::vector<IndexRecord> MachineRows();

}  // namespace sorvane::test
