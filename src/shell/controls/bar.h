#pragma once

#include <QBasicTimer>
#include <QPoint>
#include <functional>

#include "shell/controls/painted_control.h"

namespace sorvane {

class ProgramGate;

// A horizontal scroll bar that holds a value, its position.
//
// The user moves it by the small step of 1 (arrow keys, end buttons), by the large step (Page Up
// and Page Down, the trough), to its ends (Home, End), and by dragging the thumb: a drag shows
// where the thumb is and moves the position once, at its release. Held buttons repeat. It takes the
// focus on a click and shows it; the wheel does nothing, and there is no context menu.
class Bar : public PaintedControl {
  Q_OBJECT
  Q_PROPERTY(int position READ Position)
  Q_PROPERTY(int minimum READ Minimum)
  Q_PROPERTY(int maximum READ Maximum)

 public:
  // The range is 0 to 32767, the large step 1 and the position 0 unless they are set.
  Bar(ProgramGate& gate, QWidget* parent);

  // The position has changed, by the user or by the program. By the program it is a plain call
  // within SetPosition or SetLimited, and what it throws goes to their caller.
  std::function<void()> on_change;

  // Brings the position into the range without calling on_change. Throws RuntimeError
  // kInvalidPropertyValue if minimum is above maximum or an end lies outside -32768 to 32767.
  void SetRange(int minimum, int maximum);
  int Minimum() const { return minimum_; }
  int Maximum() const { return maximum_; }

  // Throws RuntimeError kInvalidPropertyValue below 1 or above 32767.
  void SetLargeStep(int step);

  // What is added to positions where they are spoken: the number that one stands for.
  void SetSpokenOffset(int offset) { spoken_offset_ = offset; }
  int SpokenOffset() const { return spoken_offset_; }

  int Position() const { return position_; }

  // Throws RuntimeError kInvalidPropertyValue outside the range, the position left as it is.
  void SetPosition(int position);

  // Sets the position to the value, or to the end of the range that is nearest to it.
  void SetLimited(int position);

  // The user's move to a position, entered through the gate and limited to the range. A closed
  // control doesn't move.
  void MoveByUser(int position);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void EndPress() override;

 private:
  enum class Part { kNone, kLess, kTroughLess, kThumb, kTroughMore, kMore };
  struct Layout {
    QRectF less, trough, thumb, more;
  };

  // Where the parts stand while the thumb shows a position.
  Layout LayOut(int shown) const;
  int ShownPosition() const;
  Part PartAt(const QPoint& point) const;
  int PositionOfDrag() const;
  void StepByPressedPart();
  void DrawButton(QPainter& painter, const QRectF& area, Part part, int direction) const;

  ProgramGate& gate_;
  int minimum_ = 0;
  int maximum_ = 32767;
  int large_step_ = 1;
  int spoken_offset_ = 0;
  int position_ = 0;

  Part pressed_ = Part::kNone;
  QPoint press_point_;
  QPoint mouse_;
  int drag_start_ = 0;  // position at which the thumb was taken
  QBasicTimer repeat_;
};

}  // namespace sorvane
