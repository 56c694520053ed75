#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>

#include "board/reply.h"

namespace sorvane {

// Who is told of what happens at a serial device.
class SerialDeviceListener {
 public:
  virtual ~SerialDeviceListener() = default;

  // Bytes have been read. Comes from the event loop, as the device's last act in that event, so
  // that every call is allowed, and the device may be closed.
  virtual void OnBytes() = 0;

  // The device has vanished. Comes once, also from within a call, so that it may only be noted;
  // behind it come no bytes but those that were read before.
  virtual void OnLost() = 0;
};

// One opening of a serial device, up to the close at its end. Opening and closing throw away what
// lies in its buffers.
class SerialDevice {
 public:
  virtual ~SerialDevice() = default;

  // Puts bytes on the line, behind those that are still on their way, without waiting. A device
  // that has vanished swallows them.
  virtual void Write(const Bytes& bytes) = 0;

  // Bytes that have been read and not been taken.
  virtual std::size_t Available() const = 0;
  virtual Bytes TakeAll() = 0;
};

// Opens the serial port at a path. Throws RuntimeError kPort for a device that is missing, held, or
// no serial port.
std::unique_ptr<SerialDevice> OpenSerialDevice(const std::filesystem::path& path,
                                               SerialDeviceListener& listener);

}  // namespace sorvane
