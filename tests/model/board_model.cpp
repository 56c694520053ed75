#include "model/board_model.h"

#include <algorithm>

namespace sorvane::test::model {
namespace {

constexpr std::int64_t kLate = 1200;
constexpr std::int64_t kSlow = 20;

}  // namespace

Bytes AnswerTo(const Bytes& frame, const Bytes& held) {
  if (frame[0] >= 128) return {static_cast<std::uint8_t>(frame.back() * 2 % 256)};
  int sum = 0;
  for (const int byte : held) sum += byte;
  Bytes answer = held;
  answer.push_back(static_cast<std::uint8_t>(sum % 256));
  return answer;
}

void BoardModel::Suffer(const Trouble& trouble) {
  trouble_ = trouble;
  if (trouble.name != "unplugged") return;
  requests_.clear();
  answers_.clear();
  last_request_ = last_answer_ = 0;
}

void BoardModel::Receive(const Bytes& frame, std::int64_t number, std::int64_t now) {
  last_request_ =
      std::max(last_request_, now) + static_cast<std::int64_t>(frame.size()) * kByteTime;
  requests_.push_back({last_request_, number, frame});
}

std::optional<std::int64_t> BoardModel::NextMoment() const {
  std::optional<std::int64_t> next;
  if (!requests_.empty()) next = requests_.front().moment;
  if (!answers_.empty()) next = std::min(next.value_or(INT64_MAX), answers_.front().moment);
  return next;
}

std::vector<WireByte> BoardModel::PassTo(std::int64_t now) {
  while (!requests_.empty() && requests_.front().moment <= now) {
    const Request request = std::move(requests_.front());
    requests_.pop_front();
    Serve(request);
  }
  std::vector<WireByte> bytes;
  while (!answers_.empty() && answers_.front().moment <= now) {
    bytes.push_back(answers_.front().byte);
    answers_.pop_front();
  }
  return bytes;
}

void BoardModel::Serve(const Request& request) {
  const Bytes& frame = request.frame;
  const auto found = memory_.find({frame[1], frame[2], frame[3]});
  if (found == memory_.end()) return;
  Bytes& held = found->second;
  const bool write = frame[0] >= 128;
  const Bytes value(frame.begin() + 4, frame.end() - 1);

  std::string trouble = trouble_.name;
  const bool clears_day = write && found->first == day_ && value == Bytes(value.size(), 0);
  if (trouble == "refuses day 0" && !clears_day) trouble = "none";
  if (trouble != "none" && trouble_.count > 0 && --trouble_.count == 0) trouble_ = {};
  if (trouble == "silent") return;

  Bytes answer = AnswerTo(frame, held);
  if (write && trouble != "refuses day 0") {
    held = value;
    on_obeyed(found->first, value);
  }
  if (trouble == "wrong checksum" || trouble == "refuses day 0") {
    answer.back() = static_cast<std::uint8_t>((answer.back() + 1) % 256);
  } else if (trouble == "short reply") {
    answer.pop_back();
  } else if (trouble == "extra byte") {
    answer.push_back(0);
  }
  std::int64_t start = request.moment + (trouble == "late reply" ? kLate : 0);
  for (const std::uint8_t byte : answer) {
    if (trouble == "slow") start += kSlow;
    last_answer_ = std::max(last_answer_, start) + kByteTime;
    answers_.push_back({last_answer_, {byte, request.number}});
  }
}

}  // namespace sorvane::test::model
