#include "typed_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "texts/western_text.h"

namespace sorvane::fuzz {
namespace {

constexpr std::u16string_view kBlanks = u" \t\u00A0";
// What may stand on either side.
constexpr std::u16string_view kAround = u" \t\u00A0+-$\u20AC\u00A3\u00A5()";
constexpr std::u16string_view kCurrencies = u"$\u20AC\u00A3\u00A5";
constexpr std::array<Separators, 7> kLocales = {{{'.', u','},
                                                 {',', u'.'},
                                                 {',', u'\u00A0'},
                                                 {'.', u'\u2019'},
                                                 {',', u' '},
                                                 {',', u'\u202F', u','},
                                                 {'.', u'\u066C', u'\u066B'}}};

// The characters of the bytes of an input: those of the western set, and in the place of three that
// it leaves free the marks of locales that it doesn't serve.
std::u16string Characters(const std::string& bytes) {
  std::u16string characters = FromWestern(bytes).toStdU16String();
  for (char16_t& character : characters) {
    if (character == 0x81) character = u'\u202F';
    if (character == 0x8D) character = u'\u066B';
    if (character == 0x8F) character = u'\u066C';
  }
  return characters;
}

bool Digit(char16_t c) { return c >= '0' && c <= '9'; }

std::ptrdiff_t Count(std::u16string_view text, std::u16string_view set) {
  return std::count_if(text.begin(), text.end(),
                       [&](char16_t c) { return set.find(c) != std::u16string_view::npos; });
}

std::u16string_view Stripped(std::u16string_view text, std::u16string_view set) {
  while (!text.empty() && set.find(text.front()) != std::u16string_view::npos)
    text.remove_prefix(1);
  while (!text.empty() && set.find(text.back()) != std::u16string_view::npos) text.remove_suffix(1);
  return text;
}

// text without the part of it that inside is.
std::u16string Around(std::u16string_view text, std::u16string_view inside) {
  if (inside.empty()) return std::u16string(text);
  const auto before = static_cast<std::size_t>(inside.data() - text.data());
  return std::u16string(text.substr(0, before)) +
         std::u16string(text.substr(before + inside.size()));
}

// The characters that divide groups of digits in a locale.
std::u16string Groups(const Separators& separators) {
  std::u16string groups(1, separators.group);
  if (separators.group == u'\u00A0' || separators.group == u'\u202F') groups += u" \u00A0\u202F";
  if (separators.group == u'\u2019') groups += '\'';
  return groups;
}

bool Based(std::u16string_view text) {
  if (text.empty() || text.front() != '&') return false;
  text.remove_prefix(1);
  std::u16string_view digits = u"01234567";
  if (!text.empty() && (text[0] == 'h' || text[0] == 'H')) digits = u"0123456789ABCDEFabcdef";
  if (!text.empty() && Count(text.substr(0, 1), u"hHoO") == 1) text.remove_prefix(1);
  return !text.empty() && Count(text, digits) == static_cast<std::ptrdiff_t>(text.size());
}

// What stands between the signs, taken apart.
struct Core {
  bool fits = true;  // the text has the shape of a number
  bool empty = true;
  std::string number;  // in the form that the C library reads, without a sign
};

Core TakeApart(std::u16string_view text, const Separators& separators) {
  Core core;
  core.empty = text.empty();
  const std::u16string groups = Groups(separators);
  const std::u16string points = std::u16string(u",.") + separators.typed_decimal;
  std::size_t i = 0;
  while (i < text.size() && (Digit(text[i]) || groups.find(text[i]) != std::u16string::npos)) {
    if (Digit(text[i])) core.number += static_cast<char>(text[i]);
    ++i;
  }
  if (i < text.size() && points.find(text[i]) != std::u16string::npos) {
    core.number += '.';
    for (++i; i < text.size() && Digit(text[i]); ++i) core.number += static_cast<char>(text[i]);
  }
  if (i == text.size()) return core;
  // All that may follow is an exponent, and only behind a digit.
  const bool digits = std::any_of(core.number.begin(), core.number.end(), Digit);
  std::u16string_view exponent = text.substr(i + 1);
  core.fits = digits && Count(text.substr(i, 1), u"eEdD") == 1;
  core.number += 'e';
  core.number.append(exponent.begin(), exponent.end());
  if (!exponent.empty() && Count(exponent.substr(0, 1), u"+-") == 1) exponent.remove_prefix(1);
  core.fits =
      core.fits && !exponent.empty() && std::all_of(exponent.begin(), exponent.end(), Digit);
  return core;
}

}  // namespace

Typed ReadTyped(Input input) {
  Typed typed;
  typed.separators = kLocales[input.Byte() % kLocales.size()];
  typed.decimals = input.Byte();
  typed.text = Characters(input.Rest());
  return typed;
}

bool Passes(std::u16string_view text, const Separators& separators) {
  text = Stripped(text, kBlanks);
  if (Based(text)) return true;
  const std::u16string_view inside = Stripped(text, kAround);
  const Core core = TakeApart(inside, separators);
  if (!core.fits) return false;
  const std::u16string around = Around(text, inside);
  const auto signs = Count(around, u"+-");
  const auto opened = Count(around, u"(");
  if (signs > 1 || Count(around, kCurrencies) > 1 || opened > 1) return false;
  return opened == Count(around, u")") && (!core.empty || signs == 1);
}

bool IsTwo(std::u16string_view text, const Separators& separators) {
  text = Stripped(text, kBlanks);
  const std::u16string_view inside = Stripped(text, kAround);
  const std::u16string around = Around(text, inside);
  if (Count(around, u"-(") > 0) return false;
  return std::strtod(TakeApart(inside, separators).number.c_str(), nullptr) == 2.0;
}

Outcome Scaled(std::u16string_view digits, int zeros) {
  constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
  int64_t value = 0;
  for (const char16_t digit : digits) {
    value = value * 10 + (digit - '0');
    if (value > kMost) return std::nullopt;
  }
  for (; zeros > 0 && value > 0; --zeros) {
    value *= 10;
    if (value > kMost) return std::nullopt;
  }
  return Entry{Entry::Kind::kValue, static_cast<int32_t>(value)};
}

Outcome FieldOutcome(const Typed& typed) {
  if (typed.text.empty()) return kRefused;
  if (!Passes(typed.text, typed.separators)) return kNotNumeric;
  std::u16string digits;
  int zeros = typed.decimals;
  bool point = false;
  for (const char16_t c : typed.text) {
    if (point && zeros == 0) break;
    if (Digit(c)) {
      digits += c;
      if (point) --zeros;
    } else if ((c == ',' || c == '.') && !point && zeros > 0) {
      point = true;
    } else {
      return kRefused;
    }
  }
  if (digits.empty()) return kRefused;
  const Outcome outcome = Scaled(digits, zeros);
  return outcome && outcome->value > 65535 ? kRefused : outcome;
}

}  // namespace sorvane::fuzz
