#include "shell/qt_timer.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

#include "board/errors.h"
#include "shell/program_gate.h"

namespace sorvane::test {
namespace {

using std::chrono::milliseconds;

class QtTimers : public testing::Test {
 protected:
  std::vector<std::string> reports;
  ProgramGate gate{{.report = [this](const std::string& text,
                                     const std::function<void()>&) { reports.push_back(text); },
                    .leave = [](int) {}}};
  TimerMaker make = MakeQtTimers(gate);
};

TEST_F(QtTimers, FireUntilTheyAreDisabled) {
  int fired = 0;
  std::unique_ptr<Timer> timer;
  timer = make(milliseconds(1), [&] {
    if (++fired == 3) timer->Disable();
  });
  timer->Enable();
  EXPECT_TRUE(QTest::qWaitFor([&] { return fired == 3; }));
  bool later = false;
  const auto other = make(milliseconds(5), [&] { later = true; });
  other->Enable();
  EXPECT_TRUE(QTest::qWaitFor([&] { return later; }));
  EXPECT_EQ(fired, 3);
}

TEST_F(QtTimers, OfNoIntervalFireBehindTheCaller) {
  bool fired = false;
  std::unique_ptr<Timer> timer;
  timer = make(milliseconds(0), [&] {
    fired = true;
    timer->Disable();
  });
  timer->Enable();
  EXPECT_FALSE(fired);
  EXPECT_TRUE(QTest::qWaitFor([&] { return fired; }));
}

TEST_F(QtTimers, BringTheirErrorsToTheGate) {
  const auto timer = make(milliseconds(0), [] { throw RuntimeError(ErrorCode::kOverflow); });
  timer->Enable();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !reports.empty(); }));
  EXPECT_EQ(reports[0], "Run-time error '6':\n\nOverflow");
}

TEST_F(QtTimers, DoNothingBehindAShutGate) {
  bool fired = false;
  bool checked = false;
  const auto timer = make(milliseconds(0), [&] { fired = true; });
  gate.End(0);
  timer->Enable();
  QTimer::singleShot(20, [&] { checked = true; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return checked; }));
  EXPECT_FALSE(fired);
}

}  // namespace
}  // namespace sorvane::test
