#include "simulator/serial_line.h"

#include "simulator/words.h"

namespace sorvane::simulator {
namespace {

constexpr int kBitsPerByte = 10;  // with start and stop bit

}  // namespace

Micros SerialLine::ByteTime() const {
  if (baud_ == kUnlimited) return Micros(0);
  return Micros(std::chrono::seconds(kBitsPerByte)) / baud_;
}

void SerialLine::Receive(const Bytes& bytes, Micros now) {
  for (const uint8_t byte : bytes) from_pc_.Push(byte, now, ByteTime());
}

std::vector<std::string> SerialLine::Serve(Micros now) {
  std::vector<std::string> lines;
  for (auto arrival = from_pc_.NextArrival(); arrival && *arrival <= now;
       arrival = from_pc_.NextArrival()) {
    Expire(*arrival, lines);
    const auto frame = reader_.Feed(from_pc_.Take(), *arrival);
    if (frame) lines.push_back(Obey(*frame, *arrival));
  }
  Expire(now, lines);
  return lines;
}

void SerialLine::Expire(Micros now, std::vector<std::string>& lines) {
  const Bytes dropped = reader_.Expire(now);
  if (!dropped.empty()) lines.push_back("half a request: " + ShowBytes(dropped));
}

std::string SerialLine::Obey(const RequestReader::Frame& frame, Micros now) {
  if (!frame.request) return "bad checksum: " + ShowBytes(frame.bytes);
  const SimulatedBoard::Answer answer = board_.Serve(*frame.request);
  Micros earliest = now + answer.reply.delay;
  for (const uint8_t byte : answer.reply.bytes) {
    earliest += answer.reply.spacing;
    to_pc_.Push(byte, earliest, ByteTime());
  }
  return answer.words;
}

Bytes SerialLine::TakeSent(Micros now) {
  Bytes sent;
  for (auto arrival = to_pc_.NextArrival(); arrival && *arrival <= now;
       arrival = to_pc_.NextArrival()) {
    sent.push_back(to_pc_.Take());
  }
  return sent;
}

std::optional<Micros> SerialLine::NextEvent() const {
  std::optional<Micros> next;
  for (const auto& event : {from_pc_.NextArrival(), to_pc_.NextArrival(), reader_.Deadline()}) {
    if (event && (!next || *event < *next)) next = event;
  }
  return next;
}

void SerialLine::Clear() {
  from_pc_.Clear();
  to_pc_.Clear();
  reader_ = {};
}

}  // namespace sorvane::simulator
