#include "pages/settings/frm_sconti.h"

#include <QGridLayout>

#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"

namespace sorvane {
namespace {

constexpr int kTitle = 4;  // messages
constexpr int kDiscount = 36;

constexpr FieldRow kFields = {.label = "LabelMess1",
                              .text = "Text1",
                              .bar = "HScroll1",
                              .count = parameter::kSelectionRows,
                              .message = kDiscount,
                              .parameter = parameter::kDiscounts,
                              .mirror = 0,
                              .offset = 32768,
                              .minimum = -32768,
                              .maximum = 32767,
                              .start = -32767,
                              .large_step = 100,
                              .characters = 6};
constexpr int kRowsPerColumn = 5;

}  // namespace

FrmSconti::FrmSconti(const PageServices& services)
    : Page(services, "FrmSconti"), fields_(*this, kFields, Decimals, FieldValue) {
  auto* grid = new QGridLayout(this);
  fields_.LayOut(*grid, kRowsPerColumn);
}

std::vector<int32_t> FrmSconti::WatchedParameters() const {
  std::vector<int32_t> watched = {parameter::kDecimals};
  for (int i = 0; i < kFields.count; ++i) watched.push_back(kFields.parameter + i);
  watched.push_back(parameter::kSelections);
  return watched;
}

void FrmSconti::Load() {
  WatchPageParameters();
  fields_.DisableScroll();
  LoadPageCaptions();
}

void FrmSconti::LoadPageCaptions() {
  fields_.LoadCaptions();
  setWindowTitle(Message(kTitle));
}

void FrmSconti::OnReply(const Reply& reply) {
  if (reply.index == parameter::kDecimals) {
    if (reply.Number() == Decimals) return;
    Decimals = ToInt16(reply.Number());
    fields_.Redraw();
  } else if (reply.index == parameter::kSelections) {
    SelectionCount = ToInt16(reply.Number());
    fields_.DisableScroll();
  } else if (Field* field = fields_.Find(reply.index)) {
    // Without the decimals an amount can't be scaled; their reply draws it.
    if (IsParameterFresh(parameter::kDecimals)) field->ShowFieldValue(reply.Number());
  }
}

void FrmSconti::AfterReply() {
  if (!IsParameterFresh(parameter::kSelections)) return;
  // Every turn asks for the first discount: once it has been answered, the page opens.
  for (int16_t i = 0; i < kFields.count; ++i) {
    if (IsParameterFresh(kFields.parameter)) FreshCount = static_cast<int16_t>(i + 1);
  }
  if (FreshCount >= kFields.count) {
    FreshCount = 0;
    fields_.EnableScroll(SelectionCount);
  }
}

}  // namespace sorvane
