#pragma once

#include <cstdint>
#include <vector>

#include "pages/audit/audit_page.h"

namespace sorvane {

// How often the machine was switched on, and how often somebody came to see to it.
class FrmInterventi : public AuditPage {
 public:
  explicit FrmInterventi(const PageServices& services);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
};

}  // namespace sorvane
