#include "board/errors.h"

namespace sorvane {
namespace {

const char* Words(ErrorCode code) {
  switch (code) {
    case ErrorCode::kInvalidCall:
      return "Invalid procedure call or argument";
    case ErrorCode::kOverflow:
      return "Overflow";
    case ErrorCode::kSubscriptOutOfRange:
      return "Subscript out of range";
    case ErrorCode::kTypeMismatch:
      return "Type mismatch";
    case ErrorCode::kFileNotFound:
      return "File not found";
    case ErrorCode::kFileAlreadyExists:
      return "File already exists";
    case ErrorCode::kInputPastEnd:
      return "Input past end of file";
    case ErrorCode::kFileAccess:
      return "Path/File access error";
    case ErrorCode::kNoSuchElement:
      return "Control array element does not exist";
    case ErrorCode::kInvalidPropertyValue:
      return "Invalid property value";
    case ErrorCode::kPort:
      return "Port access error";
  }
  return "Unknown error";
}

}  // namespace

RuntimeError::RuntimeError(ErrorCode code) : std::runtime_error(Words(code)), code_(code) {}

}  // namespace sorvane
