#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace sorvane {

// One record of a table: bytes whose positions count from 1.
template <int kLength>
class Record {
 public:
  static constexpr int kPositions = kLength;

  uint8_t& At(int position) { return bytes_[static_cast<std::size_t>(position - 1)]; }
  uint8_t At(int position) const { return bytes_[static_cast<std::size_t>(position - 1)]; }

  bool operator==(const Record&) const = default;

 private:
  std::array<uint8_t, kLength> bytes_{};
};

// What the PC knows of one parameter of the board.
using ParameterRecord = Record<23>;
// What the PC knows of one of the parameters by which a board is identified.
using SystemRecord = Record<11>;

namespace position {
inline constexpr int kAddress3 = 1;
inline constexpr int kAddress2 = 2;
inline constexpr int kCommand = 3;  // low nibble: the value's size in bytes minus 1
inline constexpr int kDivider = 4;  // high nibble: passes still to wait; low nibble: the reload
inline constexpr int kWatchers = 5;
inline constexpr int kFlags = 6;
inline constexpr int kAddress1 = 7;
inline constexpr int kValue = 8;  // least significant byte first; up to 16 bytes
}  // namespace position

// The bits of the flag byte.
namespace flag {
inline constexpr uint8_t kFresh = 1;      // the value came from the board
inline constexpr uint8_t kPolled = 2;     // the sweep looks at the record
inline constexpr uint8_t kWatched = 4;    // a page holds or has written the parameter
inline constexpr uint8_t kReadOnce = 96;  // either bit ends the polling with the next reply
inline constexpr uint8_t kWritePending = 128;
}  // namespace flag

inline constexpr uint8_t kSizeMask = 15;

}  // namespace sorvane
