#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QPalette>
#include <QStatusBar>
#include <QTest>
#include <cmath>

#include "shell/controls/shades.h"
#include "shell/frame/background.h"
#include "shell/page/child_form.h"
#include "shell/program.h"

// Where things stand on the main frame, and how its ground looks.
namespace sorvane::test {
namespace {

TEST(Info, HasThreeLinesOfRoomAroundItsWords) {
  Program program;
  program.Connect();
  program.Choose("mnuVer");
  auto* info = program.frame->findChild<ChildForm*>("FrmInfo");
  const int room = 3 * info->fontMetrics().height();
  const QRect words = info->findChild<QLabel*>("Label1")->geometry() |
                      info->findChild<QLabel*>("Label2")->geometry();
  EXPECT_EQ(words, info->rect().adjusted(room, room, -room, -room));
}

TEST(Info, TheNameStandsInLargeLetters) {
  Program program;
  program.Connect();
  program.Choose("mnuVer");
  auto* info = program.frame->findChild<ChildForm*>("FrmInfo");
  const QFont name = info->findChild<QLabel*>("Label1")->font();
  const QFont revision = info->findChild<QLabel*>("Label2")->font();
  EXPECT_NEAR(name.pointSizeF(), 1.6 * revision.pointSizeF(), 0.1);
  EXPECT_TRUE(name.bold());
  EXPECT_FALSE(revision.bold());
}

// The panels of the status bar, which begin with the text.
struct PanelsTest : testing::Test {
  PanelsTest() { program.Connect(); }
  QRect Panel(int number) const {
    return bar.findChild<QWidget*>(QString("Panel(%1)").arg(number))->geometry();
  }
  Program program;
  QStatusBar& bar = *program.frame->statusBar();
};

TEST_F(PanelsTest, TheLampsStandAtTheRightAndTheTextTakesTheRest) {
  const int character = bar.fontMetrics().averageCharWidth();
  EXPECT_LE(Panel(1).left(), 2 * character);
  EXPECT_GE(Panel(1).left(), character);
  for (int lamp = 2; lamp <= 4; ++lamp) {
    EXPECT_NEAR(Panel(lamp).width(), 1.5 * bar.fontMetrics().height(), 1);
    EXPECT_GT(Panel(lamp).left(), Panel(lamp - 1).right());
    EXPECT_LE(Panel(lamp).left(), Panel(lamp - 1).right() + 2 * character);
  }
  EXPECT_LE(bar.width() - Panel(4).right(), 3 * character);
  EXPECT_GE(bar.width() - Panel(4).right(), character);
}

TEST_F(PanelsTest, TheLampsGrowWithTheLetters) {
  QFont large = bar.font();
  large.setPointSizeF(2.5 * large.pointSizeF());
  bar.setFont(large);
  const double edge = 1.5 * bar.fontMetrics().height();
  for (int lamp = 2; lamp <= 4; ++lamp) {
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return std::abs(Panel(lamp).width() - edge) <= 1 &&
             std::abs(Panel(lamp).height() - edge) <= 1;
    })) << Panel(lamp).width()
        << " by " << Panel(lamp).height();
  }
}

TEST_F(PanelsTest, ALampIs17PixelsWideAtLeast) {
  QFont small = bar.font();
  small.setPixelSize(6);
  bar.setFont(small);
  QCoreApplication::processEvents();
  EXPECT_EQ(Panel(3).width(), 17);
}

TEST_F(PanelsTest, TheTextEndsAtTheLampsInTheMiddleOfTheBar) {
  EXPECT_EQ(bar.findChild<QLabel*>("Panel(1)")->alignment(), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_NEAR(Panel(1).center().y(), Panel(2).center().y(), 1);
}

TEST_F(PanelsTest, NothingOffersToResizeTheFrame) { EXPECT_FALSE(bar.isSizeGripEnabled()); }

TEST(Frame, OpensWithRoomForItsPages) {
  Program program;
  program.Connect();
  const QFontMetrics letters = program.frame->fontMetrics();
  EXPECT_EQ(program.frame->size(), QSize(172 * letters.averageCharWidth(), 51 * letters.height()));
}

TEST(Frame, ItsPagesCanBeMinimizedAndClosedAndNotMaximized) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  const QWidget& window = *program.frame->findChild<ChildForm*>("FrmSconti")->parentWidget();
  const Qt::WindowFlags hints = window.windowFlags() & ~Qt::WindowFlags(Qt::WindowType_Mask);
  EXPECT_EQ(hints, Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
}

// What is brighter than the left edge of its row, as ink.
QImage Ink(const QImage& picture) {
  QImage ink(picture.size(), QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int brighter = qGray(picture.pixel(x, y)) - qGray(picture.pixel(0, y));
      const int grey = qBound(0, 255 - 8 * brighter, 255);
      ink.setPixel(x, y, qRgb(grey, grey, grey));
    }
  }
  return ink;
}

constexpr const char* kCrystal = R"(
............................................
............................................
............................:...............
............................*,..............
...........................:*...............
........................,,.-+...............
........................-+.=-...............
.........................+-*--*,............
.........................,***+:.............
......,-..............:,..**=,..............
......,*+,.-+.........=+..=*................
.......,++,-+..,,.....,*-.+-..--............
.........+*-*..-+......-*,*:,+*:............
..........+oo..-*.......+*o=o=,.............
.......,**ooo:.:*.......,oo*:...............
........::,,=o-:*........oo.................
.............-o+o........*-........-*...*:..
...........,,:=oo,.......o:........*-..-*...
..........ooooooo*......:o........-o,..*--+o
..........,,,...,*+.....-*........*-..oooo=:
.................,**,...+=.......-o-+oooo:..
..................,+*,..*-.....,-ooo=:.,+o+.
....................+o:,o,..,-+o*oo*:....,-.
.....................=o=o,-*o*=:..,=o*:.....
.........,............=ooo*=,.......,=o-....
........-o=,.......:=*ooo=............,.....
.........:*o=,..:=*o*-,o=o=.................
.....=:....-*OOoO*-,..:O,:o+................
.....+o+,.:=ooo-,.....-o..,o*...............
......:OOOO+-O-.......++...,**,.............
....-+oOOO,.=o........*=....,*o:...,,,......
..+OO+-=o..,O-........O:......*OOOOOOO......
..--..,o-..=o........:O,......,OO=:,,.......
......:o...*-........-*........O+O-.........
.....................OO........O:-O+,:::....
...................-oOO,.......O-.-OOOOo,...
.................,+O+OO*.......o-..OO*......
................-O*:-O:O-......o-..o=o*,....
................-=..=*.=O,.....:,..o=,oo,...
....................O+..o+.........*-.,*o,..
...................+OO..,:..............=,..
.................-OOOO:.....................
................,O=-O+o.....................
.................,.+*,O=....................
...................o=.,,....................
...................O-.......................
..................:O,.......................
..................,-........................
............................................
............................................
)";

TEST(Background, BearsTheCrystalAtTheLowerRight) {
  Background ground(nullptr);
  ground.setFrameShape(QFrame::NoFrame);
  QPalette light;
  light.setColor(QPalette::Window, Qt::white);
  ground.setPalette(light);
  ground.resize(90, 70);
  const QString shades = Shades(Ink(ground.grab().toImage()).copy(46, 18, 44, 50));
  EXPECT_TRUE(AreAlike(shades, kCrystal, 2)) << shades.toStdString();
}

TEST(Background, GrowsDarkerDownwardsAndIsDarkOnADarkDesktop) {
  Background ground(nullptr);
  ground.resize(90, 70);
  for (const bool dark : {false, true}) {
    QPalette colours;
    colours.setColor(QPalette::Window, dark ? QColor(40, 40, 40) : QColor(230, 230, 230));
    ground.setPalette(colours);
    const QImage picture = ground.grab().toImage();
    const int top = picture.pixelColor(5, 3).lightness();
    const int bottom = picture.pixelColor(5, 66).lightness();
    EXPECT_GT(top, bottom);
    EXPECT_EQ(top < 60, dark);
    EXPECT_EQ(bottom < 60, dark);
  }
}

}  // namespace
}  // namespace sorvane::test
