#include "pages/settings/flag_switches.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "shell/controls/toggle.h"
#include "shell/page/page.h"

namespace sorvane {

FlagSwitches::FlagSwitches(Page& page, int32_t parameter, int32_t mirror, int16_t& flags)
    : page_(page), parameter_(parameter), mirror_(mirror), flags_(flags) {}

void FlagSwitches::Add(QWidget& parent, const FlagRow& row) {
  auto* toggle = new Toggle(page_.Gate(), &parent);
  toggle->setObjectName(ControlName(row.toggle, row.index));
  toggle->on_change = [this, toggle, mask = row.mask] { OnChange(*toggle, mask); };
  QLabel* label = page_.AddLabel(ControlName("LabelMess1", row.label), &parent);
  label->setBuddy(toggle);
  switches_.push_back({row, label, toggle});
}

void FlagSwitches::LoadCaptions() {
  for (const Added& one : switches_) {
    QString caption = one.row.message == 0 ? QString(one.row.text) : page_.Message(one.row.message);
    if (one.row.number != 0) caption += QString(" %1").arg(one.row.number);
    Page::SetCaption(*one.label, caption);
    one.toggle->setAccessibleName(caption);
  }
}

void FlagSwitches::ShowFlags(int16_t flags) {
  flags_ = flags;
  for (const Added& one : switches_) one.toggle->SetChecked((flags & one.row.mask) != 0);
}

void FlagSwitches::OnChange(const Toggle& toggle, int mask) {
  if (page_.Updating) return;
  flags_ = static_cast<int16_t>(toggle.IsChecked() ? flags_ | mask : flags_ & ~mask);
  page_.WriteParameterPair(parameter_, mirror_, flags_);
}

void FlagSwitches::LayOut(QGridLayout& grid, const Span& span, QLabel* no, QLabel* yes) {
  auto* heads = new QHBoxLayout;
  heads->setSpacing(0);
  heads->addWidget(no);
  heads->addStretch();
  heads->addWidget(yes);
  grid.addLayout(heads, 0, 1);
  grid.setColumnStretch(2, 1);  // an empty one, so that the heads stay over their switches
  for (int i = 0; i < span.count; ++i) {
    const Added& one = switches_.at(span.first + i);
    grid.addWidget(one.label, i + 1, 0);
    grid.addWidget(one.toggle, i + 1, 1, Qt::AlignHCenter);
  }
}

}  // namespace sorvane
