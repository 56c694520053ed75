#pragma once

#include <stdexcept>

namespace sorvane {

// The numbers by which the program reports a run-time error; they are the numbers that the
// platform's basic language has always given these errors.
enum class ErrorCode {
  kInvalidCall = 5,
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kFileAlreadyExists = 58,
  kInputPastEnd = 62,
  kFileAccess = 75,
  kNoSuchElement = 340,
  kInvalidPropertyValue = 380,
  kPort = 8002,
};

// A stated type, bound or range was broken, or a file or port failed. Where no handler stands in
// between, it reaches the program's one guard, which reports it and ends the program.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(ErrorCode code);

  ErrorCode Code() const { return code_; }
  int Number() const { return static_cast<int>(code_); }

 private:
  ErrorCode code_;
};

// A fault of the program itself, such as a page that asks for parameter 0. It ends the program at
// once and without a box: there is nothing that a technician could do about it.
class InternalFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

}  // namespace sorvane
