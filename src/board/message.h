#pragma once

// What the lines of a language file say: message n is line n. A name for a span is that of its
// first line. Lines that no name covers are marks.
namespace sorvane::message {

// The menu. Most of these are titles of pages too.
inline constexpr int kPassword = 1;
inline constexpr int kSettings = 2;
inline constexpr int kPrices = 3;
inline constexpr int kDiscounts = 4;
inline constexpr int kPayment = 5;
inline constexpr int kKeysColumns = 6;
inline constexpr int kColumnsProducts = 7;
inline constexpr int kClock = 8;
inline constexpr int kSales = 9;
inline constexpr int kTotals = 10;
inline constexpr int kCounters = 11;
inline constexpr int kCoins = 12;
inline constexpr int kBanknotes = 13;
inline constexpr int kAlarms = 14;
inline constexpr int kLanguages = 15;

// The ends of a switch.
inline constexpr int kYes = 17;
inline constexpr int kNo = 18;

inline constexpr int kPasswordNote = 19;

inline constexpr int kMachineLanguage = 21;
inline constexpr int kSelections = 22;
inline constexpr int kMotorTimeout = 23;
inline constexpr int kSetTemperature = 24;
inline constexpr int kDeltaTemperature = 25;
inline constexpr int kDefrostEvery = 26;
inline constexpr int kDefrostFor = 27;
inline constexpr int kMachineNumber = 28;
inline constexpr int kLocationNumber = 29;
inline constexpr int kEqualProducts = 30;

inline constexpr int kPrice = 32;  // of a selection; its number follows
inline constexpr int kItem = 33;   // the same
inline constexpr int kPricesTitle = 34;
inline constexpr int kDiscount = 36;  // of a selection; its number follows

inline constexpr int kKeysTitle = 38;
inline constexpr int kKey = 39;  // its number follows
inline constexpr int kColumnsTitle = 41;
inline constexpr int kColumn = 42;  // its number follows
inline constexpr int kProduct = 43;

inline constexpr int kClockTab = 45;
inline constexpr int kBandsTab = 46;
inline constexpr int kSwitchOn = 47;
inline constexpr int kSwitchOff = 48;
inline constexpr int kSetTime = 49;
inline constexpr int kDay = 50;
inline constexpr int kMonth = 51;
inline constexpr int kYear = 52;
inline constexpr int kHours = 53;
inline constexpr int kMinutes = 54;
inline constexpr int kBandStart = 55;  // the band's number follows
inline constexpr int kBandEnd = 56;    // the same

// Totals, first the one that can't be reset.
inline constexpr int kTakings = 58;
inline constexpr int kTakingsResettable = 59;
inline constexpr int kVends = 60;
inline constexpr int kVendsResettable = 61;
inline constexpr int kDiscountTotal = 62;
inline constexpr int kDiscountTotalResettable = 63;
inline constexpr int kKeyDiscountTotal = 64;
inline constexpr int kKeyDiscountTotalResettable = 65;
inline constexpr int kOverpay = 66;

inline constexpr int kPowerOns = 68;
inline constexpr int kMotorResets = 69;
inline constexpr int kInterventions = 70;
inline constexpr int kSelectionVends = 71;  // of a selection; its number follows
inline constexpr int kMotorBlocks = 72;     // of a motor; its number follows
inline constexpr int kFreeVends = 73;       // of a selection; its number follows

inline constexpr int kCoin = 75;      // the channel's number follows
inline constexpr int kBanknote = 77;  // the same

inline constexpr int kGeneralTab = 79;
inline constexpr int kPaymentSystem = 80;
inline constexpr int kBanknotesTab = 81;
inline constexpr int kCoinsTab = 82;
inline constexpr int kFreeVend = 83;
inline constexpr int kImmediateChange = 84;
inline constexpr int kBaseCoin = 85;
inline constexpr int kDecimalPoint = 86;
inline constexpr int kCreditTimeout = 87;
inline constexpr int kSaleMode = 88;
inline constexpr int kMaximumChange = 89;
inline constexpr int kMaximumCoinCredit = 90;
inline constexpr int kMaximumKeyCredit = 91;
inline constexpr int kChanger = 92;
inline constexpr int kIgnoreExactChange = 93;
inline constexpr int kTube = 94;  // its number follows without a blank
inline constexpr int kTokensOn = 95;
inline constexpr int kTokenChange = 96;
inline constexpr int kTokenRecharge = 97;
inline constexpr int kTokenExactChange = 98;
inline constexpr int kToken = 99;     // its number follows
inline constexpr int kMdbTabs = 100;  // three: options, tubes, tokens

inline constexpr int kLast = 102;

}  // namespace sorvane::message
