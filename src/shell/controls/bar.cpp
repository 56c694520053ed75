#include "shell/controls/bar.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>

#include "board/errors.h"
#include "shell/controls/accessibility.h"
#include "shell/gate/program_gate.h"

namespace sorvane {
namespace {

constexpr int kLowest = -32768;
constexpr int kHighest = 32767;
constexpr int kSmallStep = 1;
constexpr int kFirstRepeatMs = 500;
constexpr int kRepeatMs = 50;

}  // namespace

Bar::Bar(ProgramGate& gate, QWidget* parent) : PaintedControl(parent), gate_(gate) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Bar::SetRange(int minimum, int maximum) {
  if (minimum > maximum || minimum < kLowest || maximum > kHighest) {
    throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  }
  minimum_ = minimum;
  maximum_ = maximum;
  position_ = std::clamp(position_, minimum, maximum);
  update();
}

void Bar::SetLargeStep(int step) {
  if (step < 1 || step > kHighest) throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  large_step_ = step;
  update();
}

void Bar::SetPosition(int position) {
  if (position < minimum_ || position > maximum_) {
    throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  }
  if (position == position_) return;
  position_ = position;
  update();
  TellValueChange(*this, position + spoken_offset_);
  if (on_change) on_change();
}

void Bar::SetLimited(int position) { SetPosition(std::clamp(position, minimum_, maximum_)); }

void Bar::MoveByUser(int position) {
  if (!isEnabled()) return;
  gate_.Run([this, position] { SetLimited(position); });
}

void Bar::keyPressEvent(QKeyEvent* event) {
  if (IsCommand(*event)) {
    PaintedControl::keyPressEvent(event);
    return;
  }
  int target = position_;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      target -= kSmallStep;
      break;
    case Qt::Key_Right:
    case Qt::Key_Down:
      target += kSmallStep;
      break;
    case Qt::Key_PageUp:
      target -= large_step_;
      break;
    case Qt::Key_PageDown:
      target += large_step_;
      break;
    case Qt::Key_Home:
      target = minimum_;
      break;
    case Qt::Key_End:
      target = maximum_;
      break;
    default:
      PaintedControl::keyPressEvent(event);
      return;
  }
  if (pressed_ == Part::kNone) MoveByUser(target);
}

void Bar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  gate_.Run([this, event] {
    mouse_ = press_point_ = event->position().toPoint();
    drag_start_ = position_;
    pressed_ = PartAt(mouse_);
    update();
    if (pressed_ == Part::kThumb) return;
    StepByPressedPart();
    if (pressed_ != Part::kNone) repeat_.start(kFirstRepeatMs, this);
  });
}

void Bar::mouseMoveEvent(QMouseEvent* event) {
  if (pressed_ == Part::kNone) return;
  mouse_ = event->position().toPoint();
  update();
}

void Bar::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  mouse_ = event->position().toPoint();
  const int target = ShownPosition();
  EndPress();
  MoveByUser(target);
}

void Bar::timerEvent(QTimerEvent* event) {
  if (event->timerId() != repeat_.timerId()) {
    PaintedControl::timerEvent(event);
    return;
  }
  repeat_.start(kRepeatMs, this);
  // Off the button the steps rest; on the trough they end where the thumb comes under the mouse.
  if (PartAt(mouse_) == pressed_) gate_.Run([this] { StepByPressedPart(); });
}

void Bar::StepByPressedPart() {
  switch (pressed_) {
    case Part::kLess:
      SetLimited(position_ - kSmallStep);
      break;
    case Part::kMore:
      SetLimited(position_ + kSmallStep);
      break;
    case Part::kTroughLess:
      SetLimited(position_ - large_step_);
      break;
    case Part::kTroughMore:
      SetLimited(position_ + large_step_);
      break;
    case Part::kNone:
    case Part::kThumb:
      break;
  }
}

void Bar::EndPress() {
  pressed_ = Part::kNone;
  repeat_.stop();
  update();
}

int Bar::ShownPosition() const { return pressed_ == Part::kThumb ? PositionOfDrag() : position_; }

int Bar::PositionOfDrag() const {
  const Layout layout = LayOut(drag_start_);
  const qreal room = layout.trough.width() - layout.thumb.width();
  if (room <= 0) return drag_start_;
  // Counted from where the thumb was taken: with more positions than pixels a thumb that is put
  // back on its place changes nothing.
  const qreal moved = (mouse_.x() - press_point_.x()) / room * (maximum_ - minimum_);
  return std::clamp(drag_start_ + static_cast<int>(std::lround(moved)), minimum_, maximum_);
}

Bar::Part Bar::PartAt(const QPoint& point) const {
  if (!rect().contains(point)) return Part::kNone;
  const Layout layout = LayOut(position_);
  const QPointF middle = QPointF(point) + QPointF(0.5, 0.5);
  if (middle.x() < layout.less.right()) return Part::kLess;
  if (middle.x() >= layout.trough.right()) return Part::kMore;
  if (middle.x() >= layout.thumb.left() && middle.x() < layout.thumb.right()) return Part::kThumb;
  if (middle.y() < layout.trough.top() || middle.y() >= layout.trough.bottom()) return Part::kNone;
  return middle.x() < layout.thumb.left() ? Part::kTroughLess : Part::kTroughMore;
}

}  // namespace sorvane
