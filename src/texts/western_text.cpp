#include "texts/western_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <system_error>

namespace sorvane {
namespace {

constexpr std::size_t kFirstOwn = 0x80;  // up to 0x9F the set differs from the first 256 characters

constexpr std::array<char16_t, 32> kOwnCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

constexpr std::array<char16_t, 256> MakeCharacters() {
  std::array<char16_t, 256> characters{};
  for (std::size_t i = 0; i < characters.size(); ++i) characters[i] = static_cast<char16_t>(i);
  for (std::size_t i = 0; i < kOwnCharacters.size(); ++i) {
    characters[kFirstOwn + i] = kOwnCharacters[i];
  }
  return characters;
}

// The character of each byte of the set.
constexpr std::array<char16_t, 256> kCharacters = MakeCharacters();

char16_t ToCharacter(char byte) { return kCharacters[static_cast<unsigned char>(byte)]; }

std::optional<char> ToByteOfSet(char16_t character) {
  if (character < kFirstOwn) return static_cast<char>(character);
  const auto found = std::find(kCharacters.begin(), kCharacters.end(), character);
  if (found == kCharacters.end()) return std::nullopt;
  return static_cast<char>(found - kCharacters.begin());
}

std::u16string ToCharacters(std::string_view text) {
  std::u16string characters;
  for (const char byte : text) characters += ToCharacter(byte);
  return characters;
}

}  // namespace

QString FromWestern(std::string_view text) { return QString::fromStdU16String(ToCharacters(text)); }

Separators SeparatorsOf(const QLocale& locale) {
  const auto first = [](const QString& mark, char16_t none) {
    return mark.isEmpty() ? none : mark.front().unicode();
  };
  const char16_t decimal = first(locale.decimalPoint(), u'.');
  return {ToByteOfSet(decimal).value_or('.'), first(locale.groupSeparator(), u','), decimal};
}

QString EscapeAmpersands(const QString& text) { return QString(text).replace('&', "&&"); }

std::u16string FoldCase(std::string_view text) {
  constexpr char16_t kMicroSign = 0xB5;  // file systems don't take it for a small letter
  std::u16string folded = ToCharacters(text);
  for (char16_t& character : folded) {
    if (character != kMicroSign) character = QChar(character).toUpper().unicode();
  }
  return folded;
}

std::filesystem::path WesternToPath(std::string_view name) { return ToCharacters(name); }

std::optional<std::string> PathToWestern(const std::filesystem::path& path) {
  std::u16string characters;
  try {
    characters = path.u16string();
  } catch (const std::system_error&) {
    return std::nullopt;  // bytes that no text has
  }
  std::string name;
  for (const char16_t character : characters) {
    const std::optional<char> byte = ToByteOfSet(character);
    if (!byte) return std::nullopt;
    name += *byte;
  }
  return name;
}

}  // namespace sorvane
