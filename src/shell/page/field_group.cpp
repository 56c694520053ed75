#include "shell/page/field_group.h"

#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "board/errors.h"
#include "shell/controls/bar.h"
#include "shell/controls/entry_box.h"
#include "shell/page/page.h"

namespace sorvane {

void FieldGroup::Add(QWidget& parent, std::span<const FieldRow> rows) {
  for (const FieldRow& row : rows) {
    for (int i = 0; i < row.count; ++i) {
      fields_.push_back(std::make_unique<Field>(page_, parent, row, i, state_));
    }
  }
}

Field& FieldGroup::At(int i) {
  if (i < 0 || i >= Count()) throw RuntimeError(ErrorCode::kNoSuchElement);
  return *fields_[static_cast<std::size_t>(i)];
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

void FieldGroup::SetOpen(bool open) {
  for (const auto& field : fields_) field->SetOpen(open);
}

void FieldGroup::Redraw() {
  for (const auto& field : fields_) field->ShowFieldValue(page_.ReadParameter(field->Parameter()));
}

void FieldGroup::LayOut(QGridLayout& grid, const Place& place) {
  for (int i = 0; i < Count(); ++i) {
    Field& field = At(i);
    const int row = place.row + i % place.rows_per_column;
    const int column = place.column + i / place.rows_per_column * kCellsPerColumn;
    field.Box()->setFixedWidth(page_size::Pixels(place.box_characters, page_));
    if (field.Label() != nullptr) grid.addWidget(field.Label(), row, column);
    grid.addWidget(field.Box(), row, column + 1);
    if (Bar* bar = field.GetBar()) LayOutBar(grid, *bar, row, column + 2, place);
    grid.setColumnStretch(column + 2, 1);
    if (column > 0) {
      grid.setColumnMinimumWidth(column - 1, page_size::Pixels(page_size::kColumnGap, page_));
    }
  }
  for (int i = 0; i < Count(); i += place.rows_per_column) OrderColumn(i, place.rows_per_column);
}

void FieldGroup::LayOutBar(QGridLayout& grid, Bar& bar, int row, int column, const Place& place) {
  const int width = page_size::Pixels(place.bar_characters, page_);
  if (place.bars_grow) {
    bar.setMinimumWidth(width);
    grid.addWidget(&bar, row, column);
  } else {
    bar.setFixedWidth(width);
    grid.addWidget(&bar, row, column, Qt::AlignLeft | Qt::AlignVCenter);
  }
}

void FieldGroup::OrderColumn(int first, int count) {
  std::vector<QWidget*> order;
  for (int i = first; i < std::min(first + count, Count()); ++i) order.push_back(At(i).Box());
  for (int i = first; i < std::min(first + count, Count()); ++i) {
    if (At(i).GetBar() != nullptr) order.push_back(At(i).GetBar());
  }
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace sorvane
