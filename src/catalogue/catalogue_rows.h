#pragma once

#include <cstdint>
#include <limits>

#include "board/parameter.h"
#include "catalogue/catalogue.h"

// The table behind the catalogue. A row stands for one parameter, or for several that differ by a
// number alone: '#' in its name and title is replaced by that number.
namespace sorvane {

struct CatalogueRow {
  const char* name;
  const char* title;
  int32_t number;
  int count = 1;
  int counted_from = 1;  // the number that '#' stands for in the first
  int stride = 1;        // from one parameter's number to the next
  Group group;
  Form form = Form::kCount;
  Role role = Role::kSetting;
  uint32_t lowest = 0;
  uint32_t highest = 0;
  int32_t mirror = 0;
};

struct BitRow {
  const char* name;
  const char* title;
  Group group;
  int32_t number;
  uint8_t mask;   // of the first
  int count = 1;  // of bits that follow each other
  int counted_from = 1;
};

inline constexpr uint32_t kByte = 255;
inline constexpr uint32_t kTwoBytes = 65535;
inline constexpr uint32_t kFourBytes = std::numeric_limits<uint32_t>::max();

constexpr CatalogueRow General(const char* name, const char* title, int32_t number, uint32_t lowest,
                               uint32_t highest, Form form = Form::kCount) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .group = Group::kGeneral,
      .form = form,
      .lowest = lowest,
      .highest = highest,
      .mirror = number - parameter::kMachineLanguage + parameter::kMachineLanguageMirror,
  };
}

// A price, an item number or a discount of each selection.
constexpr CatalogueRow OfSelections(const char* name, const char* title, int32_t number,
                                    Group group, Form form, int32_t mirror) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .count = parameter::kSelectionRows,
      .group = group,
      .form = form,
      .highest = kTwoBytes,
      .mirror = mirror,
  };
}

constexpr CatalogueRow ClockPart(const char* name, const char* title, int32_t number,
                                 uint32_t lowest, uint32_t highest) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .group = Group::kClock,
      .role = Role::kClock,
      .lowest = lowest,
      .highest = highest,
  };
}

// An hour or a minute of both discount bands.
constexpr CatalogueRow BandPart(const char* name, const char* title, int offset, uint32_t highest) {
  return {
      .name = name,
      .title = title,
      .number = parameter::kDiscountBands + offset,
      .count = 2,
      .stride = 4,
      .group = Group::kBands,
      .highest = highest,
  };
}

constexpr CatalogueRow OnOffPart(const char* name, const char* title, int offset,
                                 uint32_t highest) {
  return {
      .name = name,
      .title = title,
      .number = parameter::kOnOffTimes + offset,
      .group = Group::kBands,
      .highest = highest,
      .mirror = parameter::kOnOffTimesMirror + offset,
  };
}

constexpr CatalogueRow Flags(const char* name, const char* title, int32_t number, Group group,
                             int32_t mirror) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .group = group,
      .form = Form::kBits,
      .highest = kByte,
      .mirror = mirror,
  };
}

// Amounts that the payment system keeps.
constexpr CatalogueRow Amounts(const char* name, const char* title, int32_t number, int count,
                               Group group, uint32_t highest, int32_t mirror) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .count = count,
      .group = group,
      .form = Form::kMoney,
      .highest = highest,
      .mirror = mirror,
  };
}

constexpr CatalogueRow Payment(const char* name, const char* title, int32_t number, uint32_t lowest,
                               uint32_t highest, int32_t mirror) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .group = Group::kPayment,
      .lowest = lowest,
      .highest = highest,
      .mirror = mirror,
  };
}

// What the machine counts.
constexpr CatalogueRow Audit(const char* name, const char* title, int32_t number, int count = 1,
                             Form form = Form::kCount) {
  return {
      .name = name,
      .title = title,
      .number = number,
      .count = count,
      .group = Group::kAudit,
      .form = form,
      .role = Role::kReadOnly,
      .highest = kFourBytes,
  };
}

// One byte of each record of the alarm ring.
constexpr CatalogueRow Alarm(const char* name, const char* title, int offset) {
  return {
      .name = name,
      .title = title,
      .number = parameter::kAlarmRing + offset,
      .count = parameter::kAlarmRecords,
      .counted_from = 0,
      .stride = parameter::kAlarmRecordLength,
      .group = Group::kAlarms,
      .role = Role::kReadOnly,
      .highest = kByte,
  };
}

inline constexpr CatalogueRow kCatalogueRows[] = {
    General("language", "language of the machine", parameter::kMachineLanguage, 0, 9),
    General("selections", "number of selections", parameter::kSelections, 5, 10),
    Flags("options", "option bits", parameter::kOptions, Group::kOptions,
          parameter::kOptionsMirror),
    General("temperature.difference", "temperature difference", parameter::kDeltaTemperature, 1, 5),
    General("temperature.setting", "temperature setting", parameter::kSetTemperature, 0, 16),
    General("motor.timeout", "motor timeout", parameter::kMotorTimeout, 50, 250, Form::kTenths),
    General("defrost.time", "defrosting time", parameter::kDefrostFor, 1, 30),
    General("defrost.every", "hours between defrostings", parameter::kDefrostEvery, 0, 12),
    {
        .name = "machine.number",
        .title = "machine number",
        .number = parameter::kMachineNumber,
        .group = Group::kIdentity,
        .role = Role::kIdentity,
        .lowest = 1,
        .highest = 16777215,
    },
    {
        .name = "location.number",
        .title = "location number",
        .number = parameter::kLocationNumber,
        .group = Group::kIdentity,
        .role = Role::kIdentity,
        .lowest = 1,
        .highest = kTwoBytes,
    },
    {
        .name = "language.name.#",
        .title = "name of language #",
        .number = parameter::kLanguageNames,
        .count = 10,
        .counted_from = 0,
        .group = Group::kGeneral,
        .form = Form::kText,
        .role = Role::kReadOnly,
    },
    OfSelections("price.#", "price of selection #", parameter::kPrices, Group::kPrices,
                 Form::kMoney, parameter::kPricesMirror),
    OfSelections("item.#", "item number of selection #", parameter::kItems, Group::kItems,
                 Form::kCount, 0),
    OfSelections("discount.#", "discount of selection #", parameter::kDiscounts, Group::kDiscounts,
                 Form::kMoney, 0),
    ClockPart("clock.hours", "clock: hours", parameter::kClockHours, 0, 23),
    ClockPart("clock.minutes", "clock: minutes", parameter::kClockMinutes, 0, 59),
    ClockPart("clock.day", "clock: day", parameter::kClockDay, 1, 31),
    ClockPart("clock.month", "clock: month", parameter::kClockMonth, 1, 12),
    ClockPart("clock.year", "clock: year", parameter::kClockYear, 0, 99),
    BandPart("band.#.start.hours", "discount band #, start: hours", 0, 23),
    BandPart("band.#.start.minutes", "discount band #, start: minutes", 1, 59),
    BandPart("band.#.end.hours", "discount band #, end: hours", 2, 23),
    BandPart("band.#.end.minutes", "discount band #, end: minutes", 3, 59),
    OnOffPart("on.hours", "switching on: hours", 0, 23),
    OnOffPart("on.minutes", "switching on: minutes", 1, 59),
    OnOffPart("off.hours", "switching off: hours", 2, 23),
    OnOffPart("off.minutes", "switching off: minutes", 3, 59),
    Payment("payment.system", "payment system", parameter::kPaymentSystem, 1, 3,
            parameter::kPaymentSystemMirror),
    Flags("changer", "changer and token flags", parameter::kChangerFlags, Group::kMdb,
          parameter::kChangerFlagsMirror),
    Amounts("maximum.change", "greatest change", parameter::kMaximumChange, 1, Group::kMdb, 9999,
            parameter::kMaximumChangeMirror),
    Amounts("maximum.coin-credit", "greatest credit from coins", parameter::kMaximumCoinCredit, 1,
            Group::kMdb, kTwoBytes, parameter::kMaximumCoinCreditMirror),
    Amounts("maximum.key-credit", "greatest credit on a key", parameter::kMaximumKeyCredit, 1,
            Group::kMdb, kTwoBytes, parameter::kMaximumKeyCreditMirror),
    {
        .name = "tube.#",
        .title = "lowest level of tube #",
        .number = parameter::kTubeLevels,
        .count = 5,
        .group = Group::kTubes,
        .lowest = 1,
        .highest = 20,
        .mirror = parameter::kTubeLevelsMirror,
    },
    Amounts("token.#", "value of token #", parameter::kTokenValues, 3, Group::kTokens, kTwoBytes,
            parameter::kTokenValuesMirror),
    Payment("base-coin", "base coin", parameter::kBaseCoin, 0, kByte, parameter::kBaseCoinMirror),
    Payment("decimals", "decimal point as set", parameter::kDecimalPoint, 0, 4,
            parameter::kDecimals),
    Payment("credit.timeout", "credit timeout", parameter::kCreditTimeout, 1, 30,
            parameter::kCreditTimeoutMirror),
    Payment("sale.mode", "sale mode", parameter::kSaleMode, 0, 2, parameter::kSaleModeMirror),
    Flags("banknotes.low", "banknote channels 1 to 8", parameter::kBanknoteFlagsLow,
          Group::kBanknotes, parameter::kBanknoteFlagsLowMirror),
    Flags("banknotes.high", "banknote channels 9 to 16", parameter::kBanknoteFlagsHigh,
          Group::kBanknotes, parameter::kBanknoteFlagsHighMirror),
    Amounts("coin.#", "value of coin channel #", parameter::kCoinValues, 6, Group::kCoins,
            kTwoBytes, parameter::kCoinValuesMirror),
    {
        .name = "key.#",
        .title = "column of key #",
        .number = parameter::kKeyColumns,
        .count = parameter::kSelectionRows,
        .group = Group::kKeys,
        .lowest = 1,
        .highest = 10,
        .mirror = parameter::kKeyColumnsMirror,
    },
    // The second write that the page of the columns makes goes to parameters 1 to 9, which are
    // something else: here a product is written to its own place alone.
    {
        .name = "product.#",
        .title = "product of column #",
        .number = parameter::kColumnProducts,
        .count = parameter::kSelectionRows,
        .group = Group::kProducts,
        .lowest = 1,
        .highest = 100,
    },
    Alarm("alarm.#.first", "alarm #: first byte", 0),
    Alarm("alarm.#.minute", "alarm #: minute", 1),
    Alarm("alarm.#.hour", "alarm #: hour", 2),
    Alarm("alarm.#.day", "alarm #: day", 3),
    Alarm("alarm.#.month", "alarm #: month", 4),
    Alarm("alarm.#.year", "alarm #: year", 5),
    Alarm("alarm.#.code", "alarm #: code", 6),
    Alarm("alarm.#.last", "alarm #: last byte", 7),
    {
        .name = "alarm.newest",
        .title = "alarm ring: newest record",
        .number = parameter::kAlarmPointer,
        .group = Group::kAlarms,
        .role = Role::kReadOnly,
        .highest = kByte,
    },
    Audit("takings.resettable", "takings, resettable", parameter::kTakings, 1, Form::kMoney),
    Audit("takings.total", "takings, not resettable", parameter::kTakings + 1, 1, Form::kMoney),
    Audit("vends.resettable", "vends, resettable", parameter::kVends),
    Audit("vends.total", "vends, not resettable", parameter::kVends + 1),
    Audit("discounts.resettable", "discounts, resettable", parameter::kDiscountTotal, 1,
          Form::kMoney),
    Audit("discounts.total", "discounts, not resettable", parameter::kDiscountTotal + 1, 1,
          Form::kMoney),
    Audit("key-discounts.resettable", "discounts by key, resettable", parameter::kKeyDiscountTotal,
          1, Form::kMoney),
    Audit("key-discounts.total", "discounts by key, not resettable",
          parameter::kKeyDiscountTotal + 1, 1, Form::kMoney),
    Audit("overpaid", "overpaid amounts", parameter::kOverpay, 1, Form::kMoney),
    Audit("coins-taken.#", "coins taken in channel #", parameter::kCoinsTaken,
          parameter::kChannels),
    Audit("banknotes-taken.#", "banknotes taken in channel #", parameter::kBanknotesTaken,
          parameter::kChannels),
    Audit("selection-vends.#", "vends of selection #", parameter::kSelectionVends,
          parameter::kSelectionRows),
    Audit("motor-blocks.#", "blocks of motor #", parameter::kMotorBlocks,
          parameter::kSelectionRows),
    Audit("free-vends.#", "free vends of selection #", parameter::kFreeVends,
          parameter::kSelectionRows),
    Audit("motor-resets", "resets of the motors", parameter::kMotorResets),
    Audit("visits", "visits of a technician", parameter::kInterventions),
    Audit("power-ons", "times switched on", parameter::kPowerOns),
    {
        .name = "password.#",
        .title = "password digit #",
        .number = parameter::kPasswordDigits,
        .count = 4,
        .group = Group::kPassword,
        .role = Role::kSecret,
        .highest = 9,
        .mirror = parameter::kPasswordDigitsMirror,
    },
};

constexpr BitRow OptionBit(const char* name, const char* title, uint8_t mask) {
  return {.name = name,
          .title = title,
          .group = Group::kOptions,
          .number = parameter::kOptions,
          .mask = mask};
}

constexpr BitRow ChangerBit(const char* name, const char* title, int bit) {
  return {.name = name,
          .title = title,
          .group = Group::kMdb,
          .number = parameter::kChangerFlags,
          .mask = static_cast<uint8_t>(1 << bit)};
}

inline constexpr BitRow kBitRows[] = {
    OptionBit("option.free-vend", "free vend", option::kFreeVend),
    OptionBit("option.price-holding", "price holding", option::kPriceHolding),
    OptionBit("option.on-off-times", "switching on and off by the clock", option::kOnOffTimes),
    OptionBit("option.password", "password asked for", option::kPassword),
    OptionBit("option.equal-products", "columns of equal products", option::kEqualProducts),
    OptionBit("option.immediate-change", "immediate change", option::kImmediateChange),
    ChangerBit("changer.on", "changer", 0),
    ChangerBit("changer.ignore-exact-change", "exact change ignored", 1),
    ChangerBit("changer.tokens", "tokens taken", 2),
    ChangerBit("changer.token-change", "change for tokens", 3),
    ChangerBit("changer.token-recharge", "recharging by tokens", 4),
    ChangerBit("changer.token-exact-change", "tokens at exact change", 5),
    {
        .name = "banknote.#",
        .title = "banknote channel #",
        .group = Group::kBanknotes,
        .number = parameter::kBanknoteFlagsLow,
        .mask = 1,
        .count = 8,
    },
    {
        .name = "banknote.#",
        .title = "banknote channel #",
        .group = Group::kBanknotes,
        .number = parameter::kBanknoteFlagsHigh,
        .mask = 1,
        .count = 8,
        .counted_from = 9,
    },
};

}  // namespace sorvane
