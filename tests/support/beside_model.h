#pragma once

#include <vector>

#include "board/index_file.h"
#include "board/record.h"
#include "model/link_model.h"

namespace sorvane::test {

// Rows of an index file, as the model of the link takes them.
inline model::Row ModelRow(const IndexRecord& row) {
  return {{row.address1, row.address2, row.address3}, row.command, row.divider, row.default_value};
}
inline std::vector<model::Row> ModelRows(const std::vector<IndexRecord>& rows) {
  std::vector<model::Row> all;
  all.reserve(rows.size());
  for (const IndexRecord& row : rows) all.push_back(ModelRow(row));
  return all;
}

// Whether a record of the program is as its model says.
inline bool IsAs(const ParameterRecord& record, const model::LinkModel::Record& expected) {
  int position = 0;
  for (const std::uint8_t byte : expected.InTable()) {
    if (record.At(++position) != byte) return false;
  }
  return true;
}

}  // namespace sorvane::test
