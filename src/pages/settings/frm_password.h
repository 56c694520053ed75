#pragma once

#include <array>
#include <vector>

#include "shell/page/page.h"
#include "shell/page/page_timer.h"

namespace sorvane {

class EntryBox;
class Toggle;

// The machine's password: four digits and a switch that turns it on.
class FrmPassword : public Page {
 public:
  explicit FrmPassword(const PageServices& services);

  void Load() override;

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

 private:
  static constexpr int kDigits = 4;

  // An accepted digit is confirmed by half a second in green, and only then written. Enter in a
  // field meanwhile begins another half second, which the earlier one waits for.
  struct Confirmation {
    int digit;
    double mark;  // the seconds since midnight that end it
  };

  void AddDigits();
  void LayOut();
  void OnEnter(int digit);
  void OnSwitch();
  double SecondsSinceMidnight() const;
  // Ends all confirmations whose mark has come, the latest begun first, and keeps the field of the
  // one that goes on green. A mark beyond midnight never comes.
  void GoOnConfirming();
  void WriteDigit(int digit);

  std::array<EntryBox*, kDigits> digits_{};
  Toggle* switch_;
  QLabel* switch_caption_;
  QLabel* left_;
  QLabel* right_;
  QLabel* digits_caption_;
  QLabel* note_;
  std::vector<Confirmation> confirmations_;
  PageTimer tick_;
};

}  // namespace sorvane
