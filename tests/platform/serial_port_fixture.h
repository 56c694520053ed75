#pragma once

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

#include "board/errors.h"
#include "platform/com_port_path.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"
#include "platform/test_line.h"

namespace sorvane::test {

// A program's serial port and the line that it opens.
class SerialPortTest : public ::testing::Test {
 protected:
  std::unique_ptr<Port> MakePort() {
    const auto find_port = [this](int number) { return ComPortPath(line_.Folder(), number); };
    auto port = MakeSerialPort(find_port, [this](const std::function<void()>& handler) {
      ++entered_;
      if (gate_open_) handler();
    });
    port->SetCommPort(1);
    return port;
  }

  // The code of the error that action ends in; none if it succeeds.
  static std::optional<ErrorCode> ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return error.Code();
    }
    return std::nullopt;
  }

  std::optional<ErrorCode> ErrorOfOpen() {
    return ErrorOf([this] { port_->Open(); });
  }

  // Counts receptions, and takes the bytes of each.
  void TakeReceptions() {
    port_->on_comm = [this](int comm_event) {
      ++events_;
      EXPECT_EQ(comm_event, kCommEventReceive);
      const Bytes bytes = port_->Input();
      received_.insert(received_.end(), bytes.begin(), bytes.end());
    };
  }

  // Sends a byte that nothing else sends, and waits until the program has taken it: whatever was on
  // its way before has come by then.
  void SendLast(uint8_t last) {
    line_.Send({last});
    EXPECT_TRUE(RunUntil([&] { return !received_.empty() && received_.back() == last; }));
  }

  // What comes to the board, once that many bytes have come.
  Bytes TakeFromLine(std::size_t count) {
    Bytes taken;
    EXPECT_TRUE(RunUntil([&] {
      const Bytes more = line_.Take();
      taken.insert(taken.end(), more.begin(), more.end());
      return taken.size() >= count;
    }));
    return taken;
  }

  // Waits until that many bytes, or more, lie at the device, where the program hasn't read them
  // yet.
  void WaitForArrival(int count) {
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (line_.CountArrived() < count) {
      ASSERT_FALSE(deadline.hasExpired());
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  TestLine line_;
  bool gate_open_ = true;
  int entered_ = 0;
  int events_ = 0;
  Bytes received_;
  std::unique_ptr<Port> port_ = MakePort();
};

}  // namespace sorvane::test
