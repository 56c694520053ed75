#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "shell/page/field.h"
#include "shell/page/page_sizes.h"

class QGridLayout;
class QWidget;

namespace sorvane {

// The fields of a page's table, or of one part of it, in their order.
class FieldGroup {
 public:
  // state outlives the group.
  FieldGroup(Page& page, FieldState& state) : page_(page), state_(state) {}

  // Adds the fields of some rows. parent is the page or what stands on it.
  void Add(QWidget& parent, std::span<const FieldRow> rows);

  int Count() const { return static_cast<int>(fields_.size()); }

  // Throws RuntimeError kNoSuchElement where there is no such field; i counts from 0.
  Field& At(int i);

  // The field of a parameter, or nullptr.
  Field* Find(int32_t parameter);

  void LoadCaptions();

  // Opens or closes all fields, their labels apart.
  void SetOpen(bool open);

  // Draws every field anew from the table, whether the board has answered it or not.
  void Redraw();

  // Lays the fields out as rows of label, field and bar from a cell of the grid on, in columns of
  // rows_per_column rows side by side. box_characters is the room in a field. Tab goes down the
  // fields of a column and then down its bars.
  struct Place {
    int row = 0;
    int column = 0;
    int rows_per_column = 1;
    int box_characters = page_size::kNumberBox;
    int bar_characters = page_size::kLongBar;  // at least
    bool bars_grow = true;                     // with the page
  };
  void LayOut(QGridLayout& grid, const Place& place);

  // Cells of the grid that a column of fields takes, with the gap behind it.
  static constexpr int kCellsPerColumn = 4;

 private:
  void LayOutBar(QGridLayout& grid, Bar& bar, int row, int column, const Place& place);
  // The order of Tab in the column that begins with a field.
  void OrderColumn(int first, int count);

  Page& page_;
  FieldState& state_;
  std::vector<std::unique_ptr<Field>> fields_;
};

}  // namespace sorvane
