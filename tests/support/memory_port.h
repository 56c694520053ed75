#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "board/reply.h"
#include "outside/port.h"
#include "support/call_site.h"

namespace sorvane::test {

// A serial port whose other end is in the same program. It records every frame that the program
// puts out, and gives the program what a test or a ScriptedBoard delivers. Opening any number but 1
// is a failure of the test.
class MemoryPort : public Port {
 public:
  void SetCommPort(int number) override;
  bool PortOpen() const override { return open_; }
  bool Vanished() const override { return dead_; }
  void Open() override;
  void Close() override;
  void Output(const Bytes& bytes) override;
  std::size_t InBufferCount() const override { return in_.size(); }
  Bytes Input() override;

  // Bytes arrive together: one event of reception. Lost while the port is closed or vanished.
  void Deliver(const Bytes& bytes);
  // Bytes arrive one after the other: an event each.
  void DeliverByteByByte(const Bytes& bytes);
  // An event of any kind that brings no bytes.
  void RaiseEvent(int comm_event);

  // The device is missing or held by another program: every Open throws until it is taken back.
  void RefuseOpen(bool refuse = true) { refuse_open_ = refuse; }
  void FailNextOpen() { fail_next_open_ = true; }
  void FailNextOutput() { fail_next_output_ = true; }

  // The adapter is pulled: nothing arrives any more, frames go nowhere (they are recorded all the
  // same), and once closed the port can't be opened until ComeBack. A port that was open then stays
  // dead until it is closed.
  void Vanish() {
    vanished_ = true;
    dead_ = open_;
  }
  void ComeBack() { vanished_ = false; }

  // How often the number of the port was set.
  int Choices() const { return choices_; }

  // Opens that were asked for, those that succeeded, and closes of an open port.
  int OpenAttempts() const { return open_attempts_; }
  int Opens() const { return opens_; }
  int Closes() const { return closes_; }

  // All frames since the start or the last Forget.
  const std::vector<Bytes>& Frames() const { return frames_; }

  // The oldest frame that no call has taken yet is this one; it counts as taken then.
  void Expect(const Bytes& frame, CallSite at = CallSite::Here());
  // No frame is left that no call has taken.
  void ExpectNothing(CallSite at = CallSite::Here());
  // Frames so far are of no interest.
  void Forget();

  // The other end of the line. Called within Output, unless the device has vanished.
  std::function<void(const Bytes& frame)> on_output;

 private:
  int number_ = 0;
  bool open_ = false;
  bool vanished_ = false;
  bool dead_ = false;
  bool refuse_open_ = false;
  bool fail_next_open_ = false;
  bool fail_next_output_ = false;
  int choices_ = 0;
  int open_attempts_ = 0;
  int opens_ = 0;
  int closes_ = 0;
  Bytes in_;
  std::vector<Bytes> frames_;
  std::size_t taken_ = 0;
};

}  // namespace sorvane::test
