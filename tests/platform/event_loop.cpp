#include "platform/event_loop.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QObject>
#include <QTimer>
#include <chrono>

namespace sorvane::test {
namespace {

constexpr std::chrono::milliseconds kBeat{10};
constexpr std::chrono::seconds kLimit{10};

}  // namespace

bool RunUntil(const std::function<bool()>& condition) {
  QEventLoop loop;
  QTimer beat;
  beat.start(kBeat);
  const QDeadlineTimer deadline(kLimit);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    loop.processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

int CountWakeUps(int beats) {
  int wake_ups = 0;
  QObject context;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &context,
                   [&] { ++wake_ups; });
  int seen = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, &context, [&] { ++seen; });
  beat.start(kBeat);
  RunUntil([&] { return seen >= beats; });
  return wake_ups;
}

}  // namespace sorvane::test
