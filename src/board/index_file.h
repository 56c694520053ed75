#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "board/board_tables.h"

namespace sorvane {

// One record of an index file, in the order of the file. A first-level file has the first five
// bytes only.
struct IndexRecord {
  uint8_t address3 = 0;
  uint8_t address2 = 0;
  uint8_t command = 0;
  uint8_t divider = 0;
  uint8_t address1 = 0;
  std::array<uint8_t, 4> default_value{};  // least significant byte first

  bool operator==(const IndexRecord&) const = default;
};

inline constexpr int kFirstLevelSize = 5;   // bytes of a record
inline constexpr int kSecondLevelSize = 9;  // bytes of a record

// The file that lists the system parameters of a board type, such as "W0309.inx".
std::string FirstLevelName(int16_t type);

// The file that lists the parameters of a board type, software and revision: "W0309AA00.inx" for
// type 309, software 0, revision 0.
std::string SecondLevelName(int16_t type, int16_t software, int16_t revision);

// One more than any table takes: by that one a load sees that a file is too long.
inline constexpr int kMostRecordsRead = 32768;

// The records of an index file, the first kMostRecordsRead of a longer one; record_size is one of
// the sizes above. A rest of less than one record at the end is ignored. Throws RuntimeError
// kFileNotFound for a file that can't be read, and for what is no ordinary file, which isn't
// opened.
std::vector<IndexRecord> ReadIndexFile(const std::filesystem::path& file, int record_size);

// Fills the system table from the first-level file of BoardTypeNumber in folder. Throws
// RuntimeError for a file that can't be read (kFileNotFound), with the table left as it was, and
// for one of more than 20 records (kSubscriptOutOfRange), with 20 loaded. Records beyond the file's
// last are zeros.
void LoadFirstLevel(BoardTables& tables, const std::filesystem::path& folder);

// Fills the parameter table from the second-level file that IndexType, IndexSoftware and
// IndexRevision name; does nothing while no board is present. name receives the file's name before
// anything can fail. Throws RuntimeError for a file that can't be read (kFileNotFound), with the
// table left as it was, and for one of more than 32767 records (kOverflow), with 32767 loaded.
// Records beyond the file's last are zeros, whatever an earlier load left there.
void LoadSecondLevel(BoardTables& tables, const std::filesystem::path& folder, std::string& name);

}  // namespace sorvane
