#pragma once

#include "simulator/bytes.h"
#include "simulator/faults.h"

namespace sorvane::simulator {

// The board's answer to one request, as it goes on the wire.
struct Reply {
  Bytes bytes;       // empty: the board stays silent
  Micros delay{};    // before the first byte
  Micros spacing{};  // before each byte, beyond the time that the wire takes
};

// The value and behind it the sum of its bytes.
Reply ReadReply(const Bytes& value);

// One byte: twice the request's checksum, modulo 256.
Reply WriteReply(uint8_t checksum);

// The reply as the fault leaves it. A refusal is an acknowledgement that is never the right one.
Reply Spoil(Fault fault, Reply reply);

}  // namespace sorvane::simulator
