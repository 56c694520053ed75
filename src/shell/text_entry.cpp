#include "shell/text_entry.h"

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

constexpr char kNoBreakSpace = '\xA0';
constexpr char kCurvedApostrophe = '\x92';
constexpr std::string_view kBlanks = " \t\xA0";
constexpr std::string_view kCurrencies = "$\x80\xA3\xA5";

bool Holds(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A locale's mark may be one that keyboards lack; the plain one is taken as well.
bool IsGroupMark(char c, const Separators& separators) {
  return c == separators.group || (separators.group == kNoBreakSpace && c == ' ') ||
         (separators.group == kCurvedApostrophe && c == '\'');
}

// A mark that serves for groups has been taken for one before this is asked.
bool IsDecimalMark(char c, const Separators& separators) {
  return c == separators.decimal || c == ',' || c == '.';
}

std::size_t CountDigits(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  return count;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// "&H1F", "&O17" or "&17".
bool IsBasedNumber(std::string_view text) {
  if (text.size() < 2 || text[0] != '&') return false;
  const bool hexadecimal = Holds("Hh", text[1]);
  const std::string_view digits = text.substr(hexadecimal || Holds("Oo", text[1]) ? 2 : 1);
  const std::string_view allowed = hexadecimal ? "0123456789abcdefABCDEF" : "01234567";
  return !digits.empty() && digits.find_first_not_of(allowed) == std::string_view::npos;
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
std::string_view SkipSigns(std::string_view text, Signs& signs) {
  while (!text.empty()) {
    const char c = text.front();
    const bool taken = Holds(kBlanks, c) || (Holds("+-", c) && Once(signs.sign)) ||
                       (Holds(kCurrencies, c) && Once(signs.currency)) ||
                       (c == '(' && Once(signs.opened)) || (c == ')' && Once(signs.closed));
    if (!taken) break;
    if (c == '-' || c == '(') signs.negative = true;
    text.remove_prefix(1);
  }
  return text;
}

// text without the exponent that it begins with, if it is a whole one.
std::string_view SkipExponent(std::string_view text) {
  if (text.empty() || !Holds("eEdD", text[0])) return text;
  const std::size_t digits = text.size() > 1 && Holds("+-", text[1]) ? 2 : 1;
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
std::optional<double> ReadDecimalNumber(std::string_view text, const Separators& separators) {
  Signs signs;
  text = SkipSigns(text, signs);
  std::string number;
  bool digit = false;
  bool group = false;
  bool decimal = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char c = text.front();
    if (IsDigit(c)) {
      digit = true;
      number += c;
    } else if (IsGroupMark(c, separators) && !decimal) {
      group = true;
    } else if (!IsDecimalMark(c, separators) || !Once(decimal)) {
      break;
    } else {
      number += '.';
    }
  }
  if (digit) {
    const std::string_view behind = SkipExponent(text);
    std::string exponent(text.substr(0, text.size() - behind.size()));
    if (!exponent.empty()) exponent.front() = 'e';  // whatever letter stands for it
    number += exponent;
    text = behind;
  }
  text = SkipSigns(text, signs);
  const bool whole = text.empty() && signs.opened == signs.closed;
  if (!whole || !(digit || group || decimal || signs.sign)) return {};
  return signs.negative ? -ToDouble(number) : ToDouble(number);
}

int32_t ToNumber(std::string_view digits) {
  double number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return ToInt32(number);
}

}  // namespace

bool IsNumeric(std::string_view text, const Separators& separators) {
  const std::string_view trimmed = Trim(text);
  return IsBasedNumber(trimmed) || ReadDecimalNumber(trimmed, separators).has_value();
}

Entry ParseFieldValue(std::string_view text, int16_t decimals, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  const std::size_t whole = CountDigits(text);
  std::string digits(text.substr(0, whole));
  int missing = decimals;
  if (whole < text.size()) {
    if (!Holds(",.", text[whole]) || decimals == 0) return kRefused;
    const std::string_view places = text.substr(whole + 1, static_cast<std::size_t>(decimals));
    if (CountDigits(places) < places.size()) return kRefused;
    digits += places;
    missing -= static_cast<int>(places.size());
  }
  if (digits.empty()) return kRefused;
  const int32_t value = ToInt32(ToNumber(digits) * PowerOfTen(missing));
  if (value > kMostFieldValue) return kRefused;
  return {Entry::Kind::kValue, value};
}

Entry ParsePriceValue(std::string_view text, int16_t decimals, const Separators& separators) {
  const bool separated = text.find_first_of(",.") != std::string_view::npos;
  if (separated && ReadDecimalNumber(Trim(text), separators) == 2.0) return kRefused;
  return ParseFieldValue(text, decimals, separators);
}

Entry ParseTenthsValue(std::string_view text, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  const std::size_t whole = CountDigits(text);
  const std::string digits(text.substr(0, whole));
  if (whole == text.size()) return {Entry::Kind::kValue, ToInt32(ToNumber(digits) * 10.0)};
  if (!Holds(",.", text[whole]) || CountDigits(text.substr(whole + 1)) == 0) return kRefused;
  return {Entry::Kind::kValue, ToNumber(digits + text[whole + 1])};
}

Entry ParseWholeValue(std::string_view text, const Separators& separators) {
  if (text.empty()) return kRefused;
  if (!IsNumeric(text, separators)) return kNotNumeric;
  if (CountDigits(text) < text.size()) return kRefused;
  return {Entry::Kind::kValue, ToNumber(text)};
}

}  // namespace sorvane
