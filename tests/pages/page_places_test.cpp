#include <gtest/gtest.h>

#include <QCoreApplication>
#include <algorithm>

#include "pages/letters.h"
#include "shell/controls/bar.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"
#include "shell/program.h"

// Where things stand on single pages, beyond what the plan of each page tells.
namespace sorvane::test {
namespace {

// A page as it opens, with the places of its controls.
class PlaceTest : public Letters, public testing::Test {
 protected:
  PlaceTest() { program.Connect(); }

  void Open(const char* entry, const char* form_name) {
    program.Open(entry);
    form = program.frame->findChild<ChildForm*>(form_name);
  }
  void SetFront(int tab) {
    for (TabPages* tabs : form->findChildren<TabPages*>()) tabs->SetFront(tab);
    QCoreApplication::processEvents();
  }
  QRect PlaceOf(const char* control) const {
    const auto* widget = form->findChild<QWidget*>(control);
    return {widget->mapTo(form, QPoint(0, 0)), widget->size()};
  }
  // The room between two controls that stand side by side.
  int RoomBetween(const char* left, const char* right) const {
    return PlaceOf(right).left() - PlaceOf(left).right() - 1;
  }

  Program program;
  const ChildForm* form = nullptr;
};

TEST_F(PlaceTest, ColumnsOfFieldsStandFurtherApartThanTheirControls) {
  struct Columns {
    const char* entry;
    const char* form;
    const char* caption;
    const char* value;
    const char* end;
    const char* next;
  };
  constexpr Columns kColumns[] = {
      {"MnuPrezzi", "FrmPrezzi", "LabelMess1(0)", "Text1(0)", "HScroll1(0)", "LabelMess2(0)"},
      {"MnuSconti", "FrmSconti", "LabelMess1(0)", "Text1(0)", "HScroll1(0)", "LabelMess1(5)"},
      {"Mnutasti", "FrmTastiColonna", "LabelMess1(0)", "Text1(0)", "HScroll1(0)", "LabelMess1(5)"},
      {"MnuColonne", "FrmColonnaProd", "LabelMess1(0)", "Text1(0)", "HScroll1(0)", "LabelMess1(5)"},
  };
  for (const Columns& columns : kColumns) {
    Open(columns.entry, columns.form);
    const int two_characters = 2 * form->fontMetrics().averageCharWidth();
    EXPECT_EQ(RoomBetween(columns.end, columns.next),
              RoomBetween(columns.caption, columns.value) + two_characters)
        << columns.form;
  }
}

// A click beside the thumb writes: a small target, in a window of any size.
TEST_F(PlaceTest, TheBarsOfAmountsAreShortInAnyWindow) {
  for (const auto& [entry, name] :
       {std::pair{"MnuPrezzi", "FrmPrezzi"}, std::pair{"MnuSconti", "FrmSconti"}}) {
    Open(entry, name);
    QWidget& window = *form->parentWidget();
    for (const QSize& more : {QSize(0, 0), QSize(200, 100)}) {
      window.resize(window.size() + more);
      QCoreApplication::processEvents();
      for (const Bar* bar : form->findChildren<Bar*>()) {
        EXPECT_EQ(bar->width(), 16 * form->fontMetrics().averageCharWidth());
      }
    }
  }
}

TEST_F(PlaceTest, NoAndYesStandOverTheEndsOfTheirSwitches) {
  struct Head {
    int tab;
    const char* no;
    const char* yes;
    const char* first_switch;
  };
  constexpr Head kHeads[] = {
      {0, "Label8(4)", "Label8(5)", "SwitchX2(0)"}, {0, "Label8(0)", "Label8(1)", "SwitchX1(0)"},
      {1, "Label8(7)", "Label8(6)", "SwitchX3(0)"}, {1, "Label8(8)", "Label8(9)", "SwitchX3(8)"},
      {2, "Label8(2)", "Label8(3)", "SwitchX1(2)"},
  };
  Open("MnuPagamento", "FrmPagamento");
  QWidget& window = *form->parentWidget();
  for (const QSize& more : {QSize(0, 0), QSize(200, 100)}) {
    window.resize(window.size() + more);
    for (const Head& head : kHeads) {
      SetFront(head.tab);
      const QRect no = PlaceOf(head.no);
      const QRect yes = PlaceOf(head.yes);
      const QRect below = PlaceOf(head.first_switch);
      EXPECT_EQ((no | yes).width(), std::max(no.width() + yes.width(), below.width())) << head.no;
      EXPECT_NEAR((no | yes).center().x(), below.center().x(), 1) << head.no;
    }
  }
}

TEST_F(PlaceTest, AHeadingOfTheColumnsStandsOverItsFieldsAndBars) {
  Open("MnuColonne", "FrmColonnaProd");
  EXPECT_EQ(PlaceOf("Label1(0)").left(), PlaceOf("Text1(0)").left());
  EXPECT_EQ(PlaceOf("Label1(0)").right(), PlaceOf("HScroll1(0)").right());
  EXPECT_EQ(PlaceOf("Label1(1)").left(), PlaceOf("Text1(5)").left());
  EXPECT_EQ(PlaceOf("Label1(1)").right(), PlaceOf("HScroll1(5)").right());
}

TEST_F(PlaceTest, TheCountersOfTheMachineStandBelowAllOthers) {
  Open("MnuContatori", "FrmContatori");
  EXPECT_EQ(PlaceOf("Frame1(3)").left(), PlaceOf("Frame1(0)").left());
  EXPECT_EQ(PlaceOf("Frame1(3)").right(), PlaceOf("Frame1(2)").right());
}

TEST_F(PlaceTest, SwitchesWithBothEndsCaptionedStandInLineWithTheFields) {
  Open("MnuPassword", "FrmPassword");
  EXPECT_EQ(PlaceOf("Label1(0)").left(), PlaceOf("Text1(0)").left());
  Open("MnuImpostazioni", "FrmImposta");
  EXPECT_EQ(PlaceOf("Label0(1)").left(), PlaceOf("Text1(8)").left());
}

TEST_F(PlaceTest, TheGeneralFieldsOfThePaymentStandInLineWithWhatIsFramed) {
  Open("MnuPagamento", "FrmPagamento");
  const int framed = PlaceOf("LabelMess1(18)").left();
  const int room = framed - PlaceOf("Frame1(6)").left();
  EXPECT_EQ(PlaceOf("LabelMess1(43)").left(), framed);
  EXPECT_EQ(PlaceOf("HScroll5(0)").right(), PlaceOf("Frame1(6)").right() - room);
}

TEST_F(PlaceTest, TheClockStandsMidwayAboveTheButton) {
  Open("MnuOrologio", "FrmOrologio");
  const int above = PlaceOf("iSevenSegmentClockX1").top() - PlaceOf("Frame1").top();
  const int below = PlaceOf("Command1").top() - PlaceOf("Label0").bottom() - 1;
  const int line = form->fontMetrics().height();
  EXPECT_NEAR(above, below, line);
  EXPECT_GT(above, line);
  EXPECT_EQ(PlaceOf("Command1").bottom(), PlaceOf("Frame1").bottom());
}

}  // namespace
}  // namespace sorvane::test
