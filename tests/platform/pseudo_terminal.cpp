#include "platform/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>

namespace sorvane::test {

PseudoTerminal::PseudoTerminal() {
  termios raw{};
  cfmakeraw(&raw);
  std::array<char, 64> name{};
  EXPECT_EQ(openpty(&board_, &held_, name.data(), &raw, nullptr), 0);
  for (const int descriptor : {board_, held_}) fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  fcntl(board_, F_SETFL, O_NONBLOCK);
  device_ = name.data();
}

PseudoTerminal::~PseudoTerminal() { Vanish(); }

void PseudoTerminal::Send(const Bytes& bytes) const {
  EXPECT_EQ(write(board_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

Bytes PseudoTerminal::Take() const {
  Bytes taken;
  std::array<uint8_t, 4096> buffer{};
  ssize_t count = 0;
  while ((count = read(board_, buffer.data(), buffer.size())) > 0) {
    taken.insert(taken.end(), buffer.begin(), buffer.begin() + count);
  }
  return taken;
}

void PseudoTerminal::WaitForArrival() const {
  constexpr int kLimit = 10000;  // ms
  pollfd device{held_, POLLIN, 0};
  EXPECT_EQ(poll(&device, 1, kLimit), 1);
}

int PseudoTerminal::CountArrived() const {
  int count = -1;
  EXPECT_EQ(ioctl(held_, FIONREAD, &count), 0);
  return count;
}

void PseudoTerminal::Vanish() {
  for (int* descriptor : {&held_, &board_}) {
    if (*descriptor >= 0) close(*descriptor);
    *descriptor = -1;
  }
}

bool PseudoTerminal::IsExclusive() const {
  int exclusive = 0;
  EXPECT_EQ(ioctl(held_, TIOCGEXCL, &exclusive), 0);
  return exclusive != 0;
}

}  // namespace sorvane::test
