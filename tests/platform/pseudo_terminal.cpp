#include "platform/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "support/strangers.h"

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

PseudoTerminal::~PseudoTerminal() {
  EXPECT_EQ(StrangersAt(HeldPath()), "");
  Vanish();
  close(held_);
}

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

std::string PseudoTerminal::Settings() const {
  termios set{};
  EXPECT_EQ(tcgetattr(held_, &set), 0);
  const auto has = [](tcflag_t flags, tcflag_t mask) { return (flags & mask) != 0; };
  std::string words = cfgetospeed(&set) == B19200 ? "19200 baud" : "another speed";
  words += has(set.c_cflag, CSTOPB) ? ", 2 stop bits" : ", 1 stop bit";
  if (has(set.c_cflag, CRTSCTS)) words += ", handshake by lines";
  if (has(set.c_iflag, IXON | IXOFF)) words += ", handshake by characters";
  return words;
}

int PseudoTerminal::CountArrived() const {
  int count = -1;
  EXPECT_EQ(ioctl(held_, FIONREAD, &count), 0);
  return count;
}

// As long as the device is held, no other terminal of the machine gets its name.
void PseudoTerminal::Vanish() {
  if (board_ >= 0) close(board_);
  board_ = -1;
}

void PseudoTerminal::SetExclusive() const { EXPECT_EQ(ioctl(held_, TIOCEXCL), 0); }

bool PseudoTerminal::IsOpen() const {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::any_of(begin(descriptors), end(descriptors), [this](const auto& entry) {
    return entry.path() != HeldPath() && IsSameDevice(entry.path(), HeldPath());
  });
}

std::filesystem::path PseudoTerminal::HeldPath() const {
  return "/proc/self/fd/" + std::to_string(held_);
}

}  // namespace sorvane::test
