#include "shell/controls/value_label.h"

#include <QEvent>
#include <QFontMetrics>
#include <utility>

namespace sorvane {

ValueLabel::ValueLabel(QString widest, QWidget* parent)
    : QLabel(parent), widest_(std::move(widest)) {
  setTextFormat(Qt::PlainText);
  FixSize();
}

QSize ValueLabel::Room() const {
  return fontMetrics().size(Qt::TextSingleLine, widest_) + 2 * QSize(frameWidth(), frameWidth());
}

void ValueLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FixSize();
}

}  // namespace sorvane
