#include "pages/audit/frm_totali.h"

#include <QLabel>
#include <numeric>

#include "board/formats.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "shell/western_text.h"

namespace sorvane {
namespace {

constexpr int kTitle = 10;  // message

// A total that can be reset comes before its partner that can't.
constexpr AuditRow kLasting[] = {{"LabelMess1", 0, 58, 0, 0, parameter::kTakings + 1},
                                 {"LabelMess1", 2, 60, 0, 1, parameter::kVends + 1},
                                 {"LabelMess1", 4, 62, 0, 2, parameter::kDiscountTotal + 1},
                                 {"LabelMess1", 6, 64, 0, 3, parameter::kKeyDiscountTotal + 1}};
constexpr AuditRow kResettable[] = {{"LabelMess1", 1, 59, 0, 4, parameter::kTakings},
                                    {"LabelMess1", 3, 61, 0, 5, parameter::kVends},
                                    {"LabelMess1", 5, 63, 0, 6, parameter::kDiscountTotal},
                                    {"LabelMess1", 7, 65, 0, 7, parameter::kKeyDiscountTotal},
                                    {"LabelMess1", 8, 66, 0, 8, parameter::kOverpay}};
constexpr AuditGroup kGroups[] = {{0, kLasting, 0, 0}, {1, kResettable, 0, 1}};

constexpr int32_t kFirst = parameter::kTakings;
constexpr int32_t kLast = parameter::kOverpay;

bool IsCount(int32_t index) { return index == parameter::kVends || index == parameter::kVends + 1; }

}  // namespace

FrmTotali::FrmTotali(const PageServices& services)
    : AuditPage(services, "FrmTotali", kTitle, kGroups) {}

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
