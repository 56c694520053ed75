#pragma once

#include <QString>

#include "shell/controls/painted_control.h"

namespace sorvane {

// A display of hours and minutes in seven segments. It shows no time until it is given one.
class ClockFace : public PaintedControl {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text)

 public:
  explicit ClockFace(QWidget* parent);

  // hours 0 to 23, minutes 0 to 59. Throws RuntimeError kInvalidPropertyValue outside, with the
  // time that is shown left as it is.
  void SetTime(int hours, int minutes);

  // "HH:MM", or empty while no time is shown.
  const QString& Text() const { return text_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

}  // namespace sorvane
