#include "docs/howto/frm_interventi.h"

#include "board/message.h"
#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr AuditRow kRows[] = {
    {.caption_index = 0,
     .message = message::kPowerOns,
     .value = 0,
     .parameter = parameter::kPowerOns},
    {.caption_index = 1,
     .message = message::kInterventions,
     .value = 1,
     .parameter = parameter::kInterventions},
};

constexpr AuditGroup kGroups[] = {{.frame = 0, .rows = kRows, .row = 0, .column = 0}};

}  // namespace

FrmInterventi::FrmInterventi(const PageServices& services)
    : AuditPage(services, "FrmInterventi", message::kCounters, kGroups) {}

std::vector<int32_t> FrmInterventi::WatchedParameters() const {
  return {parameter::kPowerOns, parameter::kInterventions};
}

}  // namespace sorvane
