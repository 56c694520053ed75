#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <string>

#include "platform/pseudo_terminal.h"
#include "platform/serial_ports.h"
#include "support/index_files.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

// A process that has open what this one has open.
class Heir {
 public:
  Heir() : number_(fork()) {
    if (number_ != 0) return;
    for (;;) pause();
  }
  ~Heir() {
    kill(number_, SIGKILL);
    waitpid(number_, nullptr, 0);
  }
  Heir(const Heir&) = delete;
  Heir& operator=(const Heir&) = delete;

  std::string Words() const { return "platform_test (process " + std::to_string(number_) + ')'; }

 private:
  const pid_t number_;
};

std::string Process(pid_t number) { return "(process " + std::to_string(number) + ')'; }

// Terminals of other file systems for terminals have the same numbers: others of the machine may be
// named beside those of the test.
TEST(PortTrouble, IsEveryOtherProcessThatHasTheDeviceOpen) {
  const PseudoTerminal line;
  std::optional<Heir> heir(std::in_place);
  const std::string words = heir->Words();
  {
    const Heir second;
    const std::string holders = PortTrouble(line.Device());
    EXPECT_THAT(holders, HasSubstr(words));
    EXPECT_THAT(holders, HasSubstr(second.Words()));
    EXPECT_THAT(holders,
                MatchesRegex("held by [^,]+\\(process [0-9]+\\)(, [^,]+\\(process [0-9]+\\))+"));
    EXPECT_THAT(holders, Not(HasSubstr(Process(getpid()))));
    EXPECT_THAT(holders, Not(HasSubstr(Process(getppid()))));
  }
  EXPECT_THAT(PortTrouble(line.Device()), HasSubstr(words));
  heir.reset();
  EXPECT_THAT(PortTrouble(line.Device()), Not(HasSubstr(words)));
}

TEST(PortTrouble, IsThatThereIsNoSuchDevice) {
  const TempFolder folder;
  EXPECT_EQ(PortTrouble(folder.Path() / "missing"), "there is no such device");
}

TEST(PortTrouble, IsThatAFileIsNoDevice) {
  TempFolder folder;
  folder.WriteFile("file", {});
  const std::ifstream open(folder.Path() / "file");
  const Heir heir;
  EXPECT_EQ(PortTrouble(folder.Path() / "file"), "it is no device");
}

TEST(PortTrouble, IsTheLackOfARight) {
  const PseudoTerminal line;
  ASSERT_EQ(chmod(line.Device().c_str(), 0), 0);
  const uid_t user = geteuid();
  constexpr uid_t kNobody = 65534;  // the rights of files don't bind an administrator
  if (user == 0) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  const std::string trouble = PortTrouble(line.Device());
  if (user == 0) {
    ASSERT_EQ(seteuid(user), 0);
  }
  EXPECT_EQ(trouble, "you may not use it");
}

}  // namespace
}  // namespace sorvane::test
