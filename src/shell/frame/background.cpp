#include "shell/frame/background.h"

#include <QLinearGradient>
#include <QPainter>
#include <QtMath>
#include <algorithm>

#include "shell/frame/crystal.h"

namespace sorvane {
Background::Background(QWidget* parent) : QMdiArea(parent) {
  setObjectName("MDIBackground1");
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setBackground(Qt::NoBrush);
}

void Background::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QColor base = palette().color(QPalette::Window);
  const bool dark = base.lightness() < 128;
  QLinearGradient sky(0, 0, 0, viewport()->height());
  sky.setColorAt(0, dark ? QColor(30, 40, 52) : QColor(214, 228, 238));
  sky.setColorAt(1, dark ? QColor(18, 24, 32) : QColor(176, 200, 216));
  painter.fillRect(viewport()->rect(), sky);

  const double length = std::min(viewport()->width(), viewport()->height()) * 0.32;
  ShapeCrystal(length);
  const QPointF middle(viewport()->width() * 0.78, viewport()->height() * 0.62);
  const QSizeF size = crystal_.deviceIndependentSize();
  painter.setOpacity(dark ? 0.09 : 0.47);
  painter.drawImage((middle - QPointF(size.width(), size.height()) / 2).toPoint(), crystal_);
}

void Background::ShapeCrystal(double length) {
  const double ratio = devicePixelRatioF();
  const int edge = qCeil(2 * length * 1.1 * ratio);
  if (crystal_.width() == edge && crystal_.devicePixelRatioF() == ratio) return;
  crystal_ = QImage(edge, edge, QImage::Format_ARGB32_Premultiplied);
  crystal_.setDevicePixelRatio(ratio);
  crystal_.fill(Qt::transparent);
  if (edge == 0) return;
  QPainter painter(&crystal_);
  painter.translate(edge / ratio / 2, edge / ratio / 2);
  DrawCrystal(painter, length);
}

}  // namespace sorvane
