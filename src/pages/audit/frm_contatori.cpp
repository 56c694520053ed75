#include "pages/audit/frm_contatori.h"

#include "board/message.h"
#include "board/parameter.h"

namespace sorvane {
namespace {

// A count of each selection or motor, with a frame of their own.
constexpr AuditRow TenCounts(const char* caption, int message, int value, int32_t parameter) {
  return {
      .caption = caption,
      .message = message,
      .number = 1,
      .value = value,
      .parameter = parameter,
      .count = parameter::kSelectionRows,
  };
}

constexpr AuditRow MachineCount(int i, int message, int32_t parameter) {
  constexpr int kFirstValue = 30;
  return {
      .caption_index = i,
      .message = message,
      .value = kFirstValue + i,
      .parameter = parameter,
  };
}

constexpr AuditRow kVends[] = {
    TenCounts("LabelMess2", message::kSelectionVends, 0, parameter::kSelectionVends),
};
constexpr AuditRow kBlocks[] = {
    TenCounts("LabelMess3", message::kMotorBlocks, 10, parameter::kMotorBlocks),
};
constexpr AuditRow kFreeVends[] = {
    TenCounts("LabelMess4", message::kFreeVends, 20, parameter::kFreeVends),
};
// The parameters of these don't follow the order of the rows.
constexpr AuditRow kMachine[] = {
    MachineCount(0, message::kPowerOns, parameter::kPowerOns),
    MachineCount(1, message::kMotorResets, parameter::kMotorResets),
    MachineCount(2, message::kInterventions, parameter::kInterventions),
};

constexpr AuditGroup kGroups[] = {
    {.frame = 0, .rows = kVends, .row = 0, .column = 0},
    {.frame = 1, .rows = kBlocks, .row = 0, .column = 1},
    {.frame = 2, .rows = kFreeVends, .row = 0, .column = 2},
    {.frame = 3, .rows = kMachine, .row = 1, .column = 0, .across = true},
};

}  // namespace

FrmContatori::FrmContatori(const PageServices& services)
    : AuditPage(services, "FrmContatori", message::kCounters, kGroups) {}

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
