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

void ControlHint::Update() {
  const QString words = words_();
  control_.setToolTip(words);
  control_.setAccessibleDescription(words);
}

bool ControlHint::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::ToolTip || event->type() == QEvent::FocusIn) {
    gate_.Run([this] { Update(); });
  }
  return false;
}

}  // namespace sorvane
