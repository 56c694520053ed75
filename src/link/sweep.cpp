#include "link/sweep.h"

#include <algorithm>
#include <span>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr uint8_t kPassesToWait = 240;  // the high nibble of a divider
constexpr uint8_t kOnePass = 16;
constexpr uint8_t kReload = 17;  // times a digit: the digit in both nibbles
constexpr uint8_t kWriteCommand = 128;

bool IsPolled(const ParameterRecord& record) {
  return (record.At(position::kFlags) & flag::kPolled) != 0;
}

// Counts a pass. Returns whether the record has waited for its passes; then they begin anew.
bool IsDue(ParameterRecord& record) {
  uint8_t& divider = record.At(position::kDivider);
  const bool due = (divider & kPassesToWait) == 0;
  divider = static_cast<uint8_t>(due ? divider * kReload : divider - kOnePass);
  return due;
}

}  // namespace

bool Sweep::SweepStep() {
  do {
    ParameterRecord& record = tables_.ParameterTable(state_.SweepPosition, tables_.BoardIndex);
    if (IsPolled(record) && IsDue(record)) {
      FillExchange(record);
      return true;
    }
    state_.SweepPosition = NextPolled(state_.SweepPosition + 1);
  } while (state_.SweepPosition < tables_.RecordCount(tables_.BoardIndex));
  state_.SweepPosition = 0;
  tables_.BoardIndex = 0;
  return false;
}

int32_t Sweep::NextPolled(int32_t position) const {
  const std::span<const ParameterRecord> records = tables_.Records(tables_.BoardIndex);
  const int32_t end = std::max<int32_t>(position, tables_.RecordCount(tables_.BoardIndex));
  const auto next = std::find_if(records.begin() + position, records.begin() + end, IsPolled);
  return static_cast<int32_t>(next - records.begin());
}

void Sweep::FillExchange(ParameterRecord& record) {
  uint8_t command = record.At(position::kCommand);
  const int size = command & kSizeMask;
  state_.ExchangeValue.clear();
  for (int i = 0; i <= size; ++i) {
    state_.ExchangeValue.push_back(record.At(position::kValue + i));
  }
  uint8_t& flags = record.At(position::kFlags);
  if ((flags & flag::kWritePending) != 0) {
    command |= kWriteCommand;
    flags = static_cast<uint8_t>(flags & ~flag::kWritePending);
  }
  state_.ExchangeAddress1 = record.At(position::kAddress1);
  state_.ExchangeCommand = command;
  state_.ExchangeAddress2 = record.At(position::kAddress2);
  state_.ExchangeAddress3 = record.At(position::kAddress3);
  state_.ExchangeSize = static_cast<uint8_t>(size);
}

void Sweep::StoreReply() {
  ParameterRecord& record = tables_.ParameterTable(state_.SweepPosition, tables_.BoardIndex);
  if (StoreInRecord(record)) {
    reply_notice_(Reply{state_.SweepPosition, state_.ExchangeSize, state_.ReplyValue});
  }
  ++state_.SweepPosition;
  if (state_.SweepPosition == tables_.RecordCount(tables_.BoardIndex)) {
    state_.SweepPosition = 0;
    tables_.BoardIndex = 0;
  }
  state_.LinkIdle = true;
}

bool Sweep::StoreInRecord(ParameterRecord& record) const {
  uint8_t flags = record.At(position::kFlags);
  if ((flags & flag::kPolled) == 0 || state_.ReplyValue.empty()) return false;
  flags |= flag::kFresh;
  if ((flags & flag::kReadOnce) != 0) flags = static_cast<uint8_t>(flags & ~flag::kPolled);
  if ((flags & flag::kWatched) == 0) {
    throw InternalFault("a reply landed on a record that nobody watched");
  }
  // Without a divider this was the record's only read.
  if (record.At(position::kDivider) == 0) flags = static_cast<uint8_t>(flags & ~flag::kPolled);
  record.At(position::kFlags) = flags;

  Bytes value = state_.ReplyValue;
  value.insert(value.end(), 3, 0);
  const std::size_t length = std::min<std::size_t>(value.size(), state_.ExchangeSize + 1U);
  for (std::size_t i = 0; i < length; ++i) {
    record.At(position::kValue + static_cast<int>(i)) = value[i];
  }
  return true;
}

}  // namespace sorvane
