#include "pages/audit/frm_totali.h"

#include <QLabel>
#include <numeric>

#include "board/formats.h"
#include "board/message.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr AuditRow Total(int caption, int value, int message, int32_t parameter) {
  return {
      .caption_index = caption,
      .message = message,
      .value = value,
      .parameter = parameter,
  };
}

// A total that can be reset comes before its partner that can't.
constexpr AuditRow kLasting[] = {
    Total(0, 0, message::kTakings, parameter::kTakings + 1),
    Total(2, 1, message::kVends, parameter::kVends + 1),
    Total(4, 2, message::kDiscountTotal, parameter::kDiscountTotal + 1),
    Total(6, 3, message::kKeyDiscountTotal, parameter::kKeyDiscountTotal + 1),
};
constexpr AuditRow kResettable[] = {
    Total(1, 4, message::kTakingsResettable, parameter::kTakings),
    Total(3, 5, message::kVendsResettable, parameter::kVends),
    Total(5, 6, message::kDiscountTotalResettable, parameter::kDiscountTotal),
    Total(7, 7, message::kKeyDiscountTotalResettable, parameter::kKeyDiscountTotal),
    Total(8, 8, message::kOverpay, parameter::kOverpay),
};
constexpr AuditGroup kGroups[] = {
    {.frame = 0, .rows = kLasting, .row = 0, .column = 0},
    {.frame = 1, .rows = kResettable, .row = 0, .column = 1},
};

constexpr int32_t kFirst = parameter::kTakings;
constexpr int32_t kLast = parameter::kOverpay;

bool IsCount(int32_t index) { return index == parameter::kVends || index == parameter::kVends + 1; }

}  // namespace

FrmTotali::FrmTotali(const PageServices& services)
    : AuditPage(services, "FrmTotali", message::kTotals, kGroups) {}

std::vector<int32_t> FrmTotali::WatchedParameters() const {
  std::vector<int32_t> watched(kLast - kFirst + 1);
  std::iota(watched.begin(), watched.end(), kFirst);
  watched.push_back(parameter::kDecimals);
  return watched;
}

void FrmTotali::OnReply(const Reply& reply) {
  if (reply.index != parameter::kDecimals) {
    AuditPage::OnReply(reply);
    return;
  }
  if (reply.Number() == 0) return;
  const uint8_t decimals = ToByte(reply.Number());
  for (int32_t k = kFirst; k <= kLast; ++k) {
    if (IsCount(k)) continue;
    const double amount = ReadParameter(k) / PowerOfTen(decimals);
    Value(k)->setText(FromWestern(FormatMoney(amount, decimals, Services().separators)));
  }
}

}  // namespace sorvane
