#include "support/virtual_clock.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace sorvane::test {
namespace {

using std::chrono::milliseconds;

struct ClockTest : ::testing::Test {
  std::unique_ptr<Timer> Make(int interval, const std::string& name) {
    return clock.Maker()(milliseconds(interval), [this, name] { fired += name; });
  }

  VirtualClock clock;
  std::string fired;
};

TEST_F(ClockTest, TimersFireByDueTimeThenByArming) {
  const auto a = Make(20, "a");
  const auto b = Make(10, "b");
  const auto c = Make(20, "c");
  c->Enable();
  a->Enable();
  b->Enable();
  clock.Advance(20);
  EXPECT_EQ(fired, "bcab");
}

TEST_F(ClockTest, ATimerRepeatsUntilItIsDisabled) {
  const auto a = Make(10, "a");
  a->Enable();
  clock.Advance(35);
  EXPECT_EQ(fired, "aaa");
  a->Disable();
  clock.Advance(100);
  EXPECT_EQ(fired, "aaa");
  EXPECT_EQ(clock.Armed(), 0);
}

TEST_F(ClockTest, EnablingARunningTimerChangesNothingAndRestartingStartsAnew) {
  const auto a = Make(10, "a");
  const auto b = Make(10, "b");
  a->Enable();
  b->Enable();
  clock.Advance(9);
  a->Enable();
  b->Restart();
  clock.Advance(1);
  EXPECT_EQ(fired, "a");
  clock.Advance(9);
  EXPECT_EQ(fired, "ab");
}

TEST_F(ClockTest, IntervalZeroFiresInTheSameInstantBehindWhatWaits) {
  const auto wait = Make(10, "w");
  std::unique_ptr<Timer> zero;
  zero = clock.Maker()(milliseconds(0), [&] {
    fired += "0";
    zero->Disable();
  });
  const auto first = clock.Maker()(milliseconds(10), [&] {
    fired += "f";
    zero->Enable();
  });
  first->Enable();
  wait->Enable();
  clock.Advance(10);
  EXPECT_EQ(fired, "fw0");
  EXPECT_EQ(clock.Now(), milliseconds(10));
}

TEST_F(ClockTest, AnInstantThatNeverEndsIsAnError) {
  const auto zero = Make(0, "0");
  zero->Enable();
  EXPECT_THROW(clock.Advance(0), std::logic_error);
}

TEST_F(ClockTest, AHandlerMayDestroyAnyTimer) {
  auto other = Make(10, "x");
  std::unique_ptr<Timer> self;
  self = clock.Maker()(milliseconds(10), [&] {
    self.reset();
    other.reset();
    fired += "s";
  });
  self->Enable();
  other->Enable();
  clock.Advance(50);
  EXPECT_EQ(fired, "s");
}

TEST_F(ClockTest, AHandlerMayDisableATimerThatIsDueInTheSameInstant) {
  const auto other = Make(10, "x");
  const auto first = clock.Maker()(milliseconds(10), [&] { other->Disable(); });
  first->Enable();
  other->Enable();
  clock.Advance(10);
  EXPECT_EQ(fired, "");
}

}  // namespace
}  // namespace sorvane::test
