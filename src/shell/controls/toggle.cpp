#include "shell/controls/toggle.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "shell/controls/accessibility.h"
#include "shell/gate/program_gate.h"

namespace sorvane {

Toggle::Toggle(ProgramGate& gate, QWidget* parent) : PaintedControl(parent), gate_(gate) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Toggle::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  update();
  TellCheckChange(*this);
  if (on_change) on_change();
}

void Toggle::TurnOverByUser() {
  if (!isEnabled()) return;
  gate_.Run([this] { SetChecked(!checked_); });
}

void Toggle::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) {
    PaintedControl::keyPressEvent(event);
    return;
  }
  if (!event->isAutoRepeat()) TurnOverByUser();
}

void Toggle::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pressed_ = true;
}

void Toggle::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) return;
  EndPress();
  if (rect().contains(event->position().toPoint())) TurnOverByUser();
}

void Toggle::EndPress() { pressed_ = false; }

QSize Toggle::sizeHint() const {
  const qreal height = 1.1 * Unit();
  return QSizeF(2 * height + 2 * Margin(), height + 2 * Margin()).toSize();
}

void Toggle::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal height = std::floor(std::min(1.1 * Unit(), rect().height() - 2 * Margin()));
  QRectF body(0, 0, std::floor(std::min(2 * height, rect().width() - 2 * Margin())), height);
  body.moveCenter(QRectF(rect()).center());
  body = HairlineRect(body);
  const qreal radius = body.height() / 2;
  painter.setPen(QPen(Outline(), 1));
  painter.setBrush(checked_ ? Accent() : Groove());
  painter.drawRoundedRect(body, radius, radius);

  const qreal knob = radius - std::max(2.0, Unit() / 8);
  const QPointF left(body.left() + radius, body.center().y());
  const QPointF right(body.right() - radius, body.center().y());
  painter.setPen(checked_ ? QPen(Qt::NoPen) : QPen(Outline(), 1));
  painter.setBrush(palette().color(checked_ ? QPalette::HighlightedText : QPalette::Button));
  painter.drawEllipse(checked_ != on_at_left_ ? right : left, knob, knob);
  DrawFocusFrame(painter);
}

}  // namespace sorvane
