#pragma once

#include <QBrush>
#include <QColor>
#include <QRectF>
#include <QWidget>

class QKeyEvent;
class QPainter;

namespace sorvane {

// What the controls that paint themselves share: sizes from the font, colours from the palette, the
// frame that shows the focus, and no context menu. No size in pixels but the hairline, so that a
// control looks alike at every scale factor; a mix of palette colours follows dark desktops and
// greys out with a closed control.
class PaintedControl : public QWidget {
  Q_OBJECT

 public:
  explicit PaintedControl(QWidget* parent);

  // Opens or closes the control by the rule of focus_keeper.h.
  void SetOpen(bool open);

 protected:
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

  // Lets go what the mouse holds, without a change. A box that comes up, a control that is closed
  // or hidden: the release of the button may never be told then.
  virtual void EndPress() {}

  // Whether a key is pressed with Ctrl, Alt or Meta. Such keys are the frame's and the desktop's:
  // nothing that has a position moves by them.
  static bool IsCommand(const QKeyEvent& press);

  // Height of a line of text, in logical pixels: the unit of all sizes.
  qreal Unit() const;

  // Room on each side for the focus frame, in logical pixels.
  qreal Margin() const;

  void DrawFocusFrame(QPainter& painter) const;

  QColor Outline() const;
  QColor Groove() const;
  QColor Accent() const;  // what is on, or held by the mouse
};

// The rectangle on which a pen one pixel wide draws without blur: within area.
QRectF HairlineRect(const QRectF& area);

// A box with a hairline around it, filled or hollow. The line is as wide on all sides at every
// scale factor: it is drawn in whole pixels of the screen.
void DrawBox(QPainter& painter, const QRectF& area, const QColor& line,
             const QBrush& inside = Qt::NoBrush);

// first and second mixed; a share of 0 is all first, 1 all second.
QColor Mix(const QColor& first, const QColor& second, double share);

}  // namespace sorvane
