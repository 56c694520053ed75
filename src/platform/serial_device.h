#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>

#include "board/reply.h"

namespace sorvane {

// One opening of a serial device, up to the close at its end. Opening and closing throw away what
// lies in its buffers. Its events come from within the device, a loss also from within a call:
// their handlers only note them.
class SerialDevice {
 public:
  virtual ~SerialDevice() = default;

  // Puts bytes on the line, behind those that are still on their way, without waiting. A device
  // that has vanished swallows them.
  virtual void Write(const Bytes& bytes) = 0;

  // Bytes that have been read and not been taken.
  virtual std::size_t Available() const = 0;
  virtual Bytes TakeAll() = 0;

  // Called when bytes have been read.
  std::function<void()> on_bytes;

  // Called once, when the device has vanished. Nothing is called after it.
  std::function<void()> on_lost;
};

// Opens the serial port of a number, 1 or more; folder is the program's. Throws RuntimeError kPort
// for a device that is missing, held, or no serial port.
std::unique_ptr<SerialDevice> OpenSerialDevice(const std::filesystem::path& folder, int number);

}  // namespace sorvane
