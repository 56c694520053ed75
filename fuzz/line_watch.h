#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

#include "board/board_tables.h"
#include "board/reply.h"
#include "link/link_state.h"
#include "outside/port.h"
#include "support/virtual_clock.h"

namespace sorvane::fuzz {

// The serial line under a connection, with a second reading of the rules of an exchange, which
// shares no code with the link: every frame, close and reply is held against it as it happens, and
// after each of its calls the whole parameter table is.
class LineWatch : public Port {
 public:
  static constexpr int kWatchedRecords = 14;  // the tables of the target hold fewer

  LineWatch(const test::VirtualClock& clock, const BoardTables& tables);

  // The link's state, once there is one; it is asked for the position of the sweep.
  void Watch(const LinkState& state) { state_ = &state; }

  void SetCommPort(int number) override;
  bool PortOpen() const override { return open_; }
  bool Vanished() const override { return dead_; }
  void Open() override;
  void Close() override;
  void Output(const Bytes& frame) override;
  std::size_t InBufferCount() const override { return in_.size(); }
  Bytes Input() override;

  // The device goes, or is back. A port that was open then stays dead until it is closed.
  void Vanish(bool vanished) {
    vanished_ = vanished;
    dead_ = open_ && (dead_ || vanished);
  }
  void RefuseOpen(bool refused) { refused_ = refused; }

  // What the target does with the connection, told before it does it.
  void Loading();
  void Unloading();
  void BoxAnswered() { may_ask_anew_ = true; }
  // The connection stands, over the records of an index file.
  void Stands(const std::vector<ParameterRecord>& records);
  // A reply was told to the pages.
  void Told(const Reply& reply);
  // A page has changed a record.
  void PageChanged(int index);

  // Bytes arrive together, as one event; or an event of another kind comes.
  void Deliver(const Bytes& bytes);
  void RaiseOther(int comm_event);
  // What must hold whenever time has passed.
  void CheckRest();

  bool InFlight() const { return in_flight_; }
  bool Standing() const { return stage_ == Stage::kStanding; }
  const Bytes& Frame() const { return frame_; }

  // Of the exchange of the frame that went out last.
  bool IsRead() const { return frame_.front() < 128; }
  std::size_t ValueLength() const { return length_; }

 private:
  enum class Stage { kUnloaded, kIdentifying, kStanding };
  enum class Verdict { kIncomplete, kGood, kBad, kDropped };

  using Moment = std::chrono::milliseconds;

  ParameterRecord& Shadow(int32_t index);
  Verdict Judge() const;
  void Store();
  void TakeFrame(const Bytes& frame);
  void TakeRepetition(const Bytes& frame);
  void TakeQuestion(const Bytes& frame);
  void TakeSweepFrame(const Bytes& frame);
  void CheckTable(uint8_t divider_bits);

  const test::VirtualClock& clock_;
  const BoardTables& tables_;
  const LinkState* state_ = nullptr;

  bool open_ = false;
  bool vanished_ = false;
  bool dead_ = false;
  bool refused_ = false;
  Bytes in_;

  Stage stage_ = Stage::kUnloaded;
  bool in_event_ = false;
  int taken_ = 0;     // how often the buffer was taken in this event
  int repeated_ = 0;  // frames in this event
  int stood_ = 0;     // connections so far
  std::vector<Reply> expected_notices_;

  Bytes frame_;
  std::size_t length_ = 1;  // of the value in the exchange
  bool in_flight_ = false;
  bool must_repeat_ = false;  // a timeout has to be followed by the same frame
  Moment deadline_{};         // of the frame in flight
  int retries_ = 0;
  std::size_t question_ = 0;  // how many of the seven have been asked
  Moment attempt_{};          // when the last of them was asked
  bool may_ask_anew_ = false;

  std::vector<ParameterRecord> shadow_;
};

}  // namespace sorvane::fuzz
