#include "shell/qt_timer.h"

#include <QTimer>
#include <utility>

#include "shell/guarded_connect.h"
#include "shell/program_gate.h"

namespace sorvane {
namespace {

class QtTimer : public Timer {
 public:
  QtTimer(ProgramGate& gate, std::chrono::milliseconds interval, std::function<void()> handler) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(interval);
    ConnectGuarded(gate, &timer_, &QTimer::timeout, &timer_, std::move(handler));
  }

  void Enable() override {
    if (!timer_.isActive()) timer_.start();
  }
  void Disable() override { timer_.stop(); }

 private:
  QTimer timer_;
};

}  // namespace

TimerMaker MakeQtTimers(ProgramGate& gate) {
  return [&gate](std::chrono::milliseconds interval, std::function<void()> handler) {
    return std::make_unique<QtTimer>(gate, interval, std::move(handler));
  };
}

}  // namespace sorvane
