#include "shell/controls/program_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>
#include <QTabBar>
#include <QTest>
#include <QWidget>
#include <utility>
#include <vector>

#include "shell/controls/painted_control.h"
#include "shell/controls/shades.h"

namespace sorvane {
namespace {

struct ProgramStyleTest : testing::Test {
  ProgramStyle style;

  static void SetLetters(QWidget& widget, double points) {
    QFont font = widget.font();
    font.setPointSizeF(points);
    widget.setFont(font);
  }
};

TEST_F(ProgramStyleTest, RoomBetweenThingsFollowsTheLetters) {
  QWidget small;
  QWidget large;
  SetLetters(small, 9);
  SetLetters(large, 18);
  const double ratio =
      static_cast<double>(large.fontMetrics().height()) / small.fontMetrics().height();
  for (const QStyle::PixelMetric metric :
       {QStyle::PM_LayoutLeftMargin, QStyle::PM_LayoutTopMargin, QStyle::PM_LayoutRightMargin,
        QStyle::PM_LayoutBottomMargin, QStyle::PM_LayoutHorizontalSpacing,
        QStyle::PM_LayoutVerticalSpacing, QStyle::PM_TitleBarHeight}) {
    const int before = style.pixelMetric(metric, nullptr, &small);
    EXPECT_GT(before, 2) << metric;
    EXPECT_NEAR(style.pixelMetric(metric, nullptr, &large), ratio * before, ratio) << metric;
  }
}

QStyleOptionGroupBox Frame(const QString& title) {
  QStyleOptionGroupBox option;
  option.rect = QRect(0, 0, 200, 100);
  option.text = title;
  return option;
}

TEST_F(ProgramStyleTest, TitleStandsAboveItsFrame) {
  const QStyleOptionGroupBox option = Frame("Title");
  const QRect frame =
      style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, nullptr);
  const QRect title =
      style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, nullptr);
  const QRect contents =
      style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, nullptr);
  EXPECT_GE(title.height(), QFontMetrics(QFont()).height());
  EXPECT_EQ(frame.top(), title.bottom() + 1);
  EXPECT_TRUE(frame.contains(contents, true));
}

TEST_F(ProgramStyleTest, FrameWithoutATitleKeepsNoRoomForOne) {
  const QStyleOptionGroupBox option = Frame("");
  EXPECT_EQ(style.subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, nullptr),
            option.rect);
}

TEST_F(ProgramStyleTest, FrameIsSeenOnLightAndDark) {
  for (const auto& [ground, text] : {std::pair{QColor(239, 239, 239), QColor(0, 0, 0)},
                                     std::pair{QColor(49, 54, 59), QColor(239, 240, 241)}}) {
    QStyleOptionFrame option;
    option.rect = QRect(0, 0, 40, 20);
    option.palette.setColor(QPalette::Window, ground);
    option.palette.setColor(QPalette::WindowText, text);
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(ground);
    QPainter painter(&picture);
    style.drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter, nullptr);
    for (const QPoint& edge : {QPoint(0, 10), QPoint(39, 10), QPoint(20, 0), QPoint(20, 19)}) {
      EXPECT_GT(std::abs(picture.pixelColor(edge).lightness() - ground.lightness()), 25)
          << ground.name().toStdString();
    }
    EXPECT_EQ(picture.pixelColor(20, 10), ground);
  }
}

// A desktop's colours.
QPalette Colours(const QColor& ground, const QColor& field, const QColor& open,
                 const QColor& closed) {
  QPalette palette;
  for (const auto role : {QPalette::Window, QPalette::Button}) palette.setColor(role, ground);
  palette.setColor(QPalette::Base, field);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, open);
    palette.setColor(QPalette::Disabled, role, closed);
  }
  return palette;
}

TEST_F(ProgramStyleTest, ClosedTextIsDarkerThanADesktopHasItWhereItCouldntBeRead) {
  QPalette palette = Colours(QColor(240, 240, 240), Qt::white, Qt::black, QColor(200, 200, 200));
  style.polish(palette);
  // 4 to 1 on the darker of the two grounds, and no more than a step beyond.
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    const QColor closed = palette.color(QPalette::Disabled, role);
    EXPECT_LE(closed.red(), 121) << role;
    EXPECT_GE(closed.red(), 105) << role;
    EXPECT_EQ(palette.color(QPalette::Active, role), QColor(Qt::black)) << role;
  }
}

TEST_F(ProgramStyleTest, ClosedTextIsBrighterThanADarkDesktopHasItWhereItCouldntBeRead) {
  QPalette palette = Colours(QColor(50, 50, 50), QColor(25, 25, 25), Qt::white, QColor(80, 80, 80));
  style.polish(palette);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    const QColor closed = palette.color(QPalette::Disabled, role);
    EXPECT_GE(closed.red(), 142) << role;
    EXPECT_LE(closed.red(), 155) << role;
  }
}

TEST_F(ProgramStyleTest, ClosedTextStaysAsTheDesktopHasItWhereItCanBeRead) {
  const QColor readable(90, 100, 90);
  QPalette palette = Colours(QColor(240, 240, 240), Qt::white, Qt::black, readable);
  style.polish(palette);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    EXPECT_EQ(palette.color(QPalette::Disabled, role), readable) << role;
  }
}

// White fields on a dark window: neither colour of text can stand on the other's ground.
TEST_F(ProgramStyleTest, ClosedTextIsMeasuredOnTheGroundsOfOpenText) {
  QPalette palette = Colours(QColor(30, 30, 30), Qt::white, Qt::white, QColor(60, 60, 60));
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(220, 220, 220));
  style.polish(palette);
  EXPECT_GE(palette.color(QPalette::Disabled, QPalette::WindowText).red(), 120);
  EXPECT_LE(palette.color(QPalette::Disabled, QPalette::Text).red(), 130);
}

TEST_F(ProgramStyleTest, LinesOfABoxAreAsWideOnAllSidesAtEveryScale) {
  for (const auto& [scale, width] :
       {std::pair{1.0, 1}, std::pair{1.25, 1}, std::pair{1.5, 1}, std::pair{2.0, 2}}) {
    for (int at = 1; at <= 8; ++at) {
      QImage picture(120, 120, QImage::Format_RGB32);
      picture.setDevicePixelRatio(scale);
      picture.fill(Qt::white);
      QPainter painter(&picture);
      painter.translate(at, at);
      DrawBox(painter, QRectF(0, 0, 30, 30 + at), Qt::black, Qt::green);
      const auto line = [&](bool across) {
        QString colours;
        for (int i = 0; i < 120; ++i) {
          const QColor color = across ? picture.pixelColor(i, 25) : picture.pixelColor(25, i);
          const QChar shade = color == Qt::black   ? '#'
                              : color == Qt::green ? '.'
                              : color == Qt::white ? ' '
                                                   : '?';
          if (!colours.endsWith(shade) || shade == '#') colours += shade;
        }
        return colours;
      };
      const QString edge(width, '#');
      EXPECT_EQ(line(true), ' ' + edge + '.' + edge + ' ') << scale << " " << at;
      EXPECT_EQ(line(false), ' ' + edge + '.' + edge + ' ') << scale << " " << at;
    }
  }
}

// How wide the four sides of a frame are on a picture, in pixels: left, right, top, bottom.
std::vector<int> Sides(const QImage& picture, const QPoint& middle) {
  const QRgb ground = picture.pixel(middle);
  const auto width = [&](QPoint at, const QPoint& step) {
    while (picture.rect().contains(at) && picture.pixel(at) == ground) at += step;
    const QRgb line = picture.pixel(at);
    int pixels = 0;
    for (; picture.rect().contains(at) && picture.pixel(at) == line; at += step) ++pixels;
    return pixels;
  };
  return {width(middle, {-1, 0}), width(middle, {1, 0}), width(middle, {0, -1}),
          width(middle, {0, 1})};
}

TEST_F(ProgramStyleTest, EveryFrameIsAsWideOnAllSidesAt125Percent) {
  for (const int shape : {0, 1, 2, 3}) {
    for (int at = 4; at <= 7; ++at) {
      QStyleOptionFrame option;
      option.rect = QRect(at, at, 40, 40 + at);
      option.lineWidth = 1;
      option.frameShape = shape == 2 ? QFrame::Panel : QFrame::StyledPanel;
      option.state = QStyle::State_Sunken;
      QImage picture(100, 100, QImage::Format_RGB32);
      picture.setDevicePixelRatio(1.25);
      picture.fill(Qt::white);
      QPainter painter(&picture);
      if (shape == 0) style.drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter, nullptr);
      if (shape == 1) style.drawPrimitive(QStyle::PE_FrameWindow, &option, &painter, nullptr);
      if (shape >= 2) style.drawControl(QStyle::CE_ShapedFrame, &option, &painter, nullptr);
      EXPECT_EQ(Sides(picture, {30, 30}), std::vector<int>(4, 1)) << shape << " at " << at;
    }
  }
}

TEST_F(ProgramStyleTest, TheFrameBehindTabsIsAsWideOnAllSidesAt125Percent) {
  for (int at = 4; at <= 7; ++at) {
    QStyleOptionTabWidgetFrame option;
    option.rect = QRect(at, at, 40, 40 + at);
    option.lineWidth = 1;
    option.shape = QTabBar::RoundedNorth;
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.setDevicePixelRatio(1.25);
    picture.fill(Qt::blue);
    QPainter painter(&picture);
    style.drawPrimitive(QStyle::PE_FrameTabWidget, &option, &painter, nullptr);
    EXPECT_NE(picture.pixelColor(30, 30), QColor(Qt::blue));
    EXPECT_EQ(Sides(picture, {30, 30}), std::vector<int>(4, 1)) << at;
  }
}

struct LockedField : ProgramStyleTest {
  LockedField() {
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(200, 220, 200));
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Highlight, Qt::blue);
    form.setPalette(colours);
    form.resize(100, 40);
    field->setGeometry(10, 5, 80, 30);
    field->setReadOnly(true);
  }
  QColor At(int x, int y) { return form.grab().toImage().pixelColor(x, y); }

  QWidget form;
  QLineEdit* field = new QLineEdit(&form);
};

TEST_F(LockedField, HasALineAroundAndNoGround) {
  EXPECT_EQ(At(50, 20), QColor(200, 220, 200));
  for (const QPoint& edge : {QPoint(10, 20), QPoint(89, 20), QPoint(50, 5), QPoint(50, 34)}) {
    EXPECT_LT(At(edge.x(), edge.y()).lightness(), 160);
  }
  field->setReadOnly(false);
  EXPECT_EQ(At(50, 20), QColor(Qt::white));
}

TEST_F(LockedField, HasTheLineOfALabelThatShowsAValue) {
  QLabel label(&form);
  label.setFrameShape(QFrame::Panel);
  label.setGeometry(field->geometry());
  const QImage picture = form.grab().toImage();
  label.hide();
  EXPECT_EQ(form.grab().toImage(), picture);
}

TEST_F(LockedField, HasTheGroundThatItIsGiven) {
  QPalette red;
  red.setColor(QPalette::Base, Qt::red);
  field->setPalette(red);
  EXPECT_EQ(At(50, 20), QColor(Qt::red));
  field->setPalette(QPalette());
  EXPECT_EQ(At(50, 20), QColor(200, 220, 200));
}

TEST_F(LockedField, ShowsTheFocus) {
  form.setFocusPolicy(Qt::StrongFocus);
  form.show();
  form.activateWindow();
  form.setFocus();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &form; }));
  EXPECT_NE(At(10, 20), QColor(Qt::blue));
  field->setFocus();
  EXPECT_EQ(At(10, 20), QColor(Qt::blue));
}

// The bar of a child window in letters of a size.
struct TitleBar {
  QWidget window;
  QStyleOptionTitleBar option;

  TitleBar(const ProgramStyle& style, double points) {
    ProgramStyleTest::SetLetters(window, points);
    option.rect = QRect(0, 0, 400, style.pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window));
    option.titleBarFlags = Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    option.titleBarState = static_cast<int>(QStyle::State_Active);
    option.subControls = QStyle::SC_All;
  }

  QRect Place(const ProgramStyle& style, QStyle::SubControl part) const {
    return style.subControlRect(QStyle::CC_TitleBar, &option, part, &window);
  }

  QImage Whole(const ProgramStyle& style) const {
    QImage picture(option.rect.size(), QImage::Format_RGB32);
    picture.fill(Qt::black);  // beyond the round corners
    QPainter painter(&picture);
    style.drawComplexControl(QStyle::CC_TitleBar, &option, &painter, &window);
    return picture;
  }

  QImage Picture(const ProgramStyle& style, QStyle::SubControl part) const {
    return Whole(style).copy(Place(style, part));
  }
};

// The share of a button's width over which there is ink in a row or another.
double InkWidth(const QImage& button) {
  int first = button.width();
  int last = -1;
  for (int y = 0; y < button.height(); ++y) {
    for (int x = 0; x < button.width(); ++x) {
      if (button.pixelColor(x, y).lightness() < 220) continue;
      first = std::min(first, x);
      last = std::max(last, x);
    }
  }
  return static_cast<double>(last - first + 1) / button.width();
}

TEST_F(ProgramStyleTest, SignsOfAWindowsButtonsGrowWithItsBar) {
  for (const QStyle::SubControl part :
       {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarCloseButton}) {
    for (const double points : {9.0, 18.0, 27.0}) {
      const TitleBar bar(style, points);
      EXPECT_NEAR(InkWidth(bar.Picture(style, part)), 0.5, 0.12) << part << " " << points;
    }
  }
}

TEST_F(ProgramStyleTest, AWindowsButtonsBearTheirSigns) {
  struct Sign {
    QStyle::SubControl part;
    const char* shades;
    bool under_mouse = false;
  };
  const Sign kSigns[] = {
      {QStyle::SC_TitleBarMinButton, R"(
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@O........O@@@
@@@#========#@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
)"},
      {QStyle::SC_TitleBarNormalButton, R"(
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@+oooooo+@@@@
@@@+........+@@@
@@@o.+oooo+.o@@@
@@@o.o@@@@o.o@@@
@@@o.o@@@@o.o@@@
@@@o.o@@@@o.o@@@
@@@o.o@@@@o.o@@@
@@@o.+oooo+.o@@@
@@@+........+@@@
@@@@+oooooo+@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
)"},
      {QStyle::SC_TitleBarCloseButton, R"(
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@o@@@@@@o@@@@
@@@o.=@@@@=.o@@@
@@@@=.=@@=.=@@@@
@@@@@=.==.=@@@@@
@@@@@@=..=@@@@@@
@@@@@@=..=@@@@@@
@@@@@=.==.=@@@@@
@@@@=.=@@=.=@@@@
@@@o.=@@@@=.o@@@
@@@@o@@@@@@o@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
@@@@@@@@@@@@@@@@
)"},
      {QStyle::SC_TitleBarCloseButton, R"(
@#OOOOOOOOOOOO#@
#OOOOOOOOOOOOOO#
OOOOOOOOOOOOOOOO
OOOO*OOOOOO*OOOO
OOO*.-OOOO-.*OOO
OOOO-.-OO-.-OOOO
OOOOO-.--.-OOOOO
OOOOOO-..-OOOOOO
OOOOOO-..-OOOOOO
OOOOO-.--.-OOOOO
OOOO-.-OO-.-OOOO
OOO*.-OOOO-.*OOO
OOOO*OOOOOO*OOOO
OOOOOOOOOOOOOOOO
#OOOOOOOOOOOOOO#
@#OOOOOOOOOOOO#@
)",
       true},
  };
  for (const Sign& sign : kSigns) {
    TitleBar bar(style, 9);
    if (sign.under_mouse) bar.option.activeSubControls = sign.part;
    bar.option.palette.setColor(QPalette::Highlight, Qt::black);
    bar.option.palette.setColor(QPalette::HighlightedText, Qt::white);
    if (sign.part == QStyle::SC_TitleBarNormalButton) {
      bar.option.titleBarState |= static_cast<int>(Qt::WindowMinimized);
    }
    const QString shades = Shades(bar.Picture(style, sign.part));
    EXPECT_TRUE(AreAlike(shades, sign.shades)) << shades.toStdString();
  }
}

TEST_F(ProgramStyleTest, AWindowShowsNoSignOfAButtonThatItHasnt) {
  TitleBar bar(style, 9);
  const auto corner = [&] { return bar.Whole(style).copy(0, 0, 6, 6); };
  const QImage with_all = corner();  // one of them has no place, as the window isn't minimized
  bar.option.subControls &= ~QStyle::SC_TitleBarNormalButton;
  EXPECT_EQ(corner(), with_all);

  const double at_rest = InkWidth(bar.Picture(style, QStyle::SC_TitleBarCloseButton));
  bar.option.subControls &= ~QStyle::SC_TitleBarCloseButton;
  EXPECT_GT(at_rest, 0.3);
  EXPECT_LE(InkWidth(bar.Picture(style, QStyle::SC_TitleBarCloseButton)), 0);
}

TEST_F(ProgramStyleTest, ButtonOfAWindowThatIsHeldLooksHeld) {
  TitleBar bar(style, 9);
  const QImage at_rest = bar.Picture(style, QStyle::SC_TitleBarCloseButton);
  bar.option.activeSubControls = QStyle::SC_TitleBarCloseButton;
  const QImage under_mouse = bar.Picture(style, QStyle::SC_TitleBarCloseButton);
  bar.option.state |= QStyle::State_Sunken;
  EXPECT_NE(under_mouse, at_rest);
  EXPECT_NE(bar.Picture(style, QStyle::SC_TitleBarCloseButton), under_mouse);
}

}  // namespace
}  // namespace sorvane
