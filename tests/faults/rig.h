#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "faults/ledger.h"
#include "model/board_model.h"
#include "model/link_model.h"
#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"
#include "support/link_fixture.h"

namespace sorvane::test::faults {

using model::BoardModel;
using model::WireByte;

// The program's link with the simulated board at the other end of its line, on virtual time; beside
// it the models of both, to which the same things happen. They are compared after every instant:
// the frames and when they went out, the table, the notices, the boxes, the lamps, what the board
// holds. A request of five bytes takes 10 ms on the wire, a byte of an answer 2.
class Rig {
 public:
  // How bytes reach the program: each by itself, or those of 16 ms together, as USB adapters do.
  enum class Wire { kByteByByte, kGathering };

  // rows are those of the link's second-level file. enter is the way into the program.
  Rig(
      Link& link, const std::vector<IndexRecord>& rows, Wire wire = Wire::kByteByByte,
      std::function<void(const std::function<void()>&)> enter = [](const auto& run) { run(); });

  // Time passes.
  void Run(int milliseconds);
  // Time passes until the condition holds; false if it doesn't within the limit.
  bool RunUntil(const std::function<bool()>& condition, int limit = 20000);
  std::int64_t Now() const { return model.Now(); }

  // The connection, on both sides.
  void Connect();
  void FollowConnect();  // the program has just been told to
  void Disconnect();
  void AnswerBox(Answer answer);

  // A fault in the words that the board takes, such as "silent 3".
  void Fault(const std::string& words);

  // What a page does, and the board by itself.
  void Watch(int parameter);
  void Unwatch(int parameter);
  void Write(int parameter, std::uint32_t number);
  void WriteText(int parameter, const std::string& text);
  void SetBoard(int parameter, const Bytes& value);

  // Nothing is on its way, and no bad answer counts towards the next exchange.
  bool Quiet() const { return board_model.Quiet() && model.Idle() && model.BadAnswers() == 0; }

  // Bytes that an answer has left over come before the next one, whose own last bytes are left over
  // then. Where bytes arrive one by one, the silence of a pulled cable ends that: pulls it if need
  // be. False if bytes are left over all the same, or if they are where bytes are gathered.
  bool GetInStep();

  // How much is compared: the link and the records to which something has happened, the whole
  // table, or the board's memory, too.
  enum class Depth { kNews, kTable, kAll };

  // Compares, and fails the running test with what differs. Returns whether all is well.
  bool Compare(Depth depth = Depth::kAll);
  bool IsWell() const { return well_; }

  // How many frames have gone out.
  std::int64_t Frames() const { return frames_; }
  // How often each parameter has come fresh from the board.
  const std::vector<int>& Refreshed() const { return refreshed_; }
  // Timers that have fired: hand this to the link's Setup.
  static std::function<TimerMaker(TimerMaker)> Counted(std::int64_t& count);

  // The table is compared in one instant of so many, the board's memory in one of ten times as
  // many.
  void CompareTableEvery(int instants) { table_every_ = instants; }

  // What else differs, in words; asked at every comparison.
  std::function<std::string()> more_differences;
  // Called for every notice of the model.
  std::function<void(const LinkModel::Notice&)> on_model_notice;

  Link& link;
  LinkModel model;
  BoardModel board_model;
  Ledger ledger;
  simulator::SimulatedBoard board;

 private:
  using Address = std::array<std::uint8_t, 3>;

  // The next moment at which something happens, or the end.
  void StepTo(std::int64_t end);
  void Instant(std::int64_t moment);
  void ServeBoards();
  int ParameterAt(const Address& address) const;
  Depth DepthOfThisInstant();
  std::string Differences(Depth depth);
  std::string RecordDifference(int parameter);
  std::string LinkDifferences();

  std::function<void(const std::function<void()>&)> enter_;
  std::vector<Address> addresses_;
  const std::int64_t gather_;  // ms
  simulator::SerialLine line_;
  Bytes gathered_;
  std::vector<WireByte> model_gathered_;
  std::int64_t hand_over_ = 0;  // when what has been gathered reaches the program
  std::vector<Bytes> model_frames_;
  std::vector<LinkModel::Notice> model_notices_;
  std::vector<int> refreshed_;
  std::int64_t frames_ = 0;
  bool touched_ = false;
  int table_every_ = 20;
  int instants_ = 0;
  std::size_t faults_told_ = 0;
  bool well_ = true;
};

// The name of a test that plays a fault against what it meets.
std::string CaseName(const std::string& what, const std::string& fault, Rig::Wire wire);

}  // namespace sorvane::test::faults
