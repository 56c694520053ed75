#include <gtest/gtest.h>

#include <QTabBar>
#include <algorithm>
#include <iterator>
#include <map>
#include <vector>

#include "pages/access/shipped_program.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"

// The way of Tab over the pages, against the way of the eye: the places of the controls on the
// screen decide, whatever the order is in which they were made.
namespace sorvane::test {
namespace {

enum class Reading {
  kColumns,  // the left column from top to bottom, then the next one
  kRows,     // the top row from left to right, then the next one
  kFrames,   // rows of frames; what stands in a frame by its columns
};

// How a page is read; with tabs, how what lies behind one of them is read. Two rows of tabs stand
// side by side and are columns.
struct ReadingRow {
  const char* form;
  const char* tabs;  // or empty for the page itself
  int tab;
  Reading reading;
};

constexpr ReadingRow kReadings[] = {{"FrmPassword", "", 0, Reading::kRows},
                                    {"FrmImposta", "", 0, Reading::kColumns},
                                    {"FrmPrezzi", "", 0, Reading::kColumns},
                                    {"FrmSconti", "", 0, Reading::kColumns},
                                    {"FrmPagamento", "", 0, Reading::kColumns},
                                    {"FrmPagamento", "SSTab2", 0, Reading::kFrames},
                                    {"FrmPagamento", "SSTab2", 1, Reading::kColumns},
                                    {"FrmPagamento", "SSTab2", 2, Reading::kFrames},
                                    {"FrmPagamento", "SSTab1", 0, Reading::kFrames},
                                    {"FrmPagamento", "SSTab1", 1, Reading::kFrames},
                                    {"FrmPagamento", "SSTab1", 2, Reading::kFrames},
                                    {"FrmTastiColonna", "", 0, Reading::kColumns},
                                    {"FrmColonnaProd", "", 0, Reading::kColumns},
                                    {"FrmOrologio", "", 0, Reading::kRows},
                                    {"FrmOrologio", "SSTab1", 0, Reading::kColumns},
                                    {"FrmOrologio", "SSTab1", 1, Reading::kRows},
                                    {"FrmOrologio", "SSTab1", 2, Reading::kRows},
                                    {"FrmTotali", "", 0, Reading::kFrames},
                                    {"FrmContatori", "", 0, Reading::kFrames},
                                    {"FrmMonete", "", 0, Reading::kFrames},
                                    {"FrmBanconote", "", 0, Reading::kFrames},
                                    {"FrmAllarmi", "", 0, Reading::kRows}};

Reading ReadingOf(const QString& form, const QString& tabs, int tab) {
  const auto* row = std::find_if(std::begin(kReadings), std::end(kReadings), [&](const auto& one) {
    return form == one.form && tabs == one.tabs && tab == one.tab;
  });
  EXPECT_NE(row, std::end(kReadings)) << form.toStdString() << " " << tabs.toStdString() << tab;
  return row->reading;
}

// Controls that the eye takes as one: those of a frame or of a row of tabs, or one control.
struct Unit {
  std::vector<QWidget*> controls;
  QRect place;  // on the screen
};

QRect PlaceOf(const QWidget& widget) { return {widget.mapToGlobal(QPoint(0, 0)), widget.size()}; }

bool IsTaken(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled() &&
         widget.isVisible();
}

std::vector<QWidget*> InOrder(std::vector<Unit> units, Reading reading) {
  std::stable_sort(units.begin(), units.end(), [&](const Unit& one, const Unit& other) {
    const QPoint a = one.place.center();
    const QPoint b = other.place.center();
    const bool same_row = one.place.top() < b.y() && b.y() < one.place.bottom();
    const bool same_column =
        one.place.left() <= other.place.right() && other.place.left() <= one.place.right();
    if (reading == Reading::kRows) return same_row ? a.x() < b.x() : a.y() < b.y();
    return same_column ? a.y() < b.y() : a.x() < b.x();
  });
  std::vector<QWidget*> order;
  for (const Unit& unit : units) {
    order.insert(order.end(), unit.controls.begin(), unit.controls.end());
  }
  return order;
}

// The units of each frame as one.
std::vector<Unit> ByFrames(const std::vector<Unit>& units) {
  std::map<QWidget*, std::vector<Unit>> frames;
  for (const Unit& unit : units) frames[unit.controls.front()->parentWidget()].push_back(unit);
  std::vector<Unit> merged;
  for (const auto& [frame, inside] : frames) {
    merged.push_back({InOrder(inside, Reading::kColumns), PlaceOf(*frame)});
  }
  return merged;
}

std::vector<QWidget*> EyeOrder(const QString& form, const QWidget& holder, const QString& tabs,
                               int tab);

// The row of tabs, and what lies behind the front one.
std::vector<QWidget*> OrderOfTabs(const QString& form, const TabPages& tabs) {
  std::vector<QWidget*> order;
  auto* strip = tabs.findChild<QTabBar*>();
  if (IsTaken(*strip)) order.push_back(strip);
  const std::vector<QWidget*> behind = EyeOrder(form, tabs, tabs.objectName(), tabs.Front());
  order.insert(order.end(), behind.begin(), behind.end());
  return order;
}

std::vector<QWidget*> EyeOrder(const QString& form, const QWidget& holder, const QString& tabs,
                               int tab) {
  std::vector<Unit> units;
  const auto inside = [&](const QWidget* widget) {
    for (QWidget* up = widget->parentWidget(); up != &holder; up = up->parentWidget()) {
      if (qobject_cast<TabPages*>(up) != nullptr) return false;  // a part of what stands there
    }
    return true;
  };
  for (QWidget* widget : holder.findChildren<QWidget*>()) {
    if (!inside(widget) || qobject_cast<QTabBar*>(widget) != nullptr) continue;
    if (const auto* row = qobject_cast<TabPages*>(widget)) {
      units.push_back({OrderOfTabs(form, *row), PlaceOf(*row)});
    } else if (IsTaken(*widget)) {
      units.push_back({{widget}, PlaceOf(*widget)});
    }
  }
  const Reading reading = ReadingOf(form, tabs, tab);
  if (reading == Reading::kFrames) return InOrder(ByFrames(units), Reading::kRows);
  return InOrder(std::move(units), reading);
}

std::vector<std::string> Names(const std::vector<QWidget*>& widgets) {
  std::vector<std::string> names;
  for (const QWidget* widget : widgets) {
    const QString holder = widget->parentWidget()->objectName();
    names.push_back((qobject_cast<const QTabBar*>(widget) != nullptr ? holder.toStdString() + " "
                                                                     : std::string()) +
                    NameOf(widget));
  }
  return names;
}

class TabOrder : public testing::TestWithParam<const char*> {
 protected:
  // Where the keyboard goes with so many presses of a key.
  std::vector<QWidget*> Walk(std::size_t steps, int key, Qt::KeyboardModifiers modifiers = {}) {
    std::vector<QWidget*> way;
    for (std::size_t i = 0; i < steps; ++i) {
      PressKey(program, key, modifiers);
      way.push_back(Focus());
    }
    return way;
  }

  ShippedProgram program{GetParam()};
};

TEST_P(TabOrder, IsThatOfTheEyeAndReturns) {
  program.ForEachPage([&](const PageEntry& page, ChildForm& form) {
    std::vector<QWidget*> order = EyeOrder(page.form, form, "", 0);
    ASSERT_FALSE(order.empty()) << page.form;
    order.back()->setFocus();
    EXPECT_EQ(Names(Walk(order.size(), Qt::Key_Tab)), Names(order)) << page.form;
    PressKey(program, Qt::Key_Tab);
    EXPECT_EQ(Focus(), order.front()) << page.form;
  });
}

TEST_P(TabOrder, GoesBackwardsWithShift) {
  program.ForEachPage([&](const PageEntry& page, ChildForm& form) {
    std::vector<QWidget*> order = EyeOrder(page.form, form, "", 0);
    ASSERT_FALSE(order.empty()) << page.form;
    order.front()->setFocus();
    std::reverse(order.begin(), order.end());
    EXPECT_EQ(Names(Walk(order.size(), Qt::Key_Backtab, Qt::ShiftModifier)), Names(order))
        << page.form;
  });
}

INSTANTIATE_TEST_SUITE_P(InTwoLanguages, TabOrder, testing::Values("Italiano", "Deutsch"),
                         [](const auto& row) { return row.param; });

// A page of a payment system, or of a machine with fewer selections, closes some of its controls.
TEST(TabOrderOfClosed, SkipsThem) {
  for (const std::uint32_t system : {1U, 2U, 3U}) {
    ShippedProgram program("Italiano");
    program.link.SetBoardNumber(71, system);
    program.link.SetBoardNumber(2, 6);
    for (const PageEntry& page :
         {PageEntry{"MnuPagamento", "FrmPagamento"}, PageEntry{"MnuPrezzi", "FrmPrezzi"},
          PageEntry{"MnuSconti", "FrmSconti"}, PageEntry{"Mnutasti", "FrmTastiColonna"}}) {
      ChildForm& form = program.OpenPage(page);
      const std::vector<QWidget*> order = EyeOrder(page.form, form, "", 0);
      EXPECT_TRUE(std::any_of(order.begin(), order.end(),
                              [&](const QWidget* one) { return one->isVisible(); }));
      const QList<EntryBox*> boxes = form.findChildren<EntryBox*>();
      ASSERT_TRUE(std::any_of(boxes.begin(), boxes.end(),
                              [](const EntryBox* box) { return !box->isEnabled(); }));
      order.back()->setFocus();
      for (const QWidget* next : order) {
        PressKey(program, Qt::Key_Tab);
        EXPECT_EQ(NameOf(Focus()), NameOf(next)) << page.form << " with system " << system;
      }
    }
  }
}

TEST(FirstFocus, IsNoFieldAndTabLeadsToTheFirstControl) {
  ShippedProgram program("Italiano");
  for (const PageEntry& page : kPageEntries) {
    ChildForm& form = program.OpenPage(page);
    EXPECT_EQ(qobject_cast<EntryBox*>(Focus()), nullptr) << page.form;
    EXPECT_TRUE(Focus() == &form || Focus() == form.parentWidget()) << page.form << NameOf(Focus());
    PressKey(program, Qt::Key_Tab);
    const std::vector<QWidget*> order = EyeOrder(page.form, form, "", 0);
    ASSERT_FALSE(order.empty()) << page.form;
    EXPECT_EQ(NameOf(Focus()), NameOf(order.front())) << page.form;
    ShippedProgram::ClosePage(form);
  }
}

// Before the board has answered, a page may have nothing open at all.
TEST(FirstFocus, WaitsOnAPageThatIsStillClosed) {
  ShippedProgram program("Italiano");
  program.Choose("MnuSconti");
  PressKey(program, Qt::Key_Tab);
  program.Sweep();
  PressKey(program, Qt::Key_Tab);
  EXPECT_EQ(NameOf(Focus()), "Text1(0)");
}

TEST(WayOverFields, EmptiesTheOneThatIsReachedAndRestoresTheOneThatIsLeft) {
  ShippedProgram program("Italiano");
  program.link.SetBoardNumber(43, 150);
  program.link.SetBoardNumber(44, 250);
  program.OpenPage({"MnuSconti", "FrmSconti"});
  PressKey(program, Qt::Key_Tab);
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "");
  PressKey(program, Qt::Key_5);
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "5");
  PressKey(program, Qt::Key_Tab);
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "1.50");
  EXPECT_EQ(program.Text("FrmSconti", "Text1(1)"), "");
  PressKey(program, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(program.Text("FrmSconti", "Text1(1)"), "2.50");
}

TEST(WayOverFields, LeavesThoseOfTheClockAsTheyStand) {
  ShippedProgram program("Italiano");
  program.OpenPage({"MnuOrologio", "FrmOrologio"});
  PressKey(program, Qt::Key_Tab);
  PressKey(program, Qt::Key_Tab);
  EXPECT_EQ(NameOf(Focus()), "Text1(0)");
  EXPECT_EQ(program.Text("FrmOrologio", "Text1(0)"), "5");
}

TEST(WayOverValues, ShowsWhereTheKeyboardIs) {
  ShippedProgram program("Italiano");
  program.OpenPage({"MnuMonete", "FrmMonete"});
  PressKey(program, Qt::Key_Tab);
  const QColor highlight = program.frame->palette().color(QPalette::Highlight);
  // How many of its four edges are drawn highlighted.
  const auto edges = [&](const char* value) {
    const QImage box = program.Find("FrmMonete", value).grab().toImage();
    int highlighted = 0;
    for (const QPoint& place :
         {QPoint(0, 5), QPoint(box.width() - 1, 5), QPoint(5, 0), QPoint(5, box.height() - 1)}) {
      if (box.pixelColor(place) == highlight) ++highlighted;
    }
    return highlighted;
  };
  EXPECT_EQ(edges("Label1(0)"), 4);
  EXPECT_EQ(edges("Label1(1)"), 0);
  PressKey(program, Qt::Key_Tab);
  EXPECT_EQ(edges("Label1(0)"), 0);
  EXPECT_EQ(edges("Label1(1)"), 4);
}

}  // namespace
}  // namespace sorvane::test
