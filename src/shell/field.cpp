#include "shell/field.h"

#include <QLabel>
#include <algorithm>

#include "board/formats.h"
#include "board/numbers.h"
#include "link/dialogs.h"
#include "shell/controls/bar.h"
#include "shell/controls/entry_box.h"
#include "shell/page.h"
#include "shell/text_entry.h"
#include "shell/western_text.h"

namespace sorvane {

Field::Field(Page& page, const FieldRow& row, int index, const int16_t& decimals,
             int32_t& field_value)
    : page_(page),
      row_(row),
      index_(index),
      decimals_(decimals),
      field_value_(field_value),
      label_(new QLabel(&page)),
      box_(new EntryBox(page.Gate(), &page)),
      bar_(new Bar(page.Gate(), &page)) {
  const auto name = [index](const char* control) {
    return QString("%1(%2)").arg(control).arg(index);
  };
  label_->setObjectName(name(row.label));
  label_->setBuddy(box_);
  box_->setObjectName(name(row.text));
  box_->SetCharacterLimit(row.characters);
  box_->setAlignment(Qt::AlignCenter);
  box_->on_enter = [this] { OnEnter(); };
  bar_->setObjectName(name(row.bar));
  bar_->SetRange(row.minimum, row.maximum);
  bar_->SetLargeStep(row.large_step);
  bar_->SetPosition(row.start);
  bar_->on_change = [this] { OnBarChange(); };
}

void Field::LoadCaption() {
  const QString caption = QString("%1 %2").arg(page_.Message(row_.message)).arg(index_ + 1);
  label_->setText(EscapeAmpersands(caption));
  box_->setAccessibleName(caption);
  bar_->setAccessibleName(caption);
}

void Field::SetOpen(bool open) {
  bar_->SetOpen(open);
  box_->SetOpen(open);
}

void Field::ShowFieldValue(double raw) {
  const double position = std::clamp<double>(raw - row_.offset, row_.minimum, row_.maximum);
  bar_->SetPosition(ToInt32(position));
  const double shown = (position + row_.offset) / PowerOfTen(decimals_);
  box_->Show(FromWestern(FormatMoney(shown, ToByte(decimals_), page_.Services().separators)));
}

void Field::OnBarChange() {
  if (page_.Updating) return;
  const int32_t mirror = row_.mirror == 0 ? 0 : row_.mirror + index_;
  page_.WriteParameterPair(Parameter(), mirror, int64_t{bar_->Position()} + row_.offset);
}

void Field::OnEnter() {
  const Entry entry =
      ParseFieldValue(ToWestern(box_->text()), decimals_, page_.Services().separators);
  switch (entry.kind) {
    case Entry::Kind::kValue:
      field_value_ = entry.value;
      bar_->SetPosition(field_value_ - row_.offset);
      break;
    case Entry::Kind::kRefused:
      box_->Restore();
      break;
    case Entry::Kind::kNotNumeric:
      box_->SetRed();
      page_.Services().dialogs.Show({"Please Insert Only Number ", "Error", kCriticalIcon},
                                    [this](Answer) { box_->Restore(); });
      break;
  }
}

}  // namespace sorvane
