#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <iterator>

#include "platform/serial_port_fixture.h"

namespace sorvane::test {
namespace {

// Another program that locks a device until it is stopped.
class Holder {
 public:
  explicit Holder(const std::filesystem::path& device) {
    std::array<int, 2> ready{};
    EXPECT_EQ(pipe(ready.data()), 0);
    process_ = fork();
    if (process_ == 0) {
      const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY);
      const char answer = flock(descriptor, LOCK_EX | LOCK_NB) == 0 ? 'h' : 'n';
      if (write(ready[1], &answer, 1) == 1) pause();
      _exit(1);
    }
    close(ready[1]);
    char answer = 0;
    EXPECT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'h');
    close(ready[0]);
  }
  ~Holder() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

 private:
  pid_t process_ = -1;
};

class PortLockTest : public SerialPortTest {
 protected:
  std::filesystem::path Device() const {
    return std::filesystem::canonical(line_.Folder() / "COM1");
  }
};

TEST_F(PortLockTest, APortOfThisProgramIsHeldAgainstASecondOne) {
  port_->Open();
  const std::unique_ptr<Port> second = MakePort();
  EXPECT_EQ(ErrorOf([&] { second->Open(); }), ErrorCode::kPort);
  EXPECT_FALSE(second->PortOpen());
}

TEST_F(PortLockTest, ARefusedSecondOpeningLeavesTheFirstAlone) {
  TakeReceptions();
  port_->Open();
  line_.Send({1});
  ErrorOf([&] { MakePort()->Open(); });
  SendLast(9);
  EXPECT_EQ(received_, (Bytes{1, 9}));
}

TEST_F(PortLockTest, ARefusedOpeningLeavesNoDescriptorBehind) {
  const Holder holder(Device());
  const auto count_descriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  ErrorOfOpen();
  const auto before = count_descriptors();
  ErrorOfOpen();
  EXPECT_EQ(count_descriptors(), before);
}

TEST_F(PortLockTest, APortThatAnotherProgramLocksIsRefused) {
  const Holder holder(Device());
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(PortLockTest, APortIsFreeOnceItsHolderWasKilled) {
  { const Holder holder(Device()); }
  EXPECT_EQ(ErrorOfOpen(), std::nullopt);
}

TEST_F(PortLockTest, NoExclusiveModeOutlivesAKilledProgram) {
  port_->Open();
  const int descriptor = open(Device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  int exclusive = -1;
  EXPECT_EQ(ioctl(descriptor, TIOCGEXCL, &exclusive), 0);
  EXPECT_EQ(exclusive, 0);
  close(descriptor);
}

}  // namespace
}  // namespace sorvane::test
