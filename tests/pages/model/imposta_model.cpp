#include "pages/model/imposta_model.h"

#include <algorithm>

namespace sorvane::test::model {
namespace {

// The rows with bars.
struct Setting {
  int parameter;
  int second;
  int minimum;
  int maximum;
  int limit;
};
constexpr Setting kSettings[] = {{1, 353, 0, 9, 100}, {2, 354, 5, 10, 2}, {6, 358, 50, 250, 4},
                                 {5, 357, 0, 16, 2},  {4, 356, 1, 5, 1},  {8, 360, 0, 12, 2},
                                 {7, 359, 1, 30, 2}};
constexpr int kTenths = 2;  // the row that holds tenths

}  // namespace

std::vector<int> ImpostaModel::Watched() const {
  return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21};
}

std::vector<int> ImpostaModel::BoardValues(int parameter) const {
  switch (parameter) {
    case 1:
      return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    case 3:
      return {0, 32, 65, 97, 223, 255};
    case 9:
      return {0, 1, 70000, 16777215};
    case 10:
      return {0, 1, 4000, 65535};
    default:
      return {0, 1, 4, 5, 6, 9, 10, 12, 16, 17, 30, 31, 49, 50, 60, 100, 120, 125, 250, 251, 255};
  }
}

std::vector<QString> ImpostaModel::Texts(const std::string& field) const {
  if (field == "Text1(7)" || field == "Text1(8)") {
    return {"", "0", "1", "65535", "65536", "16777215", "16777216", "1.5", "-1", "007", "abc"};
  }
  return {"",   "0",  "1",   "2",  "3",  "4",    "5",  "6",  "7",  "8",    "9",    "10",
          "11", "12", "13",  "16", "17", "25",   "26", "30", "31", "12.5", "12,5", "12.55",
          "5.", "5,", "4.9", "-1", "-",  "25.1", ",5", "a",  "xy", "1e1",  "09"};
}

void ImpostaModel::Build() {
  names_ = {};
  language_ = 0;
  for (int i = 0; i < 7; ++i) {
    const Setting& setting = kSettings[i];
    AddField(Name("Text1", i), setting.limit);
    AddBar(Name("HScroll1", i), setting.minimum, setting.maximum, setting.minimum, 0);
  }
  AddField("Text1(7)", 8);
  AddField("Text1(8)", 5);
  AddToggle("Switch1");
  Control& language = At("Text1(0)");
  language.locked = true;
  language.saves = false;
  language.empties = false;
}

void ImpostaModel::ShowSetting(int row, std::int64_t raw) {
  const Setting& setting = kSettings[row];
  SetBar(Name("HScroll1", row), raw);
  QString text = QString::number(raw);
  if (row == kTenths) {
    const std::int64_t limited = std::clamp<std::int64_t>(raw, setting.minimum, setting.maximum);
    text = QString::number(limited / 10);
    if (limited % 10 != 0) text += separator_ + QString::number(limited % 10);
  }
  Show(Name("Text1", row), text);
}

void ImpostaModel::ShowLanguage() {
  for (int parameter = 12; parameter <= 21; ++parameter) {
    if (!machine_.IsFresh(parameter)) return;
  }
  ShowSetting(0, language_);
  Show("Text1(0)", names_.at(static_cast<std::size_t>(language_)));
}

void ImpostaModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 1) {
    language_ = value;
    ShowLanguage();
  }
  for (int row = 1; row < 7; ++row) {
    if (kSettings[row].parameter == parameter) ShowSetting(row, value);
  }
  if (parameter == 3) At("Switch1").on = value / 32 % 2 == 1;
  if (parameter == 9) Show("Text1(7)", QString::number(value));
  if (parameter == 10) Show("Text1(8)", QString::number(value));
}

void ImpostaModel::OnTextReply(int parameter, const QString& text) {
  if (parameter < 12 || parameter > 21) return;
  names_.at(static_cast<std::size_t>(parameter - 12)) = text;
  if (machine_.IsFresh(1)) ShowLanguage();
}

Parsed ImpostaModel::Parse(const QString& text, bool tenths) {
  if (!tenths) return ParseWhole(text);
  if (text.isEmpty()) return {};
  if (!IsNumeric(text)) return {Parsed::Kind::kNotNumeric, 0};
  const auto is_digit = [](QChar c) { return c >= '0' && c <= '9'; };
  QString digits;
  for (int i = 0; i < text.size(); ++i) {
    if (is_digit(text[i])) {
      digits += text[i];
      continue;
    }
    if (text[i] != '.' && text[i] != ',') return {};
    if (i + 1 == text.size() || !is_digit(text[i + 1])) return {};
    return {Parsed::Kind::kValue, (digits + text[i + 1]).toLongLong()};
  }
  return {Parsed::Kind::kValue, digits.toLongLong() * 10};
}

void ImpostaModel::OnEnter(const std::string& field) {
  const int row = IndexOf(field);
  const Parsed parsed = Parse(At(field).text, row == kTenths);
  if (!Take(field, parsed)) return;
  if (row >= 7) {
    const int highest = row == 7 ? 16777215 : 65535;
    if (parsed.value >= 1 && parsed.value <= highest) {
      machine_.Write(row == 7 ? 9 : 10, parsed.value);
    } else {
      Restore(field);
    }
  } else if (parsed.value >= kSettings[row].minimum && parsed.value <= kSettings[row].maximum) {
    ShowSetting(row, parsed.value);
  } else {
    Restore(field);
  }
}

void ImpostaModel::OnChange(const std::string& control) {
  if (control == "Switch1") {
    machine_.WritePair(3, 355, At(control).on ? 32 : 0);
  } else {
    const Setting& setting = kSettings[IndexOf(control)];
    machine_.WritePair(setting.parameter, setting.second, At(control).position);
  }
}

}  // namespace sorvane::test::model
