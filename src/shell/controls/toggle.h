#pragma once

#include <functional>

#include "shell/controls/painted_control.h"

namespace sorvane {

class ProgramGate;

// A switch with two states, drawn as a knob that stands at the right when it is on and at the left
// when it is off, or the other way round. A click anywhere on it, Space and Enter turn it over.
class Toggle : public PaintedControl {
  Q_OBJECT
  Q_PROPERTY(bool checked READ IsChecked)

 public:
  // Off at first.
  Toggle(ProgramGate& gate, QWidget* parent);

  // The state has changed, by the user or by the program. By the program it is a plain call within
  // SetChecked, and what it throws goes to the caller.
  std::function<void()> on_change;

  // Has the knob stand at the left when the switch is on, for captions at its ends that say so.
  void SetOnAtLeft() { on_at_left_ = true; }

  bool IsChecked() const { return checked_; }
  void SetChecked(bool checked);

  // The user's change, entered through the gate. A closed switch stays as it is.
  void TurnOverByUser();

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void EndPress() override;

 private:
  ProgramGate& gate_;
  bool on_at_left_ = false;
  bool checked_ = false;
  bool pressed_ = false;
};

}  // namespace sorvane
