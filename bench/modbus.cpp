#include "bench/modbus.h"

#include <cstdint>
#include <stdexcept>

namespace sorvane::bench {
namespace {

constexpr uint8_t kLow = 0x2a;
constexpr uint8_t kHigh = 0x17;
constexpr std::size_t kRequestSize = 8;

uint16_t Sum(const Bytes& bytes) {
  unsigned sum = 0xffff;
  for (const uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? (sum >> 1) ^ 0xa001 : sum >> 1;
  }
  return static_cast<uint16_t>(sum);
}

// The answer of a slave to the reading of one holding register.
Bytes RegisterReply() {
  Bytes reply = {1, 3, 2, kHigh, kLow};
  const uint16_t sum = Sum(reply);
  reply.push_back(static_cast<uint8_t>(sum & 255));
  reply.push_back(static_cast<uint8_t>(sum >> 8));
  return reply;
}

}  // namespace

Modbus::Modbus()
    : slave_(kRequestSize, [reply = RegisterReply()](const Bytes&) { return reply; }),
      context_(modbus_new_rtu(slave_.Device().c_str(), 19200, 'N', 8, 1)) {
  if (!context_ || modbus_set_slave(context_.get(), 1) != 0 ||
      modbus_connect(context_.get()) != 0) {
    throw std::runtime_error("libmodbus doesn't connect");
  }
}

Modbus::~Modbus() { modbus_close(context_.get()); }

void Modbus::ReadRegister() {
  uint16_t value = 0;
  if (modbus_read_registers(context_.get(), 0, 1, &value) != 1 || value != 256 * kHigh + kLow) {
    throw std::runtime_error("an exchange of libmodbus failed");
  }
}

}  // namespace sorvane::bench
