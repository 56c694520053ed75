#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QFileInfo>
#include <QObject>
#include <QSerialPort>
#include <utility>

#include "board/errors.h"
#include "platform/com_port_path.h"
#include "platform/serial_port.h"

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

// One opening of the device, up to the close.
struct OpenDevice {
  explicit OpenDevice(const std::filesystem::path& device) : lock(device) {
    serial.setPortName(QFileInfo(device).filePath());
    serial.setBaudRate(QSerialPort::Baud19200);
    serial.setDataBits(QSerialPort::Data8);
    serial.setParity(QSerialPort::NoParity);
    serial.setStopBits(QSerialPort::OneStop);
    serial.setFlowControl(QSerialPort::NoFlowControl);
    if (!serial.open(QIODevice::ReadWrite)) throw RuntimeError(ErrorCode::kPort);
    // A pseudo-terminal would stay in exclusive mode after a program that was killed, and turn the
    // next one away.
    if (device.parent_path() == "/dev/pts") ioctl(serial.handle(), TIOCNXCL);
    serial.clear();
  }
  ~OpenDevice() {
    if (serial.isOpen()) serial.clear();
  }

  DeviceLock lock;
  QSerialPort serial;
};

// Signals of QSerialPort are only noted; what follows from them is a posted event. So no call of
// the program ever comes from within the QSerialPort, which could neither deliver nor close there.
class SerialPort : public QObject, public Port {
 public:
  SerialPort(std::filesystem::path folder, EnterEvent enter)
      : folder_(std::move(folder)), enter_(std::move(enter)) {}

  void SetCommPort(int number) override {
    if (open_) throw RuntimeError(ErrorCode::kPort);
    number_ = number;
  }

  bool PortOpen() const override { return open_; }

  void Open() override {
    if (open_) throw RuntimeError(ErrorCode::kPort);
    device_ = std::make_unique<OpenDevice>(ComPortPath(folder_, number_));
    open_ = true;
    ++opening_;
    connect(&device_->serial, &QSerialPort::readyRead, this, [this] { OnBytes(); });
    connect(&device_->serial, &QSerialPort::errorOccurred, this, [this] { OnError(); });
  }

  void Close() override {
    device_.reset();
    open_ = false;
  }

  void Output(const Bytes& bytes) override {
    if (!open_) throw RuntimeError(ErrorCode::kPort);
    if (!device_) return;
    device_->serial.write(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qint64>(bytes.size()));
    device_->serial.flush();
  }

  std::size_t InBufferCount() const override {
    return device_ ? static_cast<std::size_t>(device_->serial.bytesAvailable()) : 0;
  }

  Bytes Input() override {
    if (!device_) return {};
    const QByteArray bytes = device_->serial.readAll();
    return Bytes(bytes.begin(), bytes.end());
  }

 private:
  void OnBytes() {
    Post([this] {
      // The bytes may have been taken meanwhile; an event without any would count as a reply.
      if (InBufferCount() > 0 && on_comm) enter_([this] { on_comm(kCommEventReceive); });
    });
  }

  // A device that vanished would raise errors without end.
  void OnError() {
    device_->serial.disconnect(this);
    Post([this] { device_.reset(); });
  }

  // Runs handler in an event of its own, unless the device has been closed by then.
  void Post(std::function<void()> handler) {
    const auto run = [this, opening = opening_, handler = std::move(handler)] {
      if (device_ && opening == opening_) handler();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
  }

  std::filesystem::path folder_;
  EnterEvent enter_;
  int number_ = 1;
  int opening_ = 0;  // tells the events of one opening from those of the next
  bool open_ = false;
  std::unique_ptr<OpenDevice> device_;  // none while closed or vanished
};

}  // namespace

std::unique_ptr<Port> MakeSerialPort(const std::filesystem::path& folder, EnterEvent enter) {
  return std::make_unique<SerialPort>(folder, std::move(enter));
}

}  // namespace sorvane
