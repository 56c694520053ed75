#include "shell/controls/lamp.h"

#include <QImage>
#include <cstdlib>
#include <vector>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

QImage Grey(Lamp& lamp) { return lamp.grab().toImage().convertToFormat(QImage::Format_Grayscale8); }

// Which pixels are drawn upon, whatever their colour.
QImage Outline(Lamp& lamp) {
  QImage image = Grey(lamp);
  const int ground = image.pixelColor(0, 0).lightness();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const bool drawn = std::abs(image.pixelColor(x, y).lightness() - ground) > 8;
      image.setPixelColor(x, y, drawn ? Qt::black : Qt::white);
    }
  }
  return image;
}

TEST(Lamp, TagIsTheImageThatIsShown) {
  Lamp lamp(nullptr);
  EXPECT_EQ(lamp.property("Tag"), 0);
  for (int image = 1; image <= 6; ++image) {
    lamp.SetImage(image);
    EXPECT_EQ(lamp.property("Tag"), image);
    EXPECT_EQ(lamp.IsLit(), image >= 4);
  }
}

TEST(Lamp, AnyImageOutside1To6DoesNothing) {
  Lamp lamp(nullptr);
  lamp.SetImage(4);
  for (const int image : {0, 7, -1, 100}) lamp.SetImage(image);
  EXPECT_EQ(lamp.Tag(), 4);
}

TEST(Lamp, SameImageAgainIsNotRedrawn) {
  struct Counting : Lamp {
    using Lamp::Lamp;
    int paints = 0;
    void paintEvent(QPaintEvent* event) override {
      ++paints;
      Lamp::paintEvent(event);
    }
  } lamp(nullptr);
  lamp.SetImage(4);
  ShowActive(lamp);
  QCoreApplication::processEvents();
  const int before = lamp.paints;
  lamp.SetImage(4);
  QCoreApplication::processEvents();
  EXPECT_EQ(lamp.paints, before);
  lamp.SetImage(1);
  QCoreApplication::processEvents();
  EXPECT_GT(lamp.paints, before);
}

TEST(Lamp, NoTwoImagesLookAlikeWithoutColour) {
  Lamp lamp(nullptr);
  lamp.resize(lamp.sizeHint() * 2);
  std::vector<QImage> drawn = {Outline(lamp)};
  for (int image = 1; image <= 6; ++image) {
    lamp.SetImage(image);
    for (const QImage& earlier : drawn) EXPECT_NE(Outline(lamp), earlier) << image;
    drawn.push_back(Outline(lamp));
  }
}

// Of the pixels of two lamps that are lit, so many share of all differ in whether they are drawn
// on.
TEST(Lamp, ShapesDifferInTheirOwnSize) {
  Lamp lamp(nullptr);
  lamp.resize(lamp.sizeHint());
  std::vector<QImage> drawn;
  for (int image = 4; image <= 6; ++image) {
    lamp.SetImage(image);
    drawn.push_back(Outline(lamp));
  }
  const auto difference = [](const QImage& one, const QImage& other) {
    int differing = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) differing += one.pixel(x, y) != other.pixel(x, y);
    }
    return static_cast<double>(differing) / (one.width() * one.height());
  };
  EXPECT_GT(difference(drawn[0], drawn[1]), 0.25);
  EXPECT_GT(difference(drawn[0], drawn[2]), 0.25);
  EXPECT_GT(difference(drawn[1], drawn[2]), 0.25);
}

TEST(Lamp, IsHollowAtRestAndFilledWhenLit) {
  Lamp lamp(nullptr);
  lamp.resize(lamp.sizeHint() * 2);
  for (int image = 1; image <= 6; ++image) {
    lamp.SetImage(image);
    const QImage picture = lamp.grab().toImage();
    // Inside all three shapes and beside the mark of the error lamp.
    const QColor inside = picture.pixelColor(picture.width() * 42 / 100, picture.height() / 2);
    EXPECT_EQ(inside == picture.pixelColor(0, 0), image <= 3) << image;
  }
}

}  // namespace
}  // namespace sorvane
