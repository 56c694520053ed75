#include "support/scripted_board.h"

#include <gtest/gtest.h>

#include <utility>

namespace sorvane::test {
namespace {

uint8_t Sum(const Bytes& bytes, std::size_t count) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += bytes[i];
  return static_cast<uint8_t>(sum % 256);
}

}  // namespace

ScriptedBoard::ScriptedBoard(MemoryPort& port, VirtualClock& clock) : port_(port), clock_(clock) {
  port_.on_output = [this](const Bytes& frame) {
    if (on_) OnFrame(frame);
  };
}

std::uint32_t ScriptedBoard::Address(uint8_t first, uint8_t second, uint8_t third) {
  return first * 0x10000U + second * 0x100U + third;
}

Bytes ScriptedBoard::Get(std::uint32_t address) const {
  const auto found = memory_.find(address);
  return found == memory_.end() ? Bytes{} : found->second;
}

bool ScriptedBoard::Hits(int& count) {
  if (count == 0) return false;
  --count;
  return true;
}

void ScriptedBoard::OnFrame(const Bytes& frame) {
  const auto word = ::testing::PrintToString(frame);
  if (frame.size() < 5) {
    ADD_FAILURE() << "frame " << word << " is cut";
    return;
  }
  const bool write = frame[0] >= 128;
  const std::size_t value_length = frame[0] % 16U + 1U;
  const std::size_t length = write ? 5 + value_length : 5;
  if (frame.size() != length || Sum(frame, length - 1) != frame.back()) {
    ADD_FAILURE() << "frame " << word << " has a wrong length or sum";
    return;
  }
  ++(write ? writes_ : reads_);
  if (Hits(silent_)) return;

  const std::uint32_t address = Address(frame[1], frame[2], frame[3]);
  Bytes answer;
  if (write) {
    Set(address, {frame.begin() + 4, frame.end() - 1});
    answer = {static_cast<uint8_t>(frame.back() * 2 % 256)};
  } else {
    answer = Get(address);
    answer.resize(value_length, 0);
    answer.push_back(Sum(answer, value_length));
  }
  if (Hits(bad_check_)) {
    answer.back() = static_cast<uint8_t>((answer.back() + 1) % 256);
  } else if (Hits(short_)) {
    answer.pop_back();
  } else if (Hits(long_)) {
    answer.push_back(0);
  }
  AnswerLater(std::move(answer));
}

void ScriptedBoard::AnswerLater(Bytes answer) {
  const int number = ++answers_;
  auto timer = clock_.Maker()(delay_, [this, number, answer = std::move(answer)] {
    on_the_way_.erase(number);
    if (answer.empty()) return;
    if (byte_by_byte_) {
      port_.DeliverByteByByte(answer);
    } else {
      port_.Deliver(answer);
    }
  });
  timer->Enable();
  on_the_way_[number] = std::move(timer);
}

}  // namespace sorvane::test
