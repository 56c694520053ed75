#pragma once

#include "board/parameter.h"
#include "pages/settings/flag_switches.h"
#include "pages/settings/full_span_row.h"
#include "shell/field.h"

// The fields and switches of the payment page.
namespace sorvane {

// An amount of 0 to 65535.
constexpr FieldRow AmountRow(FieldRow row) {
  row = FullSpanRow(row);
  row.form = ValueForm::kMoney;
  return row;
}

// A field that shows what the bar means, in words or by a pattern. It can't be edited, but Enter
// reads it as if it had been typed.
constexpr FieldRow LockedRow(FieldRow row) {
  row.highest = 0;
  row.focus = FocusRule::kNothing;
  row.locked = true;
  return row;
}

inline constexpr FieldRow kGeneralRows[] = {{.label = "LabelMess1",
                                             .first_label = 43,
                                             .text = "Text5",
                                             .bar = "HScroll5",
                                             .first = 0,
                                             .message = 85,
                                             .parameter = parameter::kBaseCoin,
                                             .mirror = parameter::kBaseCoinMirror,
                                             .minimum = 0,
                                             .maximum = 255,
                                             .large_step = 100,
                                             .highest = 255},
                                            LockedRow({.label = "LabelMess1",
                                                       .first_label = 44,
                                                       .text = "Text5",
                                                       .bar = "HScroll5",
                                                       .first = 1,
                                                       .message = 86,
                                                       .parameter = parameter::kDecimalPoint,
                                                       .mirror = parameter::kDecimals,
                                                       .minimum = 0,
                                                       .maximum = 4}),
                                            {.label = "LabelMess1",
                                             .first_label = 45,
                                             .text = "Text5",
                                             .bar = "HScroll5",
                                             .first = 2,
                                             .message = 87,
                                             .parameter = parameter::kCreditTimeout,
                                             .mirror = parameter::kCreditTimeoutMirror,
                                             .minimum = 1,
                                             .maximum = 30,
                                             .highest = 30},
                                            LockedRow({.label = "LabelMess1",
                                                       .first_label = 46,
                                                       .text = "Text5",
                                                       .bar = "HScroll5",
                                                       .first = 3,
                                                       .message = 88,
                                                       .parameter = parameter::kSaleMode,
                                                       .mirror = parameter::kSaleModeMirror,
                                                       .minimum = 0,
                                                       .maximum = 2})};

// The first of the three limits has a plain bar and ends at 9999.
inline constexpr FieldRow kLimitRows[] = {{.label = "LabelMess1",
                                           .first_label = 0,
                                           .text = "Text1",
                                           .bar = "HScroll1",
                                           .first = 0,
                                           .message = 89,
                                           .parameter = parameter::kMaximumChange,
                                           .mirror = parameter::kMaximumChangeMirror,
                                           .form = ValueForm::kMoney,
                                           .minimum = 0,
                                           .maximum = 9999,
                                           .large_step = 100,
                                           .highest = 9999,
                                           .characters = 5},
                                          AmountRow({.label = "LabelMess1",
                                                     .first_label = 1,
                                                     .text = "Text1",
                                                     .bar = "HScroll1",
                                                     .first = 1,
                                                     .message = 90,
                                                     .parameter = parameter::kMaximumCoinCredit,
                                                     .mirror = parameter::kMaximumCoinCreditMirror,
                                                     .characters = 6}),
                                          AmountRow({.label = "LabelMess1",
                                                     .first_label = 2,
                                                     .text = "Text1",
                                                     .bar = "HScroll1",
                                                     .first = 2,
                                                     .message = 91,
                                                     .parameter = parameter::kMaximumKeyCredit,
                                                     .mirror = parameter::kMaximumKeyCreditMirror,
                                                     .characters = 6})};

inline constexpr FieldRow kTubeRows[] = {{.label = "LabelMess1",
                                          .first_label = 5,
                                          .text = "Text2",
                                          .bar = "HScroll2",
                                          .count = 5,
                                          .message = 94,
                                          .numbering = Numbering::kClose,
                                          .parameter = parameter::kTubeLevels,
                                          .mirror = parameter::kTubeLevelsMirror,
                                          .minimum = 1,
                                          .maximum = 20,
                                          .highest = 20,
                                          .characters = 2}};

inline constexpr FieldRow kTokenRows[] = {AmountRow({.label = "LabelMess1",
                                                     .first_label = 10,
                                                     .text = "Text3",
                                                     .bar = "HScroll3",
                                                     .count = 3,
                                                     .message = 99,
                                                     .numbering = Numbering::kSpaced,
                                                     .parameter = parameter::kTokenValues,
                                                     .mirror = parameter::kTokenValuesMirror,
                                                     .characters = 6})};

// A coin's value is changed by the bar alone. The field can be typed in, but nothing takes that up.
inline constexpr FieldRow kCoinRows[] = {AmountRow({.label = "LabelMess1",
                                                    .first_label = 37,
                                                    .text = "Text4",
                                                    .bar = "HScroll4",
                                                    .count = 6,
                                                    .message = 75,
                                                    .numbering = Numbering::kSpaced,
                                                    .parameter = parameter::kCoinValues,
                                                    .mirror = parameter::kCoinValuesMirror,
                                                    .on_enter = OnEnter::kNothing,
                                                    .focus = FocusRule::kNothing})};

inline constexpr FlagRow kSaleRows[] = {
    {18, "SwitchX2", 0, 83, "", 0, option::kFreeVend},
    {19, "SwitchX2", 1, 0, "Price holding", 0, option::kPriceHolding},
    {20, "SwitchX2", 2, 84, "", 0, option::kImmediateChange}};

inline constexpr FlagRow kChangerRows[] = {
    {3, "SwitchX1", 0, 92, "", 0, 1},   {4, "SwitchX1", 1, 93, "", 0, 2},
    {13, "SwitchX1", 2, 95, "", 0, 4},  {14, "SwitchX1", 3, 96, "", 0, 8},
    {15, "SwitchX1", 4, 97, "", 0, 16}, {16, "SwitchX1", 5, 98, "", 0, 32}};
// The first two switches of the changer stand with the limits, the others with the tokens.
inline constexpr int kLimitSwitches = 2;

}  // namespace sorvane
