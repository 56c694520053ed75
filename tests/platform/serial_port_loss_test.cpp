#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <iterator>

#include "platform/serial_port_fixture.h"

namespace sorvane::test {
namespace {

// Another program that holds a device until it is stopped.
class Holder {
 public:
  enum class Way { kLock, kExclusiveMode };

  Holder(const std::filesystem::path& device, Way way) {
    std::array<int, 2> ready{};
    EXPECT_EQ(pipe(ready.data()), 0);
    process_ = fork();
    if (process_ == 0) {
      const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY);
      const bool held = way == Way::kLock ? flock(descriptor, LOCK_EX | LOCK_NB) == 0
                                          : ioctl(descriptor, TIOCEXCL) == 0;
      const char answer = held ? 'h' : 'n';
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

TEST_F(SerialPortTest, APortOfThisProgramIsHeldAgainstASecondOne) {
  port_->Open();
  const std::unique_ptr<Port> second = MakePort();
  EXPECT_EQ(ErrorOf([&] { second->Open(); }), ErrorCode::kPort);
  EXPECT_FALSE(second->PortOpen());
}

TEST_F(SerialPortTest, ARefusedSecondOpeningLeavesTheFirstAlone) {
  TakeReceptions();
  port_->Open();
  line_.Send({1});
  ErrorOf([&] { MakePort()->Open(); });
  SendLast(9);
  EXPECT_EQ(received_, (Bytes{1, 9}));
}

TEST_F(SerialPortTest, ARefusedOpeningLeavesNoDescriptorBehind) {
  const Holder holder(line_.Device(), Holder::Way::kLock);
  const auto count_descriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  ErrorOfOpen();
  const auto before = count_descriptors();
  ErrorOfOpen();
  EXPECT_EQ(count_descriptors(), before);
}

TEST_F(SerialPortTest, AClosedPortIsFreeForASecondOne) {
  port_->Open();
  port_->Close();
  const std::unique_ptr<Port> second = MakePort();
  EXPECT_EQ(ErrorOf([&] { second->Open(); }), std::nullopt);
}

TEST_F(SerialPortTest, APortThatAnotherProgramLocksIsRefused) {
  const Holder holder(line_.Device(), Holder::Way::kLock);
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialPortTest, APortThatAnotherProgramHoldsInExclusiveModeIsRefused) {
  const Holder holder(line_.Device(), Holder::Way::kExclusiveMode);
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
}

TEST_F(SerialPortTest, APortIsFreeOnceItsHolderWasKilled) {
  { const Holder holder(line_.Device(), Holder::Way::kLock); }
  EXPECT_EQ(ErrorOfOpen(), std::nullopt);
}

TEST_F(SerialPortTest, NoExclusiveModeOutlivesAKilledProgram) {
  port_->Open();
  EXPECT_FALSE(line_.IsExclusive());
}

class VanishedPortTest : public SerialPortTest {
 protected:
  VanishedPortTest() {
    TakeReceptions();
    port_->Open();
  }

  // Whether this program still has the device open.
  bool HoldsDevice() const {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code error;
      const std::string target = std::filesystem::read_symlink(entry.path(), error).string();
      if (target.starts_with(line_.Device().string())) return true;
    }
    return false;
  }

  void Vanish() {
    line_.Vanish();
    EXPECT_TRUE(RunUntil([&] { return !HoldsDevice(); }));
  }
};

TEST_F(VanishedPortTest, TheDeviceIsClosedAtOnce) {
  EXPECT_TRUE(HoldsDevice());
  Vanish();
  EXPECT_FALSE(HoldsDevice());
}

TEST_F(VanishedPortTest, CountsAsOpenUntilItIsClosed) {
  Vanish();
  const PseudoTerminal next;
  LinkTo(next.Device());
  EXPECT_TRUE(port_->PortOpen());
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  port_->Close();
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(VanishedPortTest, SwallowsWhatIsPutOut) {
  Vanish();
  EXPECT_EQ(ErrorOf([&] { port_->Output({1, 2, 3}); }), std::nullopt);
}

TEST_F(VanishedPortTest, HoldsNoBytes) {
  Vanish();
  EXPECT_EQ(port_->InBufferCount(), 0U);
  EXPECT_EQ(port_->Input(), Bytes());
}

TEST_F(VanishedPortTest, RaisesNoEvents) {
  Vanish();
  EXPECT_EQ(entered_, 0);
}

TEST_F(VanishedPortTest, LeavesTheProgramAtRest) {
  constexpr int kBeats = 10;
  Vanish();
  // Two timers beat while wake-ups are counted.
  EXPECT_LE(CountWakeUps(kBeats), 4 * kBeats);
}

TEST_F(VanishedPortTest, OutputOnTheWayIsSwallowed) {
  line_.Vanish();
  EXPECT_EQ(ErrorOf([&] { port_->Output({1, 2, 3}); }), std::nullopt);
  EXPECT_TRUE(RunUntil([&] { return !HoldsDevice(); }));
  EXPECT_TRUE(port_->PortOpen());
}

TEST_F(VanishedPortTest, BytesThatCameBeforeAreStillDelivered) {
  line_.Send({1, 2});
  ActBeforeTheEvent([&] { line_.Vanish(); });
  EXPECT_TRUE(RunUntil([&] { return !HoldsDevice(); }));
  EXPECT_EQ(received_, (Bytes{1, 2}));
}

TEST_F(VanishedPortTest, CannotBeOpenedWhileItsDeviceIsMissing) {
  Vanish();
  port_->Close();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(VanishedPortTest, ComesBackWithItsDevice) {
  Vanish();
  const PseudoTerminal next;
  LinkTo(next.Device());
  port_->Close();
  port_->Open();
  next.Send({5});
  EXPECT_TRUE(RunUntil([&] { return received_ == Bytes{5}; }));
}

TEST_F(VanishedPortTest, TheNewDeviceOutlivesTheLossOfTheOld) {
  const PseudoTerminal next;
  line_.Vanish();
  port_->Output({1});  // notices the loss
  LinkTo(next.Device());
  port_->Close();
  port_->Open();
  next.Send({5});
  EXPECT_TRUE(RunUntil([&] { return received_ == Bytes{5}; }));
  port_->Output({6});
  EXPECT_TRUE(RunUntil([&] { return next.Take() == Bytes{6}; }));
}

}  // namespace
}  // namespace sorvane::test
