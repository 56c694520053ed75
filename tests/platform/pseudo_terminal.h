#pragma once

#include <filesystem>
#include <string>

#include "board/reply.h"

namespace sorvane::test {

// A serial line without a wire: the program opens its device, and the test is the board at the
// other end. As a simulated board does, it holds the device open itself and passes all bytes raw.
// At its end nobody besides this process and its children may have the device open.
class PseudoTerminal {
 public:
  PseudoTerminal();
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::filesystem::path& Device() const { return device_; }

  // What the board sends.
  void Send(const Bytes& bytes) const;
  // What has come to the board since the last call.
  Bytes Take() const;

  // What a line without a wire knows of its settings: "19200 baud, 1 stop bit", with the handshakes
  // behind it that are switched on. Each of its bytes has 8 bits and no parity anyway.
  std::string Settings() const;

  // How many bytes lie at the device, where the program hasn't read them yet.
  int CountArrived() const;

  // The device is gone, like an adapter that was pulled.
  void Vanish();

  // The device comes into the mode in which it can't be opened again.
  void SetExclusive() const;

  // Whether this process has the device open, besides what holds it open here.
  bool IsOpen() const;

 private:
  // Leads to the device even when that has vanished.
  std::filesystem::path HeldPath() const;

  std::filesystem::path device_;
  int board_ = -1;
  int held_ = -1;
};

}  // namespace sorvane::test
