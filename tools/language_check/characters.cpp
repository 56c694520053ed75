#include "language_check/characters.h"

namespace sorvane {
namespace {

bool IsWrong(unsigned char byte) {
  if (byte < 0x20 || byte == 0x7F) return true;
  return byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

// How many bytes follow a first byte of UTF-8; -1 if none begins so.
int FollowingBytes(unsigned char first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first <= 0xDF) return 1;
  if (first >= 0xE0 && first <= 0xEF) return 2;
  if (first >= 0xF0 && first <= 0xF4) return 3;
  return -1;
}

}  // namespace

std::optional<unsigned char> FirstWrongByte(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsWrong(byte)) return byte;
  }
  return std::nullopt;
}

bool LooksLikeUtf8(std::string_view text) {
  int awaited = 0;
  bool high = false;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (awaited > 0) {
      if (byte < 0x80 || byte > 0xBF) return false;
      --awaited;
      continue;
    }
    awaited = FollowingBytes(byte);
    if (awaited < 0) return false;
    high = high || awaited > 0;
  }
  return high && awaited == 0;
}

}  // namespace sorvane
