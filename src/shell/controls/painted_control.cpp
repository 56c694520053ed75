#include "shell/controls/painted_control.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QPen>
#include <QRegion>
#include <QTransform>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "shell/controls/accessibility.h"
#include "shell/controls/focus_keeper.h"

namespace sorvane {

PaintedControl::PaintedControl(QWidget* parent) : QWidget(parent) {
  setContextMenuPolicy(Qt::PreventContextMenu);
  InstallAccessibility();
}

void PaintedControl::SetOpen(bool open) { sorvane::SetOpen(*this, open); }

void PaintedControl::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  if (event->type() == QEvent::EnabledChange) EndPress();
  QWidget::changeEvent(event);
}

void PaintedControl::focusOutEvent(QFocusEvent* event) {
  EndPress();
  QWidget::focusOutEvent(event);
}

void PaintedControl::hideEvent(QHideEvent* event) {
  EndPress();
  QWidget::hideEvent(event);
}

bool PaintedControl::IsCommand(const QKeyEvent& press) {
  return (press.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0;
}

qreal PaintedControl::Unit() const { return QFontMetricsF(font()).height(); }

qreal PaintedControl::Margin() const { return std::max(2.0, std::round(Unit() / 6)); }

void PaintedControl::DrawFocusFrame(QPainter& painter) const {
  if (!hasFocus()) return;
  const qreal width = std::max(1.0, std::round(Unit() / 12));
  painter.setPen(QPen(palette().color(QPalette::Highlight), width));
  painter.setBrush(Qt::NoBrush);
  const QRectF frame = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
  painter.drawRoundedRect(frame, width, width);
}

QColor PaintedControl::Outline() const {
  return Mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.5);
}

QColor PaintedControl::Groove() const {
  return Mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.14);
}

QColor PaintedControl::Accent() const {
  return palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Highlight);
}

QRectF HairlineRect(const QRectF& area) {
  const qreal left = std::ceil(area.left());
  const qreal top = std::ceil(area.top());
  return {left + 0.5, top + 0.5, std::floor(area.right()) - left - 1,
          std::floor(area.bottom()) - top - 1};
}

void DrawBox(QPainter& painter, const QRectF& area, const QColor& line, const QBrush& inside) {
  const QTransform to_screen = painter.deviceTransform();
  const QRectF scaled = to_screen.mapRect(area);
  const QPoint corner(qRound(scaled.left()), qRound(scaled.top()));
  const QRect box(corner, QPoint(qRound(scaled.right()) - 1, qRound(scaled.bottom()) - 1));
  const int width = std::max(1, qFloor(to_screen.m11()));
  const QRect room = box.adjusted(width, width, -width, -width);
  painter.save();
  painter.setTransform(to_screen.inverted(), true);
  for (const QRect& side : QRegion(box).subtracted(room)) painter.fillRect(side, line);
  painter.fillRect(room, inside);
  painter.restore();
}

QColor Mix(const QColor& first, const QColor& second, double share) {
  const auto channel = [share](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * share));
  };
  return {channel(first.red(), second.red()), channel(first.green(), second.green()),
          channel(first.blue(), second.blue())};
}

}  // namespace sorvane
