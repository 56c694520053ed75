#include "simulator/link_guard.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace sorvane::simulator {
namespace {

[[noreturn]] void Fail() {
  throw std::system_error(errno, std::generic_category(), "no guard of the link");
}

[[noreturn]] void StandGuard(int line, const std::function<void()>& at_end) {
  setsid();
  // Who ends processes by the board's name, by SIGKILL perhaps, means the board.
  prctl(PR_SET_NAME, "COM1 guard");
  // A reader of the board's output waits for the last process that has it open.
  dup2(line, STDIN_FILENO);
  closefrom(STDIN_FILENO + 1);
  char ready = 0;
  if (write(STDIN_FILENO, &ready, 1) != 1) _exit(1);
  while (read(STDIN_FILENO, &ready, 1) < 0 && errno == EINTR) {
  }
  at_end();
  _exit(0);
}

}  // namespace

LinkGuard::LinkGuard(const std::function<void()>& at_end) {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) Fail();
  alive_.emplace(ends[0]);
  {
    const Descriptor guards_end(ends[1]);
    process_ = fork();
    if (process_ == 0) StandGuard(guards_end.Number(), at_end);
  }
  char ready = 0;
  if (process_ < 0 || read(alive_->Number(), &ready, 1) != 1) Fail();
}

LinkGuard::~LinkGuard() {
  alive_.reset();
  while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace sorvane::simulator
