#include "pages/settings/frm_prezzi.h"

#include "board/message.h"
#include "board/parameter.h"
#include "pages/settings/full_span_row.h"

namespace sorvane {
namespace {

// Item numbers are drawn and typed by the rules of the prices, with the decimals that the page has
// at the moment.
constexpr FieldRow kColumns[] = {
    SelectionRow({
        .label = "LabelMess1",
        .text = "Text1",
        .bar = "HScroll1",
        .message = message::kPrice,
        .parameter = parameter::kPrices,
        .mirror = parameter::kPricesMirror,
        .form = ValueForm::kPrice,
    }),
    SelectionRow({
        .label = "LabelMess2",
        .text = "Text2",
        .bar = "HScroll2",
        .message = message::kItem,
        .parameter = parameter::kItems,
        .form = ValueForm::kPrice,
    }),
};

}  // namespace

FrmPrezzi::FrmPrezzi(const PageServices& services)
    : SelectionPage(services, "FrmPrezzi", message::kPricesTitle, kColumns) {}

void FrmPrezzi::AfterReply() {
  constexpr int16_t kAll = parameter::kSelectionRows;
  // The first price and the first item number stand for all ten: once both have been answered, the
  // page opens.
  if (IsParameterFresh(parameter::kSelections)) {
    if (IsParameterFresh(parameter::kPrices)) FreshCount = kAll;
    if (IsParameterFresh(parameter::kItems)) ItemFreshCount = kAll;
  }
  if (FreshCount + ItemFreshCount >= 2 * kAll) EnableScroll(SelectionCount);
}

}  // namespace sorvane
