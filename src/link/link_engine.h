#pragma once

#include <functional>
#include <memory>

#include "board/board_tables.h"
#include "link/link_lamps.h"
#include "link/link_state.h"
#include "link/sweep.h"
#include "outside/port.h"
#include "outside/timer.h"

namespace sorvane {

// Runs one exchange at a time: sends the frame that the shared exchange values describe, waits for
// the reply, checks it, sends again where it must, and outside identification has the sweep store
// what came. What to send is the sweep's or identification's choice. Its three timers are disabled
// until SendFrame or a reply arms them.
class LinkEngine {
 public:
  LinkEngine(LinkState& state, BoardTables& tables, Port& port, LinkLamps& lamps, Sweep& sweep,
             const TimerMaker& make_timer);

  // During identification the line has become free: a reply was accepted or dropped, or a timeout
  // handed the line back.
  std::function<void()> on_line_free;
  // During identification the port couldn't be opened again after a timeout. Once a connection
  // stands this is silent: every further timeout tries again, and the error lamp tells.
  std::function<void()> on_port_lost;

  // Throws RuntimeError kPort if the port refuses the frame during identification.
  void SendFrame();

  // The event of the serial port; looks at receptions only.
  void ReceiveReply(int comm_event);

  // Nothing waits for a reply any more. The end of a connection's set-up calls it.
  void StopReplyTimeout() { timer2_->Disable(); }

  // Stops all timers. A frame in flight is lost.
  void Stop();

 private:
  void OnReplyTimeout();
  void OnTransmitHold();
  void OnReceiveHold();

  LinkState& state_;
  BoardTables& tables_;
  Port& port_;
  LinkLamps& lamps_;
  Sweep& sweep_;
  std::unique_ptr<Timer> timer2_;  // reply timeout, 1000 ms
  std::unique_ptr<Timer> timer3_;  // transmit lamp hold, 500 ms
  std::unique_ptr<Timer> timer4_;  // receive lamp hold, 500 ms
};

}  // namespace sorvane
