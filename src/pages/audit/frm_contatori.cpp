#include "pages/audit/frm_contatori.h"

#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr int kTitle = 11;  // message

constexpr AuditRow kVends[] = {
    {"LabelMess2", 0, 71, 1, 0, parameter::kSelectionVends, parameter::kSelectionRows}};
constexpr AuditRow kBlocks[] = {
    {"LabelMess3", 0, 72, 1, 10, parameter::kMotorBlocks, parameter::kSelectionRows}};
constexpr AuditRow kFreeVends[] = {
    {"LabelMess4", 0, 73, 1, 20, parameter::kFreeVends, parameter::kSelectionRows}};
// The parameters of these don't follow the order of the rows.
constexpr AuditRow kMachine[] = {{"LabelMess1", 0, 68, 0, 30, parameter::kPowerOns},
                                 {"LabelMess1", 1, 69, 0, 31, parameter::kMotorResets},
                                 {"LabelMess1", 2, 70, 0, 32, parameter::kInterventions}};

constexpr AuditGroup kGroups[] = {
    {0, kVends, 0, 0}, {1, kBlocks, 0, 1}, {2, kFreeVends, 0, 2}, {3, kMachine, 1, 0, true}};

}  // namespace

FrmContatori::FrmContatori(const PageServices& services)
    : AuditPage(services, "FrmContatori", kTitle, kGroups) {}

std::vector<int32_t> FrmContatori::WatchedParameters() const {
  std::vector<int32_t> watched;
  for (int32_t i = 0; i < parameter::kSelectionRows; ++i) {
    for (const int32_t first :
         {parameter::kSelectionVends, parameter::kMotorBlocks, parameter::kFreeVends}) {
      watched.push_back(first + i);
    }
  }
  for (const int32_t k :
       {parameter::kMotorResets, parameter::kInterventions, parameter::kPowerOns}) {
    watched.push_back(k);
  }
  return watched;
}

}  // namespace sorvane
