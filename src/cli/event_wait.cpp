#include "cli/event_wait.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>

namespace sorvane::cli {
namespace {

using std::chrono::milliseconds;

// A signal of the system wakes no event loop; what it asks for is looked at so often.
constexpr milliseconds kLook{200};

}  // namespace

WaitFor WaitInEventLoop() {
  return [](milliseconds limit, const std::function<bool()>& done) {
    const QDeadlineTimer end(limit, Qt::PreciseTimer);
    QTimer alarm;  // processing events waits for one
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.start(std::min(limit, kLook));
    while (!done() && !end.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return done();
  };
}

}  // namespace sorvane::cli
