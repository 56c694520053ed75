#include "docs/howto/frm_interventi.h"

#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr int kTitle = 11;  // message

constexpr AuditRow kRows[] = {{"LabelMess1", 0, 68, 0, 0, parameter::kPowerOns},
                              {"LabelMess1", 1, 70, 0, 1, parameter::kInterventions}};

constexpr AuditGroup kGroups[] = {{0, kRows, 0, 0}};

}  // namespace

FrmInterventi::FrmInterventi(const PageServices& services)
    : AuditPage(services, "FrmInterventi", kTitle, kGroups) {}

std::vector<int32_t> FrmInterventi::WatchedParameters() const {
  return {parameter::kPowerOns, parameter::kInterventions};
}

}  // namespace sorvane
