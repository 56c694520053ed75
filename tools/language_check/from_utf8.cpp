#include "language_check/from_utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "language_check/characters.h"
#include "language_check/language_file.h"

namespace sorvane {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The characters of the bytes from 128 on that aren't those of the same number; 0 for a byte that
// the code page leaves undefined.
constexpr std::size_t kFirstOwn = 0x80;
constexpr std::array<std::uint16_t, 32> kOwn = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::optional<char> ByteOf(char32_t character) {
  if (character < kFirstOwn || (character >= kFirstOwn + kOwn.size() && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const own = std::find(kOwn.begin(), kOwn.end(), character);
  if (own == kOwn.end()) return std::nullopt;
  return static_cast<char>(kFirstOwn + static_cast<std::size_t>(own - kOwn.begin()));
}

std::string NameOf(char32_t character) {
  std::array<char, 12> name{};
  std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
  return name.data();
}

// Writes the bytes of a line in UTF-8 to `line`; gives what is wrong with them, or nothing.
std::string Translate(std::string_view utf8, std::string& line) {
  while (!utf8.empty()) {
    const std::optional<char32_t> character = TakeUtf8(utf8);
    if (!character) return "not saved as UTF-8";
    const std::optional<char> byte = ByteOf(*character);
    if (!byte) return NameOf(*character) + ", which code page 1252 doesn't have";
    line += *byte;
  }
  return {};
}

bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) {
  std::error_code error;
  return std::filesystem::equivalent(one, other, error);
}

}  // namespace

int ConvertFromUtf8(const std::filesystem::path& text, const std::filesystem::path& folder,
                    std::ostream& out, std::ostream& errors) {
  const std::filesystem::path target = folder / text.filename().replace_extension(".lng");
  LanguageLines lines;
  try {
    lines = ReadLanguageFile(text);
  } catch (const std::runtime_error& failure) {
    errors << failure.what() << '\n';
    return 2;
  }
  if (IsSameFile(text, target)) {
    errors << target.string() << ": is the text itself, which isn't overwritten\n";
    return 2;
  }
  std::string bytes;
  bool right = true;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string_view line = lines[i].text;
    if (i == 0 && line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    const std::string wrong = Translate(line, bytes);
    bytes += "\r\n";
    if (wrong.empty()) continue;
    out << text.filename().string() << ':' << i + 1 << ": " << wrong << '\n';
    right = false;
  }
  if (!right) return 1;
  std::ofstream file(target, std::ios::binary);
  file << bytes << std::flush;
  if (file) return 0;
  errors << "can't write " << target.string() << '\n';
  return 2;
}

}  // namespace sorvane
