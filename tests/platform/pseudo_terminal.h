#pragma once

#include <filesystem>

#include "board/reply.h"

namespace sorvane::test {

// A serial line without a wire: the program opens its device, and the test is the board at the
// other end. As a simulated board does, it holds the device open itself and passes all bytes raw.
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

  // Waits until bytes that were sent lie at the device, where the program hasn't read them yet.
  void WaitForArrival() const;
  // How many bytes lie there.
  int CountArrived() const;

  // The device is gone, like an adapter that was pulled.
  void Vanish();

  // Whether the device is in the mode in which it can't be opened again.
  bool IsExclusive() const;

 private:
  std::filesystem::path device_;
  int board_ = -1;
  int held_ = -1;
};

}  // namespace sorvane::test
