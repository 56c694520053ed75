#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <algorithm>
#include <ostream>

#include "board/parameter.h"
#include "pages/access/shipped_program.h"
#include "shell/controls/contrast.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/record_list.h"
#include "shell/controls/slider.h"
#include "shell/page/child_form.h"

// Whether words can be read, open ones and closed ones, on desktops of several colours. What is
// drawn is measured: the pixel of a text that differs most from the ground around it, as the
// contrast of two luminances by the accessibility guidelines of the web.
namespace sorvane::test {
namespace {

constexpr double kOpen = 4.5;
constexpr double kClosed = 3.0;

// The contrast of what is drawn on a picture with its ground, the colour that most of it has.
double ContrastOn(const QImage& picture) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  QRgb ground = 0;
  for (auto [color, count] : counts.asKeyValueRange()) {
    if (count > counts.value(ground)) ground = color;
  }
  double contrast = 1;
  for (const QRgb color : counts.keys()) contrast = std::max(contrast, Contrast(color, ground));
  return contrast;
}

struct Colours {
  const char* name;
  QColor ground;
  QColor text;
  QColor field;
  QColor closed;  // text
};

void PrintTo(const Colours& colours, std::ostream* out) { *out << colours.name; }

// The first is that of a desktop without colours of its own; the text that the others have for what
// is closed is too near to their ground.
const Colours kColours[] = {
    {"Plain", {}, {}, {}, {}},
    {"Light", {239, 239, 239}, {0, 0, 0}, {255, 255, 255}, {180, 180, 180}},
    {"Dark", {49, 54, 59}, {239, 240, 241}, {27, 30, 32}, {98, 108, 118}},
};

// A desktop of some colours, while it lives.
class Desktop {
 public:
  explicit Desktop(const Colours& colours) : before_(QApplication::palette()) {
    if (!colours.ground.isValid()) return;
    QPalette palette(colours.ground, colours.ground);
    palette.setColor(QPalette::Base, colours.field);
    palette.setColor(QPalette::Disabled, QPalette::Base, colours.ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
      for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, role, colours.text);
      }
      palette.setColor(QPalette::Disabled, role, colours.closed);
    }
    QApplication::style()->polish(palette);
    QApplication::setPalette(palette);
  }
  ~Desktop() { QApplication::setPalette(before_); }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

 private:
  QPalette before_;
};

class Legible : public testing::TestWithParam<Colours> {
 protected:
  // Measures a text that stands in an area of a widget.
  void Measure(const QWidget& widget, const QRect& area, bool open, const QString& text) {
    if (text.trimmed().isEmpty()) return;
    QWidget& window = *widget.window();
    const QRect place(widget.mapTo(&window, area.topLeft()), area.size());
    const double contrast = ContrastOn(window.grab(place).toImage());
    EXPECT_GE(contrast, open ? kOpen : kClosed)
        << (open ? "open " : "closed ") << NameOf(&widget) << " \"" << text.toStdString() << '"';
    ++(open ? open_ : closed_);
  }

  void MeasureForm(const ChildForm& form) {
    QCoreApplication::processEvents();
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
      if (widget->isVisible()) MeasureControl(*widget);
    }
  }

  void MeasureControl(const QWidget& widget) {
    const bool open = widget.isEnabled();
    const QRect inside = widget.rect().adjusted(3, 3, -3, -3);  // clear of its border
    if (const auto* box = qobject_cast<const EntryBox*>(&widget)) {
      Measure(widget, inside, open, box->text());
    } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
      const int frame = label->frameWidth();
      Measure(widget, widget.rect().adjusted(frame, frame, -frame, -frame), open, label->text());
    } else if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
      Measure(widget, inside, open, button->text());
    } else if (const auto* slider = qobject_cast<const Slider*>(&widget)) {
      QRect words = inside;  // they stand below its line
      words.setTop(words.center().y() + 2);
      Measure(widget, words, open, slider->Labels().join(' '));
    } else if (const auto* strip = qobject_cast<const QTabBar*>(&widget)) {
      for (int tab = 0; tab < strip->count(); ++tab) {
        Measure(widget, strip->tabRect(tab).adjusted(6, 6, -6, -4),
                open && strip->isTabEnabled(tab), strip->tabText(tab));
      }
    } else if (const auto* frame = qobject_cast<const QGroupBox*>(&widget)) {
      MeasureTitle(*frame);
    } else if (const auto* list = qobject_cast<const RecordList*>(&widget)) {
      MeasureList(*list);
    }
  }

  void MeasureTitle(const QGroupBox& frame) {
    QStyleOptionGroupBox option;
    option.initFrom(&frame);
    option.text = frame.title();
    Measure(frame,
            frame.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                          &frame),
            frame.isEnabled(), frame.title());
  }

  void MeasureList(const RecordList& list) {
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
      const QTreeWidgetItem* item = list.topLevelItem(row);
      Measure(*list.viewport(), list.visualItemRect(item), true, item->text(1));
    }
    const QHeaderView& header = *list.header();
    for (int column = 0; column < header.count(); ++column) {
      const QRect head(header.sectionViewportPosition(column), 0, header.sectionSize(column),
                       header.height());
      Measure(*header.viewport(), head.adjusted(3, 3, -3, -3), true,
              list.headerItem()->text(column));
    }
  }

  template <typename Menu>
  void MeasureEntries(Menu& menu) {
    for (const QAction* entry : menu.actions()) {
      if (!entry->isVisible() || entry->isSeparator()) continue;
      Measure(menu, menu.actionGeometry(const_cast<QAction*>(entry)).adjusted(2, 2, -2, -2),
              entry->isEnabled(), entry->text());
    }
  }

  // A language's, which is as long as all of them.
  static Bytes Name() {
    const std::string name = "ITALIANO        ";
    return {name.begin(), name.end()};
  }

  int open_ = 0;  // measured ones
  int closed_ = 0;
  Desktop desktop{GetParam()};
};

TEST_P(Legible, IsAllThatStandsOnThePages) {
  ShippedProgram program("Italiano");
  for (int k = 0; k < 10; ++k) program.link.SetBoard(parameter::kLanguageNames + k, Name());
  program.ForEachPage([&](const PageEntry&, const ChildForm& form) { MeasureForm(form); });
  EXPECT_GT(open_, 400);
}

// A page of a payment system, or of a machine with fewer selections, closes some of its controls.
TEST_P(Legible, IsWhatIsClosed) {
  for (const std::uint32_t system : {1U, 2U, 3U}) {
    ShippedProgram program("Italiano");
    program.link.SetBoardNumber(parameter::kPaymentSystem, system);
    program.link.SetBoardNumber(parameter::kSelections, 6);
    for (const PageEntry& page :
         {PageEntry{"MnuPagamento", "FrmPagamento"}, PageEntry{"MnuPrezzi", "FrmPrezzi"},
          PageEntry{"MnuSconti", "FrmSconti"}, PageEntry{"Mnutasti", "FrmTastiColonna"}}) {
      ChildForm& form = program.OpenPage(page);
      ForEachTab(form, [&] { MeasureForm(form); });
      ShippedProgram::ClosePage(form);
    }
  }
  EXPECT_GT(closed_, 90);
}

TEST_P(Legible, AreTheEntriesOfTheMenuBarBeforeAndBehindTheConnection) {
  Program program;
  program.Start();
  MeasureEntries(*program.frame->menuBar());
  EXPECT_EQ(closed_, 9);
  program.Connect();
  MeasureEntries(*program.frame->menuBar());
  EXPECT_EQ(closed_, 9);
  EXPECT_EQ(open_, 5 + 14);
}

TEST_P(Legible, AreTheEntriesOfMenusThatDrop) {
  Program program;
  program.Start();
  for (const char* name : {"mnuWL", "mnuLingue", "mnuCom"}) {
    auto& menu = *program.frame->findChild<QMenu*>(name);
    emit menu.aboutToShow();
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    MeasureEntries(menu);
  }
  EXPECT_EQ(closed_, 1);  // that no page is open
  EXPECT_EQ(open_, 10 + 5);
}

INSTANTIATE_TEST_SUITE_P(OnDesktops, Legible, testing::ValuesIn(kColours),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace sorvane::test
