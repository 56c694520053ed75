#include "shell/page/field.h"

#include <QLabel>
#include <algorithm>

#include "board/formats.h"
#include "board/numbers.h"
#include "shell/controls/bar.h"
#include "shell/controls/control_hint.h"
#include "shell/controls/focus_keeper.h"
#include "shell/page/page.h"
#include "texts/western_text.h"

namespace sorvane {

Field::Field(Page& page, QWidget& parent, const FieldRow& row, int index, FieldState& state)
    : page_(page),
      row_(row),
      index_(index),
      state_(state),
      box_(new EntryBox(page.Gate(), &parent)) {
  box_->setObjectName(ControlName(row.text, row.first + index));
  box_->SetCharacterLimit(row.typed.characters);
  box_->SetFocusRule(row.focus);
  box_->SetLocked(row.locked);
  box_->setAlignment(Qt::AlignCenter);
  if (row.on_enter != OnEnter::kNothing) box_->on_enter = [this] { OnEnterKey(); };
  if (row.label != nullptr) {
    label_ = page.AddLabel(ControlName(row.label, row.first_label + index), &parent);
    label_->setBuddy(box_);
  }
  if (row.bar != nullptr) {
    bar_ = new Bar(page.Gate(), &parent);
    bar_->setObjectName(ControlName(row.bar, row.first + index));
    bar_->SetRange(row.positions.minimum, row.positions.maximum);
    bar_->SetLargeStep(row.positions.large_step);
    bar_->SetSpokenOffset(row.positions.offset);
    if (row.positions.start) bar_->SetPosition(*row.positions.start);
    bar_->on_change = [this] { OnBarChange(); };
  }
  auto* hint = new ControlHint(page.Gate(), *box_, [this] { return HintLines(); });
  if (bar_ != nullptr) hint->Cover(*bar_);
  box_->on_standing = [hint] { hint->Update(); };
}

void Field::LoadCaption() {
  QString caption = page_.Message(row_.message);
  if (row_.numbering == Numbering::kSpaced) caption += ' ';
  if (row_.numbering != Numbering::kNone) caption += QString::number(index_ + 1);
  if (label_ != nullptr) Page::SetCaption(*label_, caption);
  SetSpokenName(caption);
}

void Field::SetSpokenName(const QString& name) {
  box_->setAccessibleName(name);
  if (bar_ != nullptr) bar_->setAccessibleName(name);
}

void Field::SetOpen(bool open) {
  if (bar_ != nullptr) bar_->SetOpen(open);
  box_->SetOpen(open);
}

void Field::SetRowOpen(bool open) {
  if (label_ != nullptr) sorvane::SetOpen(*label_, open);
  SetOpen(open);
}

void Field::ShowFieldValue(double raw) {
  double shown = raw;
  if (bar_ != nullptr) {
    const double position = std::clamp<double>(raw - row_.positions.offset, row_.positions.minimum,
                                               row_.positions.maximum);
    bar_->SetPosition(ToInt32(position));
    if (row_.shown == Shown::kAsTheBarTook) shown = position + row_.positions.offset;
  }
  // What waits to be written stands in the table, too, and isn't the board's yet; and what the bar
  // didn't take is never written.
  const bool confirmed =
      page_.IsParameterFresh(Parameter()) && page_.ReadParameter(Parameter()) == raw;
  box_->Show(TextOf(shown), confirmed);
}

QString Field::TextOf(double raw) const {
  const Separators& separators = page_.Services().separators;
  switch (row_.form) {
    case ValueForm::kMoney:
    case ValueForm::kPrice:
      return FromWestern(
          FormatMoney(raw / PowerOfTen(state_.Decimals), ToByte(state_.Decimals), separators));
    case ValueForm::kTenths:
      return FromWestern(FormatTenths(raw, separators));
    case ValueForm::kWhole:
    case ValueForm::kShort:
      break;
  }
  return FromWestern(FormatMoney(raw, 0, separators));
}

// The values that the field can take; empty where they aren't known, or are no numbers.
QString Field::Range() const {
  const auto& [offset, minimum, maximum, start, step] = row_.positions;
  const bool by_bar = bar_ != nullptr;
  const QString lowest = TextOf(by_bar ? minimum + offset : row_.typed.lowest);
  const QString highest = TextOf(by_bar ? maximum + offset : row_.typed.highest);
  if (row_.locked || lowest.isEmpty()) return {};
  const QString unit = *row_.unit == 0 ? QString() : ' ' + QString::fromUtf8(row_.unit);
  return QString("%1 \u2013 %2").arg(lowest, highest) + unit;
}

QString Field::HintLines() const {
  QStringList lines(Range());
  if (row_.locked || row_.on_enter == OnEnter::kNothing) lines << page_.HintOf(Hint::kByBarAlone);
  if (!box_->IsConfirmed()) lines << page_.HintOf(Hint::kNotConfirmed);
  lines.removeAll(QString());
  return lines.join('\n');
}

Entry Field::Parse() const {
  const std::u16string text = box_->text().toStdU16String();
  const Separators& separators = page_.Services().separators;
  switch (row_.form) {
    case ValueForm::kMoney:
      return ParseFieldValue(text, state_.Decimals, separators);
    case ValueForm::kPrice:
      return ParsePriceValue(text, state_.Decimals, separators);
    case ValueForm::kTenths:
      return ParseTenthsValue(text, separators);
    case ValueForm::kWhole:
      return ParseWholeValue(text, separators);
    case ValueForm::kShort:
      break;
  }
  const Entry entry = ParseWholeValue(text, separators);
  return {entry.kind, ToInt16(entry.value)};
}

void Field::OnBarChange() {
  if (page_.Updating) return;
  page_.WriteParameterPair(Parameter(), Mirror(),
                           int64_t{bar_->Position()} + row_.positions.offset);
}

void Field::OnEnterKey() {
  const Entry entry = Parse();
  if (entry.kind != Entry::Kind::kValue) {
    page_.Refuse(*box_, entry.kind);
    return;
  }
  state_.FieldValue = entry.value;
  if (entry.value < row_.typed.lowest || entry.value > row_.typed.highest) {
    page_.Refuse(*box_, Entry::Kind::kRefused);
  } else {
    Take(entry.value);
  }
}

void Field::Take(int32_t raw) {
  switch (row_.on_enter) {
    case OnEnter::kShows:
      ShowFieldValue(raw);
      break;
    case OnEnter::kMovesBar:
      bar_->SetPosition(raw - row_.positions.offset);
      break;
    case OnEnter::kWrites:
      page_.WriteParameterPair(Parameter(), Mirror(), raw);
      break;
    case OnEnter::kNothing:
      break;
  }
}

}  // namespace sorvane
