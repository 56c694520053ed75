#pragma once

#include <cstdint>

// What the record numbers of a second-level index file stand for. Where a setting has a mirror, the
// board keeps it twice: pages watch the first and write both. A name for a span is that of its
// first parameter; counts stand at the end.
namespace sorvane::parameter {

inline constexpr int32_t kMachineLanguage = 1;          // 0 to 9
inline constexpr int32_t kSelections = 2;               // 5 to 10: motors, keys and columns alike
inline constexpr int32_t kOptions = 3;                  // bits, see namespace option
inline constexpr int32_t kDeltaTemperature = 4;         // 1 to 5
inline constexpr int32_t kSetTemperature = 5;           // 0 to 16
inline constexpr int32_t kMotorTimeout = 6;             // 50 to 250 tenths of a second
inline constexpr int32_t kDefrostFor = 7;               // 1 to 30 minutes
inline constexpr int32_t kDefrostEvery = 8;             // 0 to 12 hours
inline constexpr int32_t kMachineNumber = 9;            // 1 to 16777215
inline constexpr int32_t kLocationNumber = 10;          // 1 to 65535
inline constexpr int32_t kLanguageNames = 12;           // ten texts, read only
inline constexpr int32_t kDecimals = 22;                // of all money amounts, 0 to 4
inline constexpr int32_t kPrices = 23;                  // ten, money
inline constexpr int32_t kItems = 33;                   // ten, 0 to 65535
inline constexpr int32_t kDiscounts = 43;               // ten, money
inline constexpr int32_t kUnusedClock = 53;             // watched by the clock page, never shown
inline constexpr int32_t kClockHours = 54;              // 0 to 23
inline constexpr int32_t kClockMinutes = 55;            // 0 to 59
inline constexpr int32_t kClockDay = 56;                // 1 to 31
inline constexpr int32_t kClockMonth = 57;              // 1 to 12
inline constexpr int32_t kClockYear = 58;               // 0 to 99, since 2000
inline constexpr int32_t kDiscountBands = 59;           // eight: start 1, end 1, start 2, end 2
inline constexpr int32_t kOnOffTimes = 67;              // four: on, off, each hours then minutes
inline constexpr int32_t kPaymentSystem = 71;           // 1 validator, 2 executive, 3 MDB
inline constexpr int32_t kChangerFlags = 72;            // one byte
inline constexpr int32_t kMaximumChange = 73;           // 0 to 9999, money
inline constexpr int32_t kMaximumCoinCredit = 74;       // money
inline constexpr int32_t kMaximumKeyCredit = 75;        // money
inline constexpr int32_t kTubeLevels = 76;              // five, 1 to 20
inline constexpr int32_t kTokenValues = 81;             // three, money
inline constexpr int32_t kBaseCoin = 84;                // 0 to 255
inline constexpr int32_t kDecimalPoint = 85;            // 0 to 4; its mirror is kDecimals
inline constexpr int32_t kCreditTimeout = 86;           // 1 to 30
inline constexpr int32_t kSaleMode = 87;                // 0 to 2
inline constexpr int32_t kBanknoteFlagsLow = 88;        // channels 1 to 8, one bit each
inline constexpr int32_t kBanknoteFlagsHigh = 89;       // channels 9 to 16, one bit each
inline constexpr int32_t kCoinValues = 90;              // six, money
inline constexpr int32_t kKeyColumns = 98;              // ten, 1 to 10
inline constexpr int32_t kColumnProducts = 108;         // ten, 1 to 100
inline constexpr int32_t kAlarmRing = 118;              // 20 records of 8 parameters
inline constexpr int32_t kAlarmPointer = 278;           // 0 to 19
inline constexpr int32_t kTakings = 279;                // resettable; the next one is not; money
inline constexpr int32_t kVends = 281;                  // resettable; the next one is not; count
inline constexpr int32_t kDiscountTotal = 283;          // resettable; the next one is not; money
inline constexpr int32_t kKeyDiscountTotal = 285;       // resettable; the next one is not; money
inline constexpr int32_t kOverpay = 287;                // money
inline constexpr int32_t kCoinsTaken = 288;             // sixteen counts
inline constexpr int32_t kBanknotesTaken = 304;         // sixteen counts
inline constexpr int32_t kSelectionVends = 320;         // ten counts
inline constexpr int32_t kMotorBlocks = 330;            // ten counts
inline constexpr int32_t kFreeVends = 340;              // ten counts
inline constexpr int32_t kMotorResets = 350;            // count
inline constexpr int32_t kInterventions = 351;          // count
inline constexpr int32_t kPowerOns = 352;               // count
inline constexpr int32_t kMachineLanguageMirror = 353;  // mirrors of 1 to 8 follow from here
inline constexpr int32_t kOptionsMirror = 355;
inline constexpr int32_t kOnOffTimesMirror = 361;
inline constexpr int32_t kPaymentSystemMirror = 365;
inline constexpr int32_t kChangerFlagsMirror = 366;
inline constexpr int32_t kMaximumChangeMirror = 367;
inline constexpr int32_t kMaximumCoinCreditMirror = 368;
inline constexpr int32_t kMaximumKeyCreditMirror = 369;
inline constexpr int32_t kTubeLevelsMirror = 370;
inline constexpr int32_t kTokenValuesMirror = 375;
inline constexpr int32_t kBaseCoinMirror = 378;
inline constexpr int32_t kCreditTimeoutMirror = 379;
inline constexpr int32_t kSaleModeMirror = 380;
inline constexpr int32_t kBanknoteFlagsLowMirror = 381;
inline constexpr int32_t kBanknoteFlagsHighMirror = 382;
inline constexpr int32_t kCoinValuesMirror = 383;
inline constexpr int32_t kPricesMirror = 391;
inline constexpr int32_t kKeyColumnsMirror = 401;
inline constexpr int32_t kPasswordDigits = 411;  // four, 0 to 9, first digit first
inline constexpr int32_t kPasswordDigitsMirror = 415;

inline constexpr int kSelectionRows = 10;
inline constexpr int kAlarmRecords = 20;
inline constexpr int kAlarmRecordLength = 8;
inline constexpr int kAlarmBytes = kAlarmRecords * kAlarmRecordLength;
inline constexpr int kChannels = 16;

}  // namespace sorvane::parameter

// The bits of parameter::kOptions. Four pages share this byte.
namespace sorvane::option {

inline constexpr uint8_t kFreeVend = 1;
inline constexpr uint8_t kPriceHolding = 2;
inline constexpr uint8_t kOnOffTimes = 8;
inline constexpr uint8_t kPassword = 16;
inline constexpr uint8_t kEqualProducts = 32;
inline constexpr uint8_t kImmediateChange = 64;

}  // namespace sorvane::option
