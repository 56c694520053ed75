#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/reply.h"
#include "catalogue/catalogue.h"
#include "cli/snapshot.h"
#include "cli/value_text.h"

namespace sorvane::cli {

// One parameter that is to get another value, or whose second copy is.
struct PlannedWrite {
  const CatalogueEntry* entry;
  Bytes from;
  Bytes to;
};

// The writes that bring a board from what it holds to what is wanted, in the order in which they go
// out: the decimals first, since every amount is drawn with them, all others by their numbers.
struct WritePlan {
  std::vector<PlannedWrite> writes;
  std::vector<std::string> left_behind;   // values that this board has no equal place for, in words
  std::vector<std::string> out_of_range;  // values that may not be written, in words
};

// A wanted value by its name.
struct Wanted {
  const CatalogueEntry* entry;
  Bytes raw;
};

// held is what the board holds, with its second copies: a parameter whose copy differs is written,
// too, as a write that was cut short leaves it. What the board doesn't hold, or in another size, is
// left behind.
WritePlan PlanWrites(const Snapshot& held, const std::vector<Wanted>& wanted);

// A plan in words: a line for each write, "price.3: 1.00 -> 1.50".  Digits of the password stand as
// "*".
std::string PlanLines(const WritePlan& plan, const NumberStyle& style);

}  // namespace sorvane::cli
