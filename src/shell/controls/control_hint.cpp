#include "shell/controls/control_hint.h"

#include <QEvent>
#include <QWidget>
#include <utility>

#include "shell/gate/program_gate.h"

namespace sorvane {

ControlHint::ControlHint(ProgramGate& gate, QWidget& control, Words words)
    : QObject(&control), gate_(gate), control_(control), words_(std::move(words)) {
  control.installEventFilter(this);
}

void ControlHint::Cover(QWidget& other) { other.installEventFilter(this); }

void ControlHint::Tell(QWidget& control) {
  const QString words = words_();
  control.setToolTip(words);
  control.setAccessibleDescription(words);
}

bool ControlHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip || event->type() == QEvent::FocusIn) {
    gate_.Run([&] { Tell(static_cast<QWidget&>(*watched)); });
  }
  return false;
}

}  // namespace sorvane
