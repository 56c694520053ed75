#pragma once

#include <QMdiArea>

namespace sorvane {

// The frame's middle: the picture behind the pages, and the pages.
class Background : public QMdiArea {
 public:
  explicit Background(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sorvane
