#pragma once

#include <stdexcept>

namespace sorvane::simulator {

// What a person typed or handed over can't be obeyed; the message is one line for that person.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace sorvane::simulator
