#include "pages/settings/frm_sconti.h"

#include "board/parameter.h"
#include "pages/settings/full_span_row.h"

namespace sorvane {
namespace {

constexpr int kTitle = 4;  // messages
constexpr int kDiscount = 36;

constexpr FieldRow kColumns[] = {SelectionRow({.label = "LabelMess1",
                                               .text = "Text1",
                                               .bar = "HScroll1",
                                               .message = kDiscount,
                                               .parameter = parameter::kDiscounts,
                                               .form = ValueForm::kMoney})};

}  // namespace

FrmSconti::FrmSconti(const PageServices& services)
    : SelectionPage(services, "FrmSconti", kTitle, kColumns) {}

void FrmSconti::AfterReply() {
  if (!IsParameterFresh(parameter::kSelections)) return;
  // Every turn asks for the first discount: once it has been answered, the page opens.
  for (int16_t i = 0; i < parameter::kSelectionRows; ++i) {
    if (IsParameterFresh(parameter::kDiscounts)) FreshCount = static_cast<int16_t>(i + 1);
  }
  if (FreshCount >= parameter::kSelectionRows) {
    FreshCount = 0;
    EnableScroll(SelectionCount);
  }
}

}  // namespace sorvane
