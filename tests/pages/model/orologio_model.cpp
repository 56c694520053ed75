#include "pages/model/orologio_model.h"

#include <QDate>
#include <algorithm>

namespace sorvane::test::model {
namespace {

// The parts of the date and time, as rows of the first tab.
struct Part {
  int parameter;
  int minimum;
  int maximum;
  int large_step;
};
constexpr Part kParts[] = {
    {56, 1, 31, 5}, {57, 1, 12, 5}, {58, 0, 99, 5}, {54, 0, 23, 3}, {55, 0, 59, 5}};

// The rows of the two other tabs are hours and minutes in turn.
int Highest(int index) { return index % 2 == 0 ? 23 : 59; }

const char* const kClock = "iSevenSegmentClockX1";

}  // namespace

std::vector<int> OrologioModel::Watched() const {
  return {59, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 3, 53, 54, 55, 56, 57, 58};
}

std::vector<int> OrologioModel::BoardValues(int parameter) const {
  switch (parameter) {
    case 3:
      return {0, 8, 97, 105, 247, 255};
    case 56:
      return {0, 1, 5, 9, 15, 28, 29, 30, 31};
    case 57:
      return {1, 2, 3, 6, 7, 11, 12};
    case 58:
      return {0, 1, 4, 26, 27, 28, 99, 100};
    case 53:
      return {0, 7, 255};
    default:
      return {0, 1, 9, 10, 12, 22, 23, 24, 31, 58, 59, 60, 255};
  }
}

std::vector<QString> OrologioModel::Texts(const std::string& /*field*/) const {
  return {"",     "0",   "00",  "1",  "2",  "5",  "7",   "9",   "11", "12",  "13",
          "22",   "23",  "24",  "31", "32", "58", "59",  "60",  "99", "100", "07",
          "2026", "300", "1.5", "5,", "-1", "+3", "1e1", "abc", "1h"};
}

// No bar of a day or month goes to 0.
bool OrologioModel::MayConfirm(const std::string& field, const QString& text) const {
  if (field != "Text1(0)" && field != "Text1(1)") return true;
  const Parsed parsed = ParseWhole(text);
  return parsed.kind != Parsed::Kind::kValue || parsed.value > 0;
}

void OrologioModel::Build() {
  fitted_ = false;
  probe_start_ = true;
  probe_check_ = true;
  saved_day_ = day_ = month_ = year_ = hours_ = minutes_ = 0;
  flags_ = 0;
  tabs_["SSTab1"] = {true, {false, false, false}, 0};

  const auto place = [](Control& control, int tab) {
    control.tabs = "SSTab1";
    control.tab = tab;
    control.empties = false;
  };
  for (int i = 0; i < 5; ++i) {
    const Part& part = kParts[i];
    place(AddField(Name("Text1", i), 0), 0);
    place(AddBar(Name("HScroll1", i), part.minimum, part.maximum, part.minimum, part.large_step),
          0);
  }
  for (int i = 0; i < 8; ++i) {
    place(AddField(Name("Text2", i), 0), 1);
    place(AddBar(Name("HScroll2", i), 0, Highest(i), 0, i % 2 == 0 ? 3 : 5), 1);
  }
  for (int i = 0; i < 4; ++i) {
    place(AddField(Name("Text3", i), 0), 2);
    place(AddBar(Name("HScroll3", i), 0, Highest(i), 0, i % 2 == 0 ? 3 : 5), 2);
  }
  place(AddLabel("Frame1"), 0);
  for (const char* name : {"Label0", kClock}) {
    Control& label = AddLabel(name);
    label.shows_text = true;
    place(label, 0);
  }
  Control& slider = AddLabel("iSwitchSliderX1");
  slider.kind = Control::Kind::kSlider;
  slider.maximum = 1;
  place(slider, 2);
  Control& button = AddLabel("Command1");
  button.kind = Control::Kind::kButton;
  place(button, 0);
}

void OrologioModel::OpenPage(bool open) {
  for (const char* name : {"Frame1", kClock, "Command1", "iSwitchSliderX1"}) SetOpen(name, open);
  for (int i = 0; i < 5; ++i) {
    SetOpen(Name("HScroll1", i), open);
    SetOpen(Name("Text1", i), open);
  }
  for (int i = 0; i < 8; ++i) {
    SetOpen(Name("HScroll2", i), open);
    SetOpen(Name("Text2", i), open);
  }
  for (int i = 0; i < 4; ++i) {
    SetOpen(Name("HScroll3", i), open);
    SetOpen(Name("Text3", i), open);
  }
  if (open) tabs_.at("SSTab1").tab_open = {true, true, true};
}

void OrologioModel::ShowPart(const char* text, const char* bar, int index, std::int64_t value) {
  SetBar(Name(bar, index), value);
  Show(Name(text, index), QString::number(value));
}

void OrologioModel::Probe(std::int64_t day) {
  if (probe_start_) {
    saved_day_ = day;
    probe_start_ = false;
    machine_.Write(56, 0);
  } else if (probe_check_) {
    fitted_ = day != saved_day_;
    OpenPage(fitted_);
    if (!fitted_) return;
    machine_.Write(56, saved_day_);
    probe_check_ = false;
  }
}

void OrologioModel::OnReply(int parameter, std::int64_t value) {
  for (int i = 0; i < 5; ++i) {
    if (kParts[i].parameter == parameter) ShowPart("Text1", "HScroll1", i, value);
  }
  if (parameter == 56) {
    day_ = value;
    Probe(value);
  }
  if (parameter == 57) month_ = value;
  if (parameter == 58) {
    year_ = value + 2000;
    At("Text1(2)").text = QString::number(year_);
  }
  if (parameter == 54) hours_ = value;
  if (parameter == 55) minutes_ = value;
  if (parameter >= 59 && parameter <= 66) ShowPart("Text2", "HScroll2", parameter - 59, value);
  if (parameter >= 67 && parameter <= 70) ShowPart("Text3", "HScroll3", parameter - 67, value);
  if (parameter == 3) {
    flags_ = static_cast<int>(value);
    SetSlider("iSwitchSliderX1", (value & 8) != 0 ? 0 : 1);
  }
}

void OrologioModel::AfterReply() {
  if (!fitted_) return;
  const auto fresh = [this](int parameter) { return machine_.IsFresh(parameter); };
  if (fresh(54) && fresh(55) && hours_ <= 23 && minutes_ <= 59) {
    At(kClock).text =
        QString("%1:%2").arg(hours_, 2, 10, QChar('0')).arg(minutes_, 2, 10, QChar('0'));
  }
  if (fresh(56) && fresh(57) && fresh(58)) {
    // A day beyond the end of its month is one of the next, and day 0 the last of the one before.
    const QDate first(static_cast<int>(year_), static_cast<int>(month_), 1);
    At("Label0").text = first.addDays(day_ - 1).toString("dd/MM/yyyy");
  }
}

void OrologioModel::OnEnter(const std::string& field) {
  const Parsed parsed = ParseWhole(At(field).text);
  if (!Take(field, parsed)) return;
  const int index = IndexOf(field);
  const std::string array = ArrayOf(field);
  const int limit = array == "Text1" ? kParts[index].maximum : Highest(index);
  if (parsed.value > limit) {
    Restore(field);
  } else {
    const char* bar = array == "Text1" ? "HScroll1" : array == "Text2" ? "HScroll2" : "HScroll3";
    SetBar(Name(bar, index), parsed.value);
  }
}

void OrologioModel::OnChange(const std::string& control) {
  const int position = At(control).position;
  if (control == "iSwitchSliderX1") {
    machine_.WritePair(3, 355, position == 0 ? (flags_ | 8) : (flags_ & 247));
    return;
  }
  const int index = IndexOf(control);
  const std::string array = ArrayOf(control);
  if (array == "HScroll1") machine_.Write(kParts[index].parameter, position);
  if (array == "HScroll2") machine_.Write(59 + index, position);
  if (array == "HScroll3") machine_.WritePair(67 + index, 361 + index, position);
}

void OrologioModel::PressButton(const std::string& button, const QDateTime& pc_clock) {
  FocusOn(button);
  machine_.Write(55, pc_clock.time().minute());
  machine_.Write(54, pc_clock.time().hour());
  machine_.Write(56, pc_clock.date().day());
  machine_.Write(57, pc_clock.date().month());
  machine_.Write(58, pc_clock.date().year() % 100);
}

}  // namespace sorvane::test::model
