#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>

#include "board/reply.h"
#include "outside/timer.h"
#include "support/memory_port.h"
#include "support/virtual_clock.h"

namespace sorvane::test {

// The board at the other end of a MemoryPort. It holds a value under each address, takes the
// program's frames apart by rules of its own, and answers each after a delay on the clock. A frame
// that is cut, too long or of a wrong sum is a failure of the test and gets no answer.
//
// The faults below count frames: each hits the next n of them, then the board is well again. Set
// together they are taken one after the other, in the order in which they stand here.
class ScriptedBoard {
 public:
  ScriptedBoard(MemoryPort& port, VirtualClock& clock);

  // The address whose bytes are the first three on the wire, in that order.
  static std::uint32_t Address(uint8_t first, uint8_t second, uint8_t third);

  // The value under an address, least significant byte first. A read of more bytes than it has
  // gets bytes 0 behind it; an address that was never set holds nothing. A write replaces it whole.
  void Set(std::uint32_t address, const Bytes& value) { memory_[address] = value; }
  Bytes Get(std::uint32_t address) const;

  // From a frame to its answer. 5 ms at first; with 0 the answer comes in the same instant, but
  // after the program has done with what it was at.
  void SetDelay(std::chrono::milliseconds delay) { delay_ = delay; }
  void SetDelay(int milliseconds) { delay_ = std::chrono::milliseconds(milliseconds); }

  // Answers come as one event of reception for each byte instead of one for all.
  void AnswerByteByByte(bool each) { byte_by_byte_ = each; }

  // Switched off, the board neither takes frames apart nor answers: the test speaks in its place.
  void SwitchOff() { on_ = false; }
  void SwitchOn() { on_ = true; }

  void StaySilent(int n) { silent_ = n; }        // writes don't take effect either
  void SpoilChecksum(int n) { bad_check_ = n; }  // a write takes effect all the same
  void CutReply(int n) { short_ = n; }           // the last byte is missing
  void AddByte(int n) { long_ = n; }             // a byte 0 behind the answer

  // Speaks in the board's place: bytes that arrive at once and together.
  void Reply(const Bytes& bytes) { port_.Deliver(bytes); }

  // How many frames were taken apart: reads and writes.
  int Reads() const { return reads_; }
  int Writes() const { return writes_; }

 private:
  void OnFrame(const Bytes& frame);
  void AnswerLater(Bytes answer);
  // Whether a fault hits this frame.
  static bool Hits(int& count);

  MemoryPort& port_;
  VirtualClock& clock_;
  std::map<std::uint32_t, Bytes> memory_;
  std::chrono::milliseconds delay_{5};
  bool on_ = true;
  bool byte_by_byte_ = false;
  int silent_ = 0;
  int bad_check_ = 0;
  int short_ = 0;
  int long_ = 0;
  int reads_ = 0;
  int writes_ = 0;
  int answers_ = 0;
  std::map<int, std::unique_ptr<Timer>> on_the_way_;
};

}  // namespace sorvane::test
