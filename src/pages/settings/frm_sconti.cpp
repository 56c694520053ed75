#include "pages/settings/frm_sconti.h"

#include "board/message.h"
#include "board/parameter.h"
#include "pages/settings/full_span_row.h"

namespace sorvane {
namespace {

constexpr FieldRow kColumns[] = {
    SelectionRow({
        .label = "LabelMess1",
        .text = "Text1",
        .bar = "HScroll1",
        .message = message::kDiscount,
        .parameter = parameter::kDiscounts,
        .form = ValueForm::kMoney,
    }),
};

}  // namespace

FrmSconti::FrmSconti(const PageServices& services)
    : SelectionPage(services, "FrmSconti", message::kDiscounts, kColumns) {}

void FrmSconti::AfterReply() {
  if (!IsParameterFresh(parameter::kSelections)) return;
  // The first discount stands for all ten: once it has been answered, the page opens.
  if (IsParameterFresh(parameter::kDiscounts)) FreshCount = parameter::kSelectionRows;
  if (FreshCount < parameter::kSelectionRows) return;
  FreshCount = 0;
  EnableScroll(SelectionCount);
}

}  // namespace sorvane
