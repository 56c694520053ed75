#include "pages/model/password_model.h"

namespace sorvane::test::model {

std::vector<int> PasswordModel::BoardValues(int parameter) const {
  if (parameter == 3) return {0, 16, 33, 49, 48, 239, 255};
  return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12};
}

std::vector<QString> PasswordModel::Texts(const std::string& /*field*/) const {
  return {"", "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "-", ",", "a", "x"};
}

// What a field holds at the end of its half second is written, and must be a number then.
bool PasswordModel::MayHold(const std::string& /*field*/, const QString& text) const {
  return waits_.empty() || (text.size() == 1 && text[0].isDigit());
}

bool PasswordModel::MayConfirm(const std::string& field, const QString& text) const {
  if (Controls().at(field).saved.isEmpty()) return text.isEmpty() && waits_.empty();
  return waits_.empty() || IsNumeric(text);
}

void PasswordModel::Build() {
  waits_.clear();
  for (int i = 0; i < 4; ++i) AddField(Name("Text1", i), 1);
  AddToggle("iSwitchToggleX1");
}

void PasswordModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 3) At("iSwitchToggleX1").on = value / 16 % 2 == 1;
  if (parameter >= 411 && parameter <= 414) {
    Show(Name("Text1", parameter - 411), QString::number(value));
  }
}

void PasswordModel::OnEnter(const std::string& field) {
  if (Take(field, ParseWhole(At(field).text))) waits_.push_back({field, Now() + 500});
}

void PasswordModel::OnTime(int milliseconds) {
  while (!waits_.empty() && waits_.back().mark < milliseconds) {
    const std::string field = waits_.back().field;
    waits_.pop_back();
    const int digit = At(field).text.toInt();
    machine_.Write(411 + IndexOf(field), digit);
    machine_.Write(415 + IndexOf(field), digit);
  }
}

void PasswordModel::OnChange(const std::string& control) {
  const int byte = At(control).on ? 16 : 0;
  machine_.Write(3, byte);
  machine_.Write(355, byte);
}

}  // namespace sorvane::test::model
