#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <map>
#include <ostream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "pages/letters.h"
#include "shell/controls/bar.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/painted_control.h"
#include "shell/controls/record_list.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"
#include "shell/program.h"

// What stands where on each page, and what a window that is enlarged does with its room.
namespace sorvane::test {
namespace {

constexpr QSize kEnlarged(200, 100);

// The plan of a page: its rows from top to bottom, each with its controls from left to right, then
// those of each frame and of each tab. "[A / B]" stand beneath each other beside the rest of a row.
// Behind a control: ">" has its text on the right and "=" in the middle; in an enlarged window "~"
// grows wider and "^" higher. A row with " v" goes down in it. "(0-9)" stands for ten rows.
struct PagePlan {
  const char* entry;
  const char* form;
  std::vector<const char*> tabs;  // one for a page without tabs
  int rooms = 1;                  // around all, in margins of the style
};

std::ostream& operator<<(std::ostream& out, const PagePlan& plan) { return out << plan.form; }

const PagePlan kPlans[] = {
    {"MnuPassword", "FrmPassword", {R"(
LabelMess1(0)^ Label1(0)^ iSwitchToggleX1 Label1(1)^ v
LabelMess1(1) Text1(0)= Text1(1)= Text1(2)= Text1(3)= v
Label1(2)~^ v
)"}},
    {"MnuImpostazioni", "FrmImposta", {R"(
LabelMess1(0) Text1(0) HScroll1(0)~
LabelMess1(1-6) Text1(1-6)= HScroll1(1-6)~
LabelMess1(7-8) Text1(7-8)=
LabelMess1(9)^ Label0(1)^ Switch1 Label0(0)^ v
)"}},
    {"MnuPrezzi", "FrmPrezzi", {R"(
LabelMess1(0-9) Text1(0-9)= HScroll1(0-9) LabelMess2(0-9) Text2(0-9)= HScroll2(0-9) v
)"}},
    {"MnuSconti", "FrmSconti", {R"(
LabelMess1(0-4) Text1(0-4)= HScroll1(0-4) LabelMess1(5-9) Text1(5-9)= HScroll1(5-9) v
)"}},
    {"MnuPagamento",
     "FrmPagamento",
     {R"(
SSTab2~^ SSTab1~^
SSTab2:
Frame1(5)~
Frame1(6)~
LabelMess1(43-46) Text5(0-3)= HScroll5(0-3)~
Frame1(5):
SlswitchX1
Frame1(6):
Label8(4) Label8(5)
LabelMess1(18-20) SwitchX2(0-2)
SSTab1:
Frame1(0)~
Frame1(1)~
Frame1(0):
LabelMess1(0-2) Text1(0-2)= HScroll1(0-2)~
Frame1(1):
Label8(0) Label8(1)
LabelMess1(3-4) SwitchX1(0-1)
)",
      R"(
SSTab2~^ SSTab1~^
SSTab2:
Label8(7) Label8(6) Label8(8) Label8(9)
LabelMess1(21-28) SwitchX3(0-7) LabelMess1(29-36) SwitchX3(8-15)
SSTab1:
Frame1(2)~
Frame1(2):
LabelMess1(5-9) Text2(0-4)= HScroll2(0-4)~
)",
      R"(
SSTab2~^ SSTab1~^
SSTab2:
LabelMess1(37-42) Text4(0-5)= HScroll4(0-5)~
SSTab1:
Frame1(3)~
Frame1(4)~
Frame1(3):
LabelMess1(10-12) Text3(0-2)= HScroll3(0-2)~
Frame1(4):
Label8(2) Label8(3)
LabelMess1(13-16) SwitchX1(2-5)
)"}},
    {"Mnutasti", "FrmTastiColonna", {R"(
LabelMess1(0-4) Text1(0-4)= HScroll1(0-4)~ LabelMess1(5-9) Text1(5-9)= HScroll1(5-9)~ v
)"}},
    {"MnuColonne", "FrmColonnaProd", {R"(
Label1(0)~^ Label1(1)~^
LabelMess1(0-4) Text1(0-4)= HScroll1(0-4)~ LabelMess1(5-9) Text1(5-9)= HScroll1(5-9)~ v
)"}},
    {"MnuOrologio",
     "FrmOrologio",
     {R"(
SSTab1~^
SSTab1:
Frame1~^ [iSevenSegmentClockX1 / Label0= / Command1] v
Frame1:
LabelMes1(0-4) Text1(0-4)= HScroll1(0-4)~ v
)",
      R"(
SSTab1~^
SSTab1:
LabelMes2(0) LabelMes2(4)> Text2(0)= HScroll2(0)~ LabelMes2(8)> Text2(1)= HScroll2(1)~
LabelMes2(2) LabelMes2(5)> Text2(2)= HScroll2(2)~ LabelMes2(9)> Text2(3)= HScroll2(3)~
LabelMes2(1) LabelMes2(6)> Text2(4)= HScroll2(4)~ LabelMes2(10)> Text2(5)= HScroll2(5)~
LabelMes2(3) LabelMes2(7)> Text2(6)= HScroll2(6)~ LabelMes2(11)> Text2(7)= HScroll2(7)~
)",
      R"(
SSTab1~^
SSTab1:
Label2(0) LabelMes3(0)> Text3(0)= HScroll3(0)~ LabelMes3(2)> Text3(1)= HScroll3(1)~
Label2(1) LabelMes3(1)> Text3(2)= HScroll3(2)~ LabelMes3(3)> Text3(3)= HScroll3(3)~
Label1 iSwitchSliderX1
)"}},
    {"MnuTotali", "FrmTotali", {R"(
Frame1(0)~^ Frame1(1)~^
Frame1(0):
LabelMess1(0)~ Label1(0)>
LabelMess1(2)~ Label1(1)>
LabelMess1(4)~ Label1(2)>
LabelMess1(6)~ Label1(3)>
Frame1(1):
LabelMess1(1)~ Label1(4)>
LabelMess1(3)~ Label1(5)>
LabelMess1(5)~ Label1(6)>
LabelMess1(7)~ Label1(7)>
LabelMess1(8)~ Label1(8)>
)"}},
    {"MnuContatori", "FrmContatori", {R"(
Frame1(0)~ Frame1(1)~ Frame1(2)~
Frame1(3)~^
Frame1(0):
LabelMess2(0-9)~ Label1(0-9)>
Frame1(1):
LabelMess3(0-9)~ Label1(10-19)>
Frame1(2):
LabelMess4(0-9)~ Label1(20-29)>
Frame1(3):
LabelMess1(0)~ Label1(30)> LabelMess1(1)~ Label1(31)> LabelMess1(2)~ Label1(32)>
)"}},
    {"MnuMonete",
     "FrmMonete",
     {R"(
LabelMess1(0-7)~ Label1(0-7)> LabelMess1(8-15)~ Label1(8-15)>
)"},
     2},
    {"MnuBanconote",
     "FrmBanconote",
     {R"(
LabelMess1(0-7)~ Label1(0-7)> LabelMess1(8-15)~ Label1(8-15)>
)"},
     2},
    {"MnuAllarmi", "FrmAllarmi", {R"(
Label1~ ProgressBar1~
ListView1~^
)"}},
};

// A plan with a line for each row.
std::string WithEachRow(const std::string& plan) {
  static const std::regex span(R"(\((\d+)-(\d+)\))");
  std::istringstream lines(plan);
  std::string rows;
  for (std::string line; std::getline(lines, line);) {
    int more = 0;
    for (int i = 0; i <= more; ++i) {
      std::string row = line;
      for (std::smatch found; std::regex_search(row, found, span);) {
        const int first = std::stoi(found[1]);
        more = std::stoi(found[2]) - first;
        row = found.prefix().str() + '(' + std::to_string(first + i) + ')' + found.suffix().str();
      }
      rows += row + '\n';
    }
  }
  return rows;
}

using Widgets = std::vector<const QWidget*>;

bool IsControl(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) != nullptr ||
         qobject_cast<const EntryBox*>(&widget) != nullptr ||
         qobject_cast<const PaintedControl*>(&widget) != nullptr ||
         qobject_cast<const QPushButton*>(&widget) != nullptr ||
         qobject_cast<const QProgressBar*>(&widget) != nullptr ||
         qobject_cast<const RecordList*>(&widget) != nullptr;
}

bool IsFrame(const QWidget& widget) {
  return qobject_cast<const QGroupBox*>(&widget) != nullptr ||
         qobject_cast<const TabPages*>(&widget) != nullptr;
}

// The controls and frames that show on a page or in a frame, without what is in these in turn.
Widgets ShownIn(const QWidget& holder) {
  Widgets shown;
  for (const QObject* child : holder.children()) {
    const auto* widget = qobject_cast<const QWidget*>(child);
    if (widget == nullptr || !widget->isVisible()) continue;
    if (IsControl(*widget) || IsFrame(*widget)) {
      shown.push_back(widget);
    } else {
      for (const QWidget* inner : ShownIn(*widget)) shown.push_back(inner);
    }
  }
  return shown;
}

using Places = std::map<const QWidget*, QRect>;

Places PlacesOn(const QWidget& form) {
  Places places;
  for (const QWidget* widget : form.findChildren<QWidget*>()) {
    places[widget] = {widget->mapTo(&form, QPoint(0, 0)), widget->size()};
  }
  return places;
}

// A page, or the front tabs of it, as it opens and in an enlarged window.
class Sight {
 public:
  explicit Sight(const QWidget& form) : form_(form), opened_(PlacesOn(form)) {
    QWidget& window = *form.parentWidget();
    const QSize size = window.size();
    window.resize(size + kEnlarged);
    QCoreApplication::processEvents();
    enlarged_ = PlacesOn(form);
    window.resize(size);
    QCoreApplication::processEvents();
  }

  std::string Plan() const { return '\n' + PlanOf(form_); }

  const QRect& Opened(const QWidget& widget) const { return opened_.at(&widget); }
  int Growth(const QWidget& widget) const {
    return enlarged_.at(&widget).width() - Opened(widget).width();
  }

  // The rows of the page and those of each of its frames, from left to right.
  std::vector<std::vector<Widgets>> Holders() const {
    std::vector<std::vector<Widgets>> holders;
    AddHolder(form_, holders);
    return holders;
  }

 private:
  enum class Direction { kDown, kAcross };

  // The parts of what stands beneath or beside each other, in their order.
  std::vector<Widgets> Parts(Widgets all, Direction direction) const {
    const auto span = [&](const QWidget* widget) {
      const QRect& place = Opened(*widget);
      return direction == Direction::kDown ? std::pair(place.top(), place.bottom())
                                           : std::pair(place.left(), place.right());
    };
    std::sort(all.begin(), all.end(),
              [&](const QWidget* one, const QWidget* other) { return span(one) < span(other); });
    std::vector<Widgets> parts;
    int end = std::numeric_limits<int>::min();
    for (const QWidget* widget : all) {
      if (span(widget).first > end) parts.emplace_back();
      parts.back().push_back(widget);
      end = std::max(end, span(widget).second);
    }
    return parts;
  }

  std::string Describe(const QWidget& widget) const {
    std::string text = widget.objectName().toStdString();
    Qt::Alignment alignment;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) alignment = label->alignment();
    if (const auto* box = qobject_cast<const EntryBox*>(&widget)) alignment = box->alignment();
    if ((alignment & Qt::AlignRight) != 0) text += '>';
    if ((alignment & Qt::AlignHCenter) != 0) text += '=';
    if (Growth(widget) > 0) text += '~';
    if (enlarged_.at(&widget).height() > Opened(widget).height()) text += '^';
    return text;
  }

  std::string Describe(const Widgets& all, Direction direction) const {
    if (all.size() == 1) return Describe(*all.front());
    const bool across = direction == Direction::kAcross;
    const std::vector<Widgets> parts = Parts(all, direction);
    std::string text;
    for (const Widgets& part : parts) {
      if (!text.empty()) text += across ? " " : " / ";
      if (part.size() == all.size()) return text + "(on top of each other)";
      const std::string inner = Describe(part, across ? Direction::kDown : Direction::kAcross);
      text += part.size() > 1 ? '[' + inner + ']' : inner;
    }
    return text;
  }

  std::string PlanOf(const QWidget& holder) const {
    const Widgets shown = ShownIn(holder);
    std::string plan;
    for (const Widgets& row : Parts(shown, Direction::kDown)) {
      const bool goes_down = std::any_of(row.begin(), row.end(), [&](const QWidget* widget) {
        return enlarged_.at(widget).top() > Opened(*widget).top();
      });
      plan += Describe(row, Direction::kAcross) + (goes_down ? " v\n" : "\n");
    }
    for (const QWidget* widget : shown) {
      if (!IsFrame(*widget)) continue;
      plan += widget->objectName().toStdString() + ":\n" + PlanOf(*widget);
    }
    return plan;
  }

  void AddHolder(const QWidget& holder, std::vector<std::vector<Widgets>>& holders) const {
    const Widgets shown = ShownIn(holder);
    std::vector<Widgets> rows;
    for (const Widgets& row : Parts(shown, Direction::kDown)) {
      rows.emplace_back();
      for (const Widgets& part : Parts(row, Direction::kAcross)) {
        rows.back().insert(rows.back().end(), part.begin(), part.end());
      }
    }
    holders.push_back(rows);
    for (const QWidget* widget : shown) {
      if (IsFrame(*widget)) AddHolder(*widget, holders);
    }
  }

  const QWidget& form_;
  Places opened_;
  Places enlarged_;
};

// Whether two rows hold controls of the same kinds.
bool AreAlike(const Widgets& above, const Widgets& below) {
  return std::equal(above.begin(), above.end(), below.begin(), below.end(),
                    [](const QWidget* one, const QWidget* other) {
                      return one->metaObject() == other->metaObject();
                    });
}

class PlanTest : public Letters, public testing::TestWithParam<PagePlan> {
 protected:
  // The page is measured as it opens, with values of one digit.
  PlanTest() {
    program.Connect();
    program.Open(GetParam().entry);
  }

  const ChildForm& Form() { return *program.frame->findChild<ChildForm*>(GetParam().form); }

  template <typename Look>
  void ForEachTab(const Look& look) {
    for (std::size_t tab = 0; tab < GetParam().tabs.size(); ++tab) {
      for (TabPages* tabs : Form().findChildren<TabPages*>()) tabs->SetFront(static_cast<int>(tab));
      QCoreApplication::processEvents();
      look(Sight(Form()), GetParam().tabs[tab]);
    }
  }

  Program program;
};

TEST_P(PlanTest, EachControlStandsInItsRowAndGrowsAsItShould) {
  ForEachTab(
      [](const Sight& sight, const char* plan) { EXPECT_EQ(sight.Plan(), WithEachRow(plan)); });
}

TEST_P(PlanTest, ThereIsTheSameRoomOnAllSides) {
  ForEachTab([&](const Sight& sight, const char*) {
    QRect used;
    for (const QWidget* widget : ShownIn(Form())) used |= sight.Opened(*widget);
    const int room = used.left();
    EXPECT_NEAR(room, GetParam().rooms * 0.6 * Form().fontMetrics().height(), 1);
    EXPECT_EQ(used, Form().rect().adjusted(room, room, -room, -room));
  });
}

TEST_P(PlanTest, RowsOfTheSameControlsStandInLine) {
  ForEachTab([](const Sight& sight, const char*) {
    for (const std::vector<Widgets>& rows : sight.Holders()) {
      for (std::size_t row = 1; row < rows.size(); ++row) {
        if (!AreAlike(rows[row - 1], rows[row])) continue;
        for (std::size_t i = 0; i < rows[row].size(); ++i) {
          const std::string name = rows[row][i]->objectName().toStdString();
          const QRect& above = sight.Opened(*rows[row - 1][i]);
          const QRect& below = sight.Opened(*rows[row][i]);
          EXPECT_EQ(above.left(), below.left()) << name;
          EXPECT_EQ(above.right(), below.right()) << name;
        }
      }
    }
  });
}

// Each grows by the same, or all become equally wide.
TEST_P(PlanTest, WhatGrowsInARowSharesTheRoom) {
  ForEachTab([](const Sight& sight, const char*) {
    for (const std::vector<Widgets>& rows : sight.Holders()) {
      for (const Widgets& row : rows) {
        const QWidget* first = nullptr;
        for (const QWidget* widget : row) {
          const int growth = sight.Growth(*widget);
          if (growth == 0) continue;
          if (first == nullptr) first = widget;
          const int less = sight.Growth(*first) - growth;
          const int wider = sight.Opened(*first).width() - sight.Opened(*widget).width();
          EXPECT_LE(std::min(std::abs(less), std::abs(less + wider)), 2)
              << widget->objectName().toStdString() << " grows by " << growth;
        }
      }
    }
  });
}

// In characters; a page that has no bars passes.
TEST_P(PlanTest, BarsStayLongInTheSmallestWindow) {
  const std::map<std::string, int> least = {
      {"FrmPrezzi", 16}, {"FrmSconti", 16}, {"FrmPagamento", 16}, {"FrmOrologio", 22}};
  const auto found = least.find(GetParam().form);
  const int characters = found == least.end() ? 30 : found->second;
  ForEachTab([&](const Sight&, const char*) {
    Form().parentWidget()->resize(1, 1);
    QCoreApplication::processEvents();
    for (const Bar* bar : Form().findChildren<Bar*>()) {
      if (!bar->isVisible()) continue;
      EXPECT_GE(bar->width(), characters * Form().fontMetrics().averageCharWidth())
          << bar->objectName().toStdString();
    }
  });
}

INSTANTIATE_TEST_SUITE_P(OfEachPage, PlanTest, testing::ValuesIn(kPlans),
                         [](const auto& row) { return row.param.form; });

}  // namespace
}  // namespace sorvane::test
