#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "shell/page/page_services.h"

namespace sorvane {

// Calls a handler of a page once per interval while it runs. Its end stops it.
class PageTimer {
 public:
  // Stands still at first.
  PageTimer(const PageServices& services, std::chrono::milliseconds interval,
            std::function<void()> handler);
  ~PageTimer();

  void Start();  // nothing if it runs
  void Stop();   // nothing if it doesn't

 private:
  std::unique_ptr<Timer> timer_;
};

}  // namespace sorvane
