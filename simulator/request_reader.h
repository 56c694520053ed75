#pragma once

#include <array>
#include <optional>

#include "simulator/bytes.h"

namespace sorvane::simulator {

// What the PC asks of the board.
struct Request {
  bool write = false;
  std::array<uint8_t, 3> address{};  // in the order of the wire
  int size = 1;                      // bytes of the parameter's value, 1 to 16
  Bytes value;                       // of a write: size bytes, least significant first
  uint8_t checksum = 0;              // as it came, which is as it should be
};

// Finds the requests in the bytes from the wire. A request has no start mark: its first byte tells
// its length, and a pause tells where a request that was broken off would have ended.
class RequestReader {
 public:
  // A pause after which what came so far is no part of what follows.
  static constexpr Micros kGap = std::chrono::milliseconds(100);

  // A request that has come to its end; without the request if its checksum is wrong.
  struct Frame {
    Bytes bytes;
    std::optional<Request> request;
  };

  // Takes one byte, which came at the given moment. Returns the frame that it completes, if any.
  // The caller calls Expire for the same moment first.
  std::optional<Frame> Feed(uint8_t byte, Micros now);

  // Drops a request whose last byte lies a gap or more back, and returns its bytes.
  Bytes Expire(Micros now);

  // The moment at which Expire would drop something; none if no request is under way.
  std::optional<Micros> Deadline() const;

 private:
  std::size_t ExpectedLength() const;

  Bytes bytes_;
  Micros last_{};
};

}  // namespace sorvane::simulator
