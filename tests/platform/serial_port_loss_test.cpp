#include <gtest/gtest.h>

#include "platform/serial_port_fixture.h"

namespace sorvane::test {
namespace {

class VanishedPortTest : public SerialPortTest {
 protected:
  VanishedPortTest() {
    TakeReceptions();
    port_->Open();
  }

  void Vanish() {
    line_.Vanish();
    EXPECT_TRUE(RunUntil([&] { return !line_.IsOpen(); }));
  }
};

TEST_F(VanishedPortTest, TheDeviceIsClosedAtOnce) {
  EXPECT_TRUE(line_.IsOpen());
  Vanish();
  EXPECT_FALSE(line_.IsOpen());
}

TEST_F(VanishedPortTest, CountsAsOpenUntilItIsClosed) {
  Vanish();
  line_.Replace();
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
  // Two timers beat while wake-ups are counted; each may wake the loop a few times.
  EXPECT_LE(CountWakeUps(kBeats), 10 * kBeats);
}

TEST_F(VanishedPortTest, OutputOnTheWayIsSwallowed) {
  line_.Vanish();
  EXPECT_EQ(ErrorOf([&] { port_->Output({1, 2, 3}); }), std::nullopt);
  EXPECT_TRUE(RunUntil([&] { return !line_.IsOpen(); }));
  EXPECT_TRUE(port_->PortOpen());
}

TEST_F(VanishedPortTest, BytesThatCameBeforeAreStillDelivered) {
  port_->on_comm = [this](int) {
    line_.Vanish();
    port_->Output({3});  // notices the loss
    received_ = port_->Input();
  };
  line_.Send({1, 2});
  EXPECT_TRUE(RunUntil([&] { return !line_.IsOpen(); }));
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
  line_.Replace();
  port_->Close();
  port_->Open();
  line_.Send({5});
  EXPECT_TRUE(RunUntil([&] { return received_ == Bytes{5}; }));
}

TEST_F(VanishedPortTest, TheNewDeviceOutlivesTheLossOfTheOld) {
  line_.Vanish();
  port_->Output({1});  // notices the loss
  line_.Replace();
  port_->Close();
  port_->Open();
  line_.Send({5});
  EXPECT_TRUE(RunUntil([&] { return received_ == Bytes{5}; }));
  port_->Output({6});
  EXPECT_EQ(TakeFromLine(1), Bytes{6});
}

}  // namespace
}  // namespace sorvane::test
