#pragma once

#include <stdexcept>
#include <string>

namespace sorvane::cli {

// What the program ends with.
enum class ExitCode {
  kDone = 0,          // done, or equal
  kDifferences = 1,   // differences or findings
  kUsage = 2,         // the command line can't be read, or a file is bad
  kNoBoard = 3,       // no port, or no answer
  kWrongBoard = 4,    // another board, machine or revision
  kNotConfirmed = 5,  // not every write is confirmed
  kInterrupted = 130,
};

// What ends a command before it is done, in words for the person who gave it.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& words) : std::runtime_error(words), code_(code) {}

  ExitCode Code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace sorvane::cli
