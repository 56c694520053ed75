#include "link/frame.h"

#include <numeric>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr uint8_t kAddressedRead = 241;
constexpr uint8_t kAddressedWrite = 242;  // plus the exchange's size

void CutValue(LinkState& state) {
  const std::size_t length = state.ExchangeSize + 1U;
  if (state.ExchangeValue.size() > length) state.ExchangeValue.resize(length);
}

// Appends the value if the command is a write, and the checksum.
Bytes Finish(LinkState& state, Bytes frame) {
  if (state.ExchangeCommand >= kFirstWriteCommand) {
    frame.insert(frame.end(), state.ExchangeValue.begin(), state.ExchangeValue.end());
  }
  state.FrameChecksum = Checksum(frame);
  frame.push_back(state.FrameChecksum);
  return frame;
}

}  // namespace

uint8_t Checksum(const Bytes& bytes) {
  return static_cast<uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

Bytes BuildFrame(LinkState& state, int board) {
  if (board != 0) {
    if (static_cast<std::size_t>(board) >= state.BoardAddress.size()) {
      throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
    }
    return BuildAddressedFrame(state, state.BoardAddress[static_cast<std::size_t>(board)]);
  }
  CutValue(state);
  return Finish(state, {state.ExchangeCommand, state.ExchangeAddress1, state.ExchangeAddress2,
                        state.ExchangeAddress3});
}

Bytes BuildAddressedFrame(LinkState& state, uint8_t board_address) {
  CutValue(state);
  const bool read = state.ExchangeCommand < kFirstWriteCommand;
  const uint8_t marker =
      read ? kAddressedRead : static_cast<uint8_t>(kAddressedWrite + state.ExchangeSize);
  return Finish(state, {marker, state.ExchangeAddress1, state.ExchangeAddress2,
                        state.ExchangeAddress3, state.ExchangeCommand, board_address});
}

}  // namespace sorvane
