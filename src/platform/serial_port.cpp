#include "platform/serial_port.h"

#include <QMetaObject>
#include <QObject>
#include <utility>

#include "board/errors.h"
#include "platform/serial_device.h"

namespace sorvane {
namespace {

// What the device tells is only noted; what follows from it is a posted event. So no call of the
// program ever comes from within the device, which could neither deliver nor close there.
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
    device_ = OpenSerialDevice(folder_, number_);
    open_ = true;
    ++opening_;
    device_->on_bytes = [this] { OnBytes(); };
    // A device that vanished would raise errors without end.
    device_->on_lost = [this] { Post([this] { device_.reset(); }); };
  }

  void Close() override {
    device_.reset();
    open_ = false;
  }

  void Output(const Bytes& bytes) override {
    if (!open_) throw RuntimeError(ErrorCode::kPort);
    if (device_) device_->Write(bytes);
  }

  std::size_t InBufferCount() const override { return device_ ? device_->Available() : 0; }

  Bytes Input() override { return device_ ? device_->TakeAll() : Bytes(); }

 private:
  void OnBytes() {
    Post([this] {
      // The bytes may have been taken meanwhile; an event without any would count as a reply.
      if (InBufferCount() > 0 && on_comm) enter_([this] { on_comm(kCommEventReceive); });
    });
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
  std::unique_ptr<SerialDevice> device_;  // none while closed or vanished
};

}  // namespace

std::unique_ptr<Port> MakeSerialPort(const std::filesystem::path& folder, EnterEvent enter) {
  return std::make_unique<SerialPort>(folder, std::move(enter));
}

}  // namespace sorvane
