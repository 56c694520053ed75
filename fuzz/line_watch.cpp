#include "line_watch.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "board/errors.h"
#include "input.h"

namespace sorvane::fuzz {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kReplyLimit{1000};
constexpr milliseconds kQuestionLimit{2000};
constexpr int kMostRetries = 4;
constexpr std::array<uint8_t, 7> kQuestions = {1, 17, 11, 12, 13, 14, 18};

// Positions and flags of a record, by number.
constexpr int kCommand = 3;
constexpr int kDivider = 4;
constexpr int kFlags = 6;
constexpr int kValue = 8;
constexpr uint8_t kFresh = 1;
constexpr uint8_t kPolled = 2;
constexpr uint8_t kPending = 128;

uint8_t SumOf(Bytes::const_iterator begin, Bytes::const_iterator end) {
  return static_cast<uint8_t>(std::accumulate(begin, end, 0) % 256);
}

std::size_t SizeBy(uint8_t command) { return command % 16U + 1U; }

}  // namespace

LineWatch::LineWatch(const test::VirtualClock& clock, const BoardTables& tables)
    : clock_(clock), tables_(tables), shadow_(kWatchedRecords) {}

ParameterRecord& LineWatch::Shadow(int32_t index) {
  Require(index >= 0 && index < kWatchedRecords, "the sweep stays within the table");
  return shadow_[static_cast<std::size_t>(index)];
}

void LineWatch::SetCommPort(int number) {
  Require(number == 1 && !open_, "port number 1 is opened");
}

void LineWatch::Open() {
  Require(stage_ != Stage::kUnloaded && !open_, "a closed port is opened by a connection");
  in_.clear();
  if (vanished_ || refused_) {
    if (stage_ == Stage::kIdentifying) must_repeat_ = false;
    throw RuntimeError(ErrorCode::kPort);
  }
  open_ = true;
}

void LineWatch::Close() {
  const bool dead = std::exchange(dead_, false);
  open_ = false;
  in_.clear();
  if (stage_ == Stage::kUnloaded) return;
  if (dead && may_ask_anew_) return;  // Retry opens a lost port once more
  Require(in_flight_ && !in_event_, "a timeout alone closes the port");
  Require(clock_.Now() == deadline_, "a timeout comes 1000 ms after the frame");
  in_flight_ = false;
  must_repeat_ = (tables_.ParameterTable(state_->SweepPosition, 0).At(kDivider) & 2) != 0;
}

Bytes LineWatch::Input() {
  Require(in_event_, "the buffer is taken in an event of reception");
  ++taken_;
  return std::exchange(in_, {});
}

void LineWatch::Output(const Bytes& frame) {
  Require(stage_ != Stage::kUnloaded, "nothing goes out without a connection");
  TakeFrame(frame);
  if (!open_) throw RuntimeError(ErrorCode::kPort);
}

void LineWatch::TakeFrame(const Bytes& frame) {
  Require(frame.size() >= 5 && frame.back() == SumOf(frame.begin(), frame.end() - 1),
          "a frame ends in the sum of its bytes");
  if (in_event_ || must_repeat_) {
    TakeRepetition(frame);
  } else if (stage_ == Stage::kIdentifying) {
    TakeQuestion(frame);
  } else {
    TakeSweepFrame(frame);
  }
  frame_ = frame;
}

void LineWatch::TakeRepetition(const Bytes& frame) {
  Require(!in_flight_, "a frame is repeated when it has failed");
  Require(frame == frame_, "the same frame goes out again");
  if (in_event_) ++repeated_;
  must_repeat_ = false;
  in_flight_ = true;
  deadline_ = clock_.Now() + kReplyLimit;
}

// The one place where a frame may follow another in flight: a question is given up after 2000 ms,
// or the user has answered the box that followed it.
void LineWatch::TakeQuestion(const Bytes& frame) {
  const bool same = question_ > 0 && frame[3] == kQuestions[question_ - 1] && may_ask_anew_;
  const bool next = question_ < kQuestions.size() && frame[3] == kQuestions[question_];
  Require(frame.size() == 5 && frame[1] == 240 && (same || next), "the questions have an order");
  if (next) ++question_;
  const bool given_up = clock_.Now() - attempt_ >= kQuestionLimit || may_ask_anew_;
  Require(!in_flight_ || given_up, "no question goes out behind another");
  if (!in_flight_) deadline_ = clock_.Now() + kReplyLimit;
  in_flight_ = true;
  may_ask_anew_ = false;
  attempt_ = clock_.Now();
  length_ = 1;
}

void LineWatch::TakeSweepFrame(const Bytes& frame) {
  Require(!in_flight_, "no frame goes out while another is in flight");
  const int32_t position = state_->SweepPosition;
  Require(stood_ > 1 || position < tables_.RecordCount(0), "the last record is never sent");
  ParameterRecord& record = Shadow(position);
  uint8_t& flags = record.At(kFlags);
  Require((flags & kPolled) != 0, "a record is sent for a page that wants it");
  length_ = SizeBy(record.At(kCommand));
  const bool write = (flags & kPending) != 0;
  flags = static_cast<uint8_t>(flags & ~kPending);
  Bytes expected = {static_cast<uint8_t>(record.At(kCommand) + (write ? 128 : 0)), record.At(7),
                    record.At(2), record.At(1)};
  for (int i = 0; write && i < static_cast<int>(length_); ++i) {
    expected.push_back(record.At(kValue + i));
  }
  Require(Bytes(frame.begin(), frame.end() - 1) == expected, "a frame is made of its record");
  in_flight_ = true;
  deadline_ = clock_.Now() + kReplyLimit;
}

LineWatch::Verdict LineWatch::Judge() const {
  if (IsRead() && in_.size() <= length_) return Verdict::kIncomplete;
  if (retries_ == kMostRetries) return Verdict::kDropped;
  if (!IsRead()) {
    const bool good = in_.size() == 1 && in_[0] == frame_.back() * 2 % 256;
    return good ? Verdict::kGood : Verdict::kBad;
  }
  const auto end = in_.begin() + static_cast<std::ptrdiff_t>(length_);
  return SumOf(in_.begin(), end) == in_.back() ? Verdict::kGood : Verdict::kBad;
}

// What an accepted reply does to the record at which the sweep stands.
void LineWatch::Store() {
  const int32_t position = state_->SweepPosition;
  if (position >= kWatchedRecords) return;  // beyond a file that was loaded before
  ParameterRecord& record = Shadow(position);
  uint8_t& flags = record.At(kFlags);
  if ((flags & kPolled) == 0) return;
  const auto from = IsRead() ? in_.begin() : frame_.begin() + 4;
  const Bytes value(from, from + static_cast<std::ptrdiff_t>(length_));
  for (std::size_t i = 0; i < length_; ++i) record.At(kValue + static_cast<int>(i)) = value[i];
  const bool once = record.At(kDivider) == 0;
  flags = static_cast<uint8_t>((flags | kFresh) & ~(once ? kPolled : 0));
  expected_notices_.push_back({position, static_cast<uint8_t>(length_ - 1), value});
}

void LineWatch::Told(const Reply& reply) {
  Require(!expected_notices_.empty(), "pages are told of accepted replies only");
  const Reply& expected = expected_notices_.front();
  Require(
      reply.index == expected.index && reply.size == expected.size && reply.bytes == expected.bytes,
      "pages are told what the board answered");
  expected_notices_.clear();
}

void LineWatch::Deliver(const Bytes& bytes) {
  if (!open_ || dead_ || bytes.empty()) return;
  in_.insert(in_.end(), bytes.begin(), bytes.end());
  const Verdict verdict = Judge();
  if (verdict == Verdict::kGood && stage_ == Stage::kStanding) Store();
  if (verdict != Verdict::kIncomplete) in_flight_ = false;
  taken_ = 0;
  repeated_ = 0;
  in_event_ = true;
  on_comm(kCommEventReceive);
  in_event_ = false;
  Require(taken_ == (verdict == Verdict::kIncomplete ? 0 : 1), "a reply is taken when it is whole");
  Require(repeated_ == (verdict == Verdict::kBad ? 1 : 0), "a bad reply repeats the frame, once");
  Require(expected_notices_.empty(), "pages are told of every accepted reply");
  if (verdict == Verdict::kBad) {
    ++retries_;
  } else if (verdict != Verdict::kIncomplete) {
    retries_ = 0;
  }
  CheckTable(255);
}

void LineWatch::RaiseOther(int comm_event) {
  in_event_ = true;
  taken_ = 0;
  repeated_ = 0;
  on_comm(comm_event);
  in_event_ = false;
  Require(taken_ == 0 && repeated_ == 0, "an event of another kind does nothing");
  CheckTable(255);
}

void LineWatch::Loading() {
  stage_ = Stage::kIdentifying;
  in_flight_ = false;
  must_repeat_ = false;
  retries_ = 0;
  question_ = 0;
  may_ask_anew_ = true;
}

void LineWatch::Unloading() {
  stage_ = Stage::kUnloaded;
  in_flight_ = false;
}

void LineWatch::Stands(const std::vector<ParameterRecord>& records) {
  Require(question_ == kQuestions.size(), "a connection stands after seven answers");
  ++stood_;
  stage_ = Stage::kStanding;
  in_flight_ = false;
  shadow_.assign(shadow_.size(), ParameterRecord());  // a shorter file leaves nothing of the last
  std::copy(records.begin(), records.end(), shadow_.begin() + 1);
  CheckTable(255);
}

void LineWatch::PageChanged(int index) { Shadow(index) = tables_.ParameterTable(index, 0); }

// The bits of the dividers that can't have changed since the last look are the ones given.
void LineWatch::CheckTable(uint8_t divider_bits) {
  for (int i = 0; i < kWatchedRecords; ++i) {
    const ParameterRecord& record = tables_.ParameterTable(i, 0);
    ParameterRecord& shadow = shadow_[static_cast<std::size_t>(i)];
    const uint8_t changed = record.At(kDivider) ^ shadow.At(kDivider);
    Require((changed & divider_bits) == 0, "the reload of a divider stays");
    shadow.At(kDivider) = record.At(kDivider);
    Require(record == shadow, "a record changes by an accepted reply only");
  }
}

void LineWatch::CheckRest() {
  CheckTable(15);
  Require(!must_repeat_, "a timeout repeats the frame at once");
  Require(!in_flight_ || clock_.Now() < deadline_, "no frame waits longer than 1000 ms");
  if (stage_ == Stage::kUnloaded) {
    Require(clock_.Armed() == 0 && !open_, "no timer runs without a connection");
  } else if (stage_ == Stage::kStanding) {
    Require(state_->LinkIdle != in_flight_, "the line is free when nothing is in flight");
  } else {
    Require(!state_->LinkIdle || !in_flight_, "the line isn't free while a question is out");
  }
}

}  // namespace sorvane::fuzz
