#pragma once

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "simulator/bytes.h"

namespace sorvane::simulator {

// One direction of a serial wire: bytes that are on their way, in order.
class WireLane {
 public:
  // Sends a byte off: it arrives a byte's time after the one before it has arrived, or after
  // earliest if that is later.
  void Push(uint8_t byte, Micros earliest, Micros byte_time) {
    last_arrival_ = std::max(earliest, last_arrival_) + byte_time;
    bytes_.emplace_back(last_arrival_, byte);
  }

  // When the next byte arrives; none if none is under way.
  std::optional<Micros> NextArrival() const {
    if (bytes_.empty()) return std::nullopt;
    return bytes_.front().first;
  }

  // Takes the next byte, which must be there.
  uint8_t Take() {
    const uint8_t byte = bytes_.front().second;
    bytes_.pop_front();
    return byte;
  }

  // The bytes under way are lost, and the wire is free at once.
  void Clear() {
    bytes_.clear();
    last_arrival_ = {};
  }

 private:
  std::deque<std::pair<Micros, uint8_t>> bytes_;
  Micros last_arrival_{};
};

}  // namespace sorvane::simulator
