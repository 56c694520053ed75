#include "pages/settings/frm_orologio.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "board/formats.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/focus_keeper.h"
#include "shell/controls/slider.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/dates.h"

namespace sorvane {
namespace {

constexpr int kTabs = 3;
constexpr int kYearField = 2;
constexpr int kSwitchedOn = 0;  // positions of the switch
constexpr int kSwitchedOff = 1;
constexpr int kMostHours = 23;
constexpr int kMostMinutes = 59;

}  // namespace

std::vector<int32_t> FrmOrologio::WatchedParameters() const {
  std::vector<int32_t> watched;
  for (int32_t k = parameter::kDiscountBands; k < parameter::kPaymentSystem; ++k) {
    watched.push_back(k);
  }
  watched.push_back(parameter::kOptions);
  for (int32_t k = parameter::kUnusedClock; k <= parameter::kClockYear; ++k) watched.push_back(k);
  return watched;
}

void FrmOrologio::Load() {
  tabs_->SetFront(0);
  for (int tab = 0; tab < kTabs; ++tab) tabs_->SetTabOpen(tab, false);
  WatchPageParameters();
  LoadPageCaptions();
}

void FrmOrologio::OnReply(const Reply& reply) {
  switch (reply.index) {
    case parameter::kClockDay:
      OnDayReply(reply);
      break;
    case parameter::kClockMonth:
      ClockMonth = ToByte(reply.Number());
      ShowField(reply);
      break;
    case parameter::kClockYear:
      OnYearReply(reply);
      break;
    case parameter::kClockHours:
      ClockHours = reply.Number();
      ShowField(reply);
      break;
    case parameter::kClockMinutes:
      ClockMinutes = ToInt16(reply.Number());
      ShowField(reply);
      break;
    case parameter::kOptions:
      SwitchFlags = ToByte(reply.Number());
      switch_->SetPosition((SwitchFlags & option::kOnOffTimes) != 0 ? kSwitchedOn : kSwitchedOff);
      break;
    default:
      ShowField(reply);
  }
}

void FrmOrologio::ShowField(const Reply& reply) {
  for (FieldGroup* group : {&clock_, &bands_, &on_off_}) {
    if (Field* field = group->Find(reply.index)) field->ShowFieldValue(reply.Number());
  }
}

void FrmOrologio::OnDayReply(const Reply& reply) {
  ClockDay = ToInt16(reply.Number());
  ShowField(reply);
  ProbeBoardClock(ClockDay);
}

void FrmOrologio::OnYearReply(const Reply& reply) {
  ClockYear = reply.Number() + 2000;
  ShowField(reply);
  // The text alone: the saved text keeps the two digits.
  clock_.At(kYearField).Box()->SetText(QString::number(ClockYear));
}

void FrmOrologio::ProbeBoardClock(int16_t day) {
  if (ProbeStart) {
    SavedDay = day;
    ProbeStart = false;
    WriteParameterPair(parameter::kClockDay, 0, 0);
  } else if (ProbeCheck && day == SavedDay) {
    // The board hasn't taken the write. Each further reply of the day tries again.
    CloseClockPage();
    ClockFitted = false;
  } else if (ProbeCheck) {
    OpenClockPage();
    WriteParameterPair(parameter::kClockDay, 0, SavedDay);
    ClockFitted = true;
    ProbeCheck = false;
  }
}

void FrmOrologio::OpenClockPage() {
  for (int tab = 0; tab < kTabs; ++tab) tabs_->SetTabOpen(tab, true);
  SetControlsOpen(true);
}

void FrmOrologio::CloseClockPage() { SetControlsOpen(false); }

void FrmOrologio::SetControlsOpen(bool open) {
  SetOpen(*frame_, open);
  SetOpen(*face_, open);
  SetOpen(*copy_, open);
  SetOpen(*switch_, open);
  for (FieldGroup* group : {&clock_, &bands_, &on_off_}) group->SetOpen(open);
}

void FrmOrologio::AfterReply() {
  if (!ClockFitted) return;
  ShowTime();
  ShowDate();
}

void FrmOrologio::ShowTime() {
  if (!IsParameterFresh(parameter::kClockHours)) return;
  if (!IsParameterFresh(parameter::kClockMinutes)) return;
  if (ClockHours > kMostHours || ClockMinutes > kMostMinutes) return;
  face_->SetTime(ToInt32(ClockHours), ClockMinutes);
}

void FrmOrologio::ShowDate() {
  for (int32_t k = parameter::kClockDay; k <= parameter::kClockYear; ++k) {
    if (!IsParameterFresh(k)) return;
  }
  const int32_t day_number = DayNumber(ClockDay, ClockMonth, ToInt16(ClockYear));
  date_->setText(DateOf(day_number).toString("dd/MM/yyyy"));
}

void FrmOrologio::CopyPcTime() {
  // Each part comes from a reading of its own, so that what is written may straddle midnight.
  const auto now = [this] { return Services().now(); };
  WriteParameterPair(parameter::kClockMinutes, 0, now().time().minute());
  WriteParameterPair(parameter::kClockHours, 0, now().time().hour());
  WriteParameterPair(parameter::kClockDay, 0, now().date().day());
  WriteParameterPair(parameter::kClockMonth, 0, now().date().month());
  WriteParameterPair(parameter::kClockYear, 0, now().date().year() % 100);
}

void FrmOrologio::OnSwitch() {
  if (Updating) return;
  // The other option bits belong to other pages and go back as they came.
  const int32_t value = switch_->Position() == kSwitchedOn ? SwitchFlags | option::kOnOffTimes
                                                           : SwitchFlags & ~option::kOnOffTimes;
  WriteParameterPair(parameter::kOptions, parameter::kOptionsMirror, value);
}

}  // namespace sorvane
