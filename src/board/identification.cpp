#include "board/identification.h"

#include "board/numbers.h"

namespace sorvane {
namespace {

// The boards that the program serves.
constexpr int kBoardNumber = 18;
constexpr int kBoardType = 309;

constexpr int kSoftware = 11;
constexpr int kBoard = 12;
constexpr int kTypeLow = 13;
constexpr int kTypeHigh = 14;
constexpr int kRevision = 17;
constexpr int kParameter18 = 18;

}  // namespace

void Identification::Take(IndexNumbers& numbers, int system_parameter, uint8_t value) {
  switch (system_parameter) {
    case kRevision:
      numbers.IndexRevision = value;
      break;
    case kSoftware:
      numbers.IndexSoftware = value;
      break;
    case kBoard:
      board_number_ = value;
      break;
    case kTypeLow:
      numbers.IndexType = value;
      break;
    case kTypeHigh:
      // A type above 32767 doesn't fit the variable.
      numbers.IndexType = ToInt16(numbers.IndexType + 256 * value);
      break;
    case kParameter18:
      BoardParameter18 = value;
      break;
    default:
      break;
  }
}

std::string Identification::Refusal(const IndexNumbers& numbers, int16_t software) const {
  // The last test that fails is the one that the user reads.
  std::string message;
  if (board_number_ != kBoardNumber) message = "Board\nNot Compatible";
  if (numbers.IndexType != kBoardType) message = "Board Type\nNot Compatible";
  if (BoardParameter18 < 0 || numbers.IndexSoftware != software) {
    message = "Board Software\nNot Compatible";
  }
  return message;
}

}  // namespace sorvane
