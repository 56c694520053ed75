#include "simulator/reply.h"

namespace sorvane::simulator {
namespace {

using std::chrono::milliseconds;

constexpr Micros kLateDelay = milliseconds(1200);  // the PC waits 1000
constexpr Micros kSlowSpacing = milliseconds(20);  // 17 bytes of the longest reply in 340

}  // namespace

Reply ReadReply(const Bytes& value) {
  unsigned sum = 0;
  for (const uint8_t byte : value) sum += byte;
  Reply reply{value, {}, {}};
  reply.bytes.push_back(static_cast<uint8_t>(sum & 255u));
  return reply;
}

Reply WriteReply(uint8_t checksum) {
  return {{static_cast<uint8_t>((2u * checksum) & 255u)}, {}, {}};
}

Reply Spoil(Fault fault, Reply reply) {
  switch (fault) {
    case Fault::kNone:
      break;
    case Fault::kSilent:
    case Fault::kUnplugged:
      reply.bytes.clear();
      break;
    case Fault::kWrongChecksum:
    case Fault::kRefusesDay0:
      reply.bytes.back() = static_cast<uint8_t>((reply.bytes.back() + 1u) & 255u);
      break;
    case Fault::kShortReply:
      reply.bytes.pop_back();
      break;
    case Fault::kExtraByte:
      reply.bytes.push_back(0);
      break;
    case Fault::kSlow:
      reply.spacing = kSlowSpacing;
      break;
    case Fault::kLateReply:
      reply.delay = kLateDelay;
      break;
  }
  return reply;
}

}  // namespace sorvane::simulator
