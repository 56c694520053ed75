#pragma once

#include <array>

class QLabel;
class QStatusBar;

namespace sorvane {

class Lamp;
class LinkLamps;

// The four panels of the frame's status bar: a text that takes up the free width, right-aligned,
// and three lamps, which InitStatusPanels adds. They show what LinkLamps tells.
class StatusPanels {
 public:
  explicit StatusPanels(QStatusBar& bar);

  void InitStatusPanels(LinkLamps& lamps);

 private:
  QStatusBar& bar_;
  QLabel* text_;
  std::array<Lamp*, 3> lamps_{};
};

}  // namespace sorvane
