#include "typed_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace sorvane::fuzz {
namespace {

constexpr std::string_view kBlanks = " \t\xA0";
constexpr std::string_view kAround = " \t\xA0+-$\x80\xA3\xA5()";  // what may stand on either side
constexpr std::array<Separators, 5> kLocales = {
    {{'.', ','}, {',', '.'}, {',', '\xA0'}, {'.', '\x92'}, {',', ' '}}};

bool Digit(char c) { return c >= '0' && c <= '9'; }

std::ptrdiff_t Count(std::string_view text, std::string_view set) {
  return std::count_if(text.begin(), text.end(),
                       [&](char c) { return set.find(c) != std::string_view::npos; });
}

std::string_view Stripped(std::string_view text, std::string_view set) {
  while (!text.empty() && set.find(text.front()) != std::string_view::npos) text.remove_prefix(1);
  while (!text.empty() && set.find(text.back()) != std::string_view::npos) text.remove_suffix(1);
  return text;
}

// text without the part of it that inside is.
std::string Around(std::string_view text, std::string_view inside) {
  if (inside.empty()) return std::string(text);
  const auto before = static_cast<std::size_t>(inside.data() - text.data());
  return std::string(text.substr(0, before)) + std::string(text.substr(before + inside.size()));
}

// The characters that divide groups of digits in a locale.
std::string Groups(const Separators& separators) {
  std::string groups(1, separators.group);
  if (separators.group == '\xA0') groups += ' ';
  if (separators.group == '\x92') groups += '\'';
  return groups;
}

bool Based(std::string_view text) {
  if (text.empty() || text.front() != '&') return false;
  text.remove_prefix(1);
  std::string_view digits = "01234567";
  if (!text.empty() && (text[0] == 'h' || text[0] == 'H')) digits = "0123456789ABCDEFabcdef";
  if (!text.empty() && Count(text.substr(0, 1), "hHoO") == 1) text.remove_prefix(1);
  return !text.empty() && Count(text, digits) == static_cast<std::ptrdiff_t>(text.size());
}

// What stands between the signs, taken apart.
struct Core {
  bool fits = true;  // the text has the shape of a number
  bool empty = true;
  std::string number;  // in the form that the C library reads, without a sign
};

Core TakeApart(std::string_view text, const Separators& separators) {
  Core core;
  core.empty = text.empty();
  const std::string groups = Groups(separators);
  const std::string points = std::string(",.") + separators.decimal;
  std::size_t i = 0;
  while (i < text.size() && (Digit(text[i]) || groups.find(text[i]) != std::string::npos)) {
    if (Digit(text[i])) core.number += text[i];
    ++i;
  }
  if (i < text.size() && points.find(text[i]) != std::string::npos) {
    core.number += '.';
    for (++i; i < text.size() && Digit(text[i]); ++i) core.number += text[i];
  }
  if (i == text.size()) return core;
  // All that may follow is an exponent, and only behind a digit.
  const bool digits = std::any_of(core.number.begin(), core.number.end(), Digit);
  std::string_view exponent = text.substr(i + 1);
  core.fits = digits && Count(text.substr(i, 1), "eEdD") == 1;
  core.number += 'e';
  core.number += exponent;
  if (!exponent.empty() && Count(exponent.substr(0, 1), "+-") == 1) exponent.remove_prefix(1);
  core.fits =
      core.fits && !exponent.empty() && std::all_of(exponent.begin(), exponent.end(), Digit);
  return core;
}

}  // namespace

Typed ReadTyped(Input input) {
  Typed typed;
  typed.separators = kLocales[input.Byte() % kLocales.size()];
  typed.decimals = input.Byte();
  typed.text = input.Rest();
  return typed;
}

bool Passes(std::string_view text, const Separators& separators) {
  text = Stripped(text, kBlanks);
  if (Based(text)) return true;
  const std::string_view inside = Stripped(text, kAround);
  const Core core = TakeApart(inside, separators);
  if (!core.fits) return false;
  const std::string around = Around(text, inside);
  const auto signs = Count(around, "+-");
  const auto opened = Count(around, "(");
  if (signs > 1 || Count(around, "$\x80\xA3\xA5") > 1 || opened > 1) return false;
  return opened == Count(around, ")") && (!core.empty || signs == 1);
}

bool IsTwo(std::string_view text, const Separators& separators) {
  text = Stripped(text, kBlanks);
  const std::string_view inside = Stripped(text, kAround);
  const std::string around = Around(text, inside);
  if (Count(around, "-(") > 0) return false;
  return std::strtod(TakeApart(inside, separators).number.c_str(), nullptr) == 2.0;
}

Outcome Scaled(std::string_view digits, int zeros) {
  constexpr int64_t kMost = std::numeric_limits<int32_t>::max();
  int64_t value = 0;
  for (const char digit : digits) {
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
  std::string digits;
  int zeros = typed.decimals;
  bool point = false;
  for (const char c : typed.text) {
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
