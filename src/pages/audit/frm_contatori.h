#pragma once

#include "pages/audit/audit_page.h"

namespace sorvane {

// The counters of the machine: vends, motor blocks and free vends of each selection, and resets,
// interventions and power-ons of the whole.
class FrmContatori : public AuditPage {
 public:
  explicit FrmContatori(const PageServices& services);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
};

}  // namespace sorvane
