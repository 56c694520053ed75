#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QFileInfo>
#include <QObject>
#include <QSerialPort>

#include "board/errors.h"
#include "platform/com_port_path.h"
#include "platform/serial_device.h"

namespace sorvane {
namespace {

// Keeps a device for this program alone. The exclusive mode that a serial port is opened in isn't
// enough: it doesn't hold off a privileged user. The lock ends with the program, however it ends.
class DeviceLock {
 public:
  // Throws RuntimeError kPort for a device that is missing or held.
  explicit DeviceLock(const std::filesystem::path& device)
      : descriptor_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    int exclusive = 0;
    const bool taken = descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0 &&
                       ioctl(descriptor_, TIOCGEXCL, &exclusive) == 0 && exclusive == 0;
    if (taken) return;
    if (descriptor_ >= 0) close(descriptor_);
    throw RuntimeError(ErrorCode::kPort);
  }
  ~DeviceLock() { close(descriptor_); }

  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

 private:
  int descriptor_;
};

class LinuxSerialDevice : public SerialDevice {
 public:
  explicit LinuxSerialDevice(const std::filesystem::path& device) : lock_(device) {
    serial_.setPortName(QFileInfo(device).filePath());
    serial_.setBaudRate(QSerialPort::Baud19200);
    serial_.setDataBits(QSerialPort::Data8);
    serial_.setParity(QSerialPort::NoParity);
    serial_.setStopBits(QSerialPort::OneStop);
    serial_.setFlowControl(QSerialPort::NoFlowControl);
    if (!serial_.open(QIODevice::ReadWrite)) throw RuntimeError(ErrorCode::kPort);
    // A pseudo-terminal would stay in exclusive mode after a program that was killed, and turn the
    // next one away.
    if (device.parent_path() == "/dev/pts") ioctl(serial_.handle(), TIOCNXCL);
    serial_.clear();
    QObject::connect(&serial_, &QSerialPort::readyRead, &context_, [this] { on_bytes(); });
    QObject::connect(&serial_, &QSerialPort::errorOccurred, &context_, [this] {
      serial_.disconnect(&context_);
      on_lost();
    });
  }
  ~LinuxSerialDevice() override {
    serial_.disconnect(&context_);
    if (serial_.isOpen()) serial_.clear();
  }

  void Write(const Bytes& bytes) override {
    // To flush to a line that takes nothing for now would count as its loss.
    const bool idle = serial_.bytesToWrite() == 0;
    serial_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    if (idle) serial_.flush();
  }

  std::size_t Available() const override {
    return static_cast<std::size_t>(serial_.bytesAvailable());
  }

  Bytes TakeAll() override {
    const QByteArray bytes = serial_.readAll();
    return Bytes(bytes.begin(), bytes.end());
  }

 private:
  DeviceLock lock_;
  QSerialPort serial_;
  QObject context_;
};

}  // namespace

std::unique_ptr<SerialDevice> OpenSerialDevice(const std::filesystem::path& folder, int number) {
  return std::make_unique<LinuxSerialDevice>(ComPortPath(folder, number));
}

}  // namespace sorvane
