#include "faults/page_models.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace sorvane::test::faults {
namespace {

constexpr int kOffset = 32768;  // of a raw price over the position of its bar
constexpr const char* kClockFace = "iSevenSegmentClockX1";

// The parts of the date and time, as rows of the clock page's first tab.
struct Part {
  int parameter;
  int minimum;
  int maximum;
};
constexpr Part kParts[] = {{56, 1, 31}, {57, 1, 12}, {58, 0, 99}, {54, 0, 23}, {55, 0, 59}};

// The rows of the two other tabs are hours and minutes in turn.
int Highest(int index) { return index % 2 == 0 ? 23 : 59; }

template <typename... Numbers>
std::string Digits(const char* pattern, Numbers... numbers) {
  char text[16];
  std::snprintf(text, sizeof text, pattern, numbers...);
  return text;
}

std::string Money(int raw, int decimals) {
  if (decimals > 4) return "";
  std::string digits = std::to_string(raw);
  if (decimals == 0) return digits;
  const auto places = static_cast<std::size_t>(decimals);
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  return digits.insert(digits.size() - places, 1, '.');
}

// The raw value of a typed amount; none where there is no room for its decimals.
std::optional<int> Amount(const std::string& text, int decimals) {
  const std::size_t point = text.find('.');
  if (point != std::string::npos && decimals == 0) return std::nullopt;
  const auto places = static_cast<std::size_t>(decimals);
  std::string behind = point == std::string::npos ? "" : text.substr(point + 1, places);
  behind.resize(places, '0');
  return std::stoi(text.substr(0, point) + behind);
}

}  // namespace

void PageModel::Open() {
  Build();
  for (const int parameter : Watched()) rig_.model.Watch(parameter);
}

void PageModel::Take(const LinkModel::Notice& notice) {
  if (controls_.empty()) return;
  // No text comes: neither page watches one.
  std::uint32_t number = 0;
  for (std::size_t i = notice.value.size(); i-- > 0;) number = number * 256 + notice.value[i];
  OnReply(notice.parameter, static_cast<int>(number));
  AfterReply();
}

void PageModel::AddBar(const std::string& name, int minimum, int maximum, int start) {
  controls_[name].position = start;
  controls_[name].minimum = minimum;
  controls_[name].maximum = maximum;
}

bool PageModel::SetBar(const std::string& bar, int position) {
  Control& control = At(bar);
  const int limited = std::clamp(position, control.minimum, control.maximum);
  const bool moved = control.position != limited;
  control.position = limited;
  return moved;
}

void PageModel::Write(int parameter, int value) {
  rig_.model.Write(parameter, static_cast<std::uint32_t>(value));
  rig_.ledger.Typed(parameter);
}

std::string PageModel::Name(const char* array, int index) {
  return array + ("(" + std::to_string(index) + ")");
}

// The clock.

std::vector<int> ClockModel::Watched() const {
  return {59, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 3, 53, 54, 55, 56, 57, 58};
}

void ClockModel::Build() {
  for (int i = 0; i < 5; ++i) {
    AddField(Name("Text1", i));
    AddBar(Name("HScroll1", i), kParts[i].minimum, kParts[i].maximum, kParts[i].minimum);
  }
  for (int i = 0; i < 8; ++i) {
    AddField(Name("Text2", i));
    AddBar(Name("HScroll2", i), 0, Highest(i), 0);
  }
  for (int i = 0; i < 4; ++i) {
    AddField(Name("Text3", i));
    AddBar(Name("HScroll3", i), 0, Highest(i), 0);
  }
  for (const char* label : {"Label0", kClockFace}) AddField(label);
  AddBar("iSwitchSliderX1", 0, 1, 0);
  for (const char* name : {"Frame1", "Command1"}) controls_[name] = {};
}

void ClockModel::OpenAll(bool open) {
  for (auto& [name, control] : controls_) {
    if (name != "Label0") control.open = open;
  }
}

void ClockModel::ShowPart(const char* text, const char* bar, int index, int value) {
  SetBar(Name(bar, index), value);
  At(Name(text, index)).text = std::to_string(value);
}

// Day 0 is written, which a board that keeps a clock of its own refuses.
void ClockModel::Probe() {
  if (probe_start_) {
    saved_day_ = day_;
    probe_start_ = false;
    Write(56, 0);
  } else if (probe_check_) {
    fitted_ = day_ != saved_day_;
    OpenAll(fitted_);
    if (!fitted_) return;
    Write(56, saved_day_);
    probe_check_ = false;
  }
}

void ClockModel::OnReply(int parameter, int value) {
  for (int i = 0; i < 5; ++i) {
    if (kParts[i].parameter == parameter) ShowPart("Text1", "HScroll1", i, value);
  }
  if (parameter == 56) {
    day_ = value;
    Probe();
  }
  if (parameter == 57) month_ = value;
  if (parameter == 58) {
    year_ = value + 2000;
    At("Text1(2)").text = std::to_string(year_);
  }
  if (parameter == 54) hours_ = value;
  if (parameter == 55) minutes_ = value;
  if (parameter >= 59 && parameter <= 66) ShowPart("Text2", "HScroll2", parameter - 59, value);
  if (parameter >= 67 && parameter <= 70) ShowPart("Text3", "HScroll3", parameter - 67, value);
  if (parameter == 3) At("iSwitchSliderX1").position = value / 8 % 2 == 1 ? 0 : 1;
}

void ClockModel::AfterReply() {
  if (!fitted_) return;
  if (IsFresh(54) && IsFresh(55) && hours_ <= 23 && minutes_ <= 59) {
    At(kClockFace).text = Digits("%02d:%02d", hours_, minutes_);
  }
  if (IsFresh(56) && IsFresh(57) && IsFresh(58)) {
    // A day beyond the end of its month is one of the next, and day 0 the last of the one before.
    using std::chrono::days, std::chrono::month, std::chrono::year;
    const std::chrono::sys_days first =
        year(year_) / month(static_cast<unsigned>(month_)) / std::chrono::day(1);
    const std::chrono::year_month_day date(first + days(day_ - 1));
    At("Label0").text = Digits("%02u/%02u/%d", static_cast<unsigned>(date.day()),
                               static_cast<unsigned>(date.month()), static_cast<int>(date.year()));
  }
}

// The prices.

std::vector<int> PricesModel::Watched() const {
  std::vector<int> all{22};
  for (int i = 0; i < 10; ++i) {
    all.push_back(23 + i);
    all.push_back(33 + i);
  }
  all.push_back(2);
  return all;
}

void PricesModel::Build() {
  for (int i = 0; i < 10; ++i) {
    for (const char* text : {"Text1", "Text2"}) AddField(Name(text, i));
    for (const char* bar : {"HScroll1", "HScroll2"}) {
      AddBar(Name(bar, i), -kOffset, kOffset - 1, 1 - kOffset);
    }
  }
  OpenRows(10, false);
}

void PricesModel::OpenRows(int end, bool open) {
  for (int i = 0; i < end; ++i) {
    for (const char* array : {"HScroll1", "Text1", "HScroll2", "Text2"}) {
      At(Name(array, i)).open = open;
    }
  }
  if (open || !focus_) return;
  At(Name("Text1", *focus_)).text = saved_;
  focus_.reset();
}

void PricesModel::ShowPair(const char* text, const char* bar, int row, int raw) {
  SetBar(Name(bar, row), raw - kOffset);
  At(Name(text, row)).text = Money(raw, decimals_);
  if (text == std::string("Text1") && focus_ == row) saved_ = Money(raw, decimals_);
}

void PricesModel::OnReply(int parameter, int value) {
  if (parameter == 22 && value != decimals_) {
    decimals_ = value;
    for (int i = 0; i < 10; ++i) ShowPair("Text1", "HScroll1", i, Read(23 + i));
  }
  if (parameter >= 23 && parameter <= 32 && IsFresh(22)) {
    ShowPair("Text1", "HScroll1", parameter - 23, value);
  }
  if (parameter >= 33 && parameter <= 42) {
    decimals_ = 0;
    ShowPair("Text2", "HScroll2", parameter - 33, value);
  }
  if (parameter == 2) {
    selections_ = value;
    OpenRows(10, false);
  }
}

void PricesModel::AfterReply() {
  if (IsFresh(2)) {
    price_seen_ = price_seen_ || IsFresh(23);
    item_seen_ = item_seen_ || IsFresh(33);
  }
  if (price_seen_ && item_seen_) OpenRows(selections_, true);
}

void PricesModel::Type(int row, const std::string& text) {
  Control& field = At(Name("Text1", row));
  focus_ = row;
  saved_ = *field.text;
  const std::optional<int> raw = Amount(text, decimals_);
  field.text = raw ? text : saved_;
  if (!raw || !SetBar(Name("HScroll1", row), *raw - kOffset)) return;
  Write(23 + row, *raw);
  Write(391 + row, *raw);
}

}  // namespace sorvane::test::faults
