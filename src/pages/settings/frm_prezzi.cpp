#include "pages/settings/frm_prezzi.h"

#include "board/parameter.h"
#include "pages/settings/full_span_row.h"

namespace sorvane {
namespace {

constexpr int kPrice = 32;  // messages
constexpr int kItem = 33;
constexpr int kTitle = 34;

// Item numbers are drawn and typed by the rules of the prices, with the decimals that the page has
// at the moment.
constexpr FieldRow kColumns[] = {SelectionRow({.label = "LabelMess1",
                                               .text = "Text1",
                                               .bar = "HScroll1",
                                               .message = kPrice,
                                               .parameter = parameter::kPrices,
                                               .mirror = parameter::kPricesMirror,
                                               .form = ValueForm::kPrice}),
                                 SelectionRow({.label = "LabelMess2",
                                               .text = "Text2",
                                               .bar = "HScroll2",
                                               .message = kItem,
                                               .parameter = parameter::kItems,
                                               .form = ValueForm::kPrice})};

}  // namespace

FrmPrezzi::FrmPrezzi(const PageServices& services)
    : SelectionPage(services, "FrmPrezzi", kTitle, kColumns) {}

void FrmPrezzi::AfterReply() {
  constexpr int16_t kAll = parameter::kSelectionRows;
  const auto count = [](int16_t& counter, int16_t i) {
    counter = counter == kAll ? int16_t{0} : static_cast<int16_t>(i + 1);
  };
  if (IsParameterFresh(parameter::kSelections)) {
    // Every turn asks for the first price and the first item number: once both have been answered,
    // the page opens.
    for (int16_t i = 0; i < kAll; ++i) {
      if (IsParameterFresh(parameter::kPrices)) count(FreshCount, i);
      if (IsParameterFresh(parameter::kItems)) count(ItemFreshCount, i);
    }
  }
  if (FreshCount + ItemFreshCount >= 2 * kAll) EnableScroll(SelectionCount);
}

}  // namespace sorvane
