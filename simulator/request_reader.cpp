#include "simulator/request_reader.h"

#include <utility>

namespace sorvane::simulator {
namespace {

// The first four bytes: command and address.
constexpr std::size_t kHeader = 4;

// Commands from here on are writes: the PC frames 127 as a write too, although bit 7 is clear.
constexpr uint8_t kFirstWrite = 127;

std::size_t ValueSize(uint8_t command) { return (command & 15u) + 1u; }

uint8_t Sum(const Bytes& bytes, std::size_t count) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += bytes[i];
  return static_cast<uint8_t>(sum & 255u);
}

}  // namespace

std::size_t RequestReader::ExpectedLength() const {
  const uint8_t command = bytes_.front();
  return kHeader + (command >= kFirstWrite ? ValueSize(command) : 0) + 1;
}

std::optional<RequestReader::Frame> RequestReader::Feed(uint8_t byte, Micros now) {
  bytes_.push_back(byte);
  last_ = now;
  if (bytes_.size() < ExpectedLength()) return std::nullopt;

  Frame frame{std::exchange(bytes_, {}), std::nullopt};
  const Bytes& bytes = frame.bytes;
  const std::size_t checked = bytes.size() - 1;
  if (Sum(bytes, checked) != bytes[checked]) return frame;

  Request request;
  request.write = bytes[0] >= kFirstWrite;
  request.address = {bytes[1], bytes[2], bytes[3]};
  request.size = static_cast<int>(ValueSize(bytes[0]));
  for (std::size_t i = kHeader; i < checked; ++i) request.value.push_back(bytes[i]);
  request.checksum = bytes[checked];
  frame.request = request;
  return frame;
}

Bytes RequestReader::Expire(Micros now) {
  if (bytes_.empty() || now < last_ + kGap) return {};
  return std::exchange(bytes_, {});
}

std::optional<Micros> RequestReader::Deadline() const {
  if (bytes_.empty()) return std::nullopt;
  return last_ + kGap;
}

}  // namespace sorvane::simulator
