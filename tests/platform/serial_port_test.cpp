#include <gtest/gtest.h>

#include "platform/serial_port_fixture.h"

namespace sorvane::test {
namespace {

Bytes AllBytes() {
  Bytes bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<uint8_t>(byte));
  return bytes;
}

TEST_F(SerialPortTest, IsClosedAtFirst) {
  EXPECT_FALSE(port_->PortOpen());
  EXPECT_EQ(port_->InBufferCount(), 0U);
  EXPECT_EQ(port_->Input(), Bytes());
}

TEST_F(SerialPortTest, IsOpenBetweenOpenAndClose) {
  port_->Open();
  EXPECT_TRUE(port_->PortOpen());
  port_->Close();
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialPortTest, TheLineIsSetAsTheBoardsIs) {
  port_->Open();
  EXPECT_EQ(line_.Settings(), "19200 baud, 1 stop bit");
}

TEST_F(SerialPortTest, AMissingDeviceCannotBeOpened) {
  line_.Remove();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialPortTest, AFileThatIsNoTerminalCannotBeOpened) {
  line_.PutFile();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
}

TEST_F(SerialPortTest, ADeviceThatIsHeldCannotBeOpened) {
  line_.HoldAlone();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialPortTest, AnOpenPortCannotBeOpened) {
  port_->Open();
  EXPECT_EQ(ErrorOfOpen(), ErrorCode::kPort);
  EXPECT_TRUE(port_->PortOpen());
}

TEST_F(SerialPortTest, AClosedPortIsFreeForASecondOne) {
  port_->Open();
  port_->Close();
  const std::unique_ptr<Port> second = MakePort();
  EXPECT_EQ(ErrorOf([&] { second->Open(); }), std::nullopt);
}

TEST_F(SerialPortTest, AnOpenPortKeepsItsNumber) {
  port_->Open();
  EXPECT_EQ(ErrorOf([&] { port_->SetCommPort(1); }), ErrorCode::kPort);
}

TEST_F(SerialPortTest, AClosedPortTakesNoOutput) {
  EXPECT_EQ(ErrorOf([&] { port_->Output({1}); }), ErrorCode::kPort);
}

TEST_F(SerialPortTest, ClosingAClosedPortDoesNothing) {
  port_->Close();
  EXPECT_FALSE(port_->PortOpen());
}

TEST_F(SerialPortTest, EveryByteReachesTheProgram) {
  TakeReceptions();
  port_->Open();
  line_.Send(AllBytes());
  EXPECT_TRUE(RunUntil([&] { return received_.size() >= 256; }));
  EXPECT_EQ(received_, AllBytes());
}

TEST_F(SerialPortTest, EveryByteReachesTheBoard) {
  port_->Open();
  port_->Output(AllBytes());
  EXPECT_EQ(TakeFromLine(256), AllBytes());
}

TEST_F(SerialPortTest, OutputComesBehindWhatIsStillOnItsWay) {
  constexpr std::size_t kMoreThanTheLineHolds = 200000;
  port_->Open();
  Bytes expected(kMoreThanTheLineHolds, 1);
  port_->Output(expected);
  for (const Bytes& bytes : {Bytes{2, 3}, Bytes(), AllBytes()}) {
    port_->Output(bytes);
    expected.insert(expected.end(), bytes.begin(), bytes.end());
  }
  EXPECT_EQ(TakeFromLine(expected.size()), expected);
}

TEST_F(SerialPortTest, TheReceiveBufferHolds1024Bytes) {
  port_->Open();
  line_.Send(Bytes(1024, 7));
  EXPECT_TRUE(RunUntil([&] { return port_->InBufferCount() == 1024; }));
  EXPECT_EQ(port_->Input(), Bytes(1024, 7));
  EXPECT_EQ(port_->InBufferCount(), 0U);
}

TEST_F(SerialPortTest, BytesThatArriveTogetherAreOneEvent) {
  TakeReceptions();
  port_->Open();
  line_.Send({1, 2, 3});
  EXPECT_TRUE(RunUntil([&] { return events_ > 0; }));
  EXPECT_EQ(events_, 1);
  EXPECT_EQ(received_, (Bytes{1, 2, 3}));
}

TEST_F(SerialPortTest, BytesThatArriveApartAreAnEventEach) {
  TakeReceptions();
  port_->Open();
  SendLast(1);
  SendLast(2);
  SendLast(3);
  EXPECT_EQ(events_, 3);
}

TEST_F(SerialPortTest, AnEventTakesNoBytes) {
  port_->on_comm = [this](int) { ++events_; };
  port_->Open();
  line_.Send({1, 2});
  EXPECT_TRUE(RunUntil([&] { return events_ == 1; }));
  line_.Send({3});
  EXPECT_TRUE(RunUntil([&] { return events_ == 2; }));
  EXPECT_EQ(port_->Input(), (Bytes{1, 2, 3}));
}

TEST_F(SerialPortTest, EventsEnterThroughTheGate) {
  TakeReceptions();
  port_->Open();
  SendLast(1);
  EXPECT_EQ(entered_, 1);
}

TEST_F(SerialPortTest, NothingHappensBehindAShutGate) {
  TakeReceptions();
  gate_open_ = false;
  port_->Open();
  line_.Send({1});
  EXPECT_TRUE(RunUntil([&] { return entered_ > 0; }));
  EXPECT_EQ(events_, 0);
}

TEST_F(SerialPortTest, WithoutAHandlerBytesWaitInTheBuffer) {
  port_->Open();
  line_.Send({1});
  EXPECT_TRUE(RunUntil([&] { return port_->InBufferCount() == 1; }));
  line_.Send({2});
  EXPECT_TRUE(RunUntil([&] { return port_->InBufferCount() == 2; }));
  TakeReceptions();
  SendLast(3);
  EXPECT_EQ(received_, (Bytes{1, 2, 3}));
}

TEST_F(SerialPortTest, BytesFromBeforeTheOpenAreThrownAway) {
  TakeReceptions();
  line_.Send({1, 2, 3});
  WaitForArrival(3);
  port_->Open();
  SendLast(9);
  EXPECT_EQ(received_, Bytes{9});
}

TEST_F(SerialPortTest, CloseThrowsTheReceiveBufferAway) {
  port_->Open();
  line_.Send({1, 2, 3});
  EXPECT_TRUE(RunUntil([&] { return port_->InBufferCount() == 3; }));
  port_->Close();
  EXPECT_EQ(port_->InBufferCount(), 0U);
  EXPECT_EQ(port_->Input(), Bytes());
  port_->Open();
  EXPECT_EQ(port_->InBufferCount(), 0U);
}

TEST_F(SerialPortTest, CloseThrowsAwayWhatTheProgramHasNotReadYet) {
  port_->Open();
  line_.Send({1, 2, 3});
  // A read that is under way may have taken the first.
  WaitForArrival(2);
  port_->Close();
  EXPECT_EQ(line_.CountArrived(), 0);
}

TEST_F(SerialPortTest, CloseThrowsUnsentOutputAway) {
  constexpr std::size_t kMoreThanTheLineHolds = 1000000;
  port_->Open();
  port_->Output(Bytes(kMoreThanTheLineHolds, 1));
  port_->Close();
  std::size_t taken = line_.Take().size();
  port_->Open();
  port_->Output({2});
  EXPECT_TRUE(RunUntil([&] {
    const Bytes more = line_.Take();
    taken += more.size();
    return !more.empty() && more.back() == 2;
  }));
  EXPECT_LT(taken, kMoreThanTheLineHolds);
}

TEST_F(SerialPortTest, CanBeClosedAndOpenedManyTimes) {
  TakeReceptions();
  for (uint8_t round = 1; round <= 100 && !HasFailure(); ++round) {
    port_->Open();
    SendLast(round);
    port_->Output({round});
    EXPECT_EQ(TakeFromLine(1), Bytes{round});
    port_->Close();
  }
  EXPECT_EQ(events_, 100);
}

TEST_F(SerialPortTest, AnArrivalOfTheLastOpeningRaisesNoEvent) {
  TakeReceptions();
  port_->Open();
  line_.Send({1, 2, 3});
  // A read that is under way may have taken the first; its end is told by an event of the last
  // opening.
  WaitForArrival(2);
  port_->Close();
  port_->Open();
  SendLast(9);
  EXPECT_EQ(received_, Bytes{9});
  EXPECT_EQ(events_, 1);
}

TEST_F(SerialPortTest, AnEventCanCloseAndOpenThePort) {
  port_->on_comm = [this](int) {
    port_->Close();
    port_->Open();
    ++events_;
  };
  port_->Open();
  line_.Send({1});
  EXPECT_TRUE(RunUntil([&] { return events_ == 1; }));
  TakeReceptions();
  SendLast(9);
  EXPECT_EQ(received_, Bytes{9});
}

TEST_F(SerialPortTest, AnEventCanCloseThePort) {
  port_->on_comm = [this](int) {
    ++events_;
    port_->Close();
  };
  port_->Open();
  line_.Send({1});
  EXPECT_TRUE(RunUntil([&] { return events_ == 1; }));
  EXPECT_FALSE(port_->PortOpen());
  EXPECT_FALSE(line_.IsOpen());
}

TEST_F(SerialPortTest, AnEventCanPutBytesOut) {
  port_->on_comm = [this](int) { port_->Output(port_->Input()); };
  port_->Open();
  line_.Send({1, 2});
  EXPECT_EQ(TakeFromLine(2), (Bytes{1, 2}));
}

}  // namespace
}  // namespace sorvane::test
