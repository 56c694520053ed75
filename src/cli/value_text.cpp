#include "cli/value_text.h"

#include <QString>
#include <algorithm>
#include <cctype>
#include <optional>

#include "board/formats.h"
#include "board/numbers.h"
#include "cli/failure.h"
#include "cli/hex_text.h"
#include "texts/western_text.h"

namespace sorvane::cli {
namespace {

constexpr int kMostDecimals = 4;
constexpr std::size_t kNumberBytes = 4;
constexpr std::size_t kMostDigits = 10;  // of a number of four bytes

// Digits behind the mark of a parameter's numbers.
int DecimalsOf(const CatalogueEntry& entry, const NumberStyle& style) {
  if (entry.form == Form::kTenths) return 1;
  const bool drawn = entry.form == Form::kMoney && style.decimals <= kMostDecimals;
  return drawn ? style.decimals : 0;
}

std::string ShownNumber(const CatalogueEntry& entry, uint32_t number, const NumberStyle& style) {
  const Separators separators{.decimal = style.mark};
  if (entry.form == Form::kTenths) return FormatTenths(number, separators);
  const int decimals = DecimalsOf(entry, style);
  return FormatMoney(number / PowerOfTen(decimals), static_cast<uint8_t>(decimals), separators);
}

bool IsDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// The typed digits as a whole number of the smallest unit; none where they are no such number.
std::optional<uint64_t> Scaled(std::string_view typed, int decimals) {
  const std::size_t mark = typed.find_first_of(".,");
  const std::string_view whole = typed.substr(0, mark);
  const std::string_view part = mark == std::string_view::npos ? "" : typed.substr(mark + 1);
  const bool marked = mark != std::string_view::npos;
  if (whole.empty() || (marked && part.empty())) return std::nullopt;
  if (part.size() > static_cast<std::size_t>(decimals)) return std::nullopt;
  std::string digits(whole);
  digits += part;
  digits.append(static_cast<std::size_t>(decimals) - part.size(), '0');
  if (!IsDigits(digits) || digits.size() > kMostDigits + kMostDecimals) return std::nullopt;
  return std::stoull(digits);
}

}  // namespace

uint32_t NumberOf(const Bytes& raw) {
  uint32_t number = 0;
  for (std::size_t i = std::min(raw.size(), kNumberBytes); i > 0; --i) {
    number = number << 8 | raw[i - 1];
  }
  return number;
}

Bytes BytesOf(uint32_t number, int size) {
  Bytes raw;
  for (int i = 0; i < size; ++i) {
    raw.push_back(static_cast<uint8_t>(number >> (8 * i)));
  }
  return raw;
}

std::string ShownValue(const CatalogueEntry& entry, const Bytes& raw, const NumberStyle& style) {
  if (entry.form == Form::kText) {
    const std::string text(raw.begin(), raw.end());
    return FromWestern(text.substr(0, text.find_last_not_of(std::string_view(" \0", 2)) + 1))
        .toStdString();
  }
  if (raw.size() > kNumberBytes) {
    return HexText(raw);
  }
  return ShownNumber(entry, NumberOf(raw), style);
}

uint32_t TypedValue(const CatalogueEntry& entry, std::string_view typed, const NumberStyle& style) {
  const auto number = Scaled(typed, DecimalsOf(entry, style));
  const bool fits =
      number && *number <= entry.highest && IsInRange(entry, static_cast<uint32_t>(*number));
  if (!fits) {
    throw Failure(ExitCode::kUsage, entry.name + ": \"" + std::string(typed) + "\" is not " +
                                        ShownRange(entry, style));
  }
  return static_cast<uint32_t>(*number);
}

bool TypedBit(const CatalogueBit& bit, std::string_view typed) {
  if (typed == "on" || typed == "yes" || typed == "1") return true;
  if (typed == "off" || typed == "no" || typed == "0") return false;
  throw Failure(ExitCode::kUsage, bit.name + ": \"" + std::string(typed) + "\" is not on or off");
}

bool IsInRange(const CatalogueEntry& entry, uint32_t number) {
  return number >= entry.lowest && number <= entry.highest;
}

std::string ShownRange(const CatalogueEntry& entry, const NumberStyle& style) {
  return ShownNumber(entry, entry.lowest, style) + " to " +
         ShownNumber(entry, entry.highest, style);
}

}  // namespace sorvane::cli
