#include "shell/controls/clock_face.h"

#include <QImage>

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

TEST(ClockFace, TakesNoFocus) {
  ClockFace clock(nullptr);
  EXPECT_EQ(clock.focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace sorvane
