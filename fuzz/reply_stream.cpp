// The connection to the board: what arrives on the line, in any pieces and at any moments, while
// the board is identified, read and written. An input is a way to begin and a row of steps.

#include <cstddef>

#include "input.h"
#include "link_beside_model.h"
#include "model/board_model.h"

namespace sorvane::fuzz {
namespace {

constexpr int kEnough = 400;  // steps, of a board that answers well

class Session {
 public:
  explicit Session(Input input) : input_(input) {}

  void Run() {
    const unsigned begin = input_.Byte();
    link_.Load();
    if (begin % 2 != 0) {
      Connect();
      const unsigned watched = input_.Word();
      for (int k = 1; k <= kRecords; ++k) {
        if ((watched >> static_cast<unsigned>(k) & 1U) != 0) link_.Watch(k);
      }
    }
    while (!input_.Empty() && !link_.Ended()) Step();
    if (!link_.Ended()) ComeToRest();
  }

 private:
  bool Standing() const { return link_.Model().At() == model::LinkModel::Stage::kStanding; }

  void Write(int k) {
    if (link_.Model().Of(k).Length() > 4) {
      link_.WriteText(k, input_.TakeText(input_.Byte() % 20U));
    } else {
      const uint32_t low = input_.Word();
      link_.Write(k, low + 65536U * input_.Word());
    }
  }

  // What a board answers to the frame that went out last.
  Bytes RightAnswer() {
    const Bytes& frame = link_.LastFrame();
    if (frame.empty()) return {};
    Bytes value;
    const bool read = frame[0] < 128;
    for (std::size_t i = 0; read && i < link_.Model().ValueLength(); ++i) value.push_back(next_++);
    if (read && !Standing()) value[0] = IdentityOf(frame[3]);
    return model::AnswerTo(frame, value);
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

  void DeliverSpoilt() {
    Bytes answer = RightAnswer();
    if (answer.empty()) return;
    answer[input_.Byte() % answer.size()] ^= input_.Byte();
    link_.Deliver(answer);
  }

  void DeliverCut() {
    Bytes answer = RightAnswer();
    answer.resize(answer.empty() ? 0 : input_.Byte() % answer.size());
    link_.Deliver(answer);
  }

  void DeliverLong() {
    Bytes answer = RightAnswer();
    answer.push_back(input_.Byte());
    link_.Deliver(answer);
  }

  void DeliverOneByOne(const Bytes& bytes) {
    for (const uint8_t byte : bytes) link_.Deliver({byte});
  }

  void ChangePort(uint8_t how) {
    link_.ChangePort(how % 4 == 1, how % 4 == 2);
    revision_ = how % 8 < 4 ? 0 : kSmallRevision;
  }

  void Step() {
    const uint8_t step = input_.Byte();
    const int k = step / 16U % kRecords + 1;
    switch (step % 16) {
      case 0:
        return link_.Pass(input_.Byte());
      case 1:
        return link_.Pass(16 * input_.Byte());
      case 2:
        return link_.Deliver(input_.Take(step / 16U + 1));
      case 3:
        return DeliverOneByOne(input_.Take(step / 16U + 1));
      case 4:
        return link_.Deliver(RightAnswer());
      case 5:
        return DeliverOneByOne(RightAnswer());
      case 6:
        return DeliverSpoilt();
      case 7:
        return DeliverCut();
      case 8:
        return DeliverLong();
      case 9:
        return link_.Watch(k);
      case 10:
        return link_.Unwatch(k);
      case 11:
        return Write(k);
      case 12:
        return link_.RaiseOther(step / 16 == kCommEventReceive ? 1 : step / 16);
      case 13:
        return ChangePort(input_.Byte());
      case 14:
        return link_.AnswerBox(step / 16 != 0);
      default:
        return step / 16 < 4 ? link_.Unload() : link_.Load();
    }
  }

  // One step of time beside a board that answers each frame as it should.
  void StepWell() {
    const model::LinkModel& model = link_.Model();
    if (!model.Box().empty()) {
      link_.AnswerBox(true);
    } else if (model.At() == model::LinkModel::Stage::kOff) {
      link_.Load();
    } else if (model.Waits() && model.IsPortOpen() && !model.IsPortDead()) {
      link_.Deliver(RightAnswer());
      link_.Pass(0);
    } else {
      link_.Pass(40);
    }
  }

  void Connect() {
    for (int i = 0; i < kEnough && !Standing() && !link_.Ended(); ++i) StepWell();
    Require(Standing() || link_.Ended(), "a board that answers well is connected");
  }

  bool NothingIsWanted() const {
    for (int k = 1; k < link_.Model().WalkEnd(); ++k) {
      if (link_.Model().Of(k).polled) return false;
    }
    return true;
  }

  // The board is well again and no page wants anything more.
  void ComeToRest() {
    ChangePort(0);
    Connect();
    if (link_.Ended()) return;
    const model::LinkModel& model = link_.Model();
    for (int k = 1; k <= kRecords; ++k) {
      const model::LinkModel::Record& record = model.Of(k);
      // What a page has written is polled until it is left, but for what is asked once.
      if (record.wait > 0 || record.reload > 0) link_.Watch(k);
      while (record.watchers > 0) link_.Unwatch(k);
    }
    for (int i = 0; i < kEnough && !(model.Idle() && NothingIsWanted()); ++i) StepWell();
    Require(model.Idle(), "the line comes to rest");
    Require(NothingIsWanted(), "what was asked once has been answered");
  }

  Input input_;
  LinkBesideModel link_;
  uint8_t revision_ = 0;
  uint8_t next_ = 1;  // the next value byte of the board
};

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Session({data, size}).Run();
  return 0;
}
