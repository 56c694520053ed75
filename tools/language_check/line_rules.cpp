#include "language_check/line_rules.h"

#include <algorithm>
#include <array>

namespace sorvane {
namespace {

constexpr std::array kLineRules = {
    LineRule{1, 15, 20},    // menu entries and titles
    LineRule{17, 18, 5},    // ends of a switch
    LineRule{19, 19, 64},   // note below the password
    LineRule{21, 30, 26},   // rows of the general settings
    LineRule{32, 33, 12},   // numbered rows of the prices
    LineRule{34, 34, 28},   // title
    LineRule{36, 36, 12},   // numbered rows of the discounts
    LineRule{38, 38, 28},   // title
    LineRule{39, 39, 12},   // numbered rows of the keys
    LineRule{41, 41, 28},   // title
    LineRule{42, 43, 12},   // numbered rows and heads of the columns
    LineRule{45, 48, 14},   // tabs of the clock, two of the lines on one tab
    LineRule{49, 49, 28},   // frame of the clock
    LineRule{50, 54, 10},   // parts of date and time
    LineRule{55, 56, 18},   // numbered ends of the discount bands
    LineRule{58, 66, 36},   // totals
    LineRule{68, 73, 26},   // counters, the last three numbered
    LineRule{75, 75, 14},   // numbered coins
    LineRule{77, 77, 14},   // numbered banknotes
    LineRule{79, 82, 22},   // tabs and frame of the payment
    LineRule{83, 93, 24},   // rows of the payment
    LineRule{94, 94, 10},   // tubes, the number right behind
    LineRule{95, 98, 24},   // switches of the tokens
    LineRule{99, 99, 10},   // numbered tokens
    LineRule{100, 102, 22}  // tabs of the MDB system
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
