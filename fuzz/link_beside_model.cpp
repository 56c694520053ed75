#include "link_beside_model.h"

#include <array>
#include <map>

#include "input.h"
#include "support/beside_model.h"

namespace sorvane::fuzz {
namespace {

using Stage = model::LinkModel::Stage;

std::map<int, std::vector<model::Row>> ModelFiles() {
  std::map<int, std::vector<model::Row>> files;
  for (const auto& [revision, rows] : Files()) files[revision] = test::ModelRows(rows);
  return files;
}

}  // namespace

void Line::SetCommPort(int number) {
  Require(number == 1, "port number 1 is opened");
  MemoryPort::SetCommPort(number);
}

void Line::Close() {
  if (PortOpen()) events.push_back({clock_.Now().count(), {}});
  MemoryPort::Close();
}

void Line::Output(const Bytes& frame) {
  MemoryPort::Output(frame);
  events.push_back({clock_.Now().count(), frame});
}

LinkBesideModel::LinkBesideModel()
    : ser_(
          {tables_, line_, lamps_, dialogs_, clock_.Maker(), SampleFolder(), [this] { ++ended_; }}),
      model_(test::ModelRows(SystemFile()), ModelFiles()) {
  ser_.on_loaded = [this] { ++loaded_; };
  ser_.reply_notice = [this](const Reply& reply) { notices_.push_back(reply); };
  model_.on_frame = [this](const Bytes& frame, std::int64_t /*number*/, bool /*carried*/) {
    model_events_.push_back({model_.Now(), frame});
    last_frame_ = frame;
  };
  model_.on_closed = [this] { model_events_.push_back({model_.Now(), {}}); };
  model_.on_notice = [this](const auto& notice) { model_notices_.push_back(notice); };
}

void LinkBesideModel::Load() {
  ser_.Load();
  model_.Connect();
  Pass(0);
}

// A box that still stands does nothing any more.
void LinkBesideModel::Unload() {
  ser_.Unload();
  ser_.ConnectAbandoned = false;
  model_.Disconnect();
  while (!dialogs_.Standing().empty()) dialogs_.Answer(Answer::kOk);
  Pass(0);
}

void LinkBesideModel::AnswerBox(bool retry) {
  if (model_.Box().empty()) return;
  const bool asks = dialogs_.Standing().back().flags == kExclamationIcon + kRetryCancel;
  dialogs_.Answer(!asks ? Answer::kOk : retry ? Answer::kRetry : Answer::kCancel);
  model_.Answer(asks && retry);
  Require(ended_ == model_.Ended(), "the program ends when the model says so");
  if (Ended()) return;
  if (ser_.ConnectAbandoned) Unload();
  Pass(0);
}

void LinkBesideModel::Pass(int milliseconds) {
  clock_.Advance(milliseconds);
  model_.PassTo(clock_.Now().count());
  Compare();
}

void LinkBesideModel::Deliver(const Bytes& bytes) {
  if (bytes.empty()) return;
  line_.Deliver(bytes);
  std::vector<model::WireByte> all;
  for (const uint8_t byte : bytes) all.push_back({byte, 0});
  model_.Take(all);
  Compare();
}

void LinkBesideModel::RaiseOther(int comm_event) {
  line_.RaiseEvent(comm_event);
  Compare();
}

void LinkBesideModel::ChangePort(bool vanished, bool held) {
  if (vanished) {
    line_.Vanish();
    model_.PullCable();
  } else {
    line_.ComeBack();
    model_.PlugCable();
  }
  line_.RefuseOpen(held);
  model_.HoldPort(held);
}

void LinkBesideModel::Watch(int k) {
  access_.WatchParameter(k);
  model_.Watch(k);
  Compare();
}

void LinkBesideModel::Unwatch(int k) {
  access_.UnwatchParameter(k);
  model_.Unwatch(k);
  Compare();
}

void LinkBesideModel::Write(int k, std::uint32_t number) {
  access_.WriteParameter(k, std::int64_t{number});
  model_.Write(k, number);
  Compare();
}

void LinkBesideModel::WriteText(int k, const std::string& text) {
  access_.WriteParameter(k, text);
  model_.WriteText(k, text);
  Compare();
}

void LinkBesideModel::Compare() {
  Require(line_.events == model_events_, "frames go out and the port is closed by the rules");
  CompareNotices();
  for (int k = 0; k < kRecords + 2; ++k) {
    Require(test::IsAs(tables_.ParameterTable(k, 0), model_.Of(k)),
            "a record changes by a page, a step of the sweep, an accepted reply or a load");
  }
  const LinkState& state = ser_.State();
  Require(state.SweepPosition == model_.Position(), "the sweep stands where it should");
  Require(state.LinkIdle == model_.Idle(), "the line is free when nothing is in flight");
  Require(state.RetryCount == model_.BadAnswers(), "bad replies in a row are counted");
  Require(line_.PortOpen() == model_.IsPortOpen(), "the port is open when it should be");
  Require(line_.InBufferCount() == model_.LeftOver(), "a reply is taken when it is whole");
  Require(std::array{lamps_.Tag(2), lamps_.Tag(3), lamps_.Tag(4)} == model_.Lamps(),
          "the lamps tell of the line");
  const std::vector<MessageBox> boxes = dialogs_.Standing();
  Require(boxes.size() <= 1, "one box stands at a time");
  Require((boxes.empty() ? std::string() : boxes.front().text) == model_.Box(), "a box tells why");
  Require(loaded_ == model_.Loaded() && ended_ == model_.Ended(), "a load comes to its end once");
  Require(model_.At() != Stage::kOff || clock_.Armed() == 0, "no timer runs without a connection");
  line_.Forget();
  line_.events.clear();
  model_events_.clear();
}

void LinkBesideModel::CompareNotices() {
  bool same = notices_.size() == model_notices_.size();
  for (std::size_t i = 0; same && i < notices_.size(); ++i) {
    const Reply& is = notices_[i];
    const model::LinkModel::Notice& expected = model_notices_[i];
    same = is.index == expected.parameter && is.bytes == expected.value &&
           is.size + 1U == expected.value.size();
  }
  Require(same, "pages are told of every accepted reply and of nothing else");
  notices_.clear();
  model_notices_.clear();
}

}  // namespace sorvane::fuzz
