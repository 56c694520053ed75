#include "model/link_model.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace sorvane::test::model {
namespace {

using Source = LinkEvent::Source;

constexpr std::array<std::int64_t, 6> kSpans = {40, 1000, 500, 500, 2000, 0};
constexpr int kMostBadAnswers = 4;

std::uint8_t SumOf(const Bytes& bytes) {
  int sum = 0;
  for (const int byte : bytes) sum = (sum + byte) % 256;
  return static_cast<std::uint8_t>(sum);
}

}  // namespace

std::array<std::uint8_t, 23> LinkModel::Record::InTable() const {
  std::array<std::uint8_t, 23> bytes{};
  bytes[0] = address[2];
  bytes[1] = address[1];
  bytes[2] = command;
  bytes[3] = static_cast<std::uint8_t>(wait * 16 + reload);
  bytes[4] = static_cast<std::uint8_t>(watchers);
  bytes[5] = static_cast<std::uint8_t>((fresh ? 1 : 0) + (polled ? 2 : 0) + (watched ? 4 : 0) +
                                       (to_write ? 128 : 0));
  bytes[6] = address[0];
  std::copy(value.begin(), value.end(), bytes.begin() + 7);
  return bytes;
}

LinkModel::LinkModel(std::vector<Row> system, std::map<int, std::vector<Row>> files)
    : system_(std::move(system)), files_(std::move(files)) {
  std::size_t most = 0;
  for (const auto& [digits, rows] : files_) most = std::max(most, rows.size());
  records_.resize(most + 2);
}

// Time.

void LinkModel::Set(Clock clock) {
  if (!clocks_[clock].on) SetAnew(clock);
}

void LinkModel::SetAnew(Clock clock) { clocks_[clock] = {true, now_ + kSpans[clock], ++settings_}; }

std::optional<std::int64_t> LinkModel::NextMoment() const {
  std::optional<std::int64_t> next;
  for (const Setting& each : clocks_) {
    if (each.on && (!next || each.due < *next)) next = each.due;
  }
  return next;
}

void LinkModel::PassTo(std::int64_t moment) {
  for (;;) {
    int first = kClocks;
    for (int i = 0; i < kClocks; ++i) {
      const Setting& each = clocks_[static_cast<std::size_t>(i)];
      if (!each.on || each.due > moment) continue;
      if (first == kClocks) {
        first = i;
        continue;
      }
      const Setting& best = clocks_[static_cast<std::size_t>(first)];
      if (each.due < best.due || (each.due == best.due && each.order < best.order)) first = i;
    }
    if (first == kClocks) break;
    now_ = std::max(now_, clocks_[static_cast<std::size_t>(first)].due);
    Ring(static_cast<Clock>(first));
  }
  now_ = std::max(now_, moment);
}

void LinkModel::Ring(Clock clock) {
  SetAnew(clock);
  switch (clock) {
    case kTick:
      clocks_[kTick].on = false;
      if (idle_) Walk();
      Set(kTick);
      return;
    case kPatience:
      LosePatience();
      return;
    case kSendLamp:
      Light(1);
      clocks_[kSendLamp].on = false;
      return;
    case kReplyLamp:
      Light(2);
      Light(3);
      clocks_[kReplyLamp].on = false;
      return;
    case kAskLimit:
      limit_over_ = true;
      if (stage_ == Stage::kAsking) SetAnew(kNext);
      return;
    case kNext:
      clocks_[kNext].on = false;
      NextStep();
      return;
    case kClocks:
      return;
  }
}

void LinkModel::Light(int lamp) { lamps_[static_cast<std::size_t>((lamp - 1) % 3)] = lamp; }

// The pages.

void LinkModel::Watch(int parameter) {
  if (!board_seen_) return;
  Record& record = Ref(parameter);
  record.watchers = (record.watchers + 1) % 256;
  record.polled = record.watched = true;
}

void LinkModel::Unwatch(int parameter) {
  if (!board_seen_) return;
  Record& record = Ref(parameter);
  if (record.watchers == 1) {
    record.fresh = record.polled = record.watched = false;
    record.wait = 0;
  }
  record.watchers = std::max(0, record.watchers - 1);
}

void LinkModel::Write(int parameter, std::uint32_t number) {
  Record& record = Ref(parameter);
  if (record.Length() > 4) throw std::logic_error("a number for a text");
  for (std::size_t i = 0; i < 4; ++i, number /= 256) {
    record.value[i] = static_cast<std::uint8_t>(number % 256);
  }
  record.fresh = false;
  record.polled = record.watched = record.to_write = true;
}

void LinkModel::WriteText(int parameter, const std::string& text) {
  Record& record = Ref(parameter);
  if (record.Length() <= 4) throw std::logic_error("a text for a number");
  for (std::size_t i = 0; i < std::min<std::size_t>(text.size(), 16); ++i) {
    record.value[i] = static_cast<std::uint8_t>(text[i]);
  }
  record.fresh = false;
  record.polled = record.watched = record.to_write = true;
}

std::uint64_t LinkModel::Read(int parameter) const {
  const Record& record = Of(parameter);
  std::uint64_t number = 0;
  for (std::size_t i = record.Length(); i-- > 0;) number = number * 256 + record.value[i];
  return number;
}

// The exchange.

void LinkModel::Tell(LinkEvent::What what, LinkEvent::Source source, const Bytes& value) const {
  if (on_event && !identifying_) {
    on_event({what, exchange_record_, head_[0] >= 128, source, asked_, value});
  }
}

void LinkModel::Begin(int record, const Row& place, bool write, Bytes value) {
  head_ = {static_cast<std::uint8_t>(place.command + (write ? 128 : 0)), place.address[0],
           place.address[1], place.address[2]};
  sent_ = std::move(value);
  length_ = sent_.size();
  exchange_record_ = record;
  first_frame_ = frames_ + 1;
  asked_ = now_;
  under_way_ = true;
  Tell(LinkEvent::What::kSent, Source::kOwn, sent_);
  Put();
}

void LinkModel::Put() {
  SetAnew(kSendLamp);
  Light(4);
  idle_ = false;
  Bytes frame(head_.begin(), head_.end());
  if (head_[0] >= 127) frame.insert(frame.end(), sent_.begin(), sent_.end());
  sum_ = SumOf(frame);
  frame.push_back(sum_);
  Set(kPatience);
  if (!open_) {
    if (identifying_) throw std::logic_error("a question into a closed port");
    return;
  }
  on_frame(frame, ++frames_, !dead_);
}

void LinkModel::PullCable() {
  cable_ = false;
  dead_ = open_;
}

void LinkModel::OpenPort() {
  open_ = cable_ && !held_;
  arrived_.clear();
}

void LinkModel::ClosePort() {
  if (open_ && on_closed) on_closed();
  open_ = dead_ = false;
  arrived_.clear();
}

void LinkModel::Take(const std::vector<WireByte>& bytes) {
  if (!open_ || dead_) return;
  arrived_.insert(arrived_.end(), bytes.begin(), bytes.end());
  if (stage_ == Stage::kOff) return;
  const bool read = head_[0] < 128;
  if (read && arrived_.size() <= length_) return;

  const LinkEvent::Source source = SourceOfArrived();
  Bytes all;
  for (const WireByte& each : arrived_) all.push_back(each.byte);
  arrived_.clear();
  clocks_[kPatience].on = false;
  SetAnew(kReplyLamp);
  Light(5);
  Light(3);
  answer_ = sent_;
  bool good = all == Bytes{static_cast<std::uint8_t>(sum_ * 2 % 256)};
  if (read) {
    answer_.assign(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(length_));
    good = all.back() == SumOf(answer_);
  }
  if (bad_answers_ == kMostBadAnswers) {
    answer_.clear();
  } else if (!good) {
    Light(6);
    ++bad_answers_;
    Put();
    return;
  }
  bad_answers_ = 0;
  if (identifying_) {
    idle_ = true;
    under_way_ = false;
    SetAnew(kNext);
    return;
  }
  Settle(source);
}

LinkEvent::Source LinkModel::SourceOfArrived() const {
  const std::int64_t frame = arrived_.front().frame;
  for (const WireByte& each : arrived_) {
    if (each.frame != frame) return Source::kMixed;
  }
  return under_way_ && frame >= first_frame_ ? Source::kOwn : Source::kLate;
}

// An exchange has ended: its value goes where the walk stands.
void LinkModel::Settle(LinkEvent::Source source) {
  under_way_ = false;
  if (answer_.empty()) Tell(LinkEvent::What::kDropped, source, {});
  Record& record = Ref(position_);
  if (record.polled && !answer_.empty()) {
    if (!record.watched) throw std::logic_error("an answer on a record that nobody watches");
    record.fresh = true;
    if (record.wait == 0 && record.reload == 0) record.polled = false;
    std::copy(answer_.begin(), answer_.end(), record.value.begin());
    // A foreign answer counts for the record on which it lands.
    if (source != Source::kOwn) exchange_record_ = position_;
    Tell(LinkEvent::What::kAnswered, source, answer_);
    if (on_notice) on_notice({position_, answer_});
  }
  if (++position_ == count_) {
    position_ = 0;
    ++passes_;
  }
  idle_ = true;
}

void LinkModel::LosePatience() {
  Light(6);
  Light(2);
  clocks_[kPatience].on = false;
  ClosePort();
  OpenPort();
  if (!open_ && identifying_) {
    if (stage_ != Stage::kBox) ShowPortError();
    return;
  }
  const Record& record = Of(position_);
  if ((record.wait * 16 + record.reload) % 4 >= 2) {
    Put();
    return;
  }
  idle_ = true;
  if (under_way_) Tell(LinkEvent::What::kHandedBack, Source::kOwn, {});
  under_way_ = false;
  if (identifying_) SetAnew(kNext);
}

// The walk over the table. It begins with the record at which it stands, even one behind the last.
void LinkModel::Walk() {
  do {
    Record& record = Ref(position_);
    if (record.polled && record.wait == 0) {
      record.wait = record.reload;
      const bool write = std::exchange(record.to_write, false);
      const auto end = record.value.begin() + static_cast<std::ptrdiff_t>(record.Length());
      Begin(position_, {record.address, record.command, 0, {}}, write, {record.value.begin(), end});
      return;
    }
    if (record.polled) --record.wait;
  } while (++position_ < count_);
  position_ = 0;
  ++passes_;
}

}  // namespace sorvane::test::model
