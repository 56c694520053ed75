#pragma once

#include <gtest/gtest.h>

#include <QMetaObject>
#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "board/errors.h"
#include "platform/event_loop.h"
#include "platform/pseudo_terminal.h"
#include "platform/serial_port.h"
#include "support/index_files.h"

namespace sorvane::test {

// A program's serial port and, by the link in the program's folder, the line that it opens.
class SerialPortTest : public ::testing::Test {
 protected:
  SerialPortTest() { LinkTo(line_.Device()); }

  void LinkTo(const std::filesystem::path& device) {
    const std::filesystem::path link = folder_.Path() / "COM1";
    std::filesystem::remove(link);
    std::filesystem::create_symlink(device, link);
  }

  std::unique_ptr<Port> MakePort() {
    auto port = MakeSerialPort(folder_.Path(), [this](const std::function<void()>& handler) {
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

  // Runs act in the moment in which bytes lie in the port's buffer and their event is still to
  // come.
  void ActBeforeTheEvent(const std::function<void()>& act) {
    bool acted = false;
    std::function<void()> watch = [&] {
      if (port_->InBufferCount() == 0) {
        QMetaObject::invokeMethod(&context_, watch, Qt::QueuedConnection);
        return;
      }
      EXPECT_EQ(events_, 0);
      act();
      acted = true;
    };
    watch();
    EXPECT_TRUE(RunUntil([&] { return acted; }));
  }

  TempFolder folder_;
  PseudoTerminal line_;
  bool gate_open_ = true;
  int entered_ = 0;
  int events_ = 0;
  Bytes received_;
  QObject context_;
  std::unique_ptr<Port> port_ = MakePort();
};

}  // namespace sorvane::test
