#include "language_check/characters.h"

#include <array>
#include <cstddef>

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

std::optional<char32_t> TakeUtf8(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const int following = FollowingBytes(first);
  if (following < 0) return std::nullopt;
  const auto size = static_cast<std::size_t>(following) + 1;
  if (text.size() < size) return std::nullopt;
  char32_t character = following == 0 ? first : first & (0x3FU >> following);
  for (const char c : text.substr(1, size - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte > 0xBF) return std::nullopt;
    character = (character << 6) | (byte & 0x3FU);
  }
  // Longer than it must be, half of a pair, or beyond the last one.
  constexpr std::array<char32_t, 4> kLowest = {0, 0x80, 0x800, 0x10000};
  const bool half = character >= 0xD800 && character <= 0xDFFF;
  if (character < kLowest[size - 1] || half || character > 0x10FFFF) return std::nullopt;
  text.remove_prefix(size);
  return character;
}

bool LooksLikeUtf8(std::string_view text) {
  bool high = false;
  while (!text.empty()) {
    const std::optional<char32_t> character = TakeUtf8(text);
    if (!character) return false;
    high = high || *character > 0x7F;
  }
  return high;
}

}  // namespace sorvane
