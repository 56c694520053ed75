#include "support/virtual_clock.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

namespace sorvane::test {
namespace {

using std::chrono::milliseconds;

// Far more than any rule fires in one instant.
constexpr int kMostFiringsOfAnInstant = 10000;

}  // namespace

class VirtualClock::VirtualTimer : public Timer {
 public:
  VirtualTimer(VirtualClock& clock, milliseconds interval, std::function<void()> handler)
      : clock_(clock), interval_(interval), handler_(std::move(handler)) {
    clock_.timers_.push_back(this);
  }
  ~VirtualTimer() override { std::erase(clock_.timers_, this); }
  VirtualTimer(const VirtualTimer&) = delete;
  VirtualTimer& operator=(const VirtualTimer&) = delete;

  void Enable() override {
    if (!armed_) Arm();
  }
  void Disable() override { armed_ = false; }

  bool Armed() const { return armed_; }
  milliseconds Due() const { return due_; }

  bool Before(const VirtualTimer& other) const {
    return due_ != other.due_ ? due_ < other.due_ : arming_ < other.arming_;
  }

  // The next firing is armed before the handler runs, so that the handler may disable, restart or
  // destroy its own timer.
  void Fire() {
    Arm();
    const std::function<void()> handler = handler_;
    handler();
  }

 private:
  void Arm() {
    armed_ = true;
    due_ = clock_.now_ + interval_;
    arming_ = ++clock_.armings_;
  }

  VirtualClock& clock_;
  const milliseconds interval_;
  const std::function<void()> handler_;
  bool armed_ = false;
  milliseconds due_{0};
  std::int64_t arming_ = 0;
};

TimerMaker VirtualClock::Maker() {
  return [this](milliseconds interval, std::function<void()> handler) {
    return std::make_unique<VirtualTimer>(*this, interval, std::move(handler));
  };
}

VirtualClock::VirtualTimer* VirtualClock::NextDue(milliseconds until) const {
  VirtualTimer* next = nullptr;
  for (VirtualTimer* timer : timers_) {
    if (!timer->Armed() || timer->Due() > until) continue;
    if (next == nullptr || timer->Before(*next)) next = timer;
  }
  return next;
}

void VirtualClock::Advance(milliseconds span) {
  const milliseconds end = now_ + span;
  int firings = 0;
  while (VirtualTimer* timer = NextDue(end)) {
    firings = timer->Due() == now_ ? firings + 1 : 0;
    if (firings > kMostFiringsOfAnInstant) throw std::logic_error("an instant never ends");
    now_ = std::max(now_, timer->Due());
    timer->Fire();
  }
  now_ = std::max(now_, end);
}

int VirtualClock::Armed() const {
  return static_cast<int>(
      std::count_if(timers_.begin(), timers_.end(), [](const auto* t) { return t->Armed(); }));
}

}  // namespace sorvane::test
