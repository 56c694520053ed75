#include <unistd.h>

#include <csignal>

#include "platform/standard_streams.h"

namespace sorvane {
namespace {

volatile std::sig_atomic_t end_wanted = 0;

extern "C" void WantEnd(int) { end_wanted = 1; }

bool Watch() {
  struct sigaction action {};
  action.sa_handler = WantEnd;
  return sigaction(SIGINT, &action, nullptr) == 0 && sigaction(SIGTERM, &action, nullptr) == 0 &&
         sigaction(SIGHUP, &action, nullptr) == 0;
}

}  // namespace

bool CanAsk() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

bool IsErrorWatched() { return isatty(STDERR_FILENO) != 0; }

void SetStreamsPlain() {}

bool IsEndWanted() {
  static const bool watched = Watch();
  return watched && end_wanted != 0;
}

}  // namespace sorvane
