#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/parameter_access.h"
#include "link/frm_ser.h"
#include "link_parts.h"
#include "model/link_model.h"
#include "support/fake_dialogs.h"
#include "support/memory_port.h"
#include "support/virtual_clock.h"

namespace sorvane::fuzz {

namespace model = test::model;

// What happens at the port: a frame goes out, or, without one, it is closed.
struct LineEvent {
  std::int64_t moment = 0;  // ms
  Bytes frame;
  bool operator==(const LineEvent&) const = default;
};

// The serial line under the connection, which keeps what happens and when.
class Line : public test::MemoryPort {
 public:
  explicit Line(const test::VirtualClock& clock) : clock_(clock) {}

  void SetCommPort(int number) override;
  void Close() override;
  void Output(const Bytes& frame) override;

  std::vector<LineEvent> events;

 private:
  const test::VirtualClock& clock_;
};

// The connection and its model, to which the same things happen at the same times. After each, what
// the program has sent, told, shown and stored is what the model says, or the run ends.
class LinkBesideModel {
 public:
  LinkBesideModel();

  // The connection. Once it has ended the program, nothing more may happen.
  void Load();
  void Unload();
  void AnswerBox(bool retry);  // with Retry or Cancel where the box has them; none may stand
  bool Ended() const { return ended_ > 0; }

  void Pass(int milliseconds);

  // The line. Bytes arrive together, as one event; or an event of another kind comes.
  void Deliver(const Bytes& bytes);
  void RaiseOther(int comm_event);
  // The device goes or is back, and another program holds it or lets it go.
  void ChangePort(bool vanished, bool held);

  // The pages.
  void Watch(int k);
  void Unwatch(int k);
  void Write(int k, std::uint32_t number);
  void WriteText(int k, const std::string& text);

  const model::LinkModel& Model() const { return model_; }
  const Bytes& LastFrame() const { return last_frame_; }

 private:
  void Compare();
  void CompareNotices();

  test::VirtualClock clock_;
  BoardTables& tables_ = CleanTables();
  Line line_{clock_};
  LinkLamps lamps_;
  test::FakeDialogs dialogs_;
  ParameterAccess access_{tables_};
  FrmSer ser_;
  std::vector<Reply> notices_;
  int loaded_ = 0;
  int ended_ = 0;

  model::LinkModel model_;
  std::vector<LineEvent> model_events_;
  std::vector<model::LinkModel::Notice> model_notices_;
  Bytes last_frame_;
};

}  // namespace sorvane::fuzz
