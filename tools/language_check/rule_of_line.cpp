#include <algorithm>

#include "language_check/line_rules.h"

namespace sorvane {

const LineRule* RuleOfLine(int line) {
  const auto rules = LineRules();
  const auto found = std::find_if(rules.begin(), rules.end(), [line](const LineRule& rule) {
    return rule.first <= line && line <= rule.last;
  });
  return found == rules.end() ? nullptr : &*found;
}

}  // namespace sorvane
