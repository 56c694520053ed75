#include "language_check/line_rules.h"

#include <algorithm>
#include <array>

#include "board/message.h"

namespace sorvane {
namespace {

constexpr std::array kLineRules = {
    LineRule{message::kPassword, message::kLanguages, 20},
    LineRule{message::kYes, message::kNo, 5},
    LineRule{message::kPasswordNote, message::kPasswordNote, 64},
    LineRule{message::kMachineLanguage, message::kEqualProducts, 26},
    LineRule{message::kPrice, message::kItem, 12},
    LineRule{message::kPricesTitle, message::kPricesTitle, 28},
    LineRule{message::kDiscount, message::kDiscount, 12},
    LineRule{message::kKeysTitle, message::kKeysTitle, 28},
    LineRule{message::kKey, message::kKey, 12},
    LineRule{message::kColumnsTitle, message::kColumnsTitle, 28},
    LineRule{message::kColumn, message::kProduct, 12},
    LineRule{message::kClockTab, message::kSwitchOff, 14},
    LineRule{message::kSetTime, message::kSetTime, 28},
    LineRule{message::kDay, message::kMinutes, 10},
    LineRule{message::kBandStart, message::kBandEnd, 18},
    LineRule{message::kTakings, message::kOverpay, 36},
    LineRule{message::kPowerOns, message::kFreeVends, 26},
    LineRule{message::kCoin, message::kCoin, 14},
    LineRule{message::kBanknote, message::kBanknote, 14},
    LineRule{message::kGeneralTab, message::kCoinsTab, 22},
    LineRule{message::kFreeVend, message::kIgnoreExactChange, 24},
    LineRule{message::kTube, message::kTube, 10},
    LineRule{message::kTokensOn, message::kTokenExactChange, 24},
    LineRule{message::kToken, message::kToken, 10},
    LineRule{message::kMdbTabs, message::kLast, 22},
};

}  // namespace

std::span<const LineRule> LineRules() { return kLineRules; }

const LineRule* RuleOfLine(int line) {
  const auto found = std::find_if(
      kLineRules.begin(), kLineRules.end(),
      [line](const LineRule& rule) { return rule.first <= line && line <= rule.last; });
  return found == kLineRules.end() ? nullptr : &*found;
}

}  // namespace sorvane
