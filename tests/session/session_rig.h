#pragma once

#include <chrono>
#include <functional>

#include "session/exchange.h"
#include "session/session.h"
#include "support/index_files.h"
#include "support/memory_port.h"
#include "support/scripted_board.h"
#include "support/virtual_clock.h"

namespace sorvane::test {

// Waits on virtual time, a millisecond at a time.
inline WaitFor WaitOn(VirtualClock& clock) {
  return [&clock](std::chrono::milliseconds limit, const std::function<bool()>& done) {
    for (const auto end = clock.Now() + limit; !done() && clock.Now() < end;) clock.Advance(1);
    return done();
  };
}

// An open port with a board at its other end.
struct Line {
  VirtualClock clock;
  MemoryPort wire;
  ScriptedBoard board{wire, clock};
  Exchange exchange{wire, WaitOn(clock)};

  Line() {
    wire.SetCommPort(1);
    wire.Open();
  }
};

// A session with a board of type 309, software 0, revision 0, whose parameter k lies at address 0,
// k / 256, k modulo 256, with one or two bytes.
struct Conversation : Line {
  TempFolder folder;
  Session session{exchange, folder.Path()};

  explicit Conversation(const std::vector<IndexRecord>& rows = PlainRows(10)) {
    folder.WriteFile("W0309.inx", FirstLevelBytes(SystemRows()));
    folder.WriteFile("W0309AA00.inx", SecondLevelBytes(rows));
    SetSystem(12, 18);
    SetSystem(13, 53);
    SetSystem(14, 1);
  }

  void SetSystem(int number, uint8_t value) {
    board.Set(ScriptedBoard::Address(240, 0, static_cast<uint8_t>(number)), {value});
  }
  static std::uint32_t Place(int number) {
    return ScriptedBoard::Address(0, static_cast<uint8_t>(number / 256),
                                  static_cast<uint8_t>(number % 256));
  }
};

}  // namespace sorvane::test
