#include "session/exchange.h"

#include <utility>

#include "board/errors.h"
#include "board/record.h"
#include "link/frame.h"

namespace sorvane {
namespace {

using std::chrono::milliseconds;

constexpr int kTries = 3;
constexpr milliseconds kAnswerLimit{1000};

// So long nothing must come before a frame goes out behind trouble. An answer names no parameter:
// one that is up to half a second late must not be taken for that of the next frame.
constexpr milliseconds kSilence{500};
// As long as USB adapters keep bytes back, and some more.
constexpr milliseconds kBetweenBytes{20};
// A line that never falls silent isn't waited for.
constexpr int kMostWaits = 20;

constexpr uint8_t kWriteBit = 128;

LinkState StateOf(const Address& address, int size) {
  LinkState state;
  state.ExchangeCommand = address.command;
  state.ExchangeAddress1 = address.address1;
  state.ExchangeAddress2 = address.address2;
  state.ExchangeAddress3 = address.address3;
  state.ExchangeSize = static_cast<uint8_t>(size - 1);
  return state;
}

}  // namespace

Exchange::Exchange(Port& port, WaitFor wait) : port_(port), wait_(std::move(wait)) {
  port_.on_comm = [this](int comm_event) {
    if (comm_event == kCommEventReceive) Take();
  };
}

Exchange::~Exchange() {
  port_.on_comm = [](int) {};
}

void Exchange::Take() {
  const Bytes bytes = port_.Input();
  received_.insert(received_.end(), bytes.begin(), bytes.end());
}

std::optional<Bytes> Exchange::Read(const Address& address, int size) {
  LinkState state = StateOf(address, size);
  const Bytes frame = BuildFrame(state, 0);
  std::optional<Bytes> answer =
      Ask(frame, static_cast<std::size_t>(size) + 1, [](const Bytes& bytes) {
        return Checksum({bytes.begin(), bytes.end() - 1}) == bytes.back();
      });
  if (answer) answer->pop_back();
  return answer;
}

bool Exchange::Write(const Address& address, const Bytes& value) {
  LinkState state = StateOf(address, static_cast<int>(value.size()));
  state.ExchangeCommand |= kWriteBit;
  state.ExchangeValue = value;
  const Bytes frame = BuildFrame(state, 0);
  const auto acknowledgement = static_cast<uint8_t>(state.FrameChecksum * 2);
  return Ask(frame, 1,
             [acknowledgement](const Bytes& bytes) { return bytes.front() == acknowledgement; })
      .has_value();
}

std::optional<Bytes> Exchange::Ask(const Bytes& frame, std::size_t length,
                                   const std::function<bool(const Bytes&)>& accepts) {
  for (int i = 0; i < kTries && !lost_; ++i) {
    const TryOutcome outcome = Try(frame, length, accepts);
    if (on_try) on_try(frame, received_, outcome);
    lost_ = outcome == TryOutcome::kLost;
    doubtful_ = doubtful_ || outcome == TryOutcome::kWrongAnswer;
    // The answer to a repeated frame may have been that to the first, and its own may come yet.
    unclean_ = i > 0 || outcome != TryOutcome::kGood;
    if (outcome == TryOutcome::kGood) return std::exchange(received_, {});
  }
  return std::nullopt;
}

TryOutcome Exchange::Try(const Bytes& frame, std::size_t length,
                         const std::function<bool(const Bytes&)>& accepts) {
  // Nobody has asked for what came since the last answer.
  Take();
  doubtful_ = doubtful_ || (!unclean_ && !received_.empty());
  if (unclean_ || !received_.empty()) EmptyLine();
  received_.clear();
  try {
    port_.Output(frame);
  } catch (const RuntimeError&) {
    return TryOutcome::kLost;
  }
  const bool complete = wait_(
      kAnswerLimit, [this, length] { return received_.size() >= length || port_.Vanished(); });
  if (port_.Vanished()) return TryOutcome::kLost;
  if (!complete) return TryOutcome::kSilent;
  const bool right = received_.size() == length && accepts(received_);
  return right ? TryOutcome::kGood : TryOutcome::kWrongAnswer;
}

bool Exchange::InStep() {
  Take();
  const bool more = wait_(kBetweenBytes, [this] { return !received_.empty() || port_.Vanished(); });
  const bool in_step = !more && !doubtful_;
  if (more || unclean_) EmptyLine();
  doubtful_ = false;
  return in_step;
}

void Exchange::EmptyLine() {
  for (int i = 0; i < kMostWaits; ++i) {
    received_.clear();
    if (!wait_(kSilence, [this] { return !received_.empty() || port_.Vanished(); })) break;
    if (port_.Vanished()) break;
  }
  unclean_ = false;
}

}  // namespace sorvane
