#include "shell/field_group.h"

#include <QGridLayout>
#include <QLabel>

#include "board/errors.h"
#include "shell/controls/bar.h"
#include "shell/controls/entry_box.h"
#include "shell/page.h"

namespace sorvane {
namespace {

constexpr int kBoxCharacters = 9;   // room in a field for the longest amount
constexpr int kBarCharacters = 30;  // width of a bar
constexpr int kGapCharacters = 2;   // between two columns of fields
constexpr int kCellsPerColumn = 4;  // label, field, bar, gap

}  // namespace

FieldGroup::FieldGroup(Page& page, const FieldRow& row, const int16_t& decimals,
                       int32_t& field_value)
    : page_(page) {
  for (int i = 0; i < row.count; ++i) {
    fields_.push_back(std::make_unique<Field>(page, row, i, decimals, field_value));
  }
}

Field* FieldGroup::Find(int32_t parameter) {
  for (const auto& field : fields_) {
    if (field->Parameter() == parameter) return field.get();
  }
  return nullptr;
}

void FieldGroup::LoadCaptions() {
  for (const auto& field : fields_) field->LoadCaption();
}

void FieldGroup::DisableScroll() {
  for (const auto& field : fields_) field->SetOpen(false);
}

void FieldGroup::EnableScroll(int count) {
  for (int i = 0; i < count; ++i) {
    if (i >= static_cast<int>(fields_.size())) throw RuntimeError(ErrorCode::kNoSuchElement);
    fields_[static_cast<std::size_t>(i)]->SetOpen(true);
  }
}

void FieldGroup::Redraw() {
  for (const auto& field : fields_) field->ShowFieldValue(page_.ReadParameter(field->Parameter()));
}

void FieldGroup::LayOut(QGridLayout& grid, int rows_per_column) {
  const int character = page_.fontMetrics().averageCharWidth();
  for (int i = 0; i < static_cast<int>(fields_.size()); ++i) {
    Field& field = *fields_[static_cast<std::size_t>(i)];
    const int row = i % rows_per_column;
    const int column = i / rows_per_column * kCellsPerColumn;
    field.Box()->setFixedWidth(kBoxCharacters * character);
    field.GetBar()->setMinimumWidth(kBarCharacters * character);
    grid.addWidget(field.Label(), row, column);
    grid.addWidget(field.Box(), row, column + 1);
    grid.addWidget(field.GetBar(), row, column + 2);
    grid.setColumnStretch(column + 2, 1);
    if (column > 0) grid.setColumnMinimumWidth(column - 1, kGapCharacters * character);
  }
}

}  // namespace sorvane
