#pragma once

#include "shell/field.h"

namespace sorvane {

// Raw values of 0 to 65535 on a bar, which holds a signed 16-bit number.
inline constexpr int32_t kFullSpanOffset = 32768;

// A row of ten numbers, one for each selection, on bars of the full span; the page's table adds
// what differs.
inline constexpr FieldRow SelectionRow(FieldRow row) {
  row.count = 10;
  row.numbering = Numbering::kSpaced;
  row.shown = Shown::kAsTheBarTook;
  row.on_enter = OnEnter::kMovesBar;
  row.offset = kFullSpanOffset;
  row.minimum = -32768;
  row.maximum = 32767;
  row.start = -32767;
  row.large_step = 100;
  row.highest = 65535;
  row.characters = 6;
  return row;
}

}  // namespace sorvane
