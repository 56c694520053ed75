#include "platform/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <optional>

#include "support/strangers.h"

namespace sorvane::test {
namespace {

// A process that has a device open: a child of this one, or one whose parent has ended and that
// nothing here has started, as far as can be seen.
class Holder {
 public:
  enum Kind { kChild, kStranger };

  Holder(const std::filesystem::path& device, Kind kind) {
    std::array<int, 2> ready{};
    std::array<int, 2> stay{};
    EXPECT_EQ(pipe(ready.data()), 0);
    EXPECT_EQ(pipe(stay.data()), 0);
    stay_ = stay[1];
    ended_ = ready[0];
    child_ = fork();
    if (child_ == 0) {
      if (kind == kStranger && fork() != 0) _exit(0);
      dup2(stay[0], STDIN_FILENO);
      dup2(ready[1], STDOUT_FILENO);
      closefrom(STDERR_FILENO + 1);  // the terminals of this process too
      _exit(Hold(device) ? 0 : 1);
    }
    close(ready[1]);
    close(stay[0]);
    if (kind == kStranger) waitpid(child_, nullptr, 0);
    char answer = 0;
    EXPECT_EQ(read(ended_, &answer, 1), 1);
  }
  ~Holder() {
    close(stay_);
    char none = 0;
    EXPECT_EQ(read(ended_, &none, 1), 0);
    close(ended_);
    waitpid(child_, nullptr, 0);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

 private:
  // The device is free before the end of the output tells so.
  static bool Hold(const std::filesystem::path& device) {
    const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY);
    char none = 0;
    return write(STDOUT_FILENO, "o", 1) == 1 && read(STDIN_FILENO, &none, 1) == 0 &&
           close(descriptor) == 0;
  }

  int stay_ = -1;
  int ended_ = -1;
  pid_t child_ = -1;
};

TEST(PseudoTerminalTest, AStrangerAtTheLineIsAFailureInWords) {
  std::optional<PseudoTerminal> terminal(std::in_place);
  const Holder stranger(terminal->Device(), Holder::kStranger);
  EXPECT_NONFATAL_FAILURE(terminal.reset(), "a stranger holds the line: process platform_test (");
}

TEST(PseudoTerminalTest, AStrangerIsSeenAfterTheDeviceVanished) {
  std::optional<PseudoTerminal> terminal(std::in_place);
  const Holder stranger(terminal->Device(), Holder::kStranger);
  terminal->Vanish();
  EXPECT_NONFATAL_FAILURE(terminal.reset(), "a stranger holds the line: process platform_test (");
}

TEST(PseudoTerminalTest, AChildOfTheTestIsNoStranger) {
  const PseudoTerminal terminal;
  const Holder child(terminal.Device(), Holder::kChild);
  EXPECT_EQ(StrangersAt(terminal.Device()), "");
}

TEST(PseudoTerminalTest, AStrangerAtAnotherLineIsNone) {
  const PseudoTerminal terminal;
  const PseudoTerminal other;
  const Holder stranger(other.Device(), Holder::kStranger);
  EXPECT_EQ(StrangersAt(terminal.Device()), "");
}

}  // namespace
}  // namespace sorvane::test
