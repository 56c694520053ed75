#pragma once

#include <QList>
#include <cstdint>
#include <vector>

#include "shell/page/field_group.h"
#include "shell/page/page.h"

class QGridLayout;
class QGroupBox;
class QPushButton;

namespace sorvane {

class ClockFace;
class Slider;
class TabPages;

// The board's clock, the two daily discount bands, and the daily times of switching on and off.
//
// Not every board has a clock. The page finds out by writing day 0, which no clock holds for long:
// it opens only if the board's day changes by that, and then puts the real day back.
class FrmOrologio : public Page {
 public:
  explicit FrmOrologio(const PageServices& services);

  void Load() override;

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;
  void AfterReply() override;

 private:
  void AddClockTab();
  void AddBandsTab();
  void AddOnOffTab();
  // One time of the day: hours and minutes side by side, each behind its unit.
  void LayOutTime(QGridLayout& grid, int row, FieldGroup& times, QLabel* hours, QLabel* minutes);
  void LoadBandCaptions();
  void LoadOnOffCaptions();

  void OnDayReply(const Reply& reply);
  void OnYearReply(const Reply& reply);
  void ShowField(const Reply& reply);
  void ProbeBoardClock(int16_t day);
  void OpenClockPage();
  void CloseClockPage();
  void SetControlsOpen(bool open);
  void ShowTime();
  void ShowDate();

  void CopyPcTime();
  void OnSwitch();

  bool ClockFitted = false;  // the probe has succeeded
  bool ProbeStart = true;    // the first reply of the day is still to come
  bool ProbeCheck = true;    // the result of the probe is still to come
  int16_t SavedDay = 0;      // what the board had before the probe
  int16_t ClockDay = 0;      // these five as last delivered
  uint8_t ClockMonth = 0;
  int64_t ClockYear = 0;  // plus 2000
  int64_t ClockHours = 0;
  int16_t ClockMinutes = 0;
  uint8_t SwitchFlags = 0;  // the option bits as last delivered

  FieldState state_;
  TabPages* tabs_;
  FieldGroup clock_;
  FieldGroup bands_;
  FieldGroup on_off_;
  QGroupBox* frame_ = nullptr;
  ClockFace* face_ = nullptr;
  QLabel* date_ = nullptr;
  QPushButton* copy_ = nullptr;
  QList<QLabel*> band_labels_;    // LabelMes2
  QList<QLabel*> on_off_labels_;  // Label2
  QList<QLabel*> unit_labels_;    // LabelMes3
  Slider* switch_ = nullptr;
  QLabel* switch_label_ = nullptr;
};

}  // namespace sorvane
