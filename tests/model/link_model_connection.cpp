#include <algorithm>

#include "model/link_model.h"

namespace sorvane::test::model {
namespace {

constexpr std::array<int, 7> kQuestions = {1, 17, 11, 12, 13, 14, 18};
constexpr int kTypeHigh = 14;
constexpr const char* kNotReady = "Board Not Ready\nCheck serial !";
constexpr const char* kPortError = "Error com";
constexpr const char* kNotFound = ".inx not found !";
constexpr const char* kNoFileYet = " not found !";

}  // namespace

void LinkModel::Connect() {
  if (stage_ != Stage::kOff) return;
  bad_answers_ = 0;
  identifying_ = true;
  stage_ = Stage::kOpening;
  SetAnew(kNext);
}

void LinkModel::Disconnect() {
  stage_ = Stage::kOff;
  for (Setting& each : clocks_) each.on = false;
  ClosePort();
  identifying_ = under_way_ = box_ends_ = false;
  box_.clear();
}

void LinkModel::ShowPortError() {
  stage_ = Stage::kBox;
  box_ = kPortError;
}

void LinkModel::ShowAndEnd(const std::string& text) {
  stage_ = Stage::kBox;
  box_ = text;
  box_ends_ = true;
}

void LinkModel::Answer(bool retry) {
  const bool port_error = box_ == kPortError;
  box_.clear();
  if (box_ends_) {
    ++ended_;
  } else if (port_error || !retry) {
    ++loaded_;
  } else {
    if (dead_) ClosePort();
    if (!open_) OpenPort();
    if (open_) {
      Ask();
    } else {
      ShowPortError();
    }
  }
}

void LinkModel::NextStep() {
  if (stage_ == Stage::kOpening) {
    OpenPort();
    if (!open_) {
      ShowPortError();
      return;
    }
    count_ = static_cast<int>(system_.size());
    question_ = 0;
    Ask();
  } else if (stage_ == Stage::kAsking && (idle_ || limit_over_)) {
    TakeAnswer();
  } else if (stage_ == Stage::kLoading) {
    LoadTable();
  }
}

void LinkModel::LoadAtStart() {
  board_seen_ = true;
  FillTable(files_.at(0));
}

// Nothing of an earlier table is left.
void LinkModel::FillTable(const std::vector<Row>& rows) {
  count_ = static_cast<int>(rows.size());
  std::fill(records_.begin(), records_.end(), Record());
  int parameter = 0;
  for (const Row& row : rows) {
    Record& record = Ref(++parameter);
    record.address = row.address;
    record.command = row.command;
    record.wait = row.divider / 16;
    record.reload = row.divider % 16;
    record.value.fill(' ');
    std::copy(row.start.begin(), row.start.end(), record.value.begin());
  }
}

void LinkModel::LoadTable() {
  const auto file = files_.find(answers_[1] % 100);
  if (file == files_.end()) {
    const std::string digits = std::to_string(100 + answers_[1] % 100).substr(1);
    ShowAndEnd("W0309AA" + digits + kNotFound);
    return;
  }
  FillTable(file->second);
  clocks_[kPatience].on = false;
  Light(3);
  identifying_ = false;
  idle_ = true;
  Set(kTick);
  stage_ = Stage::kStanding;
  Tell(LinkEvent::What::kRefilled, LinkEvent::Source::kOwn, {});
  ++loaded_;
}

void LinkModel::Ask() {
  const Row& row =
      system_.at(static_cast<std::size_t>(kQuestions.at(static_cast<std::size_t>(question_)) - 1));
  answer_.clear();
  limit_over_ = false;
  stage_ = Stage::kAsking;
  SetAnew(kAskLimit);
  Begin(0, row, false, {row.address[0]});
}

void LinkModel::TakeAnswer() {
  if (answer_.empty()) {
    stage_ = Stage::kBox;
    box_ = kNotReady;
    return;
  }
  board_seen_ = true;
  answers_.at(static_cast<std::size_t>(question_)) = answer_.front();
  const int asked = kQuestions.at(static_cast<std::size_t>(question_));
  if (asked == kTypeHigh && answer_.front() >= 128) {
    ShowAndEnd(kNoFileYet);  // a type beyond 16 bits, before any file has a name
  } else if (++question_ < 7) {
    Ask();
  } else {
    Decide();
  }
}

void LinkModel::Decide() {
  if (answers_[2] != 0) {
    ShowAndEnd("Board Software\nNot Compatible");
  } else if (answers_[4] + 256 * answers_[5] != 309) {
    ShowAndEnd("Board Type\nNot Compatible");
  } else if (answers_[3] != 18) {
    ShowAndEnd("Board\nNot Compatible");
  } else {
    stage_ = Stage::kLoading;
    SetAnew(kNext);
  }
}

}  // namespace sorvane::test::model
