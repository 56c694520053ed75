#include "board/reply.h"

#include "board/errors.h"

namespace sorvane {

int64_t Reply::Number() const {
  if (IsText()) throw RuntimeError(ErrorCode::kTypeMismatch);
  int64_t number = 0;
  for (std::size_t k = 0; k <= size && k < bytes.size(); ++k) number |= int64_t{bytes[k]} << 8 * k;
  return number;
}

std::string Reply::AsText() const { return IsText() ? Text() : std::to_string(Number()); }

std::string Reply::Text() const { return {bytes.begin(), bytes.end()}; }

}  // namespace sorvane
