#include "pages/field_table.h"

#include <string>
#include <utility>
#include <vector>

namespace sorvane::test {
namespace {

// Bars of the prices and discounts pages: 16 bits, and a start one above the end.
const ValueForm kPrice{.bar = {0, 65535, 32768, -32767, 100},
                       .shown = {1250, "12.50", "12,50"},
                       .typed = {750, "7.5", "7,5"},
                       .refused = {"655.36", "655,36", "656", "-5", "+5", ""},
                       .limit = 6,
                       .asked_first = 22};

const ValueForm kItem{.bar = {0, 65535, 32768, -32767, 100},
                      .shown = {4711, "4711", "4711"},
                      .typed = {12345, "12345", "12345"},
                      .refused = {"65536", "1.5", "1,5", "-5", ""},
                      .limit = 6};

const ValueForm kDiscount{.bar = {0, 65535, 32768, -32767, 100},
                          .shown = {1250, "12.50", "12,50"},
                          .typed = {65535, "655.35", "655,35"},
                          .refused = {"655.36", "655,36", "656", "-5", "+5", ""},
                          .limit = 6};

const ValueForm kColumn{.bar = {1, 10, 0, 1, 1},
                        .shown = {6, "6", "6"},
                        .typed = {10, "10", "10"},
                        .refused = {"11", "1.5", "1,5", "5.", "-1", ""},
                        .limit = 6};

const ValueForm kProduct{.bar = {1, 100, 0, 1, 1},
                         .shown = {6, "6", "6"},
                         .typed = {100, "100", "100"},
                         .refused = {"101", "1.5", "1,5", "5.", "-1", ""},
                         .limit = 6};

// The product of column 3 becomes the number of selections, of which there are ten at most.
const ValueForm kProductOfColumn3{.bar = {1, 100, 0, 1, 1},
                                  .shown = {6, "6", "6"},
                                  .typed = {10, "10", "10"},
                                  .refused = {"101", "1.5", "1,5", "5.", "-1", ""},
                                  .limit = 6};

const ValueForm kLanguage{.bar = {0, 9, 0, 0, 0},
                          .shown = {7, "Nome lingua n. 7", "Nome lingua n. 7"}};

const ValueForm kSelections{.bar = {5, 10, 0, 5, 0},
                            .shown = {7, "7", "7"},
                            .typed = {10, "10", "10"},
                            .refused = {"11", "4", "5.", "5,", "-5", ""},
                            .limit = 2};

const ValueForm kMotorTimeout{.bar = {50, 250, 0, 50, 0},
                              .shown = {125, "12.5", "12,5"},
                              .typed = {204, "20.4", "20,4"},
                              .refused = {"25.1", "25,1", "26", "4", "4.9", "12.", "12,", "-9", ""},
                              .limit = 4};

const ValueForm kTemperature{.bar = {0, 16, 0, 0, 0},
                             .shown = {12, "12", "12"},
                             .typed = {16, "16", "16"},
                             .refused = {"17", "1.", "1,", "-1", ""},
                             .limit = 2};

const ValueForm kDelta{.bar = {1, 5, 0, 1, 0},
                       .shown = {3, "3", "3"},
                       .typed = {5, "5", "5"},
                       .refused = {"6", "0", "-", ",", ""},
                       .limit = 1};

const ValueForm kDefrostEvery{.bar = {0, 12, 0, 0, 0},
                              .shown = {7, "7", "7"},
                              .typed = {12, "12", "12"},
                              .refused = {"13", "1.", "1,", "-1", ""},
                              .limit = 2};

const ValueForm kDefrostFor{.bar = {1, 30, 0, 1, 0},
                            .shown = {20, "20", "20"},
                            .typed = {30, "30", "30"},
                            .refused = {"31", "0", "1.", "1,", "-1", ""},
                            .limit = 2};

const ValueForm kMachineNumber{.shown = {70000, "70000", "70000"},
                               .typed = {16777215, "16777215", "16777215"},
                               .refused = {"0", "16777216", "99999999", "1.5", "1,5", "-1", ""},
                               .limit = 8};

const ValueForm kLocation{.shown = {4000, "4000", "4000"},
                          .typed = {65535, "65535", "65535"},
                          .refused = {"0", "65536", "1.5", "1,5", "-1", ""},
                          .limit = 5};

const ValueForm kDigit{
    .shown = {7, "7", "7"}, .typed = {9, "9", "9"}, .refused = {"-", ",", ""}, .limit = 1};

// What the clock page's fields have in common: hours, minutes, and the parts of a date.
ValueForm TimePart(int minimum, int maximum, int large_step, const char* highest,
                   std::vector<const char*> refused) {
  refused.insert(refused.end(), {"1.5", "1,5", "-1", ""});
  return {.bar = {minimum, maximum, 0, minimum, large_step},
          .shown = {7, "7", "7"},
          .typed = {maximum, highest, highest},
          .refused = std::move(refused)};
}

const ValueForm kDay = TimePart(1, 31, 5, "31", {"32"});
const ValueForm kMonth = TimePart(1, 12, 5, "12", {"13"});
const ValueForm kHours = TimePart(0, 23, 3, "23", {"24"});
const ValueForm kMinutes = TimePart(0, 59, 5, "59", {"60"});

const ValueForm kYear{.bar = {0, 99, 0, 0, 5},
                      .shown = {26, "2026", "2026"},
                      .typed = {99, "99", "99"},
                      .refused = {"100", "2026", "1.5", "1,5", "-1", ""}};

const ValueForm kChange{.bar = {0, 9999, 0, 0, 100},
                        .shown = {1250, "12.50", "12,50"},
                        .typed = {9999, "99.99", "99,99"},
                        .refused = {"100", "-5", "+5", ""},
                        .limit = 5};

// Credits and tokens: 16 bits, and a start in the middle.
const ValueForm kCredit{.bar = {0, 65535, 32768, 0, 100},
                        .shown = {1250, "12.50", "12,50"},
                        .typed = {65535, "655.35", "655,35"},
                        .refused = {"655.36", "655,36", "656", "-5", "+5", ""},
                        .limit = 6};

const ValueForm kCoin{.bar = {0, 65535, 32768, 0, 100}, .shown = {150, "1.50", "1,50"}};

const ValueForm kTube{.bar = {1, 20, 0, 1, 0},
                      .shown = {12, "12", "12"},
                      .typed = {20, "20", "20"},
                      .refused = {"21", "1.", "1,", "-1", ""},
                      .limit = 2};

const ValueForm kBaseCoin{.bar = {0, 255, 0, 0, 100},
                          .shown = {50, "50", "50"},
                          .typed = {255, "255", "255"},
                          .refused = {"256", "1.5", "1,5", "-1", ""}};

const ValueForm kDecimals{.bar = {0, 4, 0, 0, 0}, .shown = {3, "00.000", "00.000"}};

const ValueForm kCreditTimeout{.bar = {1, 30, 0, 1, 0},
                               .shown = {15, "15", "15"},
                               .typed = {30, "30", "30"},
                               .refused = {"31", "1.5", "1,5", "-1", ""}};

const ValueForm kSaleMode{.bar = {0, 2, 0, 0, 0}, .shown = {1, "Temp.", "Temp."}};

// Where a page's controls stand.
struct Place {
  const char* form;
  const char* entry;
  const char* tabs = nullptr;
  int tab = 0;
};

constexpr Place kSettings{"FrmImposta", "MnuImpostazioni"};
constexpr Place kPassword{"FrmPassword", "MnuPassword"};
constexpr Place kPrices{"FrmPrezzi", "MnuPrezzi"};
constexpr Place kDiscounts{"FrmSconti", "MnuSconti"};
constexpr Place kKeys{"FrmTastiColonna", "Mnutasti"};
constexpr Place kProducts{"FrmColonnaProd", "MnuColonne"};
constexpr Place kClock{"FrmOrologio", "MnuOrologio", "SSTab1", 0};
constexpr Place kBands{"FrmOrologio", "MnuOrologio", "SSTab1", 1};
constexpr Place kOnOff{"FrmOrologio", "MnuOrologio", "SSTab1", 2};
constexpr Place kGeneral{"FrmPagamento", "MnuPagamento", "SSTab2", 0};
constexpr Place kBanknotes{"FrmPagamento", "MnuPagamento", "SSTab2", 1};
constexpr Place kCoins{"FrmPagamento", "MnuPagamento", "SSTab2", 2};
constexpr Place kMdb{"FrmPagamento", "MnuPagamento", "SSTab1", 0};
constexpr Place kTubes{"FrmPagamento", "MnuPagamento", "SSTab1", 1};
constexpr Place kTokens{"FrmPagamento", "MnuPagamento", "SSTab1", 2};

std::string Numbered(const char* array, int index) {
  return array + ("(" + std::to_string(index) + ")");
}

// count fields in a row: the indexes, parameters and mirrors rise together.
struct Family {
  Place place;
  const char* text;
  const char* bar;  // nullptr for none
  int first;
  int count;
  int parameter;
  int mirror;  // 0 for none
  const ValueForm* form;

  int shown_by = 0;  // 0: the parameter itself
  Typing typing = Typing::kTaken;
  bool waits = false;
};

const Family kFamilies[] = {
    {kSettings, "Text1", "HScroll1", 0, 1, 1, 353, &kLanguage, 1, Typing::kLocked},
    {kSettings, "Text1", "HScroll1", 1, 1, 2, 354, &kSelections},
    {kSettings, "Text1", "HScroll1", 2, 1, 6, 358, &kMotorTimeout},
    {kSettings, "Text1", "HScroll1", 3, 1, 5, 357, &kTemperature},
    {kSettings, "Text1", "HScroll1", 4, 1, 4, 356, &kDelta},
    {kSettings, "Text1", "HScroll1", 5, 1, 8, 360, &kDefrostEvery},
    {kSettings, "Text1", "HScroll1", 6, 1, 7, 359, &kDefrostFor},
    {kSettings, "Text1", nullptr, 7, 1, 9, 0, &kMachineNumber},
    {kSettings, "Text1", nullptr, 8, 1, 10, 0, &kLocation},

    {kPassword, "Text1", nullptr, 0, 4, 411, 415, &kDigit, 0, Typing::kTaken, true},

    {kPrices, "Text1", "HScroll1", 0, 10, 23, 391, &kPrice},
    {kPrices, "Text2", "HScroll2", 0, 10, 33, 0, &kItem},

    {kDiscounts, "Text1", "HScroll1", 0, 10, 43, 0, &kDiscount},

    {kKeys, "Text1", "HScroll1", 0, 10, 98, 401, &kColumn},

    // The mirror of a column is the row's own number.
    {kProducts, "Text1", "HScroll1", 0, 1, 108, 0, &kProduct},
    {kProducts, "Text1", "HScroll1", 1, 1, 109, 1, &kProduct},
    {kProducts, "Text1", "HScroll1", 2, 1, 110, 2, &kProductOfColumn3},
    {kProducts, "Text1", "HScroll1", 3, 7, 111, 3, &kProduct},

    {kClock, "Text1", "HScroll1", 0, 1, 56, 0, &kDay},
    {kClock, "Text1", "HScroll1", 1, 1, 57, 0, &kMonth},
    {kClock, "Text1", "HScroll1", 2, 1, 58, 0, &kYear},
    {kClock, "Text1", "HScroll1", 3, 1, 54, 0, &kHours},
    {kClock, "Text1", "HScroll1", 4, 1, 55, 0, &kMinutes},
    {kBands, "Text2", "HScroll2", 0, 1, 59, 0, &kHours},
    {kBands, "Text2", "HScroll2", 1, 1, 60, 0, &kMinutes},
    {kBands, "Text2", "HScroll2", 2, 1, 61, 0, &kHours},
    {kBands, "Text2", "HScroll2", 3, 1, 62, 0, &kMinutes},
    {kBands, "Text2", "HScroll2", 4, 1, 63, 0, &kHours},
    {kBands, "Text2", "HScroll2", 5, 1, 64, 0, &kMinutes},
    {kBands, "Text2", "HScroll2", 6, 1, 65, 0, &kHours},
    {kBands, "Text2", "HScroll2", 7, 1, 66, 0, &kMinutes},
    {kOnOff, "Text3", "HScroll3", 0, 1, 67, 361, &kHours},
    {kOnOff, "Text3", "HScroll3", 1, 1, 68, 362, &kMinutes},
    {kOnOff, "Text3", "HScroll3", 2, 1, 69, 363, &kHours},
    {kOnOff, "Text3", "HScroll3", 3, 1, 70, 364, &kMinutes},

    {kMdb, "Text1", "HScroll1", 0, 1, 73, 367, &kChange},
    {kMdb, "Text1", "HScroll1", 1, 2, 74, 368, &kCredit},
    {kTubes, "Text2", "HScroll2", 0, 5, 76, 370, &kTube},
    {kTokens, "Text3", "HScroll3", 0, 3, 81, 375, &kCredit},
    {kCoins, "Text4", "HScroll4", 0, 6, 90, 383, &kCoin, 0, Typing::kGoesNowhere},
    {kGeneral, "Text5", "HScroll5", 0, 1, 84, 378, &kBaseCoin},
    {kGeneral, "Text5", "HScroll5", 1, 1, 85, 22, &kDecimals, 22, Typing::kLocked},
    {kGeneral, "Text5", "HScroll5", 2, 1, 86, 379, &kCreditTimeout},
    {kGeneral, "Text5", "HScroll5", 3, 1, 87, 380, &kSaleMode, 87, Typing::kLocked},
};

// count switches in a row, of the bits from the first on.
struct SwitchFamily {
  Place place;
  const char* control;
  bool indexed;
  int first;
  int parameter;
  int mirror;
  // One byte for each: off, on, and what is written when turned on and when turned off.
  std::vector<std::vector<int>> bytes;
};

const SwitchFamily kSwitches[] = {
    // These two clear all bits but their own.
    {kSettings, "Switch1", false, 0, 3, 355, {{65, 97, 32, 0}}},
    {kPassword, "iSwitchToggleX1", false, 0, 3, 355, {{33, 48, 16, 0}}},
    // All others keep the rest of the byte.
    {kGeneral, "SwitchX2", true, 0, 3, 355, {{188, 189, 189, 188}}},
    {kGeneral, "SwitchX2", true, 1, 3, 355, {{188, 190, 190, 188}}},
    {kGeneral, "SwitchX2", true, 2, 3, 355, {{188, 252, 252, 188}}},
    {kMdb, "SwitchX1", true, 0, 72, 366, {{192, 193, 193, 192}, {192, 194, 194, 192}}},
    {kTokens,
     "SwitchX1",
     true,
     2,
     72,
     366,
     {{129, 133, 133, 129}, {129, 137, 137, 129}, {129, 145, 145, 129}, {129, 161, 161, 129}}},
    {kBanknotes,
     "SwitchX3",
     true,
     0,
     88,
     381,
     {{0, 1, 1, 0},
      {1, 3, 3, 1},
      {1, 5, 5, 1},
      {1, 9, 9, 1},
      {1, 17, 17, 1},
      {1, 33, 33, 1},
      {1, 65, 65, 1},
      {1, 129, 129, 1}}},
    {kBanknotes,
     "SwitchX3",
     true,
     8,
     89,
     382,
     {{128, 129, 129, 128},
      {128, 130, 130, 128},
      {128, 132, 132, 128},
      {128, 136, 136, 128},
      {128, 144, 144, 128},
      {128, 160, 160, 128},
      {128, 192, 192, 128},
      {1, 129, 129, 1}}},
};

struct SliderPosition {
  Place place;
  const char* control;
  int parameter;
  int mirror;
  int position;
  int reply;
  int from;
  int written;
};

constexpr SliderPosition kSliders[] = {
    // The first position sets bit 3.
    {kOnOff, "iSwitchSliderX1", 3, 355, 0, 105, 97, 105},
    {kOnOff, "iSwitchSliderX1", 3, 355, 1, 97, 105, 97},
    {kGeneral, "SlswitchX1", 71, 365, 0, 1, 2, 1},
    {kGeneral, "SlswitchX1", 71, 365, 1, 2, 1, 2},
    {kGeneral, "SlswitchX1", 71, 365, 2, 3, 2, 3},
};

}  // namespace

std::vector<FieldRow> FieldRows() {
  std::vector<FieldRow> rows;
  for (const Family& family : kFamilies) {
    for (int i = 0; i < family.count; ++i) {
      const int index = family.first + i;
      const int parameter = family.parameter + i;
      rows.push_back({family.place.form, family.place.entry, family.place.tabs, family.place.tab,
                      Numbered(family.text, index),
                      family.bar == nullptr ? "" : Numbered(family.bar, index), parameter,
                      family.mirror == 0 ? 0 : family.mirror + i,
                      family.shown_by == 0 ? parameter : family.shown_by, family.typing,
                      family.waits, family.form});
    }
  }
  return rows;
}

std::vector<SwitchRow> SwitchRows() {
  std::vector<SwitchRow> rows;
  for (const SwitchFamily& family : kSwitches) {
    int index = family.first;
    for (const std::vector<int>& bytes : family.bytes) {
      rows.push_back({family.place.form, family.place.entry, family.place.tabs, family.place.tab,
                      family.indexed ? Numbered(family.control, index) : family.control,
                      family.parameter, family.mirror, bytes[0], bytes[1], bytes[2], bytes[3]});
      ++index;
    }
  }
  return rows;
}

std::vector<SliderRow> SliderRows() {
  std::vector<SliderRow> rows;
  for (const SliderPosition& at : kSliders) {
    rows.push_back({at.place.form, at.place.entry, at.place.tabs, at.place.tab, at.control,
                    at.parameter, at.mirror, at.position, at.reply, at.from, at.written});
  }
  return rows;
}

void PrintTo(const SwitchRow& row, std::ostream* out) { *out << row.form << row.control; }
void PrintTo(const SliderRow& row, std::ostream* out) { *out << row.form << row.control; }

}  // namespace sorvane::test
