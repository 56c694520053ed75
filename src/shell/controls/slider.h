#pragma once

#include <QStringList>
#include <functional>

#include "shell/controls/painted_control.h"

namespace sorvane {

class ProgramGate;

// A slider with a few named positions, counted from 0. Arrow keys move by one position, Home and
// End to the ends; a click goes to the nearest position, and so does a drag at its release.
class Slider : public PaintedControl {
  Q_OBJECT
  Q_PROPERTY(int position READ Position)
  Q_PROPERTY(QStringList labels READ Labels)

 public:
  // One position without a name, until SetLabels gives more.
  Slider(ProgramGate& gate, QWidget* parent);

  // The position has changed, by the user or by the program. By the program it is a plain call
  // within SetPosition, and what it throws goes to the caller.
  std::function<void()> on_change;

  // Names the positions by a text with commas between the names, "SI,NO"; blanks around a name are
  // not shown. Throws RuntimeError kInvalidPropertyValue, with all left as it is, where the present
  // position would have no name.
  void SetLabels(const QString& labels);
  const QStringList& Labels() const { return labels_; }

  int Position() const { return position_; }

  // Throws RuntimeError kInvalidPropertyValue outside the positions, the position left as it is.
  void SetPosition(int position);

  // The user's move to a position, entered through the gate and limited to the positions. A closed
  // control doesn't move.
  void MoveByUser(int position);

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void EndPress() override;

 private:
  int LastPosition() const { return static_cast<int>(labels_.size()) - 1; }
  qreal CellWidth() const;
  int NearestPosition(qreal x) const;

  ProgramGate& gate_;
  QStringList labels_;
  int position_ = 0;
  int dragged_ = -1;  // position shown while the button is held; -1 for none
};

}  // namespace sorvane
