#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "board/board_tables.h"
#include "board/parameter_access.h"
#include "board/reply.h"
#include "link/link_lamps.h"
#include "outside/timer.h"
#include "support/fake_dialogs.h"
#include "support/index_files.h"
#include "support/memory_port.h"
#include "support/scripted_board.h"
#include "support/virtual_clock.h"

namespace sorvane {
class FrmSer;
}

namespace sorvane::test {

// A whole link on virtual time, not yet connected: the tables, the connection, and a board that
// fits (type 309, software 0, board number 18, revision 0) at the other end of the wire. The folder
// holds "W0309.inx" and "W0309AA00.inx".
//
//   Link link(PlainRows(10));
//   link.Connect();
//   link.access.WatchParameter(1);
//   link.Tick();
//   link.wire.Expect({1, 0, 0, 1, 2});
//
// Pages may stand above it: on_notice hands them the replies, access and tables are what they work
// on.
class Link {
 public:
  struct Setup {
    std::vector<IndexRecord> system = SystemRows();
    std::vector<IndexRecord> parameters = PlainRows(10);
    // Takes the clock's maker and gives the one that the connection gets; none leaves it as it is.
    std::function<TimerMaker(TimerMaker)> timers;
  };

  Link() : Link(Setup{}) {}
  explicit Link(std::vector<IndexRecord> parameters);
  explicit Link(const Setup& setup);
  ~Link();

  // Loads the connection and plays until it stands; the frames of identification are forgotten. A
  // failure of the test if it doesn't come to stand without a box. Time stops at the instant at
  // which the sweep's timer is armed, so that every Tick is one step of the sweep.
  void Connect();

  // Loads the connection only; nothing has happened yet.
  void Load();

  // Lets the sweep make n steps: 40 ms each.
  void Tick(int n = 1) { clock.Advance(40 * n); }

  // What the board holds of a system parameter, or of a parameter that the file of Setup lists, as
  // bytes or as a number in the parameter's own size.
  void SetSystem(int number, uint8_t value);
  void SetBoard(int parameter, const Bytes& value);
  void SetBoardNumber(int parameter, std::uint32_t value);
  Bytes BoardValue(int parameter) const;

  // The record of a parameter, and its value bytes as far as its size goes.
  ParameterRecord& Record(int parameter) { return tables.ParameterTable(parameter, 0); }
  Bytes Value(int parameter);

  TempFolder folder;
  BoardTables tables;
  VirtualClock clock;
  MemoryPort wire;
  ScriptedBoard board;
  FakeDialogs dialogs;
  LinkLamps lamps;
  ParameterAccess access;

  std::vector<Reply> notices;                   // all, in order
  std::function<void(const Reply&)> on_notice;  // called for each, if set
  int loaded = 0;                               // how often the load came to its end
  int ended = 0;                                // how often the program was ended

 private:
  std::uint32_t AddressOf(int parameter) const;

  std::vector<IndexRecord> rows_;
  std::unique_ptr<FrmSer> ser_;

 public:
  // The connection. Its header reaches far: those tests alone include it that work on the
  // connection.
  FrmSer& ser;
};

}  // namespace sorvane::test
