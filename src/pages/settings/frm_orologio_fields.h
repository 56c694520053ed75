#pragma once

#include <array>
#include <cstddef>

#include "board/message.h"
#include "board/parameter.h"
#include "shell/page/field.h"

// The fields of the clock page.
namespace sorvane {

// A part of a date or a time: the bar takes what is typed, and the text waits for the reply. A
// typed 0 is let through, even where the bar begins at 1.
constexpr FieldRow TimePart(int minimum, int maximum, int large_step, FieldRow row) {
  row.form = ValueForm::kShort;
  row.on_enter = OnEnter::kMovesBar;
  row.positions = {.minimum = minimum, .maximum = maximum, .large_step = large_step};
  row.typed.highest = maximum;
  row.focus = FocusRule::kKeeps;
  return row;
}

constexpr FieldRow ClockPart(int i, int32_t parameter, int minimum, int maximum, int large_step) {
  const FieldRow row = {
      .label = "LabelMes1",
      .first_label = i,
      .text = "Text1",
      .bar = "HScroll1",
      .first = i,
      .message = message::kDay + i,
      .parameter = parameter,
  };
  return TimePart(minimum, maximum, large_step, row);
}

inline constexpr FieldRow kClockRows[] = {
    ClockPart(0, parameter::kClockDay, 1, 31, 5),
    ClockPart(1, parameter::kClockMonth, 1, 12, 5),
    ClockPart(2, parameter::kClockYear, 0, 99, 5),
    ClockPart(3, parameter::kClockHours, 0, 23, 3),
    ClockPart(4, parameter::kClockMinutes, 0, 59, 5),
};

// Times of the day: hours at even places, minutes at odd ones.
template <std::size_t kCount>
constexpr std::array<FieldRow, kCount> DayTimes(FieldRow row) {
  std::array<FieldRow, kCount> rows{};
  for (std::size_t i = 0; i < kCount; ++i) {
    rows[i] = i % 2 == 0 ? TimePart(0, 23, 3, row) : TimePart(0, 59, 5, row);
    ++row.first;
    ++row.parameter;
    if (row.mirror != kNoMirror) ++row.mirror;
  }
  return rows;
}

inline constexpr auto kBandRows = DayTimes<8>({
    .text = "Text2",
    .bar = "HScroll2",
    .parameter = parameter::kDiscountBands,
});
inline constexpr auto kOnOffRows = DayTimes<4>({
    .text = "Text3",
    .bar = "HScroll3",
    .parameter = parameter::kOnOffTimes,
    .mirror = parameter::kOnOffTimesMirror,
});

}  // namespace sorvane
