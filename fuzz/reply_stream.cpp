// The connection to the board: what arrives on the line, in any pieces and at any moments, while
// the board is identified, read and written. An input is a way to begin and a row of steps;
// LineWatch holds the rules.

#include <cstddef>

#include "board/parameter_access.h"
#include "input.h"
#include "line_watch.h"
#include "link/frm_ser.h"
#include "link_parts.h"

namespace sorvane::fuzz {
namespace {

constexpr int kEnough = 400;  // steps, of a board that answers well

class Session {
 public:
  explicit Session(Input input) : input_(input) {
    line_.Watch(ser_.State());
    ser_.on_loaded = [this] {
      if (ser_.ConnectAbandoned) return;
      line_.Stands(LoadedRecords(tables_.IndexRevision));
    };
    ser_.reply_notice = [this](const Reply& reply) { line_.Told(reply); };
  }

  void Run() {
    const unsigned begin = input_.Byte();
    Load();
    if (begin % 2 != 0) {
      Connect();
      const unsigned watched = input_.Word();
      for (int k = 1; k <= kRecords; ++k) {
        if ((watched >> static_cast<unsigned>(k) & 1U) != 0) Watch(k);
      }
    }
    while (!input_.Empty() && !ended_) Step();
    if (!ended_) ComeToRest();
  }

 private:
  void Load() {
    if (!ser_.IsLoaded()) line_.Loading();
    ser_.Load();
    Pass(0);
  }

  void Unload() {
    line_.Unloading();
    ser_.Unload();
    ser_.ConnectAbandoned = false;
    box_ = {};
    Pass(0);
  }

  void Pass(int milliseconds) {
    clock_.Advance(milliseconds);
    if (!ended_) line_.CheckRest();
  }

  void Watch(int k) {
    access_.WatchParameter(k);
    line_.PageChanged(k);
  }

  void Write(int k) {
    if (tables_.ParameterTable(k, 0).At(position::kCommand) % 16 > 3) {
      access_.WriteParameter(k, input_.TakeText(input_.Byte() % 20U));
    } else {
      const int64_t low = input_.Word();
      access_.WriteParameter(k, low + int64_t{65536} * input_.Word());
    }
    line_.PageChanged(k);
  }

  void Unwatch(int k) {
    access_.UnwatchParameter(k);
    line_.PageChanged(k);
  }

  void AnswerBox(bool retry) {
    if (!box_.Stands()) return;
    line_.BoxAnswered();
    box_.AnswerWith(retry);
    if (ended_) return;
    if (ser_.ConnectAbandoned) Unload();
    Pass(0);
  }

  // What a board answers to the frame that went out last.
  Bytes RightAnswer() {
    const Bytes& frame = line_.Frame();
    if (frame.empty()) return {};
    if (!line_.IsRead()) return {static_cast<uint8_t>(frame.back() * 2)};
    Bytes value;
    for (std::size_t i = 0; i < line_.ValueLength(); ++i) value.push_back(next_++);
    if (!line_.Standing()) value[0] = IdentityOf(frame[3]);
    unsigned sum = 0;
    for (const uint8_t byte : value) sum += byte;
    value.push_back(static_cast<uint8_t>(sum));
    return value;
  }

  uint8_t IdentityOf(uint8_t parameter) const {
    switch (parameter) {
      case 12:
        return 18;
      case 13:
        return 53;
      case 14:
        return 1;
      case 17:
        return revision_;
      default:
        return 0;
    }
  }

  void Deliver(const Bytes& bytes) {
    line_.Deliver(bytes);
    if (!ended_) line_.CheckRest();
  }

  void DeliverSpoilt() {
    Bytes answer = RightAnswer();
    if (answer.empty()) return;
    answer[input_.Byte() % answer.size()] ^= input_.Byte();
    Deliver(answer);
  }

  void DeliverCut() {
    Bytes answer = RightAnswer();
    answer.resize(answer.empty() ? 0 : input_.Byte() % answer.size());
    Deliver(answer);
  }

  void DeliverLong() {
    Bytes answer = RightAnswer();
    answer.push_back(input_.Byte());
    Deliver(answer);
  }

  void DeliverOneByOne(const Bytes& bytes) {
    for (const uint8_t byte : bytes) Deliver({byte});
  }

  void ChangePort(uint8_t how) {
    line_.Vanish(how % 4 == 1);
    line_.RefuseOpen(how % 4 == 2);
    revision_ = how % 8 < 4 ? 0 : kSmallRevision;
  }

  void Step() {
    const uint8_t step = input_.Byte();
    const int k = step / 16U % kRecords + 1;
    switch (step % 16) {
      case 0:
        return Pass(input_.Byte());
      case 1:
        return Pass(16 * input_.Byte());
      case 2:
        return Deliver(input_.Take(step / 16U + 1));
      case 3:
        return DeliverOneByOne(input_.Take(step / 16U + 1));
      case 4:
        return Deliver(RightAnswer());
      case 5:
        return DeliverOneByOne(RightAnswer());
      case 6:
        return DeliverSpoilt();
      case 7:
        return DeliverCut();
      case 8:
        return DeliverLong();
      case 9:
        return Watch(k);
      case 10:
        return Unwatch(k);
      case 11:
        return Write(k);
      case 12:
        return line_.RaiseOther(step / 16 == kCommEventReceive ? 1 : step / 16);
      case 13:
        return ChangePort(input_.Byte());
      case 14:
        return AnswerBox(step / 16 != 0);
      default:
        return step / 16 < 4 ? Unload() : Load();
    }
  }

  // One step of time beside a board that answers each frame as it should.
  void StepWell() {
    if (box_.Stands()) {
      AnswerBox(true);
    } else if (!ser_.IsLoaded()) {
      Load();
    } else if (line_.InFlight() && line_.PortOpen() && !line_.Vanished()) {
      Deliver(RightAnswer());
      if (!ended_) Pass(0);
    } else {
      Pass(40);
    }
  }

  void Connect() {
    for (int i = 0; i < kEnough && !line_.Standing() && !ended_; ++i) StepWell();
    Require(line_.Standing() || ended_, "a board that answers well is connected");
  }

  bool NothingIsWanted() const {
    for (int k = 1; k < tables_.RecordCount(0); ++k) {
      if ((tables_.ParameterTable(k, 0).At(position::kFlags) & flag::kPolled) != 0) return false;
    }
    return true;
  }

  // The board is well again and no page wants anything more.
  void ComeToRest() {
    ChangePort(0);
    Connect();
    if (ended_) return;
    for (int k = 1; k <= kRecords; ++k) {
      const ParameterRecord& record = tables_.ParameterTable(k, 0);
      // What a page has written is polled until it is left, but for what is asked once.
      if (record.At(position::kDivider) != 0) Watch(k);
      while (record.At(position::kWatchers) > 0) Unwatch(k);
    }
    for (int i = 0; i < kEnough && !(ser_.State().LinkIdle && NothingIsWanted()); ++i) StepWell();
    Require(ser_.State().LinkIdle, "the line comes to rest");
    Require(NothingIsWanted(), "what was asked once has been answered");
  }

  Input input_;
  test::VirtualClock clock_;
  BoardTables& tables_ = CleanTables();
  LineWatch line_{clock_, tables_};
  LinkLamps lamps_;
  OneBox box_;
  ParameterAccess access_{tables_};
  bool ended_ = false;
  uint8_t revision_ = 0;
  uint8_t next_ = 1;  // the next value byte of the board
  FrmSer ser_{
      {tables_, line_, lamps_, box_, clock_.Maker(), SampleFolder(), [this] { ended_ = true; }}};
};

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Session({data, size}).Run();
  return 0;
}
