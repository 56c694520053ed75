#include "index_compiler/table_columns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace sorvane {
namespace {

constexpr uint32_t kLongestValue = 16;
constexpr uint32_t kCommandNibbles = 8;  // a nibble from here on would set the mark of a write
// The program would send it as a write and take the answer for that of a read.
constexpr uint32_t kForbiddenCommand = 127;

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<uint32_t> Digits(std::string_view text, int base) {
  uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::string ReadText(std::string_view text, std::optional<int> size, IndexRecord& record) {
  auto& bytes = record.default_value;
  if (size && *size <= static_cast<int>(bytes.size())) {
    return "default " + std::string(text) + " is a text, which takes a size of 5 to 16";
  }
  const bool closed = text.size() >= 2 && text.back() == '"';
  const std::string_view inner = closed ? text.substr(1, text.size() - 2) : std::string_view();
  const bool plain = std::all_of(inner.begin(), inner.end(),
                                 [](char c) { return c >= ' ' && c <= '~' && c != '"'; });
  if (!closed || !plain || inner.size() > bytes.size()) {
    return "default " + std::string(text) +
           " is not a text of at most 4 plain characters in double quotes";
  }
  bytes.fill(' ');
  std::copy(inner.begin(), inner.end(), bytes.begin());
  return {};
}

}  // namespace

std::vector<std::string_view> Split(std::string_view text, char mark) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find(mark, start);
    pieces.push_back(Trim(text.substr(start, end - start)));
    if (end == std::string_view::npos) return pieces;
    start = end + 1;
  }
}

std::optional<uint32_t> ReadNumber(std::string_view text) {
  return text.substr(0, 2) == "0x" ? Digits(text.substr(2), 16) : Digits(text, 10);
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string ReadAddress(std::string_view text, IndexRecord& record) {
  const std::vector<std::string_view> pieces = Split(text, ' ');
  const std::array<uint8_t*, 3> bytes{&record.address1, &record.address2, &record.address3};
  bool good = pieces.size() == bytes.size();
  for (std::size_t i = 0; good && i < bytes.size(); ++i) {
    const auto byte = pieces[i].size() == 2 ? Digits(pieces[i], 16) : std::nullopt;
    good = byte.has_value();
    *bytes[i] = static_cast<uint8_t>(byte.value_or(0));
  }
  if (good) return {};
  return "address " + Quoted(text) +
         " is out of range: it takes three bytes from 00 to FF, such as \"00 1F 80\"";
}

std::string ReadSize(std::string_view text, IndexRecord& record) {
  const std::vector<std::string_view> pieces = Split(text, '/');
  const uint32_t size = ReadNumber(pieces.front()).value_or(0);
  if (size < 1 || size > kLongestValue) {
    return "size " + Quoted(pieces.front()) + " is not a number of bytes, 1 to 16";
  }
  if (pieces.size() > 2) return "size " + Quoted(text) + " has more than one slash";
  const uint32_t nibble = pieces.size() == 1 ? 0 : ReadNumber(pieces[1]).value_or(kCommandNibbles);
  if (nibble >= kCommandNibbles) {
    return "command nibble " + Quoted(pieces[1]) +
           " is not 0 to 7: bit 7 of the command byte is the mark of a write";
  }
  const uint32_t command = nibble * 16 + size - 1;
  if (command == kForbiddenCommand) {
    return "size " + Quoted(text) + " makes the command byte 127, which no record may have";
  }
  record.command = static_cast<uint8_t>(command);
  return {};
}

std::string ReadDivider(std::string_view text, IndexRecord& record) {
  const auto divider = ReadNumber(text);
  if (!divider || *divider > 255) return "divider " + Quoted(text) + " is not 0 to 255";
  record.divider = static_cast<uint8_t>(*divider);
  return {};
}

std::string ReadDefault(std::string_view text, std::optional<int> size, IndexRecord& record) {
  if (text.substr(0, 1) == "\"") return ReadText(text, size, record);
  const auto number = ReadNumber(text);
  if (!number) {
    return "default " + Quoted(text) +
           " is neither a whole number of 4 bytes at most nor a text in double quotes";
  }
  if (size && *size < 4 && *number >> (8 * *size) != 0) {
    return "default " + std::string(text) + " does not fit a size of " + std::to_string(*size);
  }
  uint32_t rest = *number;
  for (uint8_t& byte : record.default_value) {
    byte = static_cast<uint8_t>(rest & 255U);
    rest >>= 8;
  }
  return {};
}

}  // namespace sorvane
