#pragma once

#include <filesystem>

#include "simulator/bytes.h"

namespace sorvane::simulator {

// A file descriptor that is closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }

 private:
  int number_;
};

// A pseudo-terminal in raw mode: the cable, with the board at this end. The PC opens Path and finds
// a serial port there. It may close and open it as often as it likes: the far end is held open here
// as well, so that the line stays up and in raw mode. When the terminal goes, the PC's port
// vanishes.
class Terminal {
 public:
  // Throws std::system_error if the system has no pseudo-terminal to give.
  Terminal();

  const std::filesystem::path& Path() const { return path_; }

  // Readable when bytes have come.
  int Number() const { return board_end_.Number(); }

  // Takes the bytes that have come, at most 4096; empty if there are none.
  Bytes Read();

  // Puts bytes on the line. What a PC that doesn't read leaves no room for is lost, as on a wire.
  void Write(const Bytes& bytes);

 private:
  Descriptor board_end_;
  std::filesystem::path path_;
  Descriptor pc_end_;
};

}  // namespace sorvane::simulator
