#pragma once

#include <modbus/modbus.h>

#include <memory>

#include "bench/partner.h"

namespace sorvane::bench {

// libmodbus as the master of an RTU line, and a slave that answers with one register, two bytes.
class Modbus {
 public:
  // Throws std::runtime_error if it doesn't connect.
  Modbus();
  ~Modbus();
  Modbus(const Modbus&) = delete;
  Modbus& operator=(const Modbus&) = delete;

  // One exchange. Throws std::runtime_error if it fails.
  void ReadRegister();

 private:
  struct Free {
    void operator()(modbus_t* context) const { modbus_free(context); }
  };

  Partner slave_;
  std::unique_ptr<modbus_t, Free> context_;
};

}  // namespace sorvane::bench
