#include "pages/model/sconti_model.h"

namespace sorvane::test::model {

std::vector<int> ScontiModel::Watched() const {
  return {22, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 2};
}

std::vector<int> ScontiModel::BoardValues(int parameter) const {
  if (parameter == 2) return {0, 1, 3, 5, 7, 9, 10, 10, 10, 10};
  if (parameter == 22) return {0, 1, 2, 2, 2, 3, 4, 5};
  return {0, 1, 9, 10, 99, 100, 105, 1250, 9999, 10000, 32767, 32768, 40000, 65534, 65535};
}

std::vector<QString> ScontiModel::Texts(const std::string& /*field*/) const {
  return {"",    "0",    "1",     "12",  "2",    "2.0",   "2,0",    "2.00",   "12.5",  "12,5",
          "7,",  "7.",   ".5",    ",25", "0.01", "0,019", "655.35", "655,36", "65535", "65536",
          "6.5", "1.55", "1.999", "-5",  "+1",   " 12",   "1e2",    "abc",    "1a",    "x1"};
}

void ScontiModel::Build() {
  decimals_ = 255;
  selections_ = 0;
  for (int i = 0; i < 10; ++i) {
    AddField(Name("Text1", i), 6);
    AddBar(Name("HScroll1", i), -32768, 32767, -32767, 100);
  }
  OpenRows(0, 10, false);
}

void ScontiModel::OpenRows(int first, int end, bool open) {
  for (int i = first; i < end; ++i) {
    SetOpen(Name("HScroll1", i), open);
    SetOpen(Name("Text1", i), open);
  }
}

void ScontiModel::ShowDiscount(int row, std::int64_t raw) {
  SetBar(Name("HScroll1", row), raw - 32768);
  Show(Name("Text1", row), Money(raw, static_cast<int>(decimals_)));
}

void ScontiModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 22 && value != decimals_) {
    decimals_ = value;
    for (int i = 0; i < 10; ++i) ShowDiscount(i, machine_.Read(43 + i));
  }
  if (parameter >= 43 && parameter <= 52 && machine_.IsFresh(22)) {
    ShowDiscount(parameter - 43, value);
  }
  if (parameter == 2) {
    selections_ = value;
    OpenRows(0, 10, false);
  }
}

void ScontiModel::AfterReply() {
  if (machine_.IsFresh(2) && machine_.IsFresh(43)) OpenRows(0, static_cast<int>(selections_), true);
}

void ScontiModel::OnEnter(const std::string& field) {
  const Parsed parsed = ParseMoney(At(field).text, static_cast<int>(decimals_));
  if (Take(field, parsed)) SetBar(Name("HScroll1", IndexOf(field)), parsed.value - 32768);
}

void ScontiModel::OnChange(const std::string& control) {
  machine_.Write(43 + IndexOf(control), At(control).position + 32768);
}

}  // namespace sorvane::test::model
