#include "pages/model/machine.h"

#include <algorithm>
#include <stdexcept>

#include "support/index_files.h"

namespace sorvane::test::model {
namespace {

Bytes BytesOf(std::int64_t value, int size) {
  Bytes bytes;
  for (int i = 0; i < size; ++i, value /= 256) bytes.push_back(static_cast<uint8_t>(value % 256));
  return bytes;
}

}  // namespace

Machine::Machine() {
  int parameter = 0;
  for (const IndexRecord& row : MachineRows()) {
    Record& record = records_[Place(++parameter)];
    record.size = row.command % 16 + 1;
    std::fill(record.value.begin() + 4, record.value.end(), uint8_t{' '});
  }
}

void Machine::SetBoard(int parameter, std::uint32_t value) {
  board_[parameter] = BytesOf(value, At(parameter).size);
}

void Machine::SetBoardText(int parameter, const std::string& text) {
  board_[parameter] = Bytes(text.begin(), text.end());
}

void Machine::Watch(int parameter) {
  Record& record = records_[Place(parameter)];
  ++record.watchers;
  record.flags |= 2 + 4;
}

void Machine::Unwatch(int parameter) {
  Record& record = records_[Place(parameter)];
  if (record.watchers == 1) record.flags &= ~(1 + 2 + 4);
  record.watchers = std::max(record.watchers - 1, 0);
}

void Machine::Write(int parameter, std::int64_t value) {
  if (value < 0) throw std::logic_error("a page writes a negative number");
  Record& record = records_[Place(parameter)];
  const Bytes bytes = BytesOf(value, 4);
  std::copy(bytes.begin(), bytes.end(), record.value.begin());
  record.flags = (record.flags & ~1) | 2 | 4 | 128;
}

void Machine::WritePair(int first, int second, std::int64_t value) {
  Write(first, value);
  if (second != 0) Write(second, value);
}

std::int64_t Machine::Read(int parameter) const {
  const Record& record = At(parameter);
  std::int64_t value = 0;
  for (int i = record.size - 1; i >= 0; --i) value = value * 256 + record.value[Place(i)];
  return value;
}

bool Machine::IsFresh(int parameter) const { return (At(parameter).flags & 1) != 0; }

void Machine::AskAgain(int parameter) {
  Watch(parameter);
  Unwatch(parameter);
}

void Machine::Step() {
  // The last record lies behind the end of the walk.
  for (; position_ < kRecords; ++position_) {
    if ((At(position_).flags & 2) == 0) continue;
    Exchange(position_);
    ++position_;
    if (position_ == kRecords) position_ = 0;
    return;
  }
  position_ = 0;
}

void Machine::Exchange(int parameter) {
  Record& record = records_[Place(parameter)];
  const bool write = record.flags >= 128;
  record.flags &= ~128;

  Bytes frame{static_cast<uint8_t>(record.size - 1 + (write ? 128 : 0)), 0,
              static_cast<uint8_t>(parameter / 256), static_cast<uint8_t>(parameter % 256)};
  Bytes& held = board_[parameter];
  if (write) {
    held.assign(record.value.begin(), record.value.begin() + record.size);
    frame.insert(frame.end(), held.begin(), held.end());
  } else {
    held.resize(Place(record.size), 0);
  }
  int sum = 0;
  for (const uint8_t byte : frame) sum += byte;
  frame.push_back(static_cast<uint8_t>(sum % 256));
  frames.push_back(frame);

  record.flags = (record.flags | 1) & ~2;
  const Bytes value = held;
  std::copy(value.begin(), value.end(), record.value.begin());
  if (on_reply) on_reply(parameter, value);
}

}  // namespace sorvane::test::model
