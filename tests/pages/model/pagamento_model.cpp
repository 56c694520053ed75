#include "pages/model/pagamento_model.h"

#include <algorithm>

namespace sorvane::test::model {
namespace {

// The bits of parameter 3 behind the three general switches.
constexpr int kSaleBits[] = {0, 1, 6};

const char* const kPatterns[] = {"00000", "0000.0", "000.00", "00.000", "0.0000"};
const char* const kWords[] = {"Multipla", "Temp.", "Singola"};

}  // namespace

std::vector<int> PagamentoModel::Watched() const {
  return {71, 72, 73, 74, 75, 76, 77, 78, 79, 80, 81, 82, 83, 3,
          84, 85, 22, 86, 87, 88, 89, 90, 91, 92, 93, 94, 95};
}

std::vector<int> PagamentoModel::BoardValues(int parameter) const {
  if (parameter == 71) return {0, 1, 1, 2, 2, 3, 3, 3, 4};
  if (parameter == 22) return {0, 1, 2, 2, 2, 3, 4};
  if (parameter == 87) return {0, 1, 2, 3, 9};
  if ((parameter >= 73 && parameter <= 75) || (parameter >= 81 && parameter <= 83) ||
      (parameter >= 90 && parameter <= 95)) {
    return {0, 1, 5, 9, 10, 99, 100, 150, 1250, 9998, 9999, 10000, 32768, 40000, 65535};
  }
  return {0, 1, 2, 3, 12, 19, 20, 21, 30, 31, 64, 85, 128, 170, 192, 254, 255};
}

std::vector<QString> PagamentoModel::Texts(const std::string& field) const {
  const std::string array = ArrayOf(field);
  if (array == "Text2" || array == "Text5") {
    return {"",    "0",   "00", "1",  "2",  "5",   "9",  "19", "20",  "21",  "29", "30", "31",
            "255", "256", "7.", "7,", "-1", "1.5", "+4", "-",  "1e1", "abc", "z",  "099"};
  }
  return {"",     "0",     "1",     "2",     "12",  "2.0",    "2,0",    "12.5",   "12,5",  "7.",
          ".5",   ",25",   "0.01",  "99.99", "100", "99,999", "655.35", "655,36", "65535", "65536",
          "9999", "10000", "1.999", "-5",    "+1",  "1e2",    "abc",    "1a"};
}

bool PagamentoModel::MayConfirm(const std::string& field, const QString& text) const {
  const std::string array = ArrayOf(field);
  return (array != "Text1" && array != "Text3") || IsSmallAmount(text, decimals_);
}

std::vector<PagamentoModel::Pair> PagamentoModel::MakePairs() {
  std::vector<Pair> pairs{
      {"SSTab1", 0, "Text1(0)", "HScroll1(0)", 73, 367, 0, 9999, 0, 100, 5, true},
      {"SSTab1", 0, "Text1(1)", "HScroll1(1)", 74, 368, 0, 65535, 32768, 100, 6, true},
      {"SSTab1", 0, "Text1(2)", "HScroll1(2)", 75, 369, 0, 65535, 32768, 100, 6, true},
      {"SSTab2", 0, "Text5(0)", "HScroll5(0)", 84, 378, 0, 255, 0, 100, 0, false},
      {"SSTab2", 0, "Text5(1)", "HScroll5(1)", 85, 22, 0, 4, 0, 0, 0, false},
      {"SSTab2", 0, "Text5(2)", "HScroll5(2)", 86, 379, 1, 30, 0, 0, 0, false},
      {"SSTab2", 0, "Text5(3)", "HScroll5(3)", 87, 380, 0, 2, 0, 0, 0, false}};
  for (int i = 0; i < 5; ++i) {
    pairs.push_back({"SSTab1", 1, Name("Text2", i), Name("HScroll2", i), 76 + i, 370 + i, 1, 20, 0,
                     0, 2, false});
  }
  for (int i = 0; i < 3; ++i) {
    pairs.push_back({"SSTab1", 2, Name("Text3", i), Name("HScroll3", i), 81 + i, 375 + i, 0, 65535,
                     32768, 100, 6, true});
  }
  for (int i = 0; i < 6; ++i) {
    pairs.push_back({"SSTab2", 2, Name("Text4", i), Name("HScroll4", i), 90 + i, 383 + i, 0, 65535,
                     32768, 100, 0, true});
  }
  return pairs;
}

const PagamentoModel::Pair& PagamentoModel::PairOf(const std::string& control) const {
  return *std::find_if(pairs_.begin(), pairs_.end(), [&control](const Pair& pair) {
    return pair.text == control || pair.bar == control;
  });
}

void PagamentoModel::Build() {
  decimals_ = 255;
  changer_flags_ = sale_flags_ = low_flags_ = high_flags_ = 0;
  tabs_["SSTab1"] = {true, {true, true, true}, 0};
  tabs_["SSTab2"] = {true, {true, true, true}, 0};

  const auto place = [](Control& control, const char* tabs, int tab) {
    control.tabs = tabs;
    control.tab = tab;
  };
  for (const Pair& pair : pairs_) {
    place(AddField(pair.text, pair.characters), pair.tabs, pair.tab);
    place(AddBar(pair.bar, pair.lowest - pair.offset, pair.highest - pair.offset,
                 pair.offset == 0 ? pair.lowest : 0, pair.large_step),
          pair.tabs, pair.tab);
    Control& text = At(pair.text);
    text.locked = pair.parameter == 85 || pair.parameter == 87;
    if (text.locked || pair.parameter >= 90) text.saves = text.empties = text.restores = false;
  }
  Control& slider = AddLabel("SlswitchX1");
  slider.kind = Control::Kind::kSlider;
  slider.maximum = 2;
  place(slider, "SSTab2", 0);
  for (int i = 0; i < 3; ++i) place(AddToggle(Name("SwitchX2", i)), "SSTab2", 0);
  for (int i = 0; i < 6; ++i) place(AddToggle(Name("SwitchX1", i)), "SSTab1", i < 2 ? 0 : 2);
  for (int i = 0; i < 16; ++i) place(AddToggle(Name("SwitchX3", i)), "SSTab2", 1);
  for (const int i : {18, 19, 20, 43, 44, 45, 46}) {
    place(AddLabel(Name("LabelMess1", i)), "SSTab2", 0);
  }
}

// The text may say more than the bar can.
void PagamentoModel::ShowPair(const Pair& pair, std::int64_t raw) {
  SetBar(pair.bar, raw - pair.offset);
  Show(pair.text, Money(raw, pair.money ? static_cast<int>(decimals_) : 0));
}

void PagamentoModel::SetFlags(const char* array, int first, int count, std::int64_t byte) {
  for (int i = 0; i < count; ++i) At(Name(array, first + i)).on = (byte >> i) % 2 == 1;
}

void PagamentoModel::OnReply(int parameter, std::int64_t value) {
  if (parameter == 22) {
    if (value == decimals_) return;
    decimals_ = value;
    SetBar("HScroll5(1)", value);
    Show("Text5(1)", kPatterns[value]);
    for (const Pair& pair : pairs_) {
      if (pair.money) ShowPair(pair, machine_.Read(pair.parameter));
    }
    return;
  }
  if (parameter == 71 && value >= 1 && value <= 3) {
    SetSlider("SlswitchX1", static_cast<int>(value) - 1);
    ShowSystem(static_cast<int>(value));
  }
  if (parameter == 3) {
    sale_flags_ = static_cast<int>(value);
    for (int i = 0; i < 3; ++i) {
      At(Name("SwitchX2", i)).on = (value >> kSaleBits[i]) % 2 == 1;
    }
  }
  if (parameter == 72) {
    changer_flags_ = static_cast<int>(value);
    SetFlags("SwitchX1", 0, 6, value);
  }
  if (parameter == 88) {
    low_flags_ = static_cast<int>(value);
    SetFlags("SwitchX3", 0, 8, value);
  }
  if (parameter == 89) {
    high_flags_ = static_cast<int>(value);
    SetFlags("SwitchX3", 8, 8, value);
  }
  if (parameter == 85) return;
  for (const Pair& pair : pairs_) {
    if (pair.parameter == parameter) ShowPair(pair, value);
  }
  if (parameter == 87 && value <= 2) Show("Text5(3)", kWords[value]);
}

void PagamentoModel::ShowSystem(int system) {
  const bool validator = system == 1;
  const bool executive = system == 2;
  const bool mdb = system == 3;
  SetTabsOpen("SSTab1", mdb);
  for (const char* name : {"LabelMess1(44)", "Text5(1)", "HScroll5(1)"}) SetOpen(name, !mdb);
  for (const char* name : {"LabelMess1(45)", "Text5(2)", "HScroll5(2)"}) SetOpen(name, mdb);
  if (!mdb) {
    for (const char* name : {"LabelMess1(46)", "Text5(3)", "HScroll5(3)"}) {
      SetOpen(name, validator);
    }
  }
  for (const char* name : {"LabelMess1(19)", "SwitchX2(1)", "LabelMess1(20)"}) {
    SetOpen(name, executive);
  }
  tabs_.at("SSTab2").tab_open = {true, mdb, validator};
}

void PagamentoModel::OnEnter(const std::string& field) {
  const Pair& pair = PairOf(field);
  if (pair.parameter >= 90) return;  // coins
  const QString text = At(field).text;
  const Parsed parsed =
      pair.money ? ParseMoney(text, static_cast<int>(decimals_)) : ParseWhole(text);
  if (!Take(field, parsed)) return;
  if (parsed.value <= (At(field).locked ? 0 : pair.highest)) {
    ShowPair(pair, parsed.value);
  } else {
    Restore(field);
  }
}

void PagamentoModel::WriteFlag(int& byte, int bit, bool on, int parameter, int mirror) {
  const int mask = 1 << bit;
  byte = on ? (byte | mask) : (byte & ~mask);
  machine_.WritePair(parameter, mirror, byte);
}

void PagamentoModel::OnChange(const std::string& control) {
  const Control& at = At(control);
  if (control == "SlswitchX1") {
    machine_.WritePair(71, 365, at.position + 1);
    return;
  }
  if (at.kind == Control::Kind::kBar) {
    const Pair& pair = PairOf(control);
    machine_.WritePair(pair.parameter, pair.mirror, at.position + pair.offset);
    return;
  }
  const int index = IndexOf(control);
  const std::string array = ArrayOf(control);
  if (array == "SwitchX1") WriteFlag(changer_flags_, index, at.on, 72, 366);
  if (array == "SwitchX2") WriteFlag(sale_flags_, kSaleBits[index], at.on, 3, 355);
  if (array == "SwitchX3") {
    WriteFlag(index < 8 ? low_flags_ : high_flags_, index % 8, at.on, index < 8 ? 88 : 89,
              index < 8 ? 381 : 382);
  }
}

}  // namespace sorvane::test::model
