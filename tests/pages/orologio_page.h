#pragma once

#include "pages/tabbed_page.h"

namespace sorvane::test {

// The clock page over a board whose clock stands at 10:30 on 5 March 2026. The discount bands run
// from 8:15 to 9:45 and from 18:05 to 20:50, the machine is on from 6:10 to 22:40, and the option
// bits are 229, which leaves the bit of switching on and off (8) clear.
class OrologioPage : public TabbedPageTest {
 protected:
  OrologioPage() : TabbedPageTest("FrmOrologio", "MnuOrologio", kPoint) {
    const auto hold = [this](int first, const std::vector<std::uint32_t>& values) {
      for (const std::uint32_t value : values) program.link.SetBoardNumber(first++, value);
    };
    hold(3, {229});
    hold(53, {99, 10, 30, 5, 3, 26});
    hold(59, {8, 15, 9, 45, 18, 5, 20, 50});
    hold(67, {6, 10, 22, 40});
  }

  // The page with tab 0, 1 or 2 in front, after the board has taken the trial of its clock.
  void OpenOn(int tab) {
    Open();
    Tabs("SSTab1").SetFront(tab);
  }

  QString Face() { return Property("iSevenSegmentClockX1", "text").toString(); }
  QString Date() { return Caption("Label0"); }
  int Slide() { return Property("iSwitchSliderX1", "position").toInt(); }
};

}  // namespace sorvane::test
