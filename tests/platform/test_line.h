#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "board/reply.h"

namespace sorvane::test {

// The line at port 1, with the board at its other end. The board holds the line open itself, and
// passes all bytes raw.
class TestLine {
 public:
  TestLine();
  ~TestLine();
  TestLine(const TestLine&) = delete;
  TestLine& operator=(const TestLine&) = delete;

  // The folder of the program whose port 1 it is.
  const std::filesystem::path& Folder() const;

  // What the board sends.
  void Send(const Bytes& bytes);
  // What has come to the board since the last call.
  Bytes Take();

  // What a line without a wire knows of its settings: "19200 baud, 1 stop bit", with the handshakes
  // behind it that are switched on. Each of its bytes has 8 bits and no parity anyway.
  std::string Settings();

  // How many bytes lie at the device, where the program hasn't read them yet.
  int CountArrived();

  // Whether the program has the device open.
  bool IsOpen();

  // The device is in the mode in which nobody can open it again.
  void HoldAlone();

  // The device is gone, like an adapter that was pulled.
  void Vanish();
  // A new device stands at port 1.
  void Replace();
  // No device stands at port 1.
  void Remove();
  // A file stands at port 1.
  void PutFile();

 private:
  struct Ends;
  std::unique_ptr<Ends> ends_;
};

}  // namespace sorvane::test
