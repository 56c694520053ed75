#include "simulator/words.h"

#include <array>
#include <charconv>
#include <optional>

#include "simulator/command_error.h"

namespace sorvane::simulator {
namespace {

constexpr std::size_t kLargestNumber = 4;  // bytes
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kHexDigits = "0123456789abcdef";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

void AppendCharacter(std::string& text, uint8_t byte) {
  if (byte == '"' || byte == '\\') {
    text += '\\';
    text += static_cast<char>(byte);
  } else if (byte >= 0x20 && byte < 0x7f) {
    text += static_cast<char>(byte);
  } else if (byte >= 0xa0) {
    text += static_cast<char>(0xc0 | (byte >> 6));
    text += static_cast<char>(0x80 | (byte & 0x3f));
  } else {
    text += "\\x";
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 15];
  }
}

// Takes an escaped character, whose backslash is gone already.
uint8_t TakeEscaped(std::string_view& text) {
  if (text.starts_with('"') || text.starts_with('\\')) {
    const char character = text.front();
    text.remove_prefix(1);
    return static_cast<uint8_t>(character);
  }
  uint8_t byte = 0;
  if (text.starts_with('x') && text.size() >= 3) {
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
    if (error == std::errc() && end == text.data() + 3) {
      text.remove_prefix(3);
      return byte;
    }
  }
  throw CommandError("a backslash stands before \", before \\ or before x and two digits");
}

uint8_t TakeCharacter(std::string_view& text) {
  const auto byte = static_cast<uint8_t>(text.front());
  text.remove_prefix(1);
  if (byte == '\\') return TakeEscaped(text);
  if (byte < 0x80) return byte;
  if ((byte == 0xc2 || byte == 0xc3) && !text.empty()) {
    const auto next = static_cast<uint8_t>(text.front());
    if (next >= 0x80 && next < 0xc0 && (byte == 0xc3 || next >= 0xa0)) {
      text.remove_prefix(1);
      return static_cast<uint8_t>(((byte & 3) << 6) | (next & 0x3f));
    }
  }
  throw CommandError("the text holds a letter that the board doesn't know");
}

Bytes ParseText(std::string_view text, std::size_t size) {
  const bool quoted = text.starts_with('"');
  if (quoted) text.remove_prefix(1);
  Bytes value;
  bool closed = false;
  while (!text.empty() && !closed) {
    closed = quoted && text.front() == '"';
    if (closed) {
      text.remove_prefix(1);
    } else {
      value.push_back(TakeCharacter(text));
    }
  }
  if (quoted && (!closed || !text.empty())) {
    throw CommandError("a text that begins with a quote ends with one");
  }
  if (value.size() > size) {
    throw CommandError("the text has " + std::to_string(value.size()) + " characters, " +
                       std::to_string(size) + " fit");
  }
  value.resize(size, ' ');
  return value;
}

}  // namespace

std::string_view TakeWord(std::string_view& text) {
  text = Trim(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text = Trim(text.substr(word.size()));
  return word;
}

uint32_t ParseNumber(std::string_view text, uint32_t lowest, uint32_t highest,
                     const std::string& what) {
  uint32_t number = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (error != std::errc() || end != last || number < lowest || number > highest) {
    throw CommandError(what + " is a whole number from " + std::to_string(lowest) + " to " +
                       std::to_string(highest));
  }
  return number;
}

std::string ShowValue(const Bytes& value) {
  if (value.size() <= kLargestNumber) {
    uint32_t number = 0;
    for (std::size_t i = 0; i < value.size(); ++i) number |= uint32_t{value[i]} << (8 * i);
    return std::to_string(number);
  }
  std::string text = "\"";
  for (const uint8_t byte : value) AppendCharacter(text, byte);
  return text + '"';
}

Bytes ParseValue(std::string_view text, std::size_t size) {
  text = Trim(text);
  if (size > kLargestNumber) return ParseText(text, size);

  const auto highest = static_cast<uint32_t>((uint64_t{1} << (8 * size)) - 1);
  const uint32_t number = ParseNumber(text, 0, highest, "the value");
  Bytes value;
  for (std::size_t i = 0; i < size; ++i) value.push_back(static_cast<uint8_t>(number >> (8 * i)));
  return value;
}

std::string ShowBytes(const Bytes& bytes) {
  std::string text;
  for (const uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += std::to_string(byte);
  }
  return text;
}

}  // namespace sorvane::simulator
