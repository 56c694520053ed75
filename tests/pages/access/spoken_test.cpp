#include "pages/access/spoken.h"

#include <gtest/gtest.h>

#include <QAccessibleActionInterface>
#include <QAccessibleTableInterface>
#include <QAccessibleValueInterface>
#include <QProgressBar>
#include <QTabBar>

#include "board/parameter.h"
#include "pages/access/shipped_program.h"
#include "shell/controls/lamp.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"

// What single controls of the program say.
namespace sorvane::test {
namespace {

using Role = QAccessible::Role;

// What a control is called, in one language, from rows and columns of each page.
struct Called {
  const char* form;
  const char* control;
  const char* name;
};

constexpr Called kItalian[] = {
    {"FrmPassword", "iSwitchToggleX1", "Password"},
    {"FrmPassword", "Text1(3)", "Password 4"},
    {"FrmImposta", "Text1(5)", "Sbrina ogni (h.)"},
    {"FrmImposta", "HScroll1(5)", "Sbrina ogni (h.)"},
    {"FrmImposta", "Switch1", "Prodotti Uguali"},
    {"FrmPrezzi", "Text1(9)", "Prezzo 10"},
    {"FrmPrezzi", "HScroll2(0)", "Item 1"},
    {"FrmSconti", "Text1(2)", "Sconto 3"},
    {"FrmTastiColonna", "HScroll1(6)", "Tasto n\xC2\xB0 7"},
    {"FrmColonnaProd", "Text1(4)", "Colonna n\xC2\xB0 5"},
    {"FrmOrologio", "Text1(3)", "ore"},
    {"FrmOrologio", "Text2(0)", "Inizio Sconto 1 ore"},
    {"FrmOrologio", "HScroll2(7)", "Fine Sconto 2 minuti"},
    {"FrmOrologio", "Text3(2)", "Spegni ore"},
    {"FrmOrologio", "Text3(3)", "Spegni minuti"},
    {"FrmOrologio", "iSwitchSliderX1", "Accendi/Spegni"},
    {"FrmOrologio", "Command1", "Copy PC Time"},
    {"FrmPagamento", "SlswitchX1", "Tipo Sistema"},
    {"FrmPagamento", "SwitchX2(1)", "Price holding"},
    {"FrmPagamento", "Text4(5)", "Moneta 6"},
    {"FrmPagamento", "SwitchX3(15)", "Banconota 16"},
    {"FrmPagamento", "Text2(4)", "Tubo5"},
    {"FrmPagamento", "HScroll3(0)", "Token 1"},
    {"FrmPagamento", "SwitchX1(5)", "ExChg e Token"},
    {"FrmAllarmi", "ListView1", "Ultimi 20 allarmi rilevati"},
    {"FrmAllarmi", "ProgressBar1", "Ultimi 20 allarmi rilevati"},
};

TEST(SpokenNames, AreTheWordsAndTheRowNumbersOfTheLabels) {
  ShippedProgram program("Italiano");
  for (const PageEntry& page : kPageEntries) program.OpenPage(page);
  for (const auto& [form, control, name] : kItalian) {
    EXPECT_EQ(Said(program.Find(form, control)).toStdString(), name) << form << " " << control;
  }
}

TEST(SpokenNames, FollowTheLanguageOfAnOpenPage) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Open("MnuOrologio");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Said(program.Find("FrmSconti", "HScroll1(3)")), "Bravo 36 4");
  EXPECT_EQ(Said(*program.frame->findChild<ChildForm*>("FrmSconti")), "Bravo 4");
  EXPECT_EQ(Said(program.Find("FrmOrologio", "Text2(1)")), "Bravo 55 1 Bravo 54");
}

TEST(SpokenClock, SaysItsTimeBehindItsName) {
  ShippedProgram program("Italiano");
  program.link.SetBoardNumber(parameter::kClockHours, 7);
  program.link.SetBoardNumber(parameter::kClockMinutes, 30);
  program.OpenPage({"MnuOrologio", "FrmOrologio"});
  EXPECT_EQ(Said(program.Find("FrmOrologio", "iSevenSegmentClockX1")), "Orologio 07:30");
}

// Assistive technology presses a tab where the mouse would click on it.
TEST(SpokenTabs, AClosedTabCantBePressed) {
  ShippedProgram program("Italiano");
  program.OpenPage({"MnuPagamento", "FrmPagamento"});
  auto& row = program.Find<TabPages>("FrmPagamento", "SSTab2");
  QAccessibleInterface& strip = Of(*row.findChild<QTabBar*>());
  const auto press = [&](int tab) {
    strip.child(tab)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  };
  ASSERT_FALSE(row.IsTabOpen(2));
  press(2);
  EXPECT_EQ(row.Front(), 0);
  EXPECT_EQ(row.findChild<QTabBar*>()->currentIndex(), 0);
  ASSERT_TRUE(row.IsTabOpen(1));
  press(1);
  EXPECT_EQ(row.Front(), 1);
}

TEST(SpokenAlarms, AreATableWithHeadersAndCells) {
  ShippedProgram program("Italiano");
  program.OpenPage({"MnuAllarmi", "FrmAllarmi"});
  QAccessibleInterface& list = Of(program.Find("FrmAllarmi", "ListView1"));
  QAccessibleTableInterface* table = list.tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rowCount(), 20);
  ASSERT_EQ(table->columnCount(), 4);
  const char* const heads[] = {"nr.", "data", "ora", "descrizione"};
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(list.child(column)->role(), Role::ColumnHeader);
    EXPECT_EQ(list.child(column)->text(QAccessible::Name), heads[column]);
  }
  EXPECT_EQ(table->cellAt(2, 0)->text(QAccessible::Name), "3");
  EXPECT_EQ(table->cellAt(2, 1)->text(QAccessible::Name), "00/00/00");
}

TEST(SpokenProgress, IsThatOfTheReading) {
  ShippedProgram program("Italiano");
  program.Choose("MnuAllarmi");
  program.Sweep(60);
  auto& progress = program.Find<QProgressBar>("FrmAllarmi", "ProgressBar1");
  QAccessibleValueInterface* value = Of(progress).valueInterface();
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->currentValue(), progress.value());
  EXPECT_GT(progress.value(), 10);
  EXPECT_EQ(value->maximumValue(), 161);
}

TEST(SpokenLamps, AreTextsOfTheStatusBarThatSayInWordsHowTheyStand) {
  ShippedProgram program("Italiano");
  const auto said = [&] {
    QStringList names;
    for (Lamp* lamp : program.frame->findChildren<Lamp*>()) {
      EXPECT_EQ(Of(*lamp).role(), Role::StaticText);
      EXPECT_EQ(Of(*lamp).parent()->role(), Role::StatusBar);
      names << Said(*lamp);
    }
    return names;
  };
  program.Sweep(200);
  program.gate.Run([&] { program.link.clock.Advance(2000); });
  EXPECT_EQ(said(), (QStringList{"Transmit: off", "Receive: off", "Error: off"}));
  program.link.board.SwitchOff();
  program.Open("MnuSconti");
  program.gate.Run([&] { program.link.clock.Advance(1500); });
  EXPECT_TRUE(said().contains("Error: on")) << said().join(' ').toStdString();
}

}  // namespace
}  // namespace sorvane::test
