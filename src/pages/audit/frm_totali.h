#pragma once

#include "pages/audit/audit_page.h"

namespace sorvane {

// The totals of the machine: those that can't be reset beside those that the machine can reset. An
// amount shows as a raw number when it is answered, and with decimals when the decimals are: the
// two forms take turns in the order of the replies.
class FrmTotali : public AuditPage {
 public:
  explicit FrmTotali(const PageServices& services);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void OnReply(const Reply& reply) override;
};

}  // namespace sorvane
