#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "support/watched_pipe.h"

namespace sorvane::test {
namespace {

// Both ends of a new pipe at once.
int OpenPipe(const std::filesystem::path& file) {
  const int end = mkfifo(file.c_str(), 0600) == 0 ? open(file.c_str(), O_RDWR | O_CLOEXEC) : -1;
  if (end < 0) throw std::runtime_error("can't make a pipe at " + file.string());
  return end;
}

}  // namespace

OpenWatch::OpenWatch(const std::filesystem::path& file)
    : watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (inotify_add_watch(watch_, file.c_str(), IN_OPEN) < 0) {
    throw std::runtime_error("can't watch " + file.string());
  }
}

OpenWatch::~OpenWatch() { close(watch_); }

bool OpenWatch::WasOpened() const {
  alignas(inotify_event) std::array<char, 4096> events{};
  return read(watch_, events.data(), events.size()) > 0;
}

WatchedPipe::WatchedPipe(const std::filesystem::path& file) : end_(OpenPipe(file)), watch_(file) {}

WatchedPipe::~WatchedPipe() { close(end_); }

}  // namespace sorvane::test
