#include "pages/model/map_models.h"

namespace sorvane::test::model {

std::vector<int> TastiModel::Watched() const {
  return {2, 98, 99, 100, 101, 102, 103, 104, 105, 106, 107};
}

std::vector<int> TastiModel::BoardValues(int parameter) const {
  if (parameter == 2) return {0, 1, 3, 4, 5, 8, 10, 10, 10, 10};
  return {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 60, 255};
}

std::vector<QString> TastiModel::Texts(const std::string& /*field*/) const {
  return {"",   "0",   "00",  "1",  "2",  "3",  "4",   "5",    "6",  "7",   "8",   "9", "10",
          "11", "010", "255", "5.", "5,", "-1", "1.5", "9999", "+2", "1e1", "abc", "x", "4b"};
}

void TastiModel::BuildRows(int highest) {
  for (int i = 0; i < 10; ++i) {
    AddField(Name("Text1", i), 6);
    AddBar(Name("HScroll1", i), 1, highest, 1, 1);
    AddLabel(Name("LabelMess1", i));
  }
}

void TastiModel::OpenRows(int end, bool open) {
  for (int i = 0; i < end; ++i) {
    for (const char* array : {"LabelMess1", "Text1", "HScroll1"}) SetOpen(Name(array, i), open);
  }
}

void TastiModel::ShowRow(int row, std::int64_t value) {
  SetBar(Name("HScroll1", row), value);
  Show(Name("Text1", row), QString::number(value));
}

void TastiModel::OnSelections(std::int64_t count) {
  OpenRows(10, false);
  OpenRows(static_cast<int>(count), true);
}

void TastiModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 2) OnSelections(value);
  if (parameter >= 98 && parameter <= 107) ShowRow(parameter - 98, value);
}

void TastiModel::EnterUpTo(int highest, const std::string& field) {
  const Parsed parsed = ParseWhole(At(field).text);
  if (!Take(field, parsed)) return;
  if (parsed.value <= highest) {
    ShowRow(IndexOf(field), parsed.value);
  } else {
    Restore(field);
  }
}

void TastiModel::OnChange(const std::string& control) {
  const int row = IndexOf(control);
  machine_.WritePair(98 + row, 401 + row, At(control).position);
}

std::vector<int> ColonnaProdModel::Watched() const {
  return {3, 2, 108, 109, 110, 111, 112, 113, 114, 115, 116, 117};
}

std::vector<int> ColonnaProdModel::BoardValues(int parameter) const {
  if (parameter == 3) return {0, 16, 31, 32, 32, 32, 223, 255};
  if (parameter == 2) return {0, 1, 3, 4, 5, 8, 10, 10, 10, 10};
  return {0, 1, 2, 9, 10, 11, 32, 33, 63, 64, 99, 100, 101, 255};
}

std::vector<QString> ColonnaProdModel::Texts(const std::string& /*field*/) const {
  return {"",   "0",   "00",  "1",  "2",  "3",  "5",   "8",    "9",  "10",  "11",  "32", "33",
          "64", "100", "101", "5.", "5,", "-1", "1.5", "9999", "+2", "1e1", "abc", "x"};
}

// The product of column 3 becomes the number of selections, and an eleventh row would be the end.
bool ColonnaProdModel::MayConfirm(const std::string& field, const QString& text) const {
  return field != "Text1(2)" || text.toInt() <= 10 || text.toInt() > 100;
}

bool ColonnaProdModel::MayMove(const std::string& bar, int position) const {
  return bar != "HScroll1(2)" || position <= 10;
}

void ColonnaProdModel::Build() {
  BuildRows(100);
  AddLabel("Label1(0)");
  AddLabel("Label1(1)");
}

void ColonnaProdModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 3) {
    const bool open = value / 32 % 2 == 1;
    OpenRows(10, open);
    SetOpen("Label1(0)", open);
    SetOpen("Label1(1)", open);
  }
  if (parameter == 2) OnSelections(value);
  if (parameter >= 108 && parameter <= 117) ShowRow(parameter - 108, value);
}

void ColonnaProdModel::OnChange(const std::string& control) {
  const int row = IndexOf(control);
  machine_.WritePair(108 + row, row, At(control).position);
}

}  // namespace sorvane::test::model
