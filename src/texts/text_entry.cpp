#include "texts/text_entry.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>

#include "board/numbers.h"

namespace sorvane {
namespace {

constexpr Entry kRefused{Entry::Kind::kRefused, 0};
constexpr Entry kNotNumeric{Entry::Kind::kNotNumeric, 0};

constexpr int32_t kMostFieldValue = 65535;

// Marks that pass for each other; the first is the one that keyboards have.
constexpr std::u16string_view kGroupBlanks = u" \u00A0\u202F";
constexpr std::u16string_view kApostrophes = u"'\u2019";
constexpr std::u16string_view kBlanks = u" \t\u00A0";
constexpr std::u16string_view kCurrencies = u"$\u20AC\u00A3\u00A5";

bool Holds(std::u16string_view set, char16_t c) { return set.find(c) != std::u16string_view::npos; }
bool IsDigit(char16_t c) { return c >= '0' && c <= '9'; }

// A locale's mark may be one that keyboards lack; those like it are taken as well.
bool IsGroupMark(char16_t c, const Separators& separators) {
  const auto alike = [&](std::u16string_view set) {
    return separators.group != set.front() && Holds(set, separators.group) && Holds(set, c);
  };
  return c == separators.group || alike(kGroupBlanks) || alike(kApostrophes);
}

// A mark that serves for groups has been taken for one before this is asked.
bool IsDecimalMark(char16_t c, const Separators& separators) {
  return c == separators.typed_decimal || c == ',' || c == '.';
}

std::size_t CountDigits(std::u16string_view text) {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  return count;
}

std::u16string_view Trim(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// "&H1F", "&O17" or "&17".
bool IsBasedNumber(std::u16string_view text) {
  if (text.size() < 2 || text[0] != '&') return false;
  const bool hexadecimal = Holds(u"Hh", text[1]);
  const std::u16string_view digits = text.substr(hexadecimal || Holds(u"Oo", text[1]) ? 2 : 1);
  const std::u16string_view allowed = hexadecimal ? u"0123456789abcdefABCDEF" : u"01234567";
  return !digits.empty() && digits.find_first_not_of(allowed) == std::u16string_view::npos;
}

// What may stand before or behind the digits, each but once in all.
struct Signs {
  bool sign = false;
  bool negative = false;
  bool currency = false;
  bool opened = false;
  bool closed = false;
};

bool Once(bool& seen) {
  if (seen) return false;
  seen = true;
  return true;
}

// text without the signs and blanks that it begins with.
std::u16string_view SkipSigns(std::u16string_view text, Signs& signs) {
  while (!text.empty()) {
    const char16_t c = text.front();
    const bool taken = Holds(kBlanks, c) || (Holds(u"+-", c) && Once(signs.sign)) ||
                       (Holds(kCurrencies, c) && Once(signs.currency)) ||
                       (c == '(' && Once(signs.opened)) || (c == ')' && Once(signs.closed));
    if (!taken) break;
    if (c == '-' || c == '(') signs.negative = true;
    text.remove_prefix(1);
  }
  return text;
}

// text without the exponent that it begins with, if it is a whole one.
std::u16string_view SkipExponent(std::u16string_view text) {
  if (text.empty() || !Holds(u"eEdD", text[0])) return text;
  const std::size_t digits = text.size() > 1 && Holds(u"+-", text[1]) ? 2 : 1;
  const std::size_t count = CountDigits(text.substr(digits));
  return count == 0 ? text : text.substr(digits + count);
}

// digits with a point and an exponent of the form "e-1", but without group marks and signs.
double ToDouble(const std::string& number) {
  double value = 0;
  std::from_chars(number.data(), number.data() + number.size(), value);
  return value;
}

// The number that the locale reads in text; none if it reads none.
std::optional<double> ReadDecimalNumber(std::u16string_view text, const Separators& separators) {
  Signs signs;
  text = SkipSigns(text, signs);
  std::string number;
  bool digit = false;
  bool group = false;
  bool decimal = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char16_t c = text.front();
    if (IsDigit(c)) {
      digit = true;
      number += static_cast<char>(c);
    } else if (IsGroupMark(c, separators) && !decimal) {
      group = true;
    } else if (!IsDecimalMark(c, separators) || !Once(decimal)) {
      break;
    } else {
      number += '.';
    }
  }
  if (digit) {
    const std::u16string_view behind = SkipExponent(text);
    std::string exponent(text.begin(), text.end() - behind.size());
    if (!exponent.empty()) exponent.front() = 'e';  // whatever letter stands for it
    number += exponent;
    text = behind;
  }
  text = SkipSigns(text, signs);
  const bool whole = text.empty() && signs.opened == signs.closed;
  if (!whole || !(digit || group || decimal || signs.sign)) return {};
  return signs.negative ? -ToDouble(number) : ToDouble(number);
}

int32_t ToNumber(std::u16string_view digits) {
  double number = 0;
  for (const char16_t digit : digits) number = number * 10 + (digit - '0');
  return ToInt32(number);
}

}  // namespace

bool IsNumeric(std::u16string_view text, const Separators& separators) {
  const std::u16string_view trimmed = Trim(text);
  return IsBasedNumber(trimmed) || ReadDecimalNumber(trimmed, separators).has_value();
}

Entry ParseFieldValue(std::u16string_view text, int16_t decimals, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  const std::size_t whole = CountDigits(text);
  std::u16string digits(text.substr(0, whole));
  int missing = decimals;
  if (whole < text.size()) {
    if (!Holds(u",.", text[whole]) || decimals == 0) return kRefused;
    const std::u16string_view places = text.substr(whole + 1, static_cast<std::size_t>(decimals));
    if (CountDigits(places) < places.size()) return kRefused;
    digits += places;
    missing -= static_cast<int>(places.size());
  }
  if (digits.empty()) return kRefused;
  const int32_t value = ToInt32(ToNumber(digits) * PowerOfTen(missing));
  if (value > kMostFieldValue) return kRefused;
  return {Entry::Kind::kValue, value};
}

Entry ParsePriceValue(std::u16string_view text, int16_t decimals, const Separators& separators) {
  const bool separated = text.find_first_of(u",.") != std::u16string_view::npos;
  if (separated && ReadDecimalNumber(Trim(text), separators) == 2.0) return kRefused;
  return ParseFieldValue(text, decimals, separators);
}

Entry ParseTenthsValue(std::u16string_view text, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  const std::size_t whole = CountDigits(text);
  const std::u16string digits(text.substr(0, whole));
  if (whole == text.size()) return {Entry::Kind::kValue, ToInt32(ToNumber(digits) * 10.0)};
  if (!Holds(u",.", text[whole]) || CountDigits(text.substr(whole + 1)) == 0) return kRefused;
  return {Entry::Kind::kValue, ToNumber(digits + text[whole + 1])};
}

Entry ParseWholeValue(std::u16string_view text, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  if (CountDigits(text) < text.size()) return kRefused;
  return {Entry::Kind::kValue, ToNumber(text)};
}

}  // namespace sorvane
