#pragma once

#include <array>
#include <cstdint>

#include "board/reply.h"

namespace sorvane {

// The state of the exchange, which the pieces of the link share.
struct LinkState {
  bool LinkIdle = false;         // no exchange is under way: the sweep may start one
  bool Identifying = false;      // an accepted reply frees the line and goes no further
  bool IdentifyTimeout = false;  // ends the wait for one system parameter

  // The exchange under way, set before a frame is built. ExchangeSize is the value's size in bytes
  // minus 1, 0 to 15.
  uint8_t ExchangeCommand = 0;
  uint8_t ExchangeAddress1 = 0;
  uint8_t ExchangeAddress2 = 0;
  uint8_t ExchangeAddress3 = 0;
  uint8_t ExchangeSize = 0;
  Bytes ExchangeValue;

  uint8_t FrameChecksum = 0;  // of the frame built last
  Bytes ReplyValue;           // of the exchange; empty means that nothing valid came
  int RetryCount = 0;         // how many times in a row the frame went out again after a bad reply

  int32_t SweepPosition = 0;  // the record that the sweep looks at

  // Addresses of the boards, for the addressed form of a frame. There is one board, and its address
  // is never used.
  std::array<uint8_t, 1> BoardAddress{};
};

}  // namespace sorvane
