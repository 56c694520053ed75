#include <windows.h>

#include <QObject>
#include <QWinEventNotifier>
#include <optional>
#include <utility>

#include "board/errors.h"
#include "platform/serial_device.h"

namespace sorvane {
namespace {

constexpr DWORD kReceiveBuffer = 1024;  // bytes
constexpr DWORD kTransmitBuffer = 512;

struct CloseHandleOf {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandleOf>;

// Keeps the port for this program alone. Throws RuntimeError kPort for a port that is missing or
// held.
Handle OpenAlone(const std::filesystem::path& path) {
  const DWORD not_shared = 0;
  const HANDLE port = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, not_shared, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  if (port == INVALID_HANDLE_VALUE) throw RuntimeError(ErrorCode::kPort);
  return Handle(port);
}

// 19200 baud, no parity, 8 data bits, 1 stop bit, no handshake, both lines to the board raised. A
// line error spoils a byte and ends no request.
bool SetLine(HANDLE port) {
  DCB line{};
  line.DCBlength = sizeof line;
  if (!GetCommState(port, &line)) return false;
  line.BaudRate = CBR_19200;
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  line.fBinary = TRUE;
  line.fParity = FALSE;
  line.fOutxCtsFlow = FALSE;
  line.fOutxDsrFlow = FALSE;
  line.fDsrSensitivity = FALSE;
  line.fOutX = FALSE;
  line.fInX = FALSE;
  line.fErrorChar = FALSE;
  line.fNull = FALSE;
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  line.fAbortOnError = FALSE;
  return SetCommState(port, &line);
}

bool ThrowBuffersAway(HANDLE port) {
  return PurgeComm(port, PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
}

// A read or a write that Windows carries out in the background. Its end, also one at once, is an
// event of Qt; its memory must stay until then.
class Request {
 public:
  explicit Request(HANDLE port)
      : port_(port), end_(CreateEventW(nullptr, TRUE, FALSE, nullptr)), notifier_(end_.get()) {
    overlapped_.hEvent = end_.get();
  }

  template <typename Handler>
  void OnEnd(Handler handler) {
    QObject::connect(&notifier_, &QWinEventNotifier::activated, &notifier_, handler);
  }
  void Silence() { notifier_.setEnabled(false); }

  // Returns whether the request is under way.
  bool Read(void* bytes, std::size_t count) {
    return Started(ReadFile(port_, bytes, static_cast<DWORD>(count), nullptr, &overlapped_));
  }
  bool Write(const Bytes& bytes) {
    return Started(
        WriteFile(port_, bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &overlapped_));
  }

  bool UnderWay() const { return under_way_; }

  // Ends a request that is under way. Where bytes pass at the very moment, Wine forgets that it was
  // cancelled; so that is repeated.
  void Cancel() {
    constexpr DWORD kPatience = 10;  // ms
    while (under_way_) {
      CancelIoEx(port_, &overlapped_);
      if (WaitForSingleObject(end_.get(), kPatience) == WAIT_OBJECT_0) Finish();
    }
  }

  // Waits for the end of a request that is under way. Returns how many bytes it has carried; none
  // if it has failed.
  std::optional<std::size_t> Finish() {
    under_way_ = false;
    DWORD count = 0;
    const BOOL done = GetOverlappedResult(port_, &overlapped_, &count, TRUE);
    ResetEvent(end_.get());
    return done ? std::optional<std::size_t>(count) : std::nullopt;
  }

 private:
  bool Started(BOOL done) {
    under_way_ = done || GetLastError() == ERROR_IO_PENDING;
    return under_way_;
  }

  HANDLE port_;
  Handle end_;
  QWinEventNotifier notifier_;
  OVERLAPPED overlapped_{};
  bool under_way_ = false;
};

// A read of one byte is always under way. Its end tells of an arrival, and of a loss; what lies in
// the driver's buffer behind that byte is read with it.
class WindowsSerialDevice : public SerialDevice {
 public:
  WindowsSerialDevice(const std::filesystem::path& path, SerialDeviceListener& listener)
      : listener_(listener), port_(OpenAlone(path)) {
    COMMTIMEOUTS none{};
    const bool ready = SetupComm(port_.get(), kReceiveBuffer, kTransmitBuffer) &&
                       SetLine(port_.get()) && SetCommTimeouts(port_.get(), &none) &&
                       ThrowBuffersAway(port_.get()) && StartRead();
    if (!ready) throw RuntimeError(ErrorCode::kPort);
    read_.OnEnd([this] { OnArrival(); });
    write_.OnEnd([this] { OnWritten(); });
  }
  ~WindowsSerialDevice() override {
    read_.Cancel();
    write_.Cancel();
    ThrowBuffersAway(port_.get());
  }

  void Write(const Bytes& bytes) override {
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    if (!write_.UnderWay()) SendWaiting();
  }

  std::size_t Available() const override { return received_.size(); }

  Bytes TakeAll() override { return std::exchange(received_, {}); }

 private:
  bool StartRead() { return read_.Read(&first_, 1); }

  void OnArrival() {
    const std::size_t before = received_.size();
    const bool there = FinishRead() && ReadRest() && StartRead();
    if (!there) Lose();
    if (received_.size() > before) listener_.OnBytes();
  }

  bool FinishRead() {
    const std::optional<std::size_t> count = read_.Finish();
    if (count > 0) received_.push_back(first_);
    return count.has_value();
  }

  // Asks for no more than is there, so that it doesn't wait.
  bool ReadRest() {
    DWORD line_errors = 0;
    COMSTAT state{};
    if (!ClearCommError(port_.get(), &line_errors, &state)) return false;
    if (state.cbInQue == 0) return true;
    Bytes rest(state.cbInQue);
    if (!read_.Read(rest.data(), rest.size())) return false;
    const std::optional<std::size_t> count = read_.Finish();
    if (!count) return false;
    rest.resize(*count);
    received_.insert(received_.end(), rest.begin(), rest.end());
    return true;
  }

  void SendWaiting() {
    sending_ = std::exchange(waiting_, {});
    if (!sending_.empty() && !write_.Write(sending_)) Lose();
  }

  void OnWritten() {
    if (write_.Finish()) {
      SendWaiting();
    } else {
      Lose();
    }
  }

  void Lose() {
    if (std::exchange(lost_, true)) return;
    read_.Silence();
    write_.Silence();
    listener_.OnLost();
  }

  SerialDeviceListener& listener_;
  Handle port_;
  Request read_{port_.get()};
  Request write_{port_.get()};
  uint8_t first_ = 0;
  Bytes received_;
  Bytes sending_;
  Bytes waiting_;  // to be sent behind that
  bool lost_ = false;
};

}  // namespace

std::unique_ptr<SerialDevice> OpenSerialDevice(const std::filesystem::path& path,
                                               SerialDeviceListener& listener) {
  return std::make_unique<WindowsSerialDevice>(path, listener);
}

}  // namespace sorvane
