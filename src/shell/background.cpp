#include "shell/background.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

#include "shell/crystal.h"

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

  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(viewport()->width() * 0.78, viewport()->height() * 0.62);
  const double size = std::min(viewport()->width(), viewport()->height()) * 0.32;
  painter.fillPath(Crystal(size), dark ? QColor(255, 255, 255, 22) : QColor(255, 255, 255, 120));
}

}  // namespace sorvane
