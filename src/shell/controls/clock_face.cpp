#include "shell/controls/clock_face.h"

#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

#include "board/errors.h"
#include "shell/controls/accessibility.h"

namespace sorvane {
namespace {

// The segments of a digit in units of its height: 1 high and kDigitWidth wide.
constexpr qreal kDigitWidth = 0.52;
constexpr qreal kThickness = 0.11;
constexpr qreal kGap = 0.02;  // between the ends of two segments
constexpr qreal kDigitPitch = 0.74;
constexpr qreal kColonWidth = 0.34;
constexpr qreal kTotalWidth = 3 * kDigitPitch + kDigitWidth + kColonWidth;

struct Segment {
  qreal x, y;
  bool upright;
};

constexpr qreal kEdge = kThickness / 2;
constexpr qreal kFar = kDigitWidth - kEdge;
constexpr std::array<Segment, 7> kSegments = {{
    {kEdge, kEdge, false},      // top
    {kFar, kEdge, true},        // upper right
    {kFar, 0.5, true},          // lower right
    {kEdge, 1 - kEdge, false},  // bottom
    {kEdge, 0.5, true},         // lower left
    {kEdge, kEdge, true},       // upper left
    {kEdge, 0.5, false},        // middle
}};

// Bit n stands for segment n.
constexpr std::array<int, 10> kLitSegments = {0x3F, 0x06, 0x5B, 0x4F, 0x66,
                                              0x6D, 0x7D, 0x07, 0x7F, 0x6F};

QPolygonF Shape(const Segment& segment) {
  const qreal length = segment.upright ? 0.5 - kEdge : kFar - kEdge;
  const qreal start = kGap;
  const qreal end = length - kGap;
  QPolygonF shape;
  for (const QPointF& along :
       {QPointF(start, 0), QPointF(start + kEdge, -kEdge), QPointF(end - kEdge, -kEdge),
        QPointF(end, 0), QPointF(end - kEdge, kEdge), QPointF(start + kEdge, kEdge)}) {
    shape << QPointF(segment.x, segment.y) +
                 (segment.upright ? QPointF(along.y(), along.x()) : along);
  }
  return shape;
}

}  // namespace

ClockFace::ClockFace(QWidget* parent) : PaintedControl(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ClockFace::SetTime(int hours, int minutes) {
  if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59) {
    throw RuntimeError(ErrorCode::kInvalidPropertyValue);
  }
  const QString text =
      QString("%1:%2").arg(hours, 2, 10, QChar('0')).arg(minutes, 2, 10, QChar('0'));
  if (text == text_) return;
  text_ = text;
  update();
  TellNameChange(*this);
}

QSize ClockFace::sizeHint() const {
  const qreal digit = 2 * Unit();
  const qreal border = 2 * Margin() + Unit();
  return QSizeF(digit * kTotalWidth + border, digit + border).toSize();
}

void ClockFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ground = palette().color(QPalette::Base);
  const QColor lit = palette().color(QPalette::Text);
  const QColor unlit = Mix(ground, lit, 0.08);
  DrawBox(painter, rect(), Outline(), ground);

  const qreal border = 2 * Margin() + Unit();
  const qreal digit = std::min(rect().height() - border, (rect().width() - border) / kTotalWidth);
  painter.translate(QRectF(rect()).center());
  painter.scale(digit, digit);
  painter.translate(-kTotalWidth / 2, -0.5);
  painter.setPen(Qt::NoPen);
  for (int place = 0; place < 4; ++place) {
    const int at = place < 2 ? place : place + 1;  // behind the colon
    const int segments =
        text_.isEmpty() ? 0 : kLitSegments.at(static_cast<std::size_t>(text_[at].digitValue()));
    for (std::size_t i = 0; i < kSegments.size(); ++i) {
      painter.setBrush((segments >> i & 1) != 0 ? lit : unlit);
      painter.drawPolygon(Shape(kSegments[i]));
    }
    painter.translate(kDigitPitch, 0);
    if (place != 1) continue;
    painter.setBrush(text_.isEmpty() ? unlit : lit);
    const qreal x = (kColonWidth - (kDigitPitch - kDigitWidth)) / 2;
    for (const qreal y : {0.32, 0.68}) {
      painter.drawEllipse(QPointF(x, y), kThickness * 0.6, kThickness * 0.6);
    }
    painter.translate(kColonWidth, 0);
  }
}

}  // namespace sorvane
