#include "support/memory_port.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "board/errors.h"

namespace sorvane::test {
namespace {

constexpr int kThePort = 1;

std::string InWords(const Bytes& bytes) { return ::testing::PrintToString(bytes); }

}  // namespace

void MemoryPort::SetCommPort(int number) {
  if (open_) throw RuntimeError(ErrorCode::kPort);
  number_ = number;
  ++choices_;
}

void MemoryPort::Open() {
  ++open_attempts_;
  EXPECT_EQ(number_, kThePort) << "another port than number 1 was opened";
  const bool fails = std::exchange(fail_next_open_, false);
  if (open_ || vanished_ || refuse_open_ || fails) throw RuntimeError(ErrorCode::kPort);
  open_ = true;
  ++opens_;
  in_.clear();
}

void MemoryPort::Close() {
  if (!open_) return;
  open_ = dead_ = false;
  ++closes_;
  in_.clear();
}

void MemoryPort::Output(const Bytes& bytes) {
  if (!open_ || std::exchange(fail_next_output_, false)) throw RuntimeError(ErrorCode::kPort);
  frames_.push_back(bytes);
  if (!dead_ && on_output) on_output(bytes);
}

Bytes MemoryPort::Input() { return std::exchange(in_, {}); }

void MemoryPort::Deliver(const Bytes& bytes) {
  if (!open_ || dead_) return;
  in_.insert(in_.end(), bytes.begin(), bytes.end());
  RaiseEvent(kCommEventReceive);
}

void MemoryPort::DeliverByteByByte(const Bytes& bytes) {
  for (const uint8_t byte : bytes) Deliver({byte});
}

void MemoryPort::RaiseEvent(int comm_event) {
  if (on_comm) on_comm(comm_event);
}

void MemoryPort::Expect(const Bytes& frame, CallSite at) {
  if (taken_ == frames_.size()) {
    FailAt(at, "no frame went out; expected " + InWords(frame));
    return;
  }
  const Bytes& next = frames_[taken_++];
  if (next != frame) FailAt(at, "frame " + InWords(next) + "; expected " + InWords(frame));
}

void MemoryPort::ExpectNothing(CallSite at) {
  for (; taken_ < frames_.size(); ++taken_) {
    FailAt(at, "frame " + InWords(frames_[taken_]) + "; expected none");
  }
}

void MemoryPort::Forget() {
  frames_.clear();
  taken_ = 0;
}

}  // namespace sorvane::test
