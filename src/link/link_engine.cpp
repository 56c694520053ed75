#include "link/link_engine.h"

#include "board/errors.h"
#include "link/frame.h"

namespace sorvane {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kReplyTimeout{1000};
constexpr milliseconds kLampHold{500};

// A frame goes out once and then this many times more because of bad replies.
constexpr int kMostRetries = 4;

// With this bit of the poll divider a timeout repeats the frame instead of handing the line back.
constexpr uint8_t kRepeatOnTimeout = 2;

}  // namespace

LinkEngine::LinkEngine(LinkState& state, BoardTables& tables, Port& port, LinkLamps& lamps,
                       Sweep& sweep, const TimerMaker& make_timer)
    : state_(state),
      tables_(tables),
      port_(port),
      lamps_(lamps),
      sweep_(sweep),
      timer2_(make_timer(kReplyTimeout, [this] { OnReplyTimeout(); })),
      timer3_(make_timer(kLampHold, [this] { OnTransmitHold(); })),
      timer4_(make_timer(kLampHold, [this] { OnReceiveHold(); })) {}

void LinkEngine::SendFrame() {
  timer3_->Restart();
  lamps_.SetLinkLamp(lamp::kTransmitting);
  state_.LinkIdle = false;
  const Bytes frame = BuildFrame(state_, tables_.BoardIndex);
  timer2_->Enable();
  try {
    port_.Output(frame);
  } catch (const RuntimeError&) {
    if (state_.Identifying) throw;
  }
}

void LinkEngine::ReceiveReply(int comm_event) {
  if (comm_event != kCommEventReceive) return;

  const bool read = state_.ExchangeCommand < kFirstWriteReply;
  const std::size_t value_length = state_.ExchangeSize + 1U;
  if (read && port_.InBufferCount() <= value_length) return;

  const Bytes received = port_.Input();
  timer2_->Disable();
  timer4_->Restart();
  lamps_.SetLinkLamp(lamp::kReplyReceived);
  lamps_.SetLinkLamp(lamp::kErrorOff);
  lamps_.ClearText();

  Bytes received_check;
  Bytes expected_check;
  if (read) {
    // At the completeness test above more bytes than the value has have come.
    state_.ReplyValue.assign(received.begin(),
                             received.begin() + static_cast<std::ptrdiff_t>(value_length));
    received_check = {received.back()};
    expected_check = {Checksum(state_.ReplyValue)};
  } else {
    // The value sent counts as the value held.
    state_.ReplyValue = state_.ExchangeValue;
    received_check = received;
    expected_check = {static_cast<uint8_t>(state_.FrameChecksum * 2)};
  }

  // The count is tested before the bytes are compared: after the last retry the exchange has
  // failed, whatever came.
  if (state_.RetryCount == kMostRetries) {
    state_.ReplyValue.clear();
  } else if (received_check != expected_check) {
    lamps_.SetLinkLamp(lamp::kError);
    ++state_.RetryCount;
    SendFrame();
    return;
  }
  state_.RetryCount = 0;

  if (state_.Identifying) {
    state_.LinkIdle = true;
    on_line_free();
  } else {
    sweep_.StoreReply();
  }
}

void LinkEngine::OnReplyTimeout() {
  lamps_.SetLinkLamp(lamp::kError);
  lamps_.SetLinkLamp(lamp::kReceiveRest);
  timer2_->Disable();
  // Closing the port throws away what lies in its buffers.
  try {
    port_.Close();
    port_.Open();
  } catch (const RuntimeError&) {
    if (state_.Identifying) {
      on_port_lost();
      return;
    }
  }
  const ParameterRecord& record = tables_.ParameterTable(state_.SweepPosition, tables_.BoardIndex);
  if ((record.At(position::kDivider) & kRepeatOnTimeout) != 0) {
    SendFrame();
    return;
  }
  state_.LinkIdle = true;
  if (state_.Identifying) on_line_free();
}

void LinkEngine::OnTransmitHold() {
  lamps_.SetLinkLamp(lamp::kTransmitRest);
  timer3_->Disable();
}

void LinkEngine::OnReceiveHold() {
  lamps_.SetLinkLamp(lamp::kReceiveRest);
  lamps_.SetLinkLamp(lamp::kErrorOff);
  timer4_->Disable();
}

void LinkEngine::Stop() {
  timer2_->Disable();
  timer3_->Disable();
  timer4_->Disable();
}

}  // namespace sorvane
