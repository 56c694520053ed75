#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "pages/tabbed_page.h"

namespace sorvane::test {

// The payment page over a board with two decimals. Its option bits are 189: of the page's own ones
// the first alone (1), and all five that belong to others (188). The flags of changer and tokens
// are 213: switches 0, 2 and 4 (21), and the two bits without a switch (192).
class PagamentoPage : public TabbedPageTest {
 protected:
  enum System { kValidatore = 1, kExecutive = 2, kMdb = 3 };

  explicit PagamentoPage(System system, Separators separators = kPoint)
      : TabbedPageTest("FrmPagamento", "MnuPagamento", separators) {
    const auto hold = [this](int first, const std::vector<std::uint32_t>& values) {
      for (const std::uint32_t value : values) program.link.SetBoardNumber(first++, value);
    };
    hold(3, {189});
    hold(22, {2});
    hold(71, {static_cast<std::uint32_t>(system), 213, 150, 1250, 65535});
    hold(76, {3, 4, 5, 6, 7});
    hold(81, {10, 20, 3000});
    hold(84, {25, 4, 12, 1, 5, 128});
    hold(90, {5, 10, 20, 50, 100, 200});
  }

  void OpenOn(const QString& tabs, int tab) {
    Open();
    Tabs(tabs).SetFront(tab);
  }

  int SystemPosition() { return Property("SlswitchX1", "position").toInt(); }
  std::vector<bool> States(const char* toggles, int count) {
    std::vector<bool> all;
    for (int i = 0; i < count; ++i) all.push_back(IsOn(Indexed(toggles, i)));
    return all;
  }
  // The number of bytes that the machine keeps for a parameter or its mirror.
  static int SizeOf(int parameter) {
    for (const auto& [first, last] :
         {std::pair(73, 75), std::pair(81, 83), std::pair(90, 95), std::pair(367, 369),
          std::pair(375, 377), std::pair(383, 388)}) {
      if (parameter >= first && parameter <= last) return 2;
    }
    return 1;
  }
  // A value goes out to a parameter and its mirror, and nothing else does; it lies in both records
  // before, and on the board afterwards.
  void ExpectPair(int first, int second, std::uint32_t value, CallSite at = CallSite::Here()) {
    const int low = std::min(first, second);
    const int high = std::max(first, second);
    if (Pending() != std::vector<int>{low, high}) {
      FailAt(at, "pending: " + testing::PrintToString(Pending()));
    }
    for (const int each : {first, second}) {
      if (program.link.access.ReadParameter(each, 0) != value) {
        FailAt(at, std::to_string(each) + " holds " +
                       std::to_string(program.link.access.ReadParameter(each, 0)));
      }
    }
    ExpectSent({WriteFrame(low, value, SizeOf(low)), WriteFrame(high, value, SizeOf(high))}, at);
    if (program.link.BoardValue(first) != program.link.BoardValue(second)) {
      FailAt(at, "the board holds two values");
    }
  }
};

}  // namespace sorvane::test
