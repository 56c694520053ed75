#include "board/parameter_access.h"

#include <algorithm>
#include <charconv>

#include "board/errors.h"
#include "board/numbers.h"

namespace sorvane {
namespace {

int Size(const ParameterRecord& record) { return record.At(position::kCommand) & kSizeMask; }

void RefuseZero(int32_t index) {
  if (index == 0) throw InternalFault("a page asked for parameter 0");
}

int64_t AsNumber(const ParameterValue& value) {
  if (const auto* number = std::get_if<int64_t>(&value)) return *number;
  const std::string& text = std::get<std::string>(value);
  int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw RuntimeError(ErrorCode::kTypeMismatch);
  }
  return number;
}

std::string AsText(const ParameterValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return std::to_string(std::get<int64_t>(value));
}

// All four bytes are stored, whatever the size of the parameter.
void StoreNumber(ParameterRecord& record, int64_t value) {
  constexpr int64_t kHighest = 0xFFFFFFFF;
  if (value < 0 || value > kHighest) throw RuntimeError(ErrorCode::kOverflow);
  for (int byte = 0; byte < 4; ++byte) {
    record.At(position::kValue + byte) = static_cast<uint8_t>(value >> 8 * byte);
  }
}

void StoreText(ParameterRecord& record, const std::string& text) {
  int at = position::kValue;
  for (const char c : text) {
    if (at > ParameterRecord::kPositions) break;
    record.At(at++) = static_cast<uint8_t>(c);
  }
}

}  // namespace

void ParameterAccess::WriteParameter(int32_t index, const ParameterValue& value) {
  RefuseZero(index);
  ParameterRecord& place = tables_.ParameterTable(index, tables_.BoardIndex);
  ParameterRecord record = place;
  if (Size(record) <= 3) {
    StoreNumber(record, AsNumber(value));
  } else {
    StoreText(record, AsText(value));
  }
  const uint8_t marks = flag::kWritePending | flag::kWatched | flag::kPolled;
  uint8_t& flags = record.At(position::kFlags);
  flags = static_cast<uint8_t>((flags | marks) & ~flag::kFresh);
  place = record;
}

void ParameterAccess::WriteParameterPair(int32_t first, int32_t second,
                                         const ParameterValue& value) {
  tables_.BoardIndex = 0;
  WriteParameter(first, value);
  if (second == 0) return;
  tables_.BoardIndex = 0;
  WriteParameter(second, value);
}

double ParameterAccess::ReadParameter(int32_t index, int board) const {
  const ParameterRecord& record = tables_.ParameterTable(index, board);
  double sum = 0;
  double weight = 1;
  for (int i = 0; i <= Size(record); ++i, weight *= 256) {
    sum += record.At(position::kValue + i) * weight;
  }
  return sum;
}

bool ParameterAccess::IsParameterFresh(int32_t index, int board) const {
  return (tables_.ParameterTable(index, board).At(position::kFlags) & flag::kFresh) != 0;
}

void ParameterAccess::WatchParameter(int32_t index) {
  if (!tables_.BoardPresent(tables_.BoardIndex)) return;
  RefuseZero(index);
  ParameterRecord& record = tables_.ParameterTable(index, tables_.BoardIndex);
  ++record.At(position::kWatchers);
  record.At(position::kFlags) |= flag::kPolled | flag::kWatched;
}

void ParameterAccess::UnwatchParameter(int32_t index) {
  if (!tables_.BoardPresent(tables_.BoardIndex)) return;
  ParameterRecord& record = tables_.ParameterTable(index, tables_.BoardIndex);
  uint8_t& watchers = record.At(position::kWatchers);
  if (watchers == 1) {
    record.At(position::kFlags) &= 248;
    record.At(position::kDivider) &= 15;
  }
  if (watchers > 0) --watchers;
}

}  // namespace sorvane
