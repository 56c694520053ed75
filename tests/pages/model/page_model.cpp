#include "pages/model/page_model.h"

#include <algorithm>
#include <stdexcept>

namespace sorvane::test::model {
namespace {

bool IsDigit(QChar c) { return c >= '0' && c <= '9'; }

std::int64_t NumberOf(const QString& digits) {
  const std::int64_t value = digits.toLongLong();
  if (value > 2147483647) throw std::logic_error("a text of the test is too large a number");
  return value;
}

}  // namespace

void PageModel::Open() {
  controls_.clear();
  tabs_.clear();
  focus_.clear();
  Build();
  for (const int parameter : Watched()) machine_.Watch(parameter);
  machine_.on_reply = [this](int parameter, const Bytes& value) { Deliver(parameter, value); };
}

void PageModel::Close() {
  OnClose();
  for (const int parameter : Watched()) machine_.Unwatch(parameter);
  machine_.on_reply = nullptr;
}

void PageModel::Tick() {
  now_ += 40;
  OnTime(now_);
  machine_.Step();
}

void PageModel::Deliver(int parameter, const Bytes& value) {
  updating_ = true;
  if (value.size() > 4) {
    OnTextReply(parameter,
                QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(value.data()),
                                               static_cast<qsizetype>(value.size()))));
  } else {
    std::int64_t number = 0;
    std::int64_t weight = 1;
    for (const uint8_t byte : value) {
      number += byte * weight;
      weight *= 256;
    }
    OnReply(parameter, number);
  }
  updating_ = false;
  AfterReply();
}

void PageModel::LoseFocus() {
  if (focus_.empty()) return;
  Control& control = At(focus_);
  if (control.kind == Control::Kind::kField && control.restores) control.text = control.saved;
  focus_.clear();
}

void PageModel::FocusOn(const std::string& control) {
  if (focus_ == control) return;
  LoseFocus();
  focus_ = control;
  Control& now = At(control);
  if (now.kind != Control::Kind::kField) return;
  if (now.saves) now.saved = now.text;
  if (now.empties) now.text.clear();
}

void PageModel::Replace(const std::string& field, const QString& text) {
  FocusOn(field);
  Control& control = At(field);
  if (control.locked) return;
  control.text = control.limit == 0 ? text : text.left(control.limit);
}

void PageModel::Enter(const std::string& field) { OnEnter(field); }

void PageModel::MoveTo(const std::string& control, int position) {
  FocusOn(control);
  Control& bar = At(control);
  position = std::clamp(position, bar.minimum, bar.maximum);
  if (bar.position == position) return;
  bar.position = position;
  OnChange(control);
}

void PageModel::TurnOver(const std::string& toggle) {
  FocusOn(toggle);
  At(toggle).on = !At(toggle).on;
  OnChange(toggle);
}

void PageModel::BringToFront(const std::string& tabs, int tab) {
  Tabs& all = tabs_.at(tabs);
  if (all.front == tab) return;
  all.front = tab;
  // The row of tabs takes the focus from what goes to the back.
  if (!focus_.empty() && At(focus_).tabs == tabs && At(focus_).tab != tab) LoseFocus();
}

void PageModel::AnswerBox() {
  const std::string field = box_.value();
  box_.reset();
  Restore(field);
}

bool PageModel::IsOpen(const std::string& control) const {
  const Control& at = controls_.at(control);
  return at.open && (at.tabs.empty() || tabs_.at(at.tabs).open);
}

bool PageModel::IsReachable(const std::string& control) const {
  const Control& at = controls_.at(control);
  return at.kind != Control::Kind::kLabel && IsOpen(control) &&
         (at.tabs.empty() || tabs_.at(at.tabs).front == at.tab);
}

Control& PageModel::AddField(const std::string& name, int limit) {
  Control& control = controls_[name];
  control.kind = Control::Kind::kField;
  control.limit = limit;
  return control;
}

Control& PageModel::AddBar(const std::string& name, int minimum, int maximum, int start,
                           int large_step) {
  Control& control = controls_[name];
  control.kind = Control::Kind::kBar;
  control.minimum = minimum;
  control.maximum = maximum;
  control.position = start;
  control.large_step = large_step;
  return control;
}

Control& PageModel::AddToggle(const std::string& name) {
  Control& control = controls_[name];
  control.kind = Control::Kind::kToggle;
  return control;
}

Control& PageModel::AddLabel(const std::string& name) { return controls_[name]; }

void PageModel::SetOpen(const std::string& control, bool open) {
  At(control).open = open;
  if (!open && focus_ == control) LoseFocus();
}

void PageModel::SetTabsOpen(const std::string& tabs, bool open) {
  tabs_.at(tabs).open = open;
  if (!open && !focus_.empty() && At(focus_).tabs == tabs) LoseFocus();
}

void PageModel::SetBar(const std::string& bar, std::int64_t position) {
  Control& control = At(bar);
  const auto limited =
      static_cast<int>(std::clamp<std::int64_t>(position, control.minimum, control.maximum));
  if (control.position == limited) return;
  control.position = limited;
  if (!updating_) OnChange(bar);
}

void PageModel::SetSlider(const std::string& slider, int position) {
  At(slider).position = position;
}

void PageModel::Show(const std::string& field, const QString& text) {
  At(field).text = text;
  At(field).saved = text;
}

void PageModel::Restore(const std::string& field) { At(field).text = At(field).saved; }

bool PageModel::Take(const std::string& field, const Parsed& parsed) {
  if (parsed.kind == Parsed::Kind::kValue) return true;
  if (parsed.kind == Parsed::Kind::kNotNumeric) {
    box_ = field;
  } else {
    Restore(field);
  }
  return false;
}

// The texts of the tests are plain: letters make no number, but for one "e" between digits.
bool PageModel::IsNumeric(const QString& text) {
  for (int i = 0; i < text.size(); ++i) {
    if (!text[i].isLetter()) continue;
    const bool exponent = text[i] == 'e' && i > 0 && i + 1 < text.size() && IsDigit(text[i - 1]) &&
                          IsDigit(text[i + 1]);
    if (!exponent) return false;
  }
  return true;
}

bool PageModel::IsSmallAmount(const QString& text, std::int64_t decimals) {
  if (decimals <= 4 || text.isEmpty() || !IsNumeric(text)) return true;
  return decimals == 5 && text.size() <= 4;
}

Parsed PageModel::ParseMoney(const QString& text, int decimals) {
  if (text.isEmpty()) return {};
  if (!IsNumeric(text)) return {Parsed::Kind::kNotNumeric, 0};
  QString digits;
  int missing = decimals;
  for (int i = 0; i < text.size(); ++i) {
    if (IsDigit(text[i])) {
      digits += text[i];
      continue;
    }
    if ((text[i] != '.' && text[i] != ',') || decimals == 0) return {};
    const QString places = text.mid(i + 1, decimals);
    if (!std::all_of(places.begin(), places.end(), IsDigit)) return {};
    digits += places;
    missing -= static_cast<int>(places.size());
    break;
  }
  if (digits.isEmpty()) return {};
  const std::int64_t value = NumberOf(digits + QString(missing, '0'));
  if (value > 65535) return {};
  return {Parsed::Kind::kValue, value};
}

Parsed PageModel::ParseWhole(const QString& text) {
  if (text.isEmpty()) return {};
  if (!IsNumeric(text)) return {Parsed::Kind::kNotNumeric, 0};
  if (!std::all_of(text.begin(), text.end(), IsDigit)) return {};
  return {Parsed::Kind::kValue, NumberOf(text)};
}

QString PageModel::Money(std::int64_t raw, int decimals) const {
  if (decimals > 4) return "";
  QString digits = QString::number(raw);
  if (decimals == 0) return digits;
  while (digits.size() <= decimals) digits.prepend('0');
  return digits.insert(digits.size() - decimals, separator_);
}

std::string PageModel::Name(const char* array, int index) {
  return array + ("(" + std::to_string(index) + ")");
}

int PageModel::IndexOf(const std::string& name) {
  return std::stoi(name.substr(name.find('(') + 1));
}

std::string PageModel::ArrayOf(const std::string& name) { return name.substr(0, name.find('(')); }

}  // namespace sorvane::test::model
