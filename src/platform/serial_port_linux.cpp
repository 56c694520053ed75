#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QEvent>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <functional>
#include <utility>

#include "board/errors.h"
#include "platform/serial_device.h"

namespace sorvane {
namespace {

// A device that is open for this program alone. The lock ends with the program, however it ends.
// The exclusive mode of a terminal is respected in others and never taken: with a second holder of
// the terminal it would outlive this program, and keep out whoever comes next, this program first.
class DeviceFile {
 public:
  // Throws RuntimeError kPort for a device that is missing or held.
  explicit DeviceFile(const std::filesystem::path& device)
      : number_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    int exclusive = 0;
    const bool taken = number_ >= 0 && flock(number_, LOCK_EX | LOCK_NB) == 0 &&
                       ioctl(number_, TIOCGEXCL, &exclusive) == 0 && exclusive == 0;
    if (taken) return;
    if (number_ >= 0) close(number_);
    throw RuntimeError(ErrorCode::kPort);
  }
  ~DeviceFile() { close(number_); }

  DeviceFile(const DeviceFile&) = delete;
  DeviceFile& operator=(const DeviceFile&) = delete;

  int Number() const { return number_; }

 private:
  int number_;
};

// 19200 baud, no parity, 8 data bits, 1 stop bit, no handshake, and every byte as it comes; a byte
// with a line error is left out. Opening has raised both lines to the board.
bool SetLine(int device) {
  termios line{};
  if (tcgetattr(device, &line) != 0) return false;
  cfmakeraw(&line);
  line.c_iflag = IGNPAR;
  line.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
  line.c_cflag |= CLOCAL | CREAD;
  line.c_cc[VMIN] = 1;
  line.c_cc[VTIME] = 0;
  cfsetspeed(&line, B19200);
  return tcsetattr(device, TCSANOW, &line) == 0;
}

bool WouldWait() { return errno == EAGAIN || errno == EINTR; }

// Calls a handler right from its event: what an arrival costs is the code that has to be fetched
// into the processor's caches for it, and a signal would bring some more.
class Notifier : public QSocketNotifier {
 public:
  Notifier(int number, Type type, std::function<void()> handler)
      : QSocketNotifier(number, type), handler_(std::move(handler)) {}

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::SockAct) return QSocketNotifier::event(event);
    const std::function<void()> handler = handler_;  // it may destroy the device
    handler();
    return true;
  }

 private:
  const std::function<void()> handler_;
};

class LinuxSerialDevice : public SerialDevice {
 public:
  LinuxSerialDevice(const std::filesystem::path& device, SerialDeviceListener& listener)
      : listener_(listener), file_(device) {
    if (!SetLine(file_.Number())) throw RuntimeError(ErrorCode::kPort);
    tcflush(file_.Number(), TCIOFLUSH);
    room_.setEnabled(false);
  }
  ~LinuxSerialDevice() override { tcflush(file_.Number(), TCIOFLUSH); }

  void Write(const Bytes& bytes) override {
    if (lost_) return;
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    if (!room_.isEnabled()) SendWaiting();
  }

  std::size_t Available() const override { return received_.size(); }

  Bytes TakeAll() override { return std::exchange(received_, {}); }

 private:
  void OnArrival() {
    std::array<uint8_t, 4096> piece;
    const ssize_t count = read(file_.Number(), piece.data(), piece.size());
    if (count > 0) {
      received_.insert(received_.end(), piece.begin(), piece.begin() + count);
      listener_.OnBytes();
    } else if (count == 0 || !WouldWait()) {
      Lose();
    }
  }

  // Sends as much as the line takes, and the rest when it has room again.
  void SendWaiting() {
    while (!waiting_.empty()) {
      const ssize_t count = write(file_.Number(), waiting_.data(), waiting_.size());
      if (count < 0 && !WouldWait()) {
        Lose();
        return;
      }
      if (count <= 0) break;
      waiting_.erase(waiting_.begin(), waiting_.begin() + count);
    }
    if (room_.isEnabled() == waiting_.empty()) room_.setEnabled(!waiting_.empty());
  }

  void Lose() {
    if (std::exchange(lost_, true)) return;
    arrival_.setEnabled(false);
    room_.setEnabled(false);
    listener_.OnLost();
  }

  SerialDeviceListener& listener_;
  DeviceFile file_;
  Notifier arrival_{file_.Number(), QSocketNotifier::Read, [this] { OnArrival(); }};
  Notifier room_{file_.Number(), QSocketNotifier::Write, [this] { SendWaiting(); }};
  Bytes received_;
  Bytes waiting_;
  bool lost_ = false;
};

}  // namespace

std::unique_ptr<SerialDevice> OpenSerialDevice(const std::filesystem::path& path,
                                               SerialDeviceListener& listener) {
  return std::make_unique<LinuxSerialDevice>(path, listener);
}

}  // namespace sorvane
