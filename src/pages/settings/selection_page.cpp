#include "pages/settings/selection_page.h"

#include <QGridLayout>

#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"

namespace sorvane {

SelectionPage::SelectionPage(const PageServices& services, const char* form_name, int title_message,
                             std::span<const FieldRow> columns)
    : Page(services, form_name), title_message_(title_message) {
  for (const FieldRow& column : columns) {
    columns_.push_back(std::make_unique<FieldGroup>(*this, state_));
    columns_.back()->Add(*this, std::span(&column, 1));
  }
  LayOut();
}

void SelectionPage::LayOut() {
  constexpr int kRows = parameter::kSelectionRows;
  const bool single = columns_.size() == 1;
  auto* grid = new QGridLayout(this);
  int cell = 0;
  for (const auto& column : columns_) {
    // A click beside the thumb writes an amount that nobody has typed: there is little room for it.
    column->LayOut(*grid, {.column = cell,
                           .rows_per_column = single ? kRows / 2 : kRows,
                           .bar_characters = page_size::kShortBar,
                           .bars_grow = false});
    cell += FieldGroup::kCellsPerColumn;
  }
}

std::vector<int32_t> SelectionPage::WatchedParameters() const {
  std::vector<int32_t> watched = {parameter::kDecimals};
  for (int i = 0; i < parameter::kSelectionRows; ++i) {
    for (const auto& column : columns_) watched.push_back(column->At(i).Parameter());
  }
  watched.push_back(parameter::kSelections);
  return watched;
}

void SelectionPage::Load() {
  WatchPageParameters();
  DisableScroll();
  LoadPageCaptions();
}

void SelectionPage::LoadPageCaptions() {
  for (const auto& column : columns_) column->LoadCaptions();
  setWindowTitle(Message(title_message_));
}

void SelectionPage::DisableScroll() {
  for (const auto& column : columns_) column->SetOpen(false);
}

void SelectionPage::EnableScroll(int count) {
  for (int i = 0; i < count; ++i) {
    for (const auto& column : columns_) column->At(i).SetOpen(true);
  }
}

void SelectionPage::OnReply(const Reply& reply) {
  if (reply.index == parameter::kDecimals) {
    if (reply.Number() == state_.Decimals) return;
    state_.Decimals = ToInt16(reply.Number());
    columns_.front()->Redraw();
  } else if (reply.index == parameter::kSelections) {
    SelectionCount = ToInt16(reply.Number());
    DisableScroll();
  }
  for (std::size_t k = 0; k < columns_.size(); ++k) {
    if (Field* field = columns_[k]->Find(reply.index)) OnFieldReply(k, *field, reply.Number());
  }
}

void SelectionPage::OnFieldReply(std::size_t column, Field& field, int64_t raw) {
  if (column > 0) {
    // A number without decimals: the page has none from here on, and takes those of the amounts up
    // again when the board answers them once more.
    state_.Decimals = 0;
  } else if (!IsParameterFresh(parameter::kDecimals)) {
    // Without the decimals an amount can't be scaled; their reply draws it.
    return;
  }
  field.ShowFieldValue(raw);
}

}  // namespace sorvane
