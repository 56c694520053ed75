#include "shell/controls/clock_face.h"

#include <QImage>
#include <QPalette>
#include <QRect>
#include <map>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

TEST(ClockFace, ShowsNoTimeAtFirst) {
  ClockFace clock(nullptr);
  EXPECT_EQ(clock.property("text"), "");
}

TEST(ClockFace, ShowsHoursAndMinutesWithTwoDigitsEach) {
  ClockFace clock(nullptr);
  clock.SetTime(9, 5);
  EXPECT_EQ(clock.property("text"), "09:05");
  clock.SetTime(23, 59);
  EXPECT_EQ(clock.Text(), "23:59");
  clock.SetTime(0, 0);
  EXPECT_EQ(clock.Text(), "00:00");
}

TEST(ClockFace, TimeOutsideTheDayFailsAndLeavesWhatIsShown) {
  ClockFace clock(nullptr);
  clock.SetTime(12, 30);
  ExpectError(ErrorCode::kInvalidPropertyValue, [&] { clock.SetTime(24, 0); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [&] { clock.SetTime(0, 60); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [&] { clock.SetTime(-1, 0); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [&] { clock.SetTime(0, -1); });
  EXPECT_EQ(clock.Text(), "12:30");
}

// The number of segments that a time lights stands for the shapes: 1 has two, 8 has seven.
TEST(ClockFace, DigitsLightAsManySegmentsAsTheyHave) {
  ClockFace clock(nullptr);
  clock.resize(clock.sizeHint() * 4);
  const QRgb lit = clock.palette().color(QPalette::Text).rgb();
  const auto ink = [&](int hours, int minutes) {
    clock.SetTime(hours, minutes);
    const QImage image = clock.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += (image.pixel(x, y) | 0xFF000000) == lit;
    }
    return count;
  };
  // 11:11 lights 8 segments. Each following time adds to one place what its digit has more than 1.
  const int ones = ink(11, 11);
  const double segment = (ink(11, 18) - ones) / 5.0;
  const std::vector<int> more_than_1 = {4, 0, 3, 3, 2, 3, 4, 1, 5, 4};
  for (int digit = 0; digit < 10; ++digit) {
    const double extra = (ink(11, 10 + digit) - ones) / segment;
    EXPECT_NEAR(extra, more_than_1[static_cast<std::size_t>(digit)], 0.35) << digit;
  }
}

// The face in black on white, large, and what can be read off it.
class ClockFaceInk : public testing::Test {
 protected:
  ClockFaceInk() {
    QPalette colours(Qt::white);
    for (const auto role : {QPalette::Window, QPalette::Base}) colours.setColor(role, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text}) {
      colours.setColor(role, Qt::black);
    }
    colours.setColor(QPalette::Disabled, QPalette::Text, QColor(100, 100, 100));
    clock.setPalette(colours);
    clock.resize(clock.sizeHint() * 5);
    clock.SetTime(20, 20);
    // Together the digits 0 and 2 have all outer segments.
    digits = InkOf(Picture());
    clock.SetTime(8, 8);
  }

  QImage Picture() { return clock.grab().toImage(); }

  // The smallest rectangle around all black.
  static QRect InkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == Qt::black) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }

  // The colour at a place of the four digits, in heights of a digit from their top left corner.
  QColor At(const QImage& image, double x, double y) const {
    return image.pixelColor(digits.left() + qRound(x * digits.height()),
                            digits.top() + qRound(y * digits.height()));
  }

  // The digit that the black segments make; "?" for no digit.
  char DigitAt(const QImage& image, int place) const {
    // The middles of the segments: round from the top one, and the inner one last.
    static constexpr std::pair<double, double> kMiddles[] = {
        {0.26, 0.055}, {0.465, 0.28}, {0.465, 0.72}, {0.26, 0.945},
        {0.055, 0.72}, {0.055, 0.28}, {0.26, 0.5}};
    static const std::map<std::string, char> kDigits = {
        {"abcdef", '0'}, {"bc", '1'},     {"abdeg", '2'}, {"abcdg", '3'},   {"bcfg", '4'},
        {"acdfg", '5'},  {"acdefg", '6'}, {"abc", '7'},   {"abcdefg", '8'}, {"abcdfg", '9'}};
    std::string lit;
    char name = 'a';
    for (const auto& [x, y] : kMiddles) {
      // Upright ones stand beside the middle. The greater part of a segment is looked at.
      const bool upright = x != 0.26;
      const double along = upright ? 0 : 0.12;
      const double down = upright ? 0.12 : 0;
      bool black = true;
      for (const int end : {-1, 0, 1}) {
        const QColor ink = At(image, kPlaces[place] + x + end * along, y + end * down);
        black = black && ink == Qt::black;
      }
      if (black) lit += name;
      ++name;
    }
    const auto digit = kDigits.find(lit);
    return digit == kDigits.end() ? '?' : digit->second;
  }
  std::string Read() {
    const QImage image = Picture();
    std::string text;
    for (int place = 0; place < 4; ++place) {
      if (place == 2) text += At(image, kMiddle, 0.32) == Qt::black ? ':' : ' ';
      text += DigitAt(image, place);
    }
    return text;
  }

  // The left edges of the digits, and the middle of all, where the colon stands.
  static constexpr double kPlaces[] = {0, 0.74, 1.82, 2.56};
  static constexpr double kMiddle = 1.54;

  ClockFace clock{nullptr};
  QRect digits;
};

TEST_F(ClockFaceInk, IsTheTime) {
  for (int i = 0; i < 60; ++i) {
    clock.SetTime(i * 7 % 24, i);
    EXPECT_EQ(Read(), clock.Text().toStdString());
  }
}

TEST_F(ClockFaceInk, StandsInTheMiddleOfAFrame) {
  const QImage image = Picture();
  EXPECT_NEAR(digits.center().x(), image.width() / 2.0, 1);
  EXPECT_NEAR(digits.center().y(), image.height() / 2.0, 1);
  EXPECT_NEAR(digits.width(), 3.08 * digits.height(), 5);
  EXPECT_GT(digits.width(), image.width() / 2);
  const QColor line(128, 128, 128);
  const int right = image.width() - 1;
  const int bottom = image.height() - 1;
  for (const QPoint& edge : {QPoint(0, bottom / 2), QPoint(right, bottom / 2), QPoint(right / 2, 0),
                             QPoint(right / 2, bottom)}) {
    EXPECT_EQ(image.pixelColor(edge), line) << edge.x() << " " << edge.y();
  }
  EXPECT_EQ(image.pixelColor(2, 2), Qt::white);
}

TEST_F(ClockFaceInk, HasTwoDotsAndNothingElseInTheMiddle) {
  const QImage image = Picture();
  for (const double y : {0.32, 0.68}) EXPECT_EQ(At(image, kMiddle, y), Qt::black) << y;
  for (const double y : {0.02, 0.5, 0.98}) EXPECT_EQ(At(image, kMiddle, y), Qt::white) << y;
}

TEST_F(ClockFaceInk, ShowsDarkSegmentsFaintlyAndNothingInsideThem) {
  const QColor faint(235, 235, 235);
  clock.SetTime(11, 11);
  for (const double place : kPlaces) {
    const QImage image = Picture();
    EXPECT_EQ(At(image, place + 0.26, 0.5), faint) << place;
    EXPECT_EQ(At(image, place + 0.055, 0.28), faint) << place;
    EXPECT_EQ(At(image, place + 0.26, 0.28), Qt::white) << place;
    EXPECT_EQ(At(image, place + 0.26, 0.72), Qt::white) << place;
  }
}

TEST_F(ClockFaceInk, WithoutATimeIsNone) {
  ClockFace fresh(nullptr);
  fresh.setPalette(clock.palette());
  fresh.resize(clock.size());
  const QImage image = fresh.grab().toImage();
  EXPECT_TRUE(InkOf(image).isEmpty());
  const QColor faint(235, 235, 235);
  EXPECT_EQ(At(image, kMiddle, 0.32), faint);
  for (const double place : kPlaces) EXPECT_EQ(At(image, place + 0.26, 0.055), faint) << place;
}

TEST_F(ClockFaceInk, OfAClosedFaceIsGrey) {
  clock.SetOpen(false);
  EXPECT_EQ(At(Picture(), 0.26, 0.055), QColor(100, 100, 100));
}

TEST(ClockFace, TakesNoFocus) {
  ClockFace clock(nullptr);
  EXPECT_EQ(clock.focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace sorvane
