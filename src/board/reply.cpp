#include "board/reply.h"

#include "board/errors.h"

namespace sorvane {

double Reply::Number() const {
  if (IsText()) throw RuntimeError(ErrorCode::kTypeMismatch);
  double sum = 0;
  double weight = 1;
  for (std::size_t k = 0; k <= size && k < bytes.size(); ++k, weight *= 256) {
    sum += bytes[k] * weight;
  }
  return sum;
}

std::string Reply::AsText() const {
  return IsText() ? Text() : std::to_string(static_cast<int64_t>(Number()));
}

std::string Reply::Text() const { return {bytes.begin(), bytes.end()}; }

}  // namespace sorvane
