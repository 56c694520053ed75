#pragma once

// The parameters that the board itself has a hand in, by their numbers. The name of a span is that
// of its first parameter.
namespace sorvane::simulator::number {

inline constexpr int kSelections = 2;
inline constexpr int kOptions = 3;
inline constexpr int kMachineNumber = 9;
inline constexpr int kLocationNumber = 10;
inline constexpr int kLanguageNames = 12;  // ten
inline constexpr int kDecimals = 22;       // of all amounts; second copy of kDecimalPoint
inline constexpr int kPrices = 23;         // ten
inline constexpr int kDiscounts = 43;      // ten
inline constexpr int kHour = 54;
inline constexpr int kMinute = 55;
inline constexpr int kDay = 56;
inline constexpr int kMonth = 57;
inline constexpr int kYear = 58;           // since 2000
inline constexpr int kDiscountBands = 59;  // two of four: from hour and minute, to hour and minute
inline constexpr int kDecimalPoint = 85;
inline constexpr int kAlarmRing = 118;     // twenty records of eight
inline constexpr int kAlarmPointer = 278;  // the newest record, 0 to 19
inline constexpr int kTakings = 279;       // this total and the next two: resettable, then not
inline constexpr int kVends = 281;
inline constexpr int kDiscountTotal = 283;
inline constexpr int kCoins = 288;           // sixteen
inline constexpr int kBanknotes = 304;       // sixteen
inline constexpr int kSelectionVends = 320;  // ten
inline constexpr int kMotorBlocks = 330;     // ten
inline constexpr int kFreeVends = 340;       // ten

inline constexpr int kRows = 10;      // selections, motors, keys and columns
inline constexpr int kChannels = 16;  // of coins, and of banknotes
inline constexpr int kAlarmRecords = 20;
inline constexpr int kAlarmLength = 8;

inline constexpr unsigned kFreeVendOption = 1;  // a bit of kOptions

// System parameters.
inline constexpr int kSoftware = 11;
inline constexpr int kBoardNumber = 12;
inline constexpr int kTypeLow = 13;
inline constexpr int kTypeHigh = 14;
inline constexpr int kRevision = 17;

}  // namespace sorvane::simulator::number
