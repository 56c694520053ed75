#pragma once

#include <QImage>
#include <QMdiArea>

namespace sorvane {

// The frame's middle: the picture behind the pages, and the pages.
class Background : public QMdiArea {
 public:
  explicit Background(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Sees to it that crystal_ has arms of that length.
  void ShapeCrystal(double length);

  // The crystal, opaque: what shines through is the whole of it, so that its lines don't show where
  // they meet. Kept, since windows that move uncover it again and again.
  QImage crystal_;
};

}  // namespace sorvane
