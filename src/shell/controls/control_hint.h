#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QWidget;

namespace sorvane {

class ProgramGate;

// Has a control explain itself: by a tool tip to the mouse, closed controls included, and by a
// description to a screen reader. The words are asked for when the mouse rests on the control and
// when it gets the focus, so that they may depend on anything. A child of the control.
class ControlHint : public QObject {
 public:
  using Words = std::function<QString()>;  // lines; empty where there is nothing to say

  ControlHint(ProgramGate& gate, QWidget& control, Words words);

  // Has another control explain itself by the same words; it must live as long.
  void Cover(QWidget& other);

  // The words have changed while the control may be looked at.
  void Update() { Tell(control_); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Tell(QWidget& control);

  ProgramGate& gate_;
  QWidget& control_;
  Words words_;
};

}  // namespace sorvane
