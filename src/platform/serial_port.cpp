#include "platform/serial_port.h"

#include <QMetaObject>
#include <QObject>
#include <utility>

#include "board/errors.h"
#include "platform/serial_device.h"

namespace sorvane {
namespace {

class SerialPort : public QObject, public Port, private SerialDeviceListener {
 public:
  SerialPort(FindPort find_port, EnterEvent enter)
      : find_port_(std::move(find_port)), enter_(std::move(enter)) {}

  void SetCommPort(int number) override {
    if (open_) throw RuntimeError(ErrorCode::kPort);
    path_ = find_port_(number);
  }

  bool PortOpen() const override { return open_; }

  void Open() override {
    if (open_) throw RuntimeError(ErrorCode::kPort);
    device_ = OpenSerialDevice(path_, *this);
    open_ = true;
    vanished_ = false;
    ++opening_;
  }

  void Close() override {
    device_.reset();
    open_ = false;
  }

  bool Vanished() const override { return open_ && vanished_; }

  void Output(const Bytes& bytes) override {
    if (!open_) throw RuntimeError(ErrorCode::kPort);
    if (device_) device_->Write(bytes);
  }

  std::size_t InBufferCount() const override { return device_ ? device_->Available() : 0; }

  Bytes Input() override { return device_ ? device_->TakeAll() : Bytes(); }

 private:
  void OnBytes() override {
    if (on_comm) enter_([this] { on_comm(kCommEventReceive); });
  }

  // A device that vanished would raise errors without end. It is closed in an event of its own,
  // since it may be at work right now, unless it has been closed by then.
  void OnLost() override {
    vanished_ = true;
    const auto close = [this, opening = opening_] {
      if (opening == opening_) device_.reset();
    };
    QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
  }

  FindPort find_port_;
  EnterEvent enter_;
  std::filesystem::path path_;
  int opening_ = 0;  // tells the loss of one opening's device from that of the next
  bool open_ = false;
  bool vanished_ = false;                 // since the last opening
  std::unique_ptr<SerialDevice> device_;  // none while closed or vanished
};

}  // namespace

std::unique_ptr<Port> MakeSerialPort(FindPort find_port, EnterEvent enter) {
  return std::make_unique<SerialPort>(std::move(find_port), std::move(enter));
}

}  // namespace sorvane
