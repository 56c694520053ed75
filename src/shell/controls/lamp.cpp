#include "shell/controls/lamp.h"

#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "shell/controls/accessibility.h"

namespace sorvane {
namespace {

constexpr int kKinds = 3;
constexpr int kErrorKind = 2;
constexpr int kImages = 2 * kKinds;

const std::array<QColor, kKinds> kLitColors = {QColor(0, 150, 80), QColor(0, 120, 215),
                                               QColor(210, 30, 30)};

// Shapes around a middle at 0, 0 with a radius of 1: transmit points up, receive down, error has
// eight corners.
QPolygonF Shape(int kind) {
  if (kind != kErrorKind) {
    const qreal up = kind == 0 ? -1 : 1;
    return QPolygonF(
        {QPointF(0, 0.85 * up), QPointF(0.95, -0.75 * up), QPointF(-0.95, -0.75 * up)});
  }
  QPolygonF octagon;
  for (int corner = 0; corner < 8; ++corner) {
    const qreal angle = (corner + 0.5) * std::numbers::pi / 4;
    octagon << QPointF(std::cos(angle), std::sin(angle));
  }
  return octagon;
}

}  // namespace

Lamp::Lamp(QWidget* parent) : PaintedControl(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Lamp::SetImage(int image) {
  if (image < 1 || image > kImages || image == image_) return;
  const bool was_lit = IsLit();
  image_ = image;
  update();
  if (IsLit() != was_lit) TellNameChange(*this);
}

bool Lamp::IsLit() const { return image_ > kKinds; }

QSize Lamp::sizeHint() const { return QSizeF(1.5 * Unit(), 1.5 * Unit()).toSize(); }

void Lamp::paintEvent(QPaintEvent*) {
  if (image_ == 0) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int kind = (image_ - 1) % kKinds;
  const qreal radius = std::min(rect().width(), rect().height()) / 2.0 - Margin() / 2;
  painter.translate(QRectF(rect()).center());
  painter.scale(radius, radius);
  const qreal line = std::max(1.2, Unit() / 11) / radius;
  const QColor edge = palette().color(QPalette::WindowText);
  painter.setPen(
      QPen(IsLit() ? edge : Outline(), line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(IsLit() ? QBrush(kLitColors.at(static_cast<std::size_t>(kind)))
                           : QBrush(Qt::NoBrush));
  painter.drawPolygon(Shape(kind));
  if (kind != kErrorKind) return;
  const QColor mark = IsLit() ? QColor(Qt::white) : Outline();
  painter.setPen(QPen(mark, 0.24, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(0, -0.5), QPointF(0, 0.12));
  painter.drawPoint(QPointF(0, 0.52));
}

}  // namespace sorvane
