#pragma once

namespace sorvane {

// The entries of the menu bar. Like entries that differ by an index alone are one.
enum class MenuEntry {
  kConnect,
  kPassword,
  kSettings,
  kPrices,
  kDiscounts,
  kPayment,
  kMaps,  // "Set ", which holds the next two
  kKeys,
  kColumns,
  kClock,
  kSales,  // which holds the next four
  kTotals,
  kCounters,
  kCoins,
  kBanknotes,
  kAlarms,
  kLanguages,  // which holds the next ten
  kLanguage,
  kWindows,
  kPorts,  // which holds the rest but for the last
  kPort,
  kLine,
  kUsb,
  kInfo,
};

}  // namespace sorvane
