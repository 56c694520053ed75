#include <QApplication>
#include <QHelpEvent>
#include <QTabBar>
#include <array>
#include <memory>

#include "board/parameter.h"
#include "pages/page_tests.h"
#include "shell/controls/tab_pages.h"

namespace sorvane::test {
namespace {

// What a control says where the mouse rests on it.
std::string HintAt(QWidget& control, const QPoint& place = {}) {
  QHelpEvent event(QEvent::ToolTip, place, control.mapToGlobal(place));
  QApplication::sendEvent(&control, &event);
  return control.toolTip().toStdString();
}

struct HintRow {
  const char* field;
  const char* hint;
};

constexpr const char* kAmount = "0.00 \u2013 655.35";
constexpr const char* kByBarAlone = "changed by the bar alone";
constexpr const char* kNotConfirmed = "not confirmed by the board yet";

struct HintTest : PageTest {
  HintTest(const char* name, const char* entry) : PageTest(name, entry, kPoint), form(name) {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(22, 2);
    program.link.SetBoardNumber(56, 9);
    program.link.SetBoardNumber(57, 5);
    for (int i = 0; i < 10; ++i) program.link.SetBoard(12 + i, {'I'});
  }

  std::string Hint(const QString& control) { return HintAt(program.Find(form, control)); }
  void Expect(std::initializer_list<HintRow> rows) {
    for (const HintRow& row : rows) EXPECT_EQ(Hint(row.field), row.hint) << row.field;
  }
  bool IsConfirmed(const QString& field) {
    return program.Find(form, field).property("confirmed").toBool();
  }

  const QString form;
};

struct DiscountHints : HintTest {
  DiscountHints() : HintTest("FrmSconti", "MnuSconti") {}
};
struct SettingsHints : HintTest {
  SettingsHints() : HintTest("FrmImposta", "MnuImpostazioni") {}
};
struct ColumnHints : HintTest {
  ColumnHints() : HintTest("FrmColonnaProd", "MnuColonne") {}
};
struct ClockHints : HintTest {
  ClockHints() : HintTest("FrmOrologio", "MnuOrologio") {}
};
struct PasswordHints : HintTest {
  PasswordHints() : HintTest("FrmPassword", "MnuPassword") {}
};
struct PaymentHints : HintTest {
  PaymentHints() : HintTest("FrmPagamento", "MnuPagamento") {}
};

TEST_F(DiscountHints, AmountsHaveTheRangeOfTheirBarWithTheDecimals) {
  OpenUnanswered();
  EXPECT_EQ(Hint("Text1(0)"), "") << "the decimals aren't known yet";
  program.Sweep();
  Expect({{"Text1(0)", kAmount}, {"HScroll1(9)", kAmount}});
  BoardSays(22, 0);
  Expect({{"Text1(0)", "0 \u2013 65535"}});
}

TEST_F(SettingsHints, NumbersHaveTheirRangeAndUnit) {
  Open();
  Expect({{"Text1(0)", kByBarAlone},
          {"Text1(1)", "5 \u2013 10"},
          {"Text1(2)", "5 \u2013 25 s"},
          {"Text1(3)", "0 \u2013 16 \u00B0C"},
          {"Text1(4)", "1 \u2013 5 \u00B0C"},
          {"Text1(5)", "0 \u2013 12 h"},
          {"Text1(6)", "1 \u2013 30 min"},
          {"Text1(7)", "1 \u2013 16777215"},
          {"Text1(8)", "1 \u2013 65535"},
          {"HScroll1(0)", kByBarAlone},
          {"HScroll1(3)", "0 \u2013 16 \u00B0C"}});
}

TEST_F(ColumnHints, ProductsHaveTheRangeOfTheirBar) {
  Open();
  Expect({{"Text1(0)", "1 \u2013 100"}});
}

TEST_F(ClockHints, PartsOfDateAndTimeHaveTheirRange) {
  Open();
  Expect({{"Text1(0)", "1 \u2013 31"},
          {"Text1(1)", "1 \u2013 12"},
          {"Text1(2)", "0 \u2013 99"},
          {"Text1(3)", "0 \u2013 23"},
          {"Text2(1)", "0 \u2013 59"},
          {"Text3(2)", "0 \u2013 23"}});
}

TEST_F(PaymentHints, FieldsTellWhatTheyTakeAndHow) {
  Open();
  Expect({{"Text5(0)", "0 \u2013 255"},
          {"Text5(1)", kByBarAlone},
          {"Text5(2)", "1 \u2013 30"},
          {"Text5(3)", kByBarAlone},
          {"Text1(0)", "0.00 \u2013 99.99"},
          {"Text1(2)", kAmount},
          {"Text2(4)", "1 \u2013 20"},
          {"Text3(0)", kAmount},
          {"Text4(0)", "0.00 \u2013 655.35\nchanged by the bar alone"}});
}

std::string TabHint(TabPages& tabs, int tab) {
  auto& strip = *tabs.findChild<QTabBar*>();
  HintAt(strip, strip.tabRect(tab).center());
  return strip.tabToolTip(tab).toStdString();
}

TEST_F(PaymentHints, ClosedTabsTellWhy) {
  program.link.SetBoardNumber(71, 3);
  Open();
  auto& general = program.Find<TabPages>("FrmPagamento", "SSTab2");
  auto& mdb = program.Find<TabPages>("FrmPagamento", "SSTab1");
  const std::string other = "closed: belongs to another payment system";
  EXPECT_EQ(TabHint(general, 0), "");
  EXPECT_EQ(TabHint(general, 1), "");
  EXPECT_EQ(TabHint(general, 2), other);
  EXPECT_EQ(TabHint(mdb, 0), "");
  BoardSays(71, 1);
  EXPECT_EQ(TabHint(general, 1), other);
  EXPECT_EQ(TabHint(general, 2), "");
  EXPECT_EQ(TabHint(mdb, 0), other) << "the whole half is closed";
}

TEST_F(ClockHints, ClosedTabsTellWhy) {
  OpenUnanswered();
  auto& tabs = program.Find<TabPages>("FrmOrologio", "SSTab1");
  EXPECT_EQ(TabHint(tabs, 1), "closed: the board has not shown that it has a clock");
  program.Sweep();
  EXPECT_EQ(TabHint(tabs, 1), "");
}

TEST_F(PaymentHints, TheGreyLabelOfALivingSwitchSaysSo) {
  program.link.SetBoardNumber(71, 2);
  Open();
  EXPECT_EQ(Hint("LabelMess1(20)"), "");
  BoardSays(71, 3);
  EXPECT_TRUE(IsEnabled("SwitchX2(2)"));
  EXPECT_EQ(Hint("LabelMess1(20)"), "grey, but its switch works");
}

TEST_F(PasswordHints, ADigitIsNotConfirmedUntilTheBoardAnswersIt) {
  Open();
  EXPECT_EQ(Hint("Text1(3)"), "0 \u2013 9");
  Type("Text1(3)", "7");
  EXPECT_EQ(Hint("Text1(3)"), std::string("0 \u2013 9\n") + kNotConfirmed);
  Wait(600);
  program.Sweep();
  EXPECT_EQ(Hint("Text1(3)"), "0 \u2013 9");
}

TEST_F(DiscountHints, WhatIsTypedIsNotConfirmedUntilTheBoardAnswers) {
  Open();
  auto& field = program.Find("FrmSconti", "Text1(2)");
  EXPECT_TRUE(IsConfirmed("Text1(2)"));
  Type("Text1(2)", "0.7");
  EXPECT_FALSE(IsConfirmed("Text1(2)"));
  const std::string lines = std::string(kAmount) + "\n" + kNotConfirmed;
  EXPECT_EQ(field.accessibleDescription().toStdString(), lines);
  EXPECT_EQ(HintAt(field), lines);
  program.Sweep();
  EXPECT_EQ(Text("Text1(2)"), "0.70");
  EXPECT_TRUE(IsConfirmed("Text1(2)"));
  EXPECT_EQ(field.accessibleDescription().toStdString(), kAmount);
}

TEST_F(DiscountHints, AnAmountThatIsNotAnsweredYetIsNotConfirmed) {
  OpenUnanswered();
  AskAgain(22);  // draws all of them, from whatever the table holds
  EXPECT_FALSE(IsConfirmed("Text1(9)"));
  program.Sweep();
  EXPECT_TRUE(IsConfirmed("Text1(9)"));
}

TEST_F(PaymentHints, AValueThatIsShownAtOnceIsNotConfirmedEither) {
  Open();
  Type("Text5(0)", "007");
  EXPECT_EQ(Text("Text5(0)"), "7");
  EXPECT_FALSE(IsConfirmed("Text5(0)"));
  program.Find("FrmPagamento", "Text5(2)").setFocus();
  EXPECT_FALSE(IsConfirmed("Text5(0)")) << "its own loss of the focus is no answer";
  program.Sweep();
  EXPECT_TRUE(IsConfirmed("Text5(0)"));
}

TEST_F(PaymentHints, AValueThatStandsAlreadyIsConfirmedAtOnce) {
  program.link.SetBoardNumber(84, 7);
  Open();
  Type("Text5(0)", "07");
  EXPECT_EQ(Text("Text5(0)"), "7");
  EXPECT_TRUE(IsConfirmed("Text5(0)"));
}

TEST_F(PaymentHints, ANoughtThatTheBarDoesNotTakeIsNeverConfirmed) {
  program.link.SetBoardNumber(86, 1);
  Open();
  Type("Text5(2)", "0");
  program.Sweep();
  EXPECT_EQ(Text("Text5(2)"), "0");
  EXPECT_FALSE(IsConfirmed("Text5(2)"));
}

TEST_F(PaymentHints, WhatIsTypedAtACoinStaysUnconfirmedUntilTheBoardAnswersIt) {
  program.link.SetBoardNumber(71, 1);
  Open();
  program.Find<TabPages>("FrmPagamento", "SSTab2").SetFront(2);
  Type("Text4(0)", "5");
  EXPECT_FALSE(IsConfirmed("Text4(0)"));
  AskAgain(parameter::kCoinValues);
  EXPECT_TRUE(IsConfirmed("Text4(0)"));
}

TEST_F(SettingsHints, AMachineNumberIsNotConfirmedUntilTheBoardAnswers) {
  Open();
  Type("Text1(7)", "123");
  EXPECT_FALSE(IsConfirmed("Text1(7)"));
  program.Sweep();
  EXPECT_TRUE(IsConfirmed("Text1(7)"));
}

TEST(ItalianHints, StandInAnItalianProgram) {
  Program italian({.settings = "Com=1\r\nLingua=Italiano\r\n"});
  italian.WriteText("Italiano.lng", italian.File("Alfa.lng"));
  italian.link.folder.RemoveFile("Alfa.lng");
  italian.link.SetBoardNumber(2, 10);
  italian.link.SetBoardNumber(22, 2);
  italian.Connect();
  italian.Open("MnuSconti");
  italian.TypeOnly("FrmSconti", "Text1(0)", "1");
  EXPECT_EQ(HintAt(italian.Find("FrmSconti", "Text1(0)")),
            std::string(kAmount) + "\nnon ancora confermato dalla scheda");
}

TEST_F(DiscountHints, LampsTellWhatTheyMean) {
  Open();
  const std::array<const char*, 3> words = {"transmit: a request goes to the board",
                                            "receive: an answer has come from the board",
                                            "error: the board doesn't answer, or not rightly"};
  for (int i = 0; i < 3; ++i) {
    auto* lamp = program.frame->findChild<QWidget*>(QString("Panel(%1)").arg(i + 2));
    ASSERT_NE(lamp, nullptr) << i;
    EXPECT_EQ(HintAt(*lamp), words.at(static_cast<std::size_t>(i)));
  }
}

}  // namespace
}  // namespace sorvane::test
