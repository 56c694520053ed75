#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/pseudo_terminal.h"
#include "platform/serial_port_fixture.h"

namespace sorvane::test {
namespace {

// A port of which a test says where it is found. It isn't at the line.
class PortChoiceTest : public SerialPortTest {
 protected:
  PortChoiceTest() {
    port_ = MakeSerialPort([this](int) { return found_; },
                           [](const std::function<void()>& handler) { handler(); });
  }

  // Whether what the port puts out comes to a terminal.
  bool Reaches(const PseudoTerminal& terminal) {
    port_->Output({7});
    return RunUntil([&] { return terminal.Take() == Bytes{7}; });
  }

  std::filesystem::path Link() const { return line_.Folder() / "chosen"; }

  void LinkTo(const PseudoTerminal& terminal) const {
    std::filesystem::remove(Link());
    std::filesystem::create_symlink(terminal.Device(), Link());
  }

  PseudoTerminal first_;
  PseudoTerminal second_;
  std::filesystem::path found_ = first_.Device();
};

TEST_F(PortChoiceTest, APortThatIsOpenedAgainStaysWhereItWasFound) {
  port_->SetCommPort(1);
  port_->Open();
  found_ = second_.Device();
  port_->Close();
  port_->Open();
  EXPECT_TRUE(Reaches(first_));
}

TEST_F(PortChoiceTest, SettingTheNumberFindsThePortAnew) {
  port_->SetCommPort(1);
  port_->Open();
  found_ = second_.Device();
  port_->Close();
  port_->SetCommPort(1);
  port_->Open();
  EXPECT_TRUE(Reaches(second_));
}

TEST_F(PortChoiceTest, ALinkIsFollowedWhereverItLeadsByThen) {
  LinkTo(first_);
  found_ = Link();
  port_->SetCommPort(1);
  port_->Open();
  LinkTo(second_);
  port_->Close();
  port_->Open();
  EXPECT_TRUE(Reaches(second_));
}

TEST_F(PortChoiceTest, ALinkThatIsGoneIsADeviceThatIsMissingAndOpensAgainWhenItIsBack) {
  LinkTo(first_);
  found_ = Link();
  port_->SetCommPort(1);
  port_->Open();
  std::filesystem::remove(Link());
  found_ = second_.Device();
  port_->Close();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  LinkTo(first_);
  port_->Open();
  EXPECT_TRUE(Reaches(first_));
}

TEST_F(PortChoiceTest, APortThatIsClosedOrHasItsDeviceHasntVanished) {
  port_->SetCommPort(1);
  EXPECT_FALSE(port_->Vanished());
  port_->Open();
  EXPECT_FALSE(port_->Vanished());
  first_.Vanish();
  EXPECT_TRUE(RunUntil([&] { return port_->Vanished(); }));
  port_->Close();
  EXPECT_FALSE(port_->Vanished());
}

TEST_F(PortChoiceTest, APortThatIsOpenedAgainHasntVanished) {
  LinkTo(first_);
  found_ = Link();
  port_->SetCommPort(1);
  port_->Open();
  first_.Vanish();
  EXPECT_TRUE(RunUntil([&] { return port_->Vanished(); }));
  LinkTo(second_);
  port_->Close();
  port_->Open();
  EXPECT_FALSE(port_->Vanished());
}

// A terminal that another process has open too stays as it is left when this program closes it.
TEST_F(PortChoiceTest, ATerminalWithASecondHolderIsOpenedAgainAndAgain) {
  const int holder = open(first_.Device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_GE(holder, 0);
  port_->SetCommPort(1);
  for (int i = 0; i < 3; ++i) {
    port_->Open();
    EXPECT_TRUE(Reaches(first_));
    port_->Close();
    int exclusive = -1;
    EXPECT_EQ(ioctl(holder, TIOCGEXCL, &exclusive), 0);
    EXPECT_EQ(exclusive, 0);
  }
  close(holder);
}

}  // namespace
}  // namespace sorvane::test
