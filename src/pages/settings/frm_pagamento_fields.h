#pragma once

#include "board/message.h"
#include "board/parameter.h"
#include "pages/settings/flag_switches.h"
#include "pages/settings/full_span_row.h"
#include "shell/page/field.h"

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
  row.typed.highest = 0;
  row.focus = FocusRule::kNothing;
  row.locked = true;
  return row;
}

inline constexpr FieldRow kGeneralRows[] = {
    {
        .label = "LabelMess1",
        .first_label = 43,
        .text = "Text5",
        .bar = "HScroll5",
        .first = 0,
        .message = message::kBaseCoin,
        .parameter = parameter::kBaseCoin,
        .mirror = parameter::kBaseCoinMirror,
        .positions = {.minimum = 0, .maximum = 255, .large_step = 100},
        .typed = {.highest = 255},
    },
    LockedRow({
        .label = "LabelMess1",
        .first_label = 44,
        .text = "Text5",
        .bar = "HScroll5",
        .first = 1,
        .message = message::kDecimalPoint,
        .parameter = parameter::kDecimalPoint,
        .mirror = parameter::kDecimals,
        .positions = {.minimum = 0, .maximum = 4},
    }),
    {
        .label = "LabelMess1",
        .first_label = 45,
        .text = "Text5",
        .bar = "HScroll5",
        .first = 2,
        .message = message::kCreditTimeout,
        .parameter = parameter::kCreditTimeout,
        .mirror = parameter::kCreditTimeoutMirror,
        .positions = {.minimum = 1, .maximum = 30},
        .typed = {.highest = 30},
    },
    LockedRow({
        .label = "LabelMess1",
        .first_label = 46,
        .text = "Text5",
        .bar = "HScroll5",
        .first = 3,
        .message = message::kSaleMode,
        .parameter = parameter::kSaleMode,
        .mirror = parameter::kSaleModeMirror,
        .positions = {.minimum = 0, .maximum = 2},
    }),
};

// The first of the three limits has a plain bar and ends at 9999.
inline constexpr FieldRow kLimitRows[] = {
    {
        .label = "LabelMess1",
        .first_label = 0,
        .text = "Text1",
        .bar = "HScroll1",
        .first = 0,
        .message = message::kMaximumChange,
        .parameter = parameter::kMaximumChange,
        .mirror = parameter::kMaximumChangeMirror,
        .form = ValueForm::kMoney,
        .positions = {.minimum = 0, .maximum = 9999, .large_step = 100},
        .typed = {.highest = 9999, .characters = 5},
    },
    AmountRow({
        .label = "LabelMess1",
        .first_label = 1,
        .text = "Text1",
        .bar = "HScroll1",
        .first = 1,
        .message = message::kMaximumCoinCredit,
        .parameter = parameter::kMaximumCoinCredit,
        .mirror = parameter::kMaximumCoinCreditMirror,
        .typed = {.characters = 6},
    }),
    AmountRow({
        .label = "LabelMess1",
        .first_label = 2,
        .text = "Text1",
        .bar = "HScroll1",
        .first = 2,
        .message = message::kMaximumKeyCredit,
        .parameter = parameter::kMaximumKeyCredit,
        .mirror = parameter::kMaximumKeyCreditMirror,
        .typed = {.characters = 6},
    }),
};

inline constexpr FieldRow kTubeRows[] = {
    {
        .label = "LabelMess1",
        .first_label = 5,
        .text = "Text2",
        .bar = "HScroll2",
        .count = 5,
        .message = message::kTube,
        .numbering = Numbering::kClose,
        .parameter = parameter::kTubeLevels,
        .mirror = parameter::kTubeLevelsMirror,
        .positions = {.minimum = 1, .maximum = 20},
        .typed = {.highest = 20, .characters = 2},
    },
};

inline constexpr FieldRow kTokenRows[] = {
    AmountRow({
        .label = "LabelMess1",
        .first_label = 10,
        .text = "Text3",
        .bar = "HScroll3",
        .count = 3,
        .message = message::kToken,
        .numbering = Numbering::kSpaced,
        .parameter = parameter::kTokenValues,
        .mirror = parameter::kTokenValuesMirror,
        .typed = {.characters = 6},
    }),
};

// A coin's value is changed by the bar alone. The field can be typed in, but nothing takes that up.
inline constexpr FieldRow kCoinRows[] = {
    AmountRow({
        .label = "LabelMess1",
        .first_label = 37,
        .text = "Text4",
        .bar = "HScroll4",
        .count = 6,
        .message = message::kCoin,
        .numbering = Numbering::kSpaced,
        .parameter = parameter::kCoinValues,
        .mirror = parameter::kCoinValuesMirror,
        .on_enter = OnEnter::kNothing,
        .focus = FocusRule::kNothing,
    }),
};

inline constexpr FlagRow kSaleRows[] = {
    {
        .label = 18,
        .toggle = "SwitchX2",
        .index = 0,
        .message = message::kFreeVend,
        .mask = option::kFreeVend,
    },
    {
        .label = 19,
        .toggle = "SwitchX2",
        .index = 1,
        .text = "Price holding",
        .mask = option::kPriceHolding,
    },
    {
        .label = 20,
        .toggle = "SwitchX2",
        .index = 2,
        .message = message::kImmediateChange,
        .mask = option::kImmediateChange,
    },
};

constexpr FlagRow ChangerRow(int label, int index, int message) {
  return {
      .label = label,
      .toggle = "SwitchX1",
      .index = index,
      .message = message,
      .mask = 1 << index,
  };
}

inline constexpr FlagRow kChangerRows[] = {
    ChangerRow(3, 0, message::kChanger),        ChangerRow(4, 1, message::kIgnoreExactChange),
    ChangerRow(13, 2, message::kTokensOn),      ChangerRow(14, 3, message::kTokenChange),
    ChangerRow(15, 4, message::kTokenRecharge), ChangerRow(16, 5, message::kTokenExactChange),
};
// The first two switches of the changer stand with the limits, the others with the tokens.
inline constexpr int kLimitSwitches = 2;

}  // namespace sorvane
