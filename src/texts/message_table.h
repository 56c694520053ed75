#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "board/errors.h"

namespace sorvane {

// The texts of the current language, in the western single-byte set: element n is line n of the
// language file. Element 0 is never filled, and an element beyond the end of the file keeps what it
// held, empty at the start.
class MessageTable {
 public:
  static constexpr int kElements = 1001;  // 0 to 1000

  // Throws RuntimeError kSubscriptOutOfRange for an element that doesn't exist.
  std::string& operator[](int element) { return elements_[Checked(element)]; }
  const std::string& operator[](int element) const { return elements_[Checked(element)]; }

 private:
  static std::size_t Checked(int element) {
    if (element < 0 || element >= kElements) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
    return static_cast<std::size_t>(element);
  }

  std::array<std::string, kElements> elements_;
};

}  // namespace sorvane
