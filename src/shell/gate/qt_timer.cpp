#include "shell/gate/qt_timer.h"

#include <QBasicTimer>
#include <QObject>
#include <utility>

#include "shell/gate/program_gate.h"

namespace sorvane {
namespace {

using std::chrono::milliseconds;

// Its handler is called right from its event: what a tick costs is the code that has to be fetched
// into the processor's caches for it, and a signal would bring some more.
class QtTimer : public QObject, public Timer {
 public:
  QtTimer(ProgramGate& gate, milliseconds interval, std::function<void()> handler)
      : gate_(gate), interval_(interval), handler_(std::move(handler)) {}

  void Enable() override {
    if (!timer_.isActive())
      timer_.start(static_cast<int>(interval_.count()), Qt::PreciseTimer, this);
  }
  void Disable() override { timer_.stop(); }

 protected:
  void timerEvent(QTimerEvent*) override {
    const std::function<void()> handler = handler_;  // it may destroy the timer
    gate_.Run(handler);
  }

 private:
  ProgramGate& gate_;
  const milliseconds interval_;
  const std::function<void()> handler_;
  QBasicTimer timer_;
};

}  // namespace

TimerMaker MakeQtTimers(ProgramGate& gate) {
  return [&gate](milliseconds interval, std::function<void()> handler) {
    return std::make_unique<QtTimer>(gate, interval, std::move(handler));
  };
}

}  // namespace sorvane
