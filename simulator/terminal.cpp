#include "simulator/terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <system_error>

namespace sorvane::simulator {
namespace {

[[noreturn]] void Fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

int OpenBoardEnd() {
  const int number = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (number < 0) Fail("no pseudo-terminal");
  return number;
}

std::filesystem::path UnlockPcEnd(int board_end) {
  std::array<char, 128> name{};
  if (grantpt(board_end) != 0 || unlockpt(board_end) != 0 ||
      ptsname_r(board_end, name.data(), name.size()) != 0) {
    Fail("the pseudo-terminal");
  }
  return name.data();
}

int OpenPcEnd(const std::filesystem::path& path) {
  const int number = open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (number < 0) Fail(path.string());
  return number;
}

}  // namespace

Descriptor::~Descriptor() { close(number_); }

Terminal::Terminal()
    : board_end_(OpenBoardEnd()),
      path_(UnlockPcEnd(board_end_.Number())),
      pc_end_(OpenPcEnd(path_)) {
  termios mode{};
  if (tcgetattr(pc_end_.Number(), &mode) != 0) Fail(path_.string());
  cfmakeraw(&mode);
  if (tcsetattr(pc_end_.Number(), TCSANOW, &mode) != 0) Fail(path_.string());
  tcflush(pc_end_.Number(), TCIOFLUSH);
}

Bytes Terminal::Read() {
  Bytes bytes(4096);
  const ssize_t count = read(board_end_.Number(), bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

void Terminal::Write(const Bytes& bytes) {
  [[maybe_unused]] const ssize_t count = write(board_end_.Number(), bytes.data(), bytes.size());
}

}  // namespace sorvane::simulator
