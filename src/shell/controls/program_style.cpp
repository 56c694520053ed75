#include "shell/controls/program_style.h"

#include <QApplication>
#include <QFontMetrics>
#include <QFrame>
#include <QLineF>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>

#include "shell/controls/painted_control.h"

namespace sorvane {
namespace {

// In heights of a line of text.
constexpr double kMargin = 0.6;      // between the edge of a page or frame and what stands on it
constexpr double kAcross = 0.5;      // between two controls side by side
constexpr double kDown = 0.4;        // between two rows
constexpr double kFrameTitle = 1.2;  // what stands above a frame
constexpr double kTitleBar = 1.6;    // of a child window

// Shares of the text's colour in a line's.
constexpr double kFrameInk = 0.2;
constexpr double kReadingInk = 0.35;  // around what can only be read, a list too, and behind tabs
constexpr double kWindowInk = 0.6;    // around a child window

// The least contrast of a closed text with its ground, as the accessibility guidelines of the web
// count it. They ask for 3 of what must be seen; thin letters have less of it than their colour,
// and the tabs at the back are darker than the rest.
constexpr double kClosedContrast = 4;
constexpr double kNearer = 0.05;  // a step from the colour of closed text to that of open text

int Lines(double lines, const QWidget* widget) {
  const QFontMetrics metrics(widget == nullptr ? QApplication::font() : widget->font());
  return qRound(lines * metrics.height());
}

double Luminance(const QColor& color) {
  const auto linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

bool CanBeRead(const QColor& ink, const QColor& ground) {
  const auto [darker, lighter] = std::minmax({Luminance(ink), Luminance(ground)});
  return lighter + 0.05 >= kClosedContrast * (darker + 0.05);
}

// A field that can't be edited, unless it has a colour of its own: that is a word to the user.
bool IsLockedField(QStyle::PrimitiveElement element, const QStyleOption& option,
                   const QWidget* field) {
  return element == QStyle::PE_PanelLineEdit && (option.state & QStyle::State_ReadOnly) != 0 &&
         (field == nullptr || !field->testAttribute(Qt::WA_SetPalette));
}

QColor Line(const QPalette& palette, double ink) {
  return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), ink);
}

// Around what can only be read: a line that shows the focus, too.
void DrawReadingFrame(QPainter& painter, const QStyleOption& option) {
  const bool focused = (option.state & QStyle::State_HasFocus) != 0;
  DrawBox(painter, option.rect,
          focused ? option.palette.color(QPalette::Highlight) : Line(option.palette, kReadingInk));
}

// A button of a child window's bar and the strokes of its sign, in a square from -1 to 1.
struct TitleButton {
  QStyle::SubControl part;
  std::array<QLineF, 4> sign;  // null lines behind those it needs
};

constexpr TitleButton kTitleButtons[] = {
    {QStyle::SC_TitleBarMinButton, {{{-1, 0.8, 1, 0.8}}}},
    {QStyle::SC_TitleBarNormalButton,
     {{{-1, -1, 1, -1}, {1, -1, 1, 1}, {1, 1, -1, 1}, {-1, 1, -1, -1}}}},
    {QStyle::SC_TitleBarCloseButton, {{{-1, -1, 1, 1}, {-1, 1, 1, -1}}}}};

constexpr double kSign = 0.22;  // half of a sign's width, in heights of its button

void DrawTitleButton(QPainter& painter, const QStyleOptionTitleBar& bar, const TitleButton& button,
                     const QRectF& place) {
  const bool active = (bar.titleBarState & QStyle::State_Active) != 0;
  const QColor ink = bar.palette.color(active ? QPalette::HighlightedText : QPalette::WindowText);
  const QColor ground = bar.palette.color(active ? QPalette::Highlight : QPalette::Window);
  if ((bar.activeSubControls & button.part) != 0) {
    const bool held = (bar.state & QStyle::State_Sunken) != 0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Mix(ground, ink, held ? 0.4 : 0.2));
    painter.drawRoundedRect(place, place.height() / 6, place.height() / 6);
  }
  const double size = kSign * place.height();
  painter.setPen(QPen(ink, std::max(1.5, place.height() / 10), Qt::SolidLine, Qt::RoundCap));
  for (const QLineF& stroke : button.sign) {
    if (stroke.isNull()) continue;
    painter.drawLine(place.center() + stroke.p1() * size, place.center() + stroke.p2() * size);
  }
}

}  // namespace

ProgramStyle::ProgramStyle() : QProxyStyle("Fusion") {}

void ProgramStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    const QColor open = palette.color(QPalette::Active, text);
    const QColor closed = palette.color(QPalette::Disabled, text);
    QColor ink = closed;
    double share = 0;
    for (const auto behind : {QPalette::Window, QPalette::Base, QPalette::Button}) {
      const QColor ground = palette.color(QPalette::Disabled, behind);
      if (!CanBeRead(open, ground)) continue;  // nothing of that colour stands there
      while (!CanBeRead(ink, ground)) {
        share = std::min(share + kNearer, 1.0);
        ink = Mix(closed, open, share);
      }
    }
    palette.setColor(QPalette::Disabled, text, ink);
  }
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
      return Lines(kMargin, widget);
    case PM_LayoutHorizontalSpacing:
      return Lines(kAcross, widget);
    case PM_LayoutVerticalSpacing:
      return Lines(kDown, widget);
    case PM_TitleBarHeight:
      return Lines(kTitleBar, widget);
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  if (element == PE_FrameGroupBox) {
    DrawBox(*painter, option->rect, Line(option->palette, kFrameInk));
  } else if (const auto* tabs = qstyleoption_cast<const QStyleOptionTabWidgetFrame*>(option);
             element == PE_FrameTabWidget && tabs != nullptr) {
    DrawTabFrame(*painter, *tabs);
  } else if (element == PE_FrameWindow) {
    DrawBox(*painter, option->rect, Line(option->palette, kWindowInk));
  } else if (IsLockedField(element, *option, widget)) {
    DrawReadingFrame(*painter, *option);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == CE_ShapedFrame && frame != nullptr &&
      (frame->frameShape == QFrame::Panel || frame->frameShape == QFrame::StyledPanel)) {
    DrawReadingFrame(*painter, *option);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
  if (control != CC_TitleBar || bar == nullptr) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  QStyleOptionTitleBar bare(*bar);
  for (const TitleButton& button : kTitleButtons) bare.subControls &= ~button.part;
  QProxyStyle::drawComplexControl(control, &bare, painter, widget);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  for (const TitleButton& button : kTitleButtons) {
    const QRectF place = subControlRect(control, bar, button.part, widget);
    if ((bar->subControls & button.part) == 0 || place.isEmpty()) continue;
    DrawTitleButton(*painter, *bar, button, place);
  }
  painter->restore();
}

void ProgramStyle::DrawTabFrame(QPainter& painter, const QStyleOptionTabWidgetFrame& tabs) const {
  // The toolkit's frame gives the ground, in the colour of the tab in front; its lines fall
  // outside.
  constexpr int kLines = 4;
  QStyleOptionTabWidgetFrame ground(tabs);
  ground.rect = tabs.rect.adjusted(-kLines, -kLines, kLines, kLines);
  painter.save();
  painter.setClipRect(tabs.rect, Qt::IntersectClip);
  QProxyStyle::drawPrimitive(PE_FrameTabWidget, &ground, &painter, nullptr);
  painter.restore();
  DrawBox(painter, tabs.rect, Line(tabs.palette, kReadingInk));
}

QRect ProgramStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
  const auto* frame = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  if (control != CC_GroupBox || frame == nullptr) {
    return QProxyStyle::subControlRect(control, option, part, widget);
  }
  const int title = frame->text.isEmpty() ? 0 : Lines(kFrameTitle, widget);
  const int line = pixelMetric(PM_DefaultFrameWidth, option, widget);
  QRect place = option->rect;
  switch (part) {
    case SC_GroupBoxFrame:
      return place.adjusted(0, title, 0, 0);
    case SC_GroupBoxContents:
      return place.adjusted(line, title + line, -line, -line);
    case SC_GroupBoxLabel:
      place.setHeight(title);
      return place;
    default:
      return {};
  }
}

}  // namespace sorvane
