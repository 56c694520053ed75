#pragma once

#include <QProxyStyle>

class QStyleOptionTabWidgetFrame;

namespace sorvane {

// The one style of the program, on every desktop: Qt's Fusion, with the room between things taken
// from the font instead of from pixels, so that pages keep their shape at every size of letters.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  ProgramStyle();

  using QProxyStyle::polish;
  // Sees to it that what is closed can be read: where the desktop's own colour of closed text is
  // too near to its ground, it is brought nearer to that of open text.
  void polish(QPalette& palette) override;

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;

  // Hairlines around what belongs together and around child windows, seen on light and dark alike;
  // the same around what can only be read: a list, a label with a panel's frame, and a locked
  // field, which has no ground of its own.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;

  // The buttons of a child window, in the size of its bar.
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

  // The title of a frame stands above it; a frame without one keeps no room for it.
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;

 private:
  // The ground of what lies behind tabs, with a line around it.
  void DrawTabFrame(QPainter& painter, const QStyleOptionTabWidgetFrame& tabs) const;
};

}  // namespace sorvane
