#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "board/board_tables.h"

namespace sorvane {

// Who the board is, as told by its system parameters.
class Identification {
 public:
  // The system parameters, in the order in which the board is asked. Of the first any answer will
  // do.
  static constexpr std::array<int, 7> kAsked = {1, 17, 11, 12, 13, 14, 18};

  // Takes the board's answer to one of them; what names the index file goes to numbers. Throws
  // RuntimeError kOverflow for a board type above 32767.
  void Take(IndexNumbers& numbers, int system_parameter, uint8_t value);

  // Why the program doesn't serve this board, once all have been answered; empty if it does.
  // software is the number that the program serves.
  std::string Refusal(const IndexNumbers& numbers, int16_t software) const;

  // The value of system parameter 18, as the board last answered it.
  int BoardParameter18 = 0;

 private:
  int board_number_ = 0;
};

}  // namespace sorvane
