#include "shell/page/page_timer.h"

#include <utility>

#include "outside/timer.h"

namespace sorvane {

PageTimer::PageTimer(const PageServices& services, std::chrono::milliseconds interval,
                     std::function<void()> handler)
    : timer_(services.make_timer(interval, std::move(handler))) {}

PageTimer::~PageTimer() = default;

void PageTimer::Start() { timer_->Enable(); }

void PageTimer::Stop() { timer_->Disable(); }

}  // namespace sorvane
