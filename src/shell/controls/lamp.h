#pragma once

#include "shell/controls/painted_control.h"

namespace sorvane {

// One lamp of the status bar. It shows one of six images: the transmit, receive and error lamp at
// rest (1, 2, 3), and the same three lit (4, 5, 6). Each of the three has a shape of its own and is
// hollow at rest and filled when lit, so that no colour is needed to tell them apart.
class Lamp : public PaintedControl {
  Q_OBJECT
  Q_PROPERTY(int Tag READ Tag)

 public:
  // Shows nothing until SetImage.
  explicit Lamp(QWidget* parent);

  // Any image outside 1 to 6, and the one that is shown, does nothing.
  void SetImage(int image);

  // The image that is shown; 0 at first.
  int Tag() const { return image_; }
  bool IsLit() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int image_ = 0;
};

}  // namespace sorvane
