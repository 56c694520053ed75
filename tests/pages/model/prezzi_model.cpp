#include "pages/model/prezzi_model.h"

namespace sorvane::test::model {

std::vector<int> PrezziModel::Watched() const {
  std::vector<int> all{22};
  for (int i = 0; i < 10; ++i) {
    all.push_back(23 + i);
    all.push_back(33 + i);
  }
  all.push_back(2);
  return all;
}

std::vector<int> PrezziModel::BoardValues(int parameter) const {
  if (parameter == 2) return {0, 1, 3, 5, 7, 9, 10, 10, 10, 10};
  if (parameter == 22) return {0, 1, 2, 2, 2, 3, 4, 5};
  return {0, 1, 2, 9, 10, 99, 100, 200, 1250, 9999, 10000, 32767, 32768, 40000, 65534, 65535};
}

std::vector<QString> PrezziModel::Texts(const std::string& /*field*/) const {
  const QString mark(separator_);
  return {"",      "0",     "1",        "12",   "2",      "2.0",    "2,0",   "2.00",
          "2,000", "02,0",  "2" + mark, "2.5",  "2,5",    "12.5",   "12,5",  "7,",
          "7.",    ".5",    ",25",      "0.01", "655.35", "655,36", "65535", "65536",
          "6.5",   "1.999", "-5",       "+1",   "-2,0",   "1e2",    "abc",   "1a"};
}

void PrezziModel::Build() {
  decimals_ = 255;
  selections_ = 0;
  price_seen_ = false;
  item_seen_ = false;
  for (int i = 0; i < 10; ++i) {
    for (const char* text : {"Text1", "Text2"}) AddField(Name(text, i), 6);
    for (const char* bar : {"HScroll1", "HScroll2"}) {
      AddBar(Name(bar, i), -32768, 32767, -32767, 100);
    }
  }
  OpenRows(10, false);
}

void PrezziModel::OpenRows(int end, bool open) {
  for (int i = 0; i < end; ++i) {
    for (const char* array : {"HScroll1", "Text1", "HScroll2", "Text2"}) {
      SetOpen(Name(array, i), open);
    }
  }
}

void PrezziModel::ShowPair(const char* text, const char* bar, int row, std::int64_t raw) {
  SetBar(Name(bar, row), raw - 32768);
  Show(Name(text, row), Money(raw, static_cast<int>(decimals_)));
}

void PrezziModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 22 && value != decimals_) {
    decimals_ = value;
    for (int i = 0; i < 10; ++i) ShowPair("Text1", "HScroll1", i, machine_.Read(23 + i));
  }
  if (parameter >= 23 && parameter <= 32 && machine_.IsFresh(22)) {
    ShowPair("Text1", "HScroll1", parameter - 23, value);
  }
  if (parameter >= 33 && parameter <= 42) {
    decimals_ = 0;
    ShowPair("Text2", "HScroll2", parameter - 33, value);
  }
  if (parameter == 2) {
    selections_ = value;
    OpenRows(10, false);
  }
}

void PrezziModel::AfterReply() {
  if (machine_.IsFresh(2)) {
    price_seen_ = price_seen_ || machine_.IsFresh(23);
    item_seen_ = item_seen_ || machine_.IsFresh(33);
  }
  if (price_seen_ && item_seen_) OpenRows(static_cast<int>(selections_), true);
}

// Whether the locale reads the number 2 in a text with a separator: in "2,0" with a comma in the
// locale, but twenty with a point.
bool PrezziModel::IsTwo(const QString& text) const {
  if (!text.contains('.') && !text.contains(',')) return false;
  QString plain = text;
  plain.remove(separator_ == '.' ? ',' : '.');
  plain.replace(',', '.');
  bool ok = false;
  const double number = plain.toDouble(&ok);
  return ok && number == 2;
}

void PrezziModel::OnEnter(const std::string& field) {
  const QString text = At(field).text;
  Parsed parsed = ParseMoney(text, static_cast<int>(decimals_));
  if (parsed.kind == Parsed::Kind::kValue && IsTwo(text)) parsed = {};
  const bool price = ArrayOf(field) == "Text1";
  if (Take(field, parsed)) {
    SetBar(Name(price ? "HScroll1" : "HScroll2", IndexOf(field)), parsed.value - 32768);
  }
}

void PrezziModel::OnChange(const std::string& control) {
  const int row = IndexOf(control);
  const std::int64_t raw = At(control).position + 32768;
  if (ArrayOf(control) == "HScroll1") {
    machine_.Write(23 + row, raw);
    machine_.Write(391 + row, raw);
  } else {
    machine_.Write(33 + row, raw);
  }
}

}  // namespace sorvane::test::model
