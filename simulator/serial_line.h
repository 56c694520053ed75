#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/bytes.h"
#include "simulator/request_reader.h"
#include "simulator/simulated_board.h"
#include "simulator/wire_lane.h"

namespace sorvane::simulator {

// The board's end of the line: takes the PC's bytes at the speed of the wire, has the board serve
// the requests in them, and gives out its replies at the speed of the wire.
class SerialLine {
 public:
  // Bits a second; a byte takes ten bits. 0 means that bytes take no time.
  static constexpr int kUnlimited = 0;
  static constexpr int kLowestBaud = 300;
  static constexpr int kHighestBaud = 1000000;

  // board must outlive the line.
  explicit SerialLine(SimulatedBoard& board) : board_(board) {}

  // Holds for bytes that have not yet been sent off.
  void SetBaud(int baud) { baud_ = baud; }

  // Bytes that the PC has put on the wire.
  void Receive(const Bytes& bytes, Micros now);

  // Serves what has arrived. Returns what happened, a line for each exchange.
  std::vector<std::string> Serve(Micros now);

  // Takes the bytes that have reached the PC.
  Bytes TakeSent(Micros now);

  // When there is something to serve or to take; none while the line is quiet.
  std::optional<Micros> NextEvent() const;

  // Loses everything that is under way.
  void Clear();

 private:
  Micros ByteTime() const;
  void Expire(Micros now, std::vector<std::string>& lines);
  std::string Obey(const RequestReader::Frame& frame, Micros now);

  SimulatedBoard& board_;
  int baud_ = kUnlimited;
  WireLane from_pc_;
  WireLane to_pc_;
  RequestReader reader_;
};

}  // namespace sorvane::simulator
