#include "pages/settings/frm_imposta.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "board/errors.h"
#include "board/message.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "shell/controls/toggle.h"
#include "shell/page/page_sizes.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr int kSwitchRow = 9;
constexpr const char* kDegrees = "\u00B0C";

// A setting of the board's, with its bar, mirror and limits.
constexpr FieldRow Setting(int i, int32_t parameter, int minimum, int maximum, FieldRow row) {
  row.label = "LabelMess1";
  row.first_label = i;
  row.text = "Text1";
  row.bar = "HScroll1";
  row.first = i;
  row.message = message::kMachineLanguage + i;
  row.parameter = parameter;
  row.mirror = parameter - parameter::kMachineLanguage + parameter::kMachineLanguageMirror;
  row.positions = {.minimum = minimum, .maximum = maximum};
  row.typed.lowest = minimum;
  row.typed.highest = maximum;
  return row;
}

// A number that is typed: it has neither bar nor mirror.
constexpr FieldRow Number(int i, int32_t parameter, int32_t highest, int characters) {
  return {
      .label = "LabelMess1",
      .first_label = i,
      .text = "Text1",
      .first = i,
      .message = message::kMachineLanguage + i,
      .parameter = parameter,
      .on_enter = OnEnter::kWrites,
      .typed = {.lowest = 1, .highest = highest, .characters = characters},
  };
}

constexpr FieldRow kFields[] = {
    Setting(0, parameter::kMachineLanguage, 0, 9,
            {.typed = {.characters = 100}, .focus = FocusRule::kNothing, .locked = true}),
    Setting(1, parameter::kSelections, 5, 10, {.typed = {.characters = 2}}),
    Setting(2, parameter::kMotorTimeout, 50, 250,
            {.form = ValueForm::kTenths,
             .shown = Shown::kAsTheBarTook,
             .typed = {.characters = 4},
             .unit = "s"}),
    Setting(3, parameter::kSetTemperature, 0, 16, {.typed = {.characters = 2}, .unit = kDegrees}),
    Setting(4, parameter::kDeltaTemperature, 1, 5, {.typed = {.characters = 1}, .unit = kDegrees}),
    Setting(5, parameter::kDefrostEvery, 0, 12, {.typed = {.characters = 2}, .unit = "h"}),
    Setting(6, parameter::kDefrostFor, 1, 30, {.typed = {.characters = 2}, .unit = "min"}),
    Number(7, parameter::kMachineNumber, 16777215, 8),
    Number(8, parameter::kLocationNumber, 65535, 5),
};
constexpr int kLanguageField = 0;
constexpr int kNames = 10;

bool IsLanguageName(int32_t index) {
  return index >= parameter::kLanguageNames && index < parameter::kLanguageNames + kNames;
}

}  // namespace

FrmImposta::FrmImposta(const PageServices& services)
    : Page(services, "FrmImposta"),
      fields_(*this, state_),
      switch_label_(AddLabel(ControlName("LabelMess1", kSwitchRow), this)),
      yes_(AddLabel("Label0(0)", this)),
      no_(AddLabel("Label0(1)", this)) {
  fields_.Add(*this, kFields);
  switch_ = new Toggle(Gate(), this);
  switch_->setObjectName("Switch1");
  switch_->on_change = [this] { OnSwitch(); };
  switch_label_->setBuddy(switch_);
  LayOut();
}

void FrmImposta::LayOut() {
  auto* grid = new QGridLayout(this);
  fields_.LayOut(*grid,
                 {.rows_per_column = fields_.Count(), .box_characters = page_size::kNameBox});
  fields_.At(kLanguageField).Box()->setAlignment(Qt::AlignLeft);  // names come with blanks behind
  auto* ends = new QHBoxLayout;
  ends->addWidget(no_);
  ends->addWidget(switch_);
  ends->addWidget(yes_);
  ends->addStretch();
  QWidget::setTabOrder(fields_.At(fields_.Count() - 1).Box(), switch_);  // which stands below it
  grid->addWidget(switch_label_, kSwitchRow, 0);
  grid->addLayout(ends, kSwitchRow, 1, 1, 2);
}

std::vector<int32_t> FrmImposta::WatchedParameters() const {
  std::vector<int32_t> watched;
  for (int32_t k = parameter::kMachineLanguage; k <= parameter::kLocationNumber; ++k) {
    watched.push_back(k);
  }
  for (int32_t k = 0; k < kNames; ++k) watched.push_back(parameter::kLanguageNames + k);
  return watched;
}

void FrmImposta::LoadPageCaptions() {
  fields_.LoadCaptions();
  const QString caption = Message(message::kEqualProducts);
  SetCaption(*switch_label_, caption);
  switch_->setAccessibleName(caption);
  SetCaption(*yes_, Message(message::kYes));
  SetCaption(*no_, Message(message::kNo));
  setWindowTitle(Message(message::kSettings));
}

void FrmImposta::OnReply(const Reply& reply) {
  if (reply.index == parameter::kMachineLanguage) {
    LanguageNumber = ToInt16(reply.Number());
    ShowLanguage();
  } else if (reply.index == parameter::kOptions) {
    switch_->SetChecked((ToInt32(reply.Number()) & option::kEqualProducts) != 0);
  } else if (IsLanguageName(reply.index)) {
    LanguageNames.at(static_cast<std::size_t>(reply.index - parameter::kLanguageNames)) =
        reply.AsText();
    if (IsParameterFresh(parameter::kMachineLanguage)) ShowLanguage();
  } else if (Field* field = fields_.Find(reply.index)) {
    OnNumberReply(*field, reply);
  }
}

void FrmImposta::OnNumberReply(Field& field, const Reply& reply) {
  if (field.GetBar() == nullptr) {
    field.Box()->Show(FromWestern(reply.AsText()));
    return;
  }
  state_.FieldValue = ToInt32(reply.Number());
  field.ShowFieldValue(state_.FieldValue);
}

void FrmImposta::ShowLanguage() {
  for (int k = 0; k < kNames; ++k) {
    if (!IsParameterFresh(parameter::kLanguageNames + k)) return;
  }
  Field& field = fields_.At(kLanguageField);
  field.ShowFieldValue(LanguageNumber);
  const auto number = static_cast<std::size_t>(LanguageNumber);
  if (number >= LanguageNames.size()) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
  field.Box()->Show(FromWestern(LanguageNames.at(number)));
}

void FrmImposta::OnSwitch() {
  if (Updating) return;
  // Built from nothing: the other bits of the options go to 0 with each use of the switch. Boards
  // in the field have been living with it.
  const int32_t value = switch_->IsChecked() ? option::kEqualProducts : 0;
  WriteParameterPair(parameter::kOptions, parameter::kOptionsMirror, value);
}

}  // namespace sorvane
