#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QTreeWidget>
#include <ostream>

#include "board/parameter.h"
#include "pages/access/shipped_program.h"
#include "texts/western_text.h"

// The same work in desktops of different habits: what is typed, what is shown, what the board gets.
namespace sorvane::test {
namespace {

constexpr char16_t kCurvedApostrophe = u'\u2019';

struct Desktop {
  const char* name;
  Separators separators;
  QLocale locale;
  const char* alarm;  // date of 5 March 2026
};

// A desktop is told by its name, not by its bytes, of which some are padding.
void PrintTo(const Desktop& desktop, std::ostream* out) { *out << desktop.name; }

const Desktop kDesktops[] = {
    {"British", {'.', ','}, {QLocale::English, QLocale::UnitedKingdom}, "05/03/2026"},
    {"German", {',', '.'}, {QLocale::German, QLocale::Germany}, "05.03.26"},
    {"Italian", {',', '.'}, {QLocale::Italian, QLocale::Italy}, "05/03/26"},
    {"Swiss", {'.', kCurvedApostrophe}, {QLocale::German, QLocale::Switzerland}, "05.03.26"},
};

Program::Setup On(const Desktop& desktop) {
  Program::Setup setup;
  setup.separators = desktop.separators;
  setup.locale = desktop.locale;
  return setup;
}

// Opens the page of the prices with the decimals of the amounts: those of the item numbers, which
// have none, come first.
void OpenPrices(ShippedProgram& program) {
  program.link.SetBoardNumber(parameter::kPrices, 1250);
  program.OpenPage({"MnuPrezzi", "FrmPrezzi"});
  program.AskAgain(parameter::kDecimals);
}

// What the board has as the first price once a text has been typed over it.
int PriceAfter(ShippedProgram& program, const QString& typed) {
  QTest::mouseClick(&program.Find("FrmPrezzi", "Text1(0)"), Qt::LeftButton);
  TypeText(program, typed);
  PressKey(program, Qt::Key_Return);
  program.Sweep(3);
  PressKey(program, Qt::Key_Tab);  // leaves the field
  const Bytes value = program.link.BoardValue(parameter::kPrices);
  return value[0] + 256 * value[1];
}

class Locale : public testing::TestWithParam<Desktop> {
 protected:
  // A number as this desktop writes it.
  static QString Here(const char* number) {
    return QString(number).replace('.', QChar(GetParam().separators.decimal));
  }

  ShippedProgram program{"Italiano", On(GetParam())};
};

TEST_P(Locale, ShowsAmountsWithItsOwnPointAndWithoutThousands) {
  program.link.SetBoardNumber(parameter::kTakings, 4294967295U);
  program.link.SetBoardNumber(parameter::kMotorTimeout, 125);
  OpenPrices(program);
  EXPECT_EQ(program.Text("FrmPrezzi", "Text1(0)"), Here("12.50"));
  program.OpenPage({"MnuImpostazioni", "FrmImposta"});
  EXPECT_EQ(program.Text("FrmImposta", "Text1(2)"), Here("12.5"));
  program.OpenPage({"MnuTotali", "FrmTotali"});
  program.AskAgain(parameter::kDecimals);
  EXPECT_EQ(program.Find<QLabel>("FrmTotali", "Label1(4)").text(), Here("42949672.95"));
}

TEST_P(Locale, TakesAnAmountTypedWithEitherPointOrWithout) {
  OpenPrices(program);
  EXPECT_EQ(PriceAfter(program, "7,25"), 725);
  EXPECT_EQ(program.Text("FrmPrezzi", "Text1(0)"), Here("7.25"));
  EXPECT_EQ(PriceAfter(program, "8.5"), 850);
  EXPECT_EQ(PriceAfter(program, "9"), 900);
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

TEST_P(Locale, WhatItShowsCanBeTypedAgain) {
  program.link.SetBoardNumber(parameter::kMotorTimeout, 60);
  OpenPrices(program);
  EXPECT_EQ(PriceAfter(program, "1"), 100);
  EXPECT_EQ(PriceAfter(program, Here("12.50")), 1250);
  program.OpenPage({"MnuImpostazioni", "FrmImposta"});
  program.Type("FrmImposta", "Text1(2)", Here("12.5"));
  program.Sweep();
  EXPECT_EQ(program.link.BoardValue(parameter::kMotorTimeout), Bytes{125});
}

TEST_P(Locale, ShowsTheDateOfTheClockAlikeEverywhere) {
  program.link.SetBoardNumber(parameter::kClockMonth, 3);
  program.link.SetBoardNumber(parameter::kClockYear, 26);
  program.link.SetBoardNumber(parameter::kClockHours, 7);
  program.link.SetBoardNumber(parameter::kClockMinutes, 5);
  program.OpenPage({"MnuOrologio", "FrmOrologio"});
  program.Sweep();
  EXPECT_EQ(program.Find<QLabel>("FrmOrologio", "Label0").text(), "05/03/2026");
  EXPECT_EQ(program.Find("FrmOrologio", "iSevenSegmentClockX1").property("text"), "07:05");
}

TEST_P(Locale, ShowsTheDatesOfTheAlarmsAsItWritesThem) {
  const int first = parameter::kAlarmRing;
  program.link.SetBoardNumber(first + 1, 5);   // minute
  program.link.SetBoardNumber(first + 2, 9);   // hour
  program.link.SetBoardNumber(first + 3, 5);   // day
  program.link.SetBoardNumber(first + 4, 3);   // month
  program.link.SetBoardNumber(first + 5, 26);  // year
  program.OpenPage({"MnuAllarmi", "FrmAllarmi"});
  const auto& list = program.Find<QTreeWidget>("FrmAllarmi", "ListView1");
  ASSERT_EQ(list.topLevelItemCount(), 20);
  EXPECT_EQ(list.topLevelItem(0)->text(1), GetParam().alarm);
  EXPECT_EQ(list.topLevelItem(0)->text(2), "09:05");
}

INSTANTIATE_TEST_SUITE_P(OnEachDesktop, Locale, testing::ValuesIn(kDesktops),
                         [](const auto& row) { return row.param.name; });

// Locales whose marks the western set lacks, as they come from the system.
class OtherMarks : public testing::TestWithParam<QLocale> {
 protected:
  static Program::Setup Here() {
    Program::Setup setup;
    setup.separators = SeparatorsOf(GetParam());
    return setup;
  }

  ShippedProgram program{"Italiano", Here()};
};

TEST_P(OtherMarks, AreNotTakenForCharactersThatNoNumberHas) {
  OpenPrices(program);
  for (const char* typed : {"?", "5?", "\u03C0", "abc"}) {
    EXPECT_EQ(PriceAfter(program, QString::fromUtf8(typed)), 1250) << typed;
    program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
    program.link.dialogs.Answer(Answer::kOk);
  }
}

TEST_P(OtherMarks, OfThousandsAreTurnedAwayInSilence) {
  OpenPrices(program);
  EXPECT_EQ(PriceAfter(program, "1" + GetParam().groupSeparator() + "250"), 1250);
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

TEST_P(OtherMarks, LetWhatIsShownBeTypedAgain) {
  OpenPrices(program);
  const QString shown = program.Text("FrmPrezzi", "Text1(0)");
  EXPECT_EQ(shown, GetParam().decimalPoint() == "," ? "12,50" : "12.50");
  EXPECT_EQ(PriceAfter(program, "1"), 100);
  EXPECT_EQ(PriceAfter(program, shown), 1250);
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

INSTANTIATE_TEST_SUITE_P(OnDesktops, OtherMarks,
                         testing::Values(QLocale(QLocale::French, QLocale::France),
                                         QLocale(QLocale::Arabic, QLocale::Egypt),
                                         QLocale(QLocale::Persian, QLocale::Iran)),
                         [](const auto& locale) {
                           return QLocale::languageToString(locale.param.language()).toStdString();
                         });

// What becomes of an amount that is typed with a mark for the thousands, over 12.50.
struct Grouped {
  const char* desktop;
  const char* typed;
  int price;     // that the board then has
  bool message;  // about numbers
};

void PrintTo(const Grouped& row, std::ostream* out) { *out << row.desktop << ' ' << row.typed; }

class Thousands : public testing::TestWithParam<Grouped> {};

TEST_P(Thousands, GoByTheRuleOfTextEntry) {
  const Grouped& row = GetParam();
  for (const Desktop& desktop : kDesktops) {
    if (desktop.name != std::string(row.desktop)) continue;
    ShippedProgram program("Italiano", On(desktop));
    OpenPrices(program);
    EXPECT_EQ(PriceAfter(program, QString::fromUtf8(row.typed)), row.price)
        << row.desktop << " " << row.typed;
    EXPECT_EQ(!program.link.dialogs.Shown().empty(), row.message) << row.desktop << row.typed;
    return;
  }
  FAIL() << row.desktop;
}

// The first point or comma ends the whole amount in every desktop, and two decimals follow it; an
// apostrophe is turned away in silence where it is the mark of thousands, and is no number
// elsewhere. A price of exactly 2 is turned away if it is typed with a mark, by what the desktop
// reads in the text.
INSTANTIATE_TEST_SUITE_P(
    OnDesktops, Thousands,
    testing::Values(Grouped{"British", "1,25.00", 125, false},
                    Grouped{"British", "1.25,00", 1250, true},
                    Grouped{"German", "1.250", 125, false}, Grouped{"German", "1,2.5", 1250, true},
                    Grouped{"Swiss", "1'25.00", 1250, false},
                    Grouped{"Swiss",
                            "1\xE2\x80\x99"
                            "25",
                            1250, false},
                    Grouped{"British", "1'25", 1250, true}, Grouped{"German", "1'25", 1250, true},
                    Grouped{"British", "2.00", 1250, false}, Grouped{"British", "2,00", 200, false},
                    Grouped{"German", "2,00", 1250, false}, Grouped{"German", "2.00", 200, false},
                    Grouped{"Swiss", "2.00", 1250, false}, Grouped{"Swiss", "2,00", 1250, false},
                    Grouped{"Swiss", "2", 200, false}));

}  // namespace
}  // namespace sorvane::test
