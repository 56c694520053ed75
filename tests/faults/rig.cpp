#include "faults/rig.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "link/frm_ser.h"
#include "simulator/faults.h"
#include "support/beside_model.h"

namespace sorvane::test::faults {
namespace {

using simulator::Micros;
using std::chrono::milliseconds;

constexpr int kBaud = 5000;  // a byte takes 2 ms
constexpr std::size_t kDay = 56;
constexpr std::int64_t kGather = 16;

template <typename T>
void Differ(std::string& words, const std::string& what, const T& is, const T& expected) {
  if (is == expected) return;
  words += "  " + what + ": " + ::testing::PrintToString(is) + ", not " +
           ::testing::PrintToString(expected) + "\n";
}

}  // namespace

Rig::Rig(Link& the_link, const std::vector<IndexRecord>& rows, Wire wire,
         std::function<void(const std::function<void()>&)> enter)
    : link(the_link),
      model(ModelRows(SystemRows()), {{0, ModelRows(rows)}}),
      board_model(ModelRow(rows.at(std::min(rows.size(), kDay) - 1)).address),
      ledger(model),
      board(the_link.folder.Path(), {}, {.year = 2026, .month = 3, .day = 5}),
      enter_(std::move(enter)),
      gather_(wire == Wire::kGathering ? kGather : 0),
      line_(board),
      refreshed_(rows.size() + 1) {
  line_.SetBaud(kBaud);
  addresses_.push_back({});
  for (const IndexRecord& row : rows) {
    addresses_.push_back(ModelRow(row).address);
    const int parameter = static_cast<int>(addresses_.size()) - 1;
    board_model.Hold(addresses_.back(), board.Contents().Value(simulator::Parameter(parameter)));
    ledger.Held(parameter, board_model.Held(addresses_.back()));
  }
  for (const model::Row& row : ModelRows(SystemRows())) {
    board_model.Hold(row.address,
                     board.Contents().Value(simulator::SystemParameter(row.address[2])));
  }
  link.wire.on_output = [this](const Bytes& frame) {
    line_.Receive(frame, Micros(link.clock.Now()));
  };
  model.on_frame = [this](const Bytes& frame, std::int64_t number, bool carried) {
    model_frames_.push_back(frame);
    ++frames_;
    if (carried) board_model.Receive(frame, number, model.Now());
  };
  model.on_notice = [this](const LinkModel::Notice& notice) {
    model_notices_.push_back(notice);
    ++refreshed_.at(static_cast<std::size_t>(notice.parameter));
    if (on_model_notice) on_model_notice(notice);
  };
  model.on_event = [this](const LinkEvent& event) { ledger.Take(event); };
  board_model.on_obeyed = [this](const Address& address, const Bytes& value) {
    if (const int parameter = ParameterAt(address)) ledger.Obeyed(parameter, value);
  };
}

std::function<TimerMaker(TimerMaker)> Rig::Counted(std::int64_t& count) {
  return [&count](const TimerMaker& maker) -> TimerMaker {
    return [&count, maker](milliseconds interval, std::function<void()> handler) {
      return maker(interval, [&count, handler = std::move(handler)] {
        ++count;
        handler();
      });
    };
  };
}

int Rig::ParameterAt(const Address& address) const {
  const auto found = std::find(addresses_.begin() + 1, addresses_.end(), address);
  return found == addresses_.end() ? 0 : static_cast<int>(found - addresses_.begin());
}

// Time.

void Rig::StepTo(std::int64_t end) {
  std::int64_t next = end;
  if (const auto moment = model.NextMoment()) next = std::min(next, *moment);
  if (const auto moment = board_model.NextMoment()) next = std::min(next, *moment);
  if (const auto moment = line_.NextEvent()) {
    next = std::min<std::int64_t>(next, *moment / milliseconds(1));
  }
  if (!gathered_.empty()) next = std::min(next, hand_over_);
  Instant(std::max(next, Now()));
}

void Rig::Run(int span) {
  const std::int64_t end = Now() + span;
  while (well_ && Now() < end) StepTo(end);
}

bool Rig::RunUntil(const std::function<bool()>& condition, int limit) {
  const std::int64_t end = Now() + limit;
  while (well_ && Now() < end && !condition()) StepTo(end);
  return condition();
}

// Timers first, then the board, then what was posted meanwhile.
void Rig::Instant(std::int64_t moment) {
  try {
    enter_([&] { link.clock.Advance(static_cast<int>(moment - link.clock.Now().count())); });
    model.PassTo(moment);
    ServeBoards();
    enter_([&] { link.clock.Advance(0); });
    model.PassTo(moment);
  } catch (const std::exception& error) {
    well_ = false;
    ADD_FAILURE() << "at " << moment << " ms: " << error.what();
    return;
  }
  Compare(DepthOfThisInstant());
}

Rig::Depth Rig::DepthOfThisInstant() {
  if (++instants_ % table_every_ != 0) return Depth::kNews;
  return instants_ % (10 * table_every_) == 0 ? Depth::kAll : Depth::kTable;
}

void Rig::ServeBoards() {
  const Micros now(link.clock.Now());
  line_.Serve(now);
  const Bytes bytes = line_.TakeSent(now);
  const std::vector<WireByte> model_bytes = board_model.PassTo(Now());
  if (gathered_.empty()) hand_over_ = Now() + gather_;
  gathered_.insert(gathered_.end(), bytes.begin(), bytes.end());
  model_gathered_.insert(model_gathered_.end(), model_bytes.begin(), model_bytes.end());
  if (Now() < hand_over_) return;
  if (!gathered_.empty()) enter_([&] { link.wire.Deliver(gathered_); });
  if (!model_gathered_.empty()) model.Take(model_gathered_);
  gathered_.clear();
  model_gathered_.clear();
}

// The connection.

void Rig::Connect() {
  link.Load();
  FollowConnect();
}

void Rig::FollowConnect() {
  model.Connect();
  Instant(Now());
}

void Rig::Disconnect() {
  link.ser.ConnectAbandoned = false;
  link.ser.Unload();
  model.Disconnect();
}

void Rig::AnswerBox(Answer answer) {
  enter_([&] { link.dialogs.Answer(answer); });
  model.Answer(answer == Answer::kRetry);
  Instant(Now());
}

void Rig::Fault(const std::string& words) {
  const simulator::FaultOrder order = simulator::ParseFault(words);
  board.FaultState().Set(order);
  if (order.fault == simulator::Fault::kUnplugged) {
    link.wire.Vanish();
    line_.Clear();
    gathered_.clear();
    model_gathered_.clear();
    model.PullCable();
  } else {
    link.wire.ComeBack();
    model.PlugCable();
  }
  model::Trouble trouble{words, 0};
  const std::size_t blank = words.rfind(' ');
  if (words.ends_with(" once")) {
    trouble = {words.substr(0, blank), 1};
  } else if (blank != std::string::npos && words != "refuses day 0" &&
             std::isdigit(words.back()) != 0) {
    trouble = {words.substr(0, blank), std::stoi(words.substr(blank + 1))};
  }
  board_model.Suffer(trouble);
}

bool Rig::GetInStep() {
  constexpr int kBeyondATimeout = 2100;
  if (!RunUntil([this] { return Quiet(); })) return false;
  if (model.LeftOver() == 0) return true;
  if (gather_ > 0) return false;
  Fault("unplugged");
  Run(kBeyondATimeout);
  Fault("none");
  return RunUntil([this] { return Quiet(); }) && model.LeftOver() == 0;
}

// The pages.

void Rig::Watch(int parameter) {
  link.access.WatchParameter(parameter);
  model.Watch(parameter);
  touched_ = true;
}

void Rig::Unwatch(int parameter) {
  link.access.UnwatchParameter(parameter);
  model.Unwatch(parameter);
  ledger.Left(parameter);
  touched_ = true;
}

void Rig::Write(int parameter, std::uint32_t number) {
  link.access.WriteParameter(parameter, std::int64_t{number});
  model.Write(parameter, number);
  ledger.Typed(parameter);
  touched_ = true;
}

void Rig::WriteText(int parameter, const std::string& text) {
  link.access.WriteParameter(parameter, text);
  model.WriteText(parameter, text);
  ledger.Typed(parameter);
  touched_ = true;
}

void Rig::SetBoard(int parameter, const Bytes& value) {
  board.Contents().SetValue(simulator::Parameter(parameter), value);
  board_model.Hold(addresses_.at(static_cast<std::size_t>(parameter)), value);
  ledger.Changed(parameter, value);
}

// The comparison.

bool Rig::Compare(Depth depth) {
  const bool news = touched_ || !model_frames_.empty() || !model_notices_.empty() ||
                    !link.wire.Frames().empty() || !link.notices.empty();
  touched_ = false;
  if (!news && depth == Depth::kNews) return well_;
  std::string words = Differences(depth);
  for (; faults_told_ < ledger.Faults().size(); ++faults_told_) {
    words += "  " + ledger.Faults()[faults_told_] + "\n";
  }
  if (!words.empty()) {
    well_ = false;
    ADD_FAILURE() << "after " << Now() << " ms:\n" << words;
  }
  return well_;
}

std::string Rig::Differences(Depth depth) {
  std::string words = LinkDifferences();
  if (more_differences) words += more_differences();
  for (const LinkModel::Notice& each : model_notices_) words += RecordDifference(each.parameter);
  words += RecordDifference(std::max(1, model.Position()));
  for (int i = 1; depth != Depth::kNews && i <= model.Count(); ++i) words += RecordDifference(i);
  for (int i = 1; depth == Depth::kAll && i <= model.Count(); ++i) {
    const Bytes& held = board.Contents().Value(simulator::Parameter(i));
    const Bytes& expected = board_model.Held(addresses_[static_cast<std::size_t>(i)]);
    Differ(words, "the board's parameter " + std::to_string(i), held, expected);
  }
  model_frames_.clear();
  model_notices_.clear();
  link.wire.Forget();
  link.notices.clear();
  return words;
}

std::string Rig::LinkDifferences() {
  std::string words;
  Differ(words, "frames", link.wire.Frames(), model_frames_);
  std::vector<LinkModel::Notice> notices;
  for (const Reply& each : link.notices) notices.push_back({each.index, each.bytes});
  if (notices != model_notices_) {
    words += "  " + std::to_string(notices.size()) + " notices, not " +
             std::to_string(model_notices_.size()) + ", or others\n";
  }
  Differ(words, "position", static_cast<int>(link.ser.State().SweepPosition), model.Position());
  Differ(words, "idle", link.ser.State().LinkIdle, model.Idle());
  Differ(words, "bad answers", link.ser.State().RetryCount, model.BadAnswers());
  Differ(words, "lamps", {link.lamps.Tag(2), link.lamps.Tag(3), link.lamps.Tag(4)}, model.Lamps());
  const std::vector<MessageBox> boxes = link.dialogs.Standing();
  Differ(words, "box", boxes.empty() ? std::string() : boxes.back().text, model.Box());
  Differ(words, "ends", link.ended, model.Ended());
  return words;
}

std::string Rig::RecordDifference(int parameter) {
  const ParameterRecord& record = link.Record(parameter);
  if (IsAs(record, model.Of(parameter))) return {};
  const std::array<std::uint8_t, 23> expected = model.Of(parameter).InTable();
  std::vector<int> bytes;
  for (int i = 1; i <= 23; ++i) bytes.push_back(record.At(i));
  std::string words;
  Differ(words, "record " + std::to_string(parameter), bytes, {expected.begin(), expected.end()});
  return words;
}

std::string CaseName(const std::string& what, const std::string& fault, Rig::Wire wire) {
  std::string name = what + '_';
  for (const char c : fault) {
    if (c != ' ') name += c;
  }
  return name + (wire == Rig::Wire::kGathering ? "_Gathered" : "_ByteByByte");
}

}  // namespace sorvane::test::faults
