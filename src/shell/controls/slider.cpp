#include "shell/controls/slider.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "board/errors.h"
#include "shell/controls/accessibility.h"
#include "shell/gate/program_gate.h"

namespace sorvane {

Slider::Slider(ProgramGate& gate, QWidget* parent)
    : PaintedControl(parent), gate_(gate), labels_({QString()}) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Slider::SetLabels(const QString& labels) {
  QStringList names = labels.split(',');
  if (position_ >= names.size()) throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  for (QString& name : names) name = name.trimmed();
  labels_ = names;
  updateGeometry();
  update();
}

void Slider::SetPosition(int position) {
  if (position < 0 || position > LastPosition()) {
    throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  }
  if (position == position_) return;
  position_ = position;
  update();
  TellValueChange(*this, position);
  if (on_change) on_change();
}

void Slider::MoveByUser(int position) {
  if (!isEnabled()) return;
  gate_.Run([this, position] { SetPosition(std::clamp(position, 0, LastPosition())); });
}

void Slider::keyPressEvent(QKeyEvent* event) {
  if (IsCommand(*event)) {
    PaintedControl::keyPressEvent(event);
    return;
  }
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      return MoveByUser(position_ - 1);
    case Qt::Key_Right:
    case Qt::Key_Down:
      return MoveByUser(position_ + 1);
    case Qt::Key_Home:
      return MoveByUser(0);
    case Qt::Key_End:
      return MoveByUser(LastPosition());
    default:
      PaintedControl::keyPressEvent(event);
  }
}

void Slider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragged_ = NearestPosition(event->position().x());
  update();
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
  if (dragged_ < 0) return;
  dragged_ = NearestPosition(event->position().x());
  update();
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || dragged_ < 0) return;
  EndPress();
  MoveByUser(NearestPosition(event->position().x()));
}

void Slider::EndPress() {
  dragged_ = -1;
  update();
}

qreal Slider::CellWidth() const { return (rect().width() - 2 * Margin()) / labels_.size(); }

int Slider::NearestPosition(qreal x) const {
  const int cell = static_cast<int>(std::floor((x - Margin()) / CellWidth()));
  return std::clamp(cell, 0, LastPosition());
}

QSize Slider::sizeHint() const {
  qreal widest = 2 * Unit();
  const QFontMetricsF metrics(font());
  for (const QString& name : labels_) {
    widest = std::max(widest, metrics.horizontalAdvance(name) + Unit());
  }
  return QSizeF(widest * labels_.size() + 2 * Margin(), 2.2 * Unit() + 2 * Margin()).toSize();
}

void Slider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal cell = CellWidth();
  const qreal line = std::round(Margin() + 0.5 * Unit());
  const auto stop = [this, cell, line](int position) {
    return QPointF(std::round(Margin() + (position + 0.5) * cell), line);
  };
  const QFontMetricsF metrics(font());

  const qreal groove = std::max(2.0, std::round(Unit() / 10));
  painter.setPen(QPen(Outline(), 1));
  painter.setBrush(Groove());
  painter.drawRect(HairlineRect(
      QRectF(stop(0) - QPointF(groove, groove), stop(LastPosition()) + QPointF(groove, groove))));
  for (int position = 0; position <= LastPosition(); ++position) {
    painter.setPen(QPen(Outline(), 1));
    painter.setBrush(Groove());
    painter.drawEllipse(stop(position), 1.6 * groove, 1.6 * groove);
    const QRectF area(Margin() + position * cell, Margin() + 1.1 * Unit(), cell, 1.1 * Unit());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(area, Qt::AlignCenter,
                     metrics.elidedText(labels_[position], Qt::ElideRight, cell));
  }
  painter.setPen(QPen(Outline(), 1));
  painter.setBrush(Accent());
  const qreal knob = 0.45 * Unit();
  painter.drawEllipse(stop(dragged_ < 0 ? position_ : dragged_), knob, knob);
  DrawFocusFrame(painter);
}

}  // namespace sorvane
