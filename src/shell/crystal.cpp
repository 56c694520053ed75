#include "shell/crystal.h"

#include <QPainter>
#include <QPixmap>

namespace sorvane {

// One shape, so that the strokes don't darken where they meet.
QPainterPath Crystal(double length) {
  QPainterPath arm;
  arm.moveTo(0, 0);
  arm.lineTo(0, -length);
  for (const double at : {0.45, 0.7}) {
    const double branch = length * 0.25 * (1.2 - at);
    arm.moveTo(-branch, -length * at - branch);
    arm.lineTo(0, -length * at);
    arm.lineTo(branch, -length * at - branch);
  }
  QPainterPath crystal;
  for (int i = 0; i < 6; ++i) crystal.addPath(QTransform().rotate(12 + 60 * i).map(arm));

  QPainterPathStroker stroker;
  stroker.setWidth(length / 18);
  stroker.setCapStyle(Qt::RoundCap);
  stroker.setJoinStyle(Qt::RoundJoin);
  return stroker.createStroke(crystal).simplified();
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(28, 94, 146));
    painter.drawRoundedRect(QRectF(0, 0, size, size), size * 0.2, size * 0.2);
    painter.translate(size / 2.0, size / 2.0);
    painter.fillPath(Crystal(size * 0.4), Qt::white);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace sorvane
