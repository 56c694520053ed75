#include "texts/menu_marks.h"

#include "board/errors.h"

namespace sorvane {

std::size_t MenuMarks::Place(int i) {
  if (i < 1 || i > kPorts) throw RuntimeError(ErrorCode::kNoSuchElement);
  return static_cast<std::size_t>(i - 1);
}

}  // namespace sorvane
