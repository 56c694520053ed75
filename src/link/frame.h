#pragma once

#include "board/reply.h"
#include "link/link_state.h"

namespace sorvane {

// Commands below this are framed as reads.
inline constexpr int kFirstWriteCommand = 127;
// Commands below this are answered as reads. The two differ for 127, which no index file may hold.
inline constexpr int kFirstWriteReply = 128;

// The request that the exchange values of state describe, checksum and all; its checksum goes to
// FrameChecksum and ExchangeValue is cut to the exchange's size. A board other than 0 takes the
// addressed form, but there is room for one board only: RuntimeError kSubscriptOutOfRange.
Bytes BuildFrame(LinkState& state, int board);

// The request in the addressed form, in which a marker stands first and the command behind the
// address. Sets FrameChecksum and cuts ExchangeValue like BuildFrame.
Bytes BuildAddressedFrame(LinkState& state, uint8_t board_address);

// The sum of all bytes, modulo 256.
uint8_t Checksum(const Bytes& bytes);

}  // namespace sorvane
