#include "pages/settings/frm_password.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <chrono>
#include <numeric>

#include "board/errors.h"
#include "board/message.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "shell/controls/control_hint.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/toggle.h"
#include "shell/page/page_sizes.h"

namespace sorvane {
namespace {

constexpr const char* kTitle = "Password";
constexpr double kHalfASecond = 0.5;
constexpr std::chrono::milliseconds kTick{20};

}  // namespace

FrmPassword::FrmPassword(const PageServices& services)
    : Page(services, "FrmPassword"),
      switch_(new Toggle(Gate(), this)),
      switch_caption_(AddLabel("LabelMess1(0)", this)),
      left_(AddLabel("Label1(0)", this)),
      right_(AddLabel("Label1(1)", this)),
      digits_caption_(AddLabel("LabelMess1(1)", this)),
      note_(AddLabel("Label1(2)", this)),
      tick_(services, kTick, [this] { GoOnConfirming(); }) {
  setWindowTitle(kTitle);
  switch_caption_->setText(kTitle);
  digits_caption_->setText(kTitle);
  switch_->setObjectName("iSwitchToggleX1");
  switch_->setAccessibleName(kTitle);
  // The captions at its ends say yes on the left.
  switch_->SetOnAtLeft();
  switch_->on_change = [this] { OnSwitch(); };
  AddDigits();
  LayOut();
}

void FrmPassword::AddDigits() {
  for (int i = 0; i < kDigits; ++i) {
    auto* box = new EntryBox(Gate(), this);
    box->setObjectName(ControlName("Text1", i));
    box->setAccessibleName(QString("%1 %2").arg(kTitle).arg(i + 1));
    box->SetCharacterLimit(1);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(page_size::Pixels(page_size::kDigitBox, *this));
    box->on_enter = [this, i] { OnEnter(i); };
    auto* hint = new ControlHint(Gate(), *box, [this, box] {
      const QString digits = "0 \u2013 9";
      return box->IsConfirmed() ? digits : digits + '\n' + HintOf(Hint::kNotConfirmed);
    });
    box->on_standing = [hint] { hint->Update(); };
    digits_.at(static_cast<std::size_t>(i)) = box;
  }
}

void FrmPassword::LayOut() {
  auto* ends = new QHBoxLayout;
  for (QWidget* control : {static_cast<QWidget*>(left_), static_cast<QWidget*>(switch_),
                           static_cast<QWidget*>(right_)}) {
    ends->addWidget(control);
  }
  ends->addStretch();
  auto* digits = new QHBoxLayout;
  for (EntryBox* box : digits_) digits->addWidget(box);
  digits->addStretch();
  auto* grid = new QGridLayout(this);
  grid->setColumnStretch(1, 1);
  grid->addWidget(switch_caption_, 0, 0);
  grid->addLayout(ends, 0, 1);
  grid->addWidget(digits_caption_, 1, 0);
  grid->addLayout(digits, 1, 1);
  grid->addWidget(note_, 2, 0, 1, 2);
}

std::vector<int32_t> FrmPassword::WatchedParameters() const {
  std::vector<int32_t> watched(kDigits);
  std::iota(watched.begin(), watched.end(), parameter::kPasswordDigits);
  watched.push_back(parameter::kOptions);
  return watched;
}

void FrmPassword::Load() {
  WatchPageParameters();
  LoadPageCaptions();
}

void FrmPassword::LoadPageCaptions() {
  SetCaption(*left_, Message(message::kYes));
  SetCaption(*right_, Message(message::kNo));
  SetCaption(*note_, Message(message::kPasswordNote));
}

void FrmPassword::OnReply(const Reply& reply) {
  const int32_t digit = reply.index - parameter::kPasswordDigits;
  if (digit >= 0 && digit < kDigits) {
    const int16_t value = ToInt16(reply.Number());
    digits_.at(static_cast<std::size_t>(digit))->Show(QString::number(value));
  } else if (reply.index == parameter::kOptions) {
    switch_->SetChecked((ToInt32(reply.Number()) & option::kPassword) != 0);
  }
}

void FrmPassword::OnSwitch() {
  if (Updating) return;
  // Built from nothing: the other bits of the options go to 0 with each use of the switch. Boards
  // in the field have been living with it.
  const int32_t value = switch_->IsChecked() ? option::kPassword : 0;
  WriteParameterPair(parameter::kOptions, parameter::kOptionsMirror, value);
}

void FrmPassword::OnEnter(int digit) {
  EntryBox& box = *digits_.at(static_cast<std::size_t>(digit));
  const Entry entry = ParseWholeValue(box.text().toStdU16String(), Services().separators);
  if (entry.kind != Entry::Kind::kValue) {
    Refuse(box, entry.kind);
    return;
  }
  confirmations_.push_back({digit, SecondsSinceMidnight() + kHalfASecond});
  box.SetGreen();
  tick_.Start();
}

double FrmPassword::SecondsSinceMidnight() const {
  return Services().now().time().msecsSinceStartOfDay() / 1000.0;
}

void FrmPassword::GoOnConfirming() {
  while (!confirmations_.empty() && SecondsSinceMidnight() >= confirmations_.back().mark) {
    const int digit = confirmations_.back().digit;
    confirmations_.pop_back();
    WriteDigit(digit);
  }
  if (confirmations_.empty()) {
    tick_.Stop();
  } else {
    digits_.at(static_cast<std::size_t>(confirmations_.back().digit))->SetGreen();
  }
}

void FrmPassword::WriteDigit(int digit) {
  EntryBox& box = *digits_.at(static_cast<std::size_t>(digit));
  // The field is read now: a reply or the user may have changed it meanwhile.
  const Entry entry = ParseWholeValue(box.text().toStdU16String(), Services().separators);
  if (entry.kind != Entry::Kind::kValue) throw RuntimeError(ErrorCode::kTypeMismatch);
  WriteParameterPair(parameter::kPasswordDigits + digit, parameter::kPasswordDigitsMirror + digit,
                     ToInt16(entry.value));
  box.SetWhite();
}

}  // namespace sorvane
