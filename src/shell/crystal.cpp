#include "shell/crystal.h"

#include <QPainter>
#include <QPixmap>
#include <algorithm>

namespace sorvane {
namespace {

// Adds a pair of branches to an arm that points up from the origin.
void AddBranches(QPainterPath& arm, double at, double branch) {
  arm.moveTo(-branch, -at - branch);
  arm.lineTo(0, -at);
  arm.lineTo(branch, -at - branch);
}

// Six arms as one shape, so that the strokes don't darken where they meet.
QPainterPath SixArms(const QPainterPath& arm, double turn, double width) {
  QPainterPath crystal;
  for (int i = 0; i < 6; ++i) crystal.addPath(QTransform().rotate(turn + 60 * i).map(arm));

  QPainterPathStroker stroker;
  stroker.setWidth(width);
  stroker.setCapStyle(Qt::RoundCap);
  stroker.setJoinStyle(Qt::RoundJoin);
  return stroker.createStroke(crystal).simplified();
}

// The sign as few and broad lines, upright: thin ones at a slant are lost on a small icon, and on
// the smallest there is no room for branches.
QPainterPath IconCrystal(int size) {
  const double length = size * 0.42;
  QPainterPath arm;
  arm.lineTo(0, -length);
  if (size > 16) AddBranches(arm, length * 0.52, length * 0.29);
  return SixArms(arm, 0, std::max(2.0, size / 16.0));
}

}  // namespace

QPainterPath Crystal(double length) {
  QPainterPath arm;
  arm.lineTo(0, -length);
  for (const double at : {0.45, 0.7}) AddBranches(arm, length * at, length * 0.25 * (1.2 - at));
  return SixArms(arm, 12, length / 18);
}

QImage IconImage(int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(28, 94, 146));
  painter.drawRoundedRect(QRectF(0, 0, size, size), size * 0.2, size * 0.2);
  painter.translate(size / 2.0, size / 2.0);
  painter.fillPath(IconCrystal(size), Qt::white);
  return image;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : kIconSizes) icon.addPixmap(QPixmap::fromImage(IconImage(size)));
  return icon;
}

}  // namespace sorvane
