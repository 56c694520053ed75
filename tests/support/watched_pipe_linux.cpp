#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "support/watched_pipe.h"

namespace sorvane::test {

WatchedPipe::WatchedPipe(const std::filesystem::path& file)
    : end_(mkfifo(file.c_str(), 0600) == 0 ? open(file.c_str(), O_RDWR | O_CLOEXEC) : -1),
      watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (end_ < 0 || inotify_add_watch(watch_, file.c_str(), IN_OPEN) < 0) {
    throw std::runtime_error("can't watch a pipe at " + file.string());
  }
}

WatchedPipe::~WatchedPipe() {
  close(watch_);
  close(end_);
}

bool WatchedPipe::WasOpened() const {
  alignas(inotify_event) std::array<char, 4096> events{};
  return read(watch_, events.data(), events.size()) > 0;
}

}  // namespace sorvane::test
