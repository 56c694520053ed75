#pragma once

#include "board/parameter.h"
#include "shell/page/field.h"

namespace sorvane {

// A row of numbers of 0 to 65535 on a bar of the full span, which holds a signed 16-bit number. The
// page's table adds what differs.
constexpr FieldRow FullSpanRow(FieldRow row) {
  row.positions = {.offset = 32768, .minimum = -32768, .maximum = 32767, .large_step = 100};
  row.typed.highest = 65535;
  return row;
}

// Ten of them, one for each selection.
constexpr FieldRow SelectionRow(FieldRow row) {
  row = FullSpanRow(row);
  row.count = parameter::kSelectionRows;
  row.numbering = Numbering::kSpaced;
  row.shown = Shown::kAsTheBarTook;
  row.on_enter = OnEnter::kMovesBar;
  row.positions.start = -32767;
  row.typed.characters = 6;
  return row;
}

}  // namespace sorvane
