#include "shell/gate/qt_timer.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>
#include <map>

#include "board/errors.h"
#include "shell/gate/program_gate.h"

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

// A coarse timer may go off a twentieth of its interval too early: 50 ms of the second that a reply
// has.
TEST_F(QtTimers, ArePrecise) {
  // What goes off: of each timer in this thread the interval and the kind.
  struct Watcher : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::Timer) {
        const auto* loop = QAbstractEventDispatcher::instance();
        for (const auto& timer : loop->registeredTimers(watched)) {
          kinds[timer.interval] = timer.timerType;
        }
      }
      return false;
    }
    std::map<int, Qt::TimerType> kinds;
  } watcher;
  qApp->installEventFilter(&watcher);
  const auto odd = make(milliseconds(7), [] {});
  const auto even = make(milliseconds(44), [] {});
  for (Timer* timer : {odd.get(), even.get()}) timer->Enable();
  EXPECT_TRUE(QTest::qWaitFor([&] { return watcher.kinds.count(44) == 1; }));
  EXPECT_EQ(watcher.kinds.at(7), Qt::PreciseTimer);
  EXPECT_EQ(watcher.kinds.at(44), Qt::PreciseTimer);
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

TEST_F(QtTimers, MayBeDestroyedByTheirHandler) {
  const std::string words = "what the handler holds outlives its timer";
  std::string after;
  std::unique_ptr<Timer> timer;
  timer = make(milliseconds(0), [&, words] {
    timer.reset();
    after = words;
  });
  timer->Enable();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !timer; }));
  EXPECT_EQ(after, "what the handler holds outlives its timer");
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
