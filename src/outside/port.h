#pragma once

#include <cstddef>
#include <functional>

#include "board/reply.h"

namespace sorvane {

// What a serial control tells by its event; a reception is the only kind that the link looks at.
inline constexpr int kCommEventReceive = 2;

// The serial line to the board: 19200 baud, no parity, 8 data bits, 1 stop bit, no handshake, with
// a receive buffer of 1024 bytes and a transmit buffer of 512. All calls and events are on the
// event thread. A port whose device vanishes stops raising events; it counts as open until it is
// closed, and swallows what is put out.
class Port {
 public:
  virtual ~Port() = default;

  // Which port the next Open opens, and every further one up to the next call: the number's device
  // is chosen here, and a connection that is opened again stays with it. Throws RuntimeError kPort
  // while open.
  virtual void SetCommPort(int number) = 0;

  virtual bool PortOpen() const = 0;

  // Whether the device of the open port has vanished; false if it is closed.
  virtual bool Vanished() const = 0;

  // Opens the port and throws away what lies in its buffers. Throws RuntimeError kPort where it is
  // missing, held by another program, or open already.
  virtual void Open() = 0;

  // Closes the port and throws away what lies in its buffers. Does nothing if it is closed.
  virtual void Close() = 0;

  // Puts bytes on the line without waiting. Throws RuntimeError kPort if the port is closed.
  virtual void Output(const Bytes& bytes) = 0;

  // Bytes in the receive buffer; 0 if the port is closed.
  virtual std::size_t InBufferCount() const = 0;

  // Takes the whole receive buffer.
  virtual Bytes Input() = 0;

  // Called with the kind of event. Bytes that arrived together are one event; it carries none of
  // them.
  std::function<void(int comm_event)> on_comm;
};

}  // namespace sorvane
