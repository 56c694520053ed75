#include "shell/frame/crystal.h"

#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace sorvane {
namespace {

// Adds a pair of branches to an arm that points up from the origin.
void AddBranches(QList<QLineF>& arm, double at, double branch) {
  for (const double side : {-branch, branch}) arm.append(QLineF(side, -at - branch, 0, -at));
}

// Turns an arm into six. Each line is drawn by itself: one shape of them all, with hundreds of
// edges side by side, would take the painter most of the program's start.
void DrawArms(QPainter& painter, const QList<QLineF>& arm, double turn, const QPen& pen) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.rotate(turn);
  for (int i = 0; i < 6; ++i) {
    painter.drawLines(arm);
    painter.rotate(60);
  }
}

QPen RoundPen(double width) { return QPen(Qt::white, width, Qt::SolidLine, Qt::RoundCap); }

// The sign as few and broad lines, upright: thin ones at a slant are lost on a small icon.
void DrawIconCrystal(QPainter& painter, int size) {
  const double length = size * 0.42;
  QList<QLineF> arm = {QLineF(0, 0, 0, -length)};
  AddBranches(arm, length * 0.52, length * 0.29);
  DrawArms(painter, arm, 0, RoundPen(std::max(2.0, size / 16.0)));
}

// The smallest has no room for six arms that meet: they would read as an asterisk, the sign of
// unsaved work. They stand around a hollow middle.
void DrawSmallIconCrystal(QPainter& painter, int size) {
  const double middle = size * 0.19;
  QList<QLineF> arm = {QLineF(0, -middle, 0, -size * 0.44)};
  AddBranches(arm, size * 0.275, size * 0.125);
  arm.append(QLineF(0, -middle, middle * std::sqrt(0.75), -middle / 2));  // to the next arm
  DrawArms(painter, arm, 0, RoundPen(size * 0.075));
}

}  // namespace

void DrawCrystal(QPainter& painter, double length) {
  QList<QLineF> arm = {QLineF(0, 0, 0, -length)};
  for (const double at : {0.45, 0.7}) AddBranches(arm, length * at, length * 0.25 * (1.2 - at));
  DrawArms(painter, arm, 12, RoundPen(length / 18));
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
  if (size > kIconSizes[0]) {
    DrawIconCrystal(painter, size);
  } else {
    DrawSmallIconCrystal(painter, size);
  }
  return image;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : kIconSizes) icon.addPixmap(QPixmap::fromImage(IconImage(size)));
  return icon;
}

}  // namespace sorvane
