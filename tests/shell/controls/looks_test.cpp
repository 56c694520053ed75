#include <QApplication>
#include <QImage>
#include <QPalette>
#include <algorithm>
#include <memory>
#include <vector>

#include "shell/controls/bar.h"
#include "shell/controls/bench.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/lamp.h"
#include "shell/controls/slider.h"
#include "shell/controls/toggle.h"

namespace sorvane {
namespace {

// One of each control that paints itself, by number.
struct LooksTest : testing::TestWithParam<int>, GateBench {
  std::unique_ptr<PaintedControl> control;

  void SetUp() override {
    switch (GetParam()) {
      case 0:
        control = std::make_unique<Bar>(gate, nullptr);
        break;
      case 1:
        control = std::make_unique<Toggle>(gate, nullptr);
        break;
      case 2: {
        auto slider = std::make_unique<Slider>(gate, nullptr);
        slider->SetLabels("SI,NO");
        control = std::move(slider);
        break;
      }
      case 3: {
        auto clock = std::make_unique<ClockFace>(nullptr);
        clock->SetTime(12, 34);
        control = std::move(clock);
        break;
      }
      default: {
        auto lamp = std::make_unique<Lamp>(nullptr);
        lamp->SetImage(1);
        control = std::move(lamp);
      }
    }
    control->resize(control->sizeHint());
  }
  QImage Picture() const { return control->grab().toImage(); }
};

struct FocusLooksTest : LooksTest {};

INSTANTIATE_TEST_SUITE_P(Controls, LooksTest, testing::Range(0, 5));
INSTANTIATE_TEST_SUITE_P(ControlsWithFocus, FocusLooksTest, testing::Range(0, 3));

TEST_P(LooksTest, ClosedControlLooksClosed) {
  const QImage open = Picture();
  control->SetOpen(false);
  EXPECT_NE(Picture(), open);
}

TEST_P(FocusLooksTest, FocusShows) {
  ShowActive(*control);
  control->setFocus();
  const QImage with_focus = Picture();
  control->clearFocus();
  EXPECT_NE(Picture(), with_focus);
}

TEST_P(FocusLooksTest, FocusIsALineAllAroundInTheColourOfASelection) {
  QPalette colours = control->palette();
  colours.setColor(QPalette::Window, Qt::white);
  colours.setColor(QPalette::Highlight, Qt::magenta);
  control->setPalette(colours);
  QFont small = control->font();
  small.setPixelSize(12);  // in larger letters the line is wider
  control->setFont(small);
  control->resize(control->sizeHint());
  ShowActive(*control);
  const auto colours_at = [this](int inwards) {
    const QImage picture = Picture();
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    return std::vector<QColor>{
        picture.pixelColor(inwards, bottom / 2), picture.pixelColor(right - inwards, bottom / 2),
        picture.pixelColor(right / 2, inwards), picture.pixelColor(right / 2, bottom - inwards)};
  };
  const std::vector<QColor> line(4, Qt::magenta);
  const std::vector<QColor> ground(4, Qt::white);
  control->setFocus();
  EXPECT_EQ(colours_at(0), line);
  EXPECT_EQ(colours_at(1), ground);
  control->clearFocus();
  EXPECT_EQ(colours_at(0), ground);
}

TEST_P(LooksTest, SizeFollowsTheFont) {
  const QSize before = control->sizeHint();
  QFont font = control->font();
  font.setPointSizeF(font.pointSizeF() * 2);
  control->setFont(font);
  const QSize after = control->sizeHint();
  EXPECT_NEAR(after.height(), 2.0 * before.height(), 0.2 * before.height());
  EXPECT_NEAR(after.width(), 2.0 * before.width(), 0.2 * before.width());
}

TEST_P(LooksTest, DarkDesktopIsDrawnLightOnDark) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(35, 35, 35));
  dark.setColor(QPalette::WindowText, QColor(235, 235, 235));
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  dark.setColor(QPalette::Text, QColor(235, 235, 235));
  dark.setColor(QPalette::Button, QColor(60, 60, 60));
  dark.setColor(QPalette::ButtonText, QColor(235, 235, 235));
  control->setPalette(dark);
  const QImage picture = Picture();
  EXPECT_LT(picture.pixelColor(0, picture.height() - 1).lightness(), 160);
  int brightest = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      brightest = std::max(brightest, picture.pixelColor(x, y).lightness());
    }
  }
  EXPECT_GT(brightest, 110);
}

TEST_P(LooksTest, SmallestSizeIsDrawnWithoutHarm) {
  for (const QSize& size : {QSize(1, 1), QSize(3, 40), QSize(40, 3)}) {
    control->resize(size);
    EXPECT_EQ(Picture().size(), size);
  }
}

}  // namespace
}  // namespace sorvane
