#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "shell/field.h"

class QGridLayout;

namespace sorvane {

// The fields of one row of a page's table, in their order.
class FieldGroup {
 public:
  FieldGroup(Page& page, const FieldRow& row, const int16_t& decimals, int32_t& field_value);

  // The field of a parameter, or nullptr.
  Field* Find(int32_t parameter);

  void LoadCaptions();

  // Closes all fields.
  void DisableScroll();

  // Opens the first count fields and leaves the others as they are. Throws RuntimeError
  // kNoSuchElement, after opening all, where there are fewer.
  void EnableScroll(int count);

  // Draws every field anew from the table, whether the board has answered it or not.
  void Redraw();

  // Lays the fields out as rows of label, field and bar from the given cell on, in columns of
  // rows_per_column rows side by side.
  void LayOut(QGridLayout& grid, int rows_per_column);

 private:
  Page& page_;
  std::vector<std::unique_ptr<Field>> fields_;
};

}  // namespace sorvane
