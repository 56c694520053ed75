#pragma once

#include <array>
#include <functional>

class QLabel;
class QStatusBar;

namespace sorvane {

class Lamp;
class LinkLamps;
class ProgramGate;

// The four panels of the frame's status bar: a text that takes up the free width, right-aligned,
// and three lamps, which InitStatusPanels adds. They show what LinkLamps tells.
class StatusPanels {
 public:
  // italian tells whether the lamps are to explain themselves in that language.
  StatusPanels(ProgramGate& gate, QStatusBar& bar, std::function<bool()> italian);

  void InitStatusPanels(LinkLamps& lamps);

 private:
  ProgramGate& gate_;
  QStatusBar& bar_;
  QLabel* text_;
  std::function<bool()> italian_;
  std::array<Lamp*, 3> lamps_{};
};

}  // namespace sorvane
