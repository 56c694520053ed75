#include "cli/utc_text.h"

namespace sorvane::cli {
namespace {

std::string Digits(int number, std::size_t width) {
  std::string text = std::to_string(number);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace

std::string UtcText(std::chrono::sys_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return Digits(static_cast<int>(date.year()), 4) + '-' +
         Digits(static_cast<int>(static_cast<unsigned>(date.month())), 2) + '-' +
         Digits(static_cast<int>(static_cast<unsigned>(date.day())), 2) + 'T' +
         Digits(static_cast<int>(time.hours().count()), 2) + ':' +
         Digits(static_cast<int>(time.minutes().count()), 2) + ':' +
         Digits(static_cast<int>(time.seconds().count()), 2) + 'Z';
}

}  // namespace sorvane::cli
