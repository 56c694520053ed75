#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "shell/controls/bar.h"

namespace sorvane {

QSize Bar::sizeHint() const { return QSizeF(14 * Unit(), 1.1 * Unit() + 2 * Margin()).toSize(); }

QSize Bar::minimumSizeHint() const { return {static_cast<int>(5 * Unit()), sizeHint().height()}; }

Bar::Layout Bar::LayOut(int shown) const {
  const qreal margin = Margin();
  const QRectF area = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
  const qreal button = std::floor(std::min(area.height(), area.width() / 4));
  const qreal room = area.width() - 2 * button;
  const int span = maximum_ - minimum_;
  // One size on every bar: it tells the value, not how much of a range is in view.
  const qreal thumb = std::round(std::min(button, room / 2));
  // Lower than the rest, so that a click that misses a button hits nothing.
  const qreal above = std::round(area.height() / 4);
  const qreal offset = span == 0 ? 0 : std::round((room - thumb) * (shown - minimum_) / span);

  Layout layout;
  layout.less = QRectF(area.left(), area.top(), button, area.height());
  layout.trough = QRectF(layout.less.right(), area.top() + above, room, area.height() - 2 * above);
  layout.more = QRectF(layout.trough.right(), area.top(), button, area.height());
  layout.thumb = QRectF(layout.trough.left() + offset, area.top(), thumb, area.height());
  return layout;
}

void Bar::DrawButton(QPainter& painter, const QRectF& area, Part part, int direction) const {
  const QColor face = palette().color(QPalette::Button);
  DrawBox(painter, area, Outline(), pressed_ == part ? Mix(face, Accent(), 0.5) : face);
  const qreal size = area.height() / 5 * direction;
  const QPointF middle = area.center();
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::ButtonText));
  painter.drawPolygon(
      QPolygonF({middle + QPointF(size * 0.7, 0), middle + QPointF(-size * 0.5, -size),
                 middle + QPointF(-size * 0.5, size)}));
}

void Bar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Layout layout = LayOut(ShownPosition());
  DrawBox(painter, layout.trough.adjusted(-1, 0, 1, 0), Outline(), Groove());
  DrawButton(painter, layout.less, Part::kLess, -1);
  DrawButton(painter, layout.more, Part::kMore, 1);

  const QColor face = palette().color(QPalette::Button);
  DrawBox(painter, layout.thumb.adjusted(-1, 0, 1, 0), Outline(),  // shares the edge of a button
          pressed_ == Part::kThumb ? Mix(face, Accent(), 0.5) : face);
  painter.setPen(QPen(Outline(), 1));
  const QPointF middle = layout.thumb.center();
  const qreal grip = std::round(layout.thumb.height() / 5);
  for (const int line : {-1, 0, 1}) {  // the grip, which tells the thumb from the trough
    const qreal x = std::floor(middle.x()) + line * std::round(Unit() / 6) + 0.5;
    painter.drawLine(QPointF(x, middle.y() - grip), QPointF(x, middle.y() + grip));
  }
  DrawFocusFrame(painter);
}

}  // namespace sorvane
