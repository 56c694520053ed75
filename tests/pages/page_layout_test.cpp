#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QTabBar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

#include "pages/letters.h"
#include "shell/controls/bar.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/painted_control.h"
#include "shell/controls/record_list.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"
#include "shell/program.h"

// How the pages look in the shipped languages: the texts that stand on them are measured by the
// program's own font. The whole runs once more at 125, 150 and 200 %, and in large
// letters.
namespace sorvane::test {
namespace {

// The whole program in one of the shipped languages, over a board whose values are the widest that
// their fields show.
class Layout : public Letters, public testing::TestWithParam<const char*> {
 protected:
  Layout()
      : program({.language_files = false,
                 .settings = std::string("Com=1\r\nLingua=") + GetParam() + "\r\n"}) {
    const std::string file = std::string(GetParam()) + ".lng";
    std::ifstream in(std::filesystem::path(SORVANE_DATA_FOLDER) / "languages" / file,
                     std::ios::binary);
    if (!in) throw std::runtime_error(file + " is missing");
    program.WriteText(file, {std::istreambuf_iterator<char>(in), {}});
    FillBoard();
    program.Connect();
  }

  void SetAll(int first, int last, std::uint32_t value) {
    for (int k = first; k <= last; ++k) program.link.SetBoardNumber(k, value);
  }

  void FillBoard() {
    const std::string name = "ABCDEFGHIJKLMNOP";
    for (int k = 12; k <= 21; ++k) program.link.SetBoard(k, Bytes(name.begin(), name.end()));
    SetAll(1, 10, 10);
    program.link.SetBoardNumber(1, 9);  // the last name
    program.link.SetBoardNumber(6, 255);
    program.link.SetBoardNumber(9, 16777215);
    program.link.SetBoardNumber(10, 65535);
    program.link.SetBoardNumber(22, 2);
    SetAll(23, 52, 65535);  // prices, item numbers, discounts
    SetAll(54, 70, 22);     // clock and times of the day
    SetAll(57, 57, 12);
    SetAll(71, 71, 3);
    SetAll(73, 75, 65535);  // limits
    SetAll(76, 80, 20);     // tubes
    SetAll(81, 83, 65535);  // tokens
    SetAll(84, 84, 255);
    SetAll(86, 86, 30);
    SetAll(90, 95, 65535);  // coins
    SetAll(98, 107, 10);    // keys
    SetAll(108, 117, 100);  // columns
    SetAll(118, 277, 12);   // alarms, but for their codes
    for (int k = 124; k <= 277; k += 8) SetAll(k, k, 3);
    SetAll(279, 352, 4294967295U);
    SetAll(411, 414, 9);
  }

  // Opens a page and passes each of its tabs to look.
  template <typename Look>
  void ForEachTab(const PageEntry& page, const Look& look) {
    program.Open(page.entry);
    program.Sweep(100);  // the alarms take more than a page of fields
    auto* form = program.frame->findChild<ChildForm*>(page.form);
    ASSERT_NE(form, nullptr);
    look(*form);
    for (TabPages* tabs : form->findChildren<TabPages*>()) {
      for (int tab = 0; tab < 3; ++tab) {
        tabs->SetFront(tab);
        QCoreApplication::processEvents();
        look(*form);
      }
    }
    form->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  Program program;
};

QString NameOf(const QWidget& widget) {
  return QString("%1 \"%2\"").arg(widget.objectName(), widget.property("text").toString());
}

QRect PlaceOn(const QWidget& form, const QWidget& widget) {
  return {widget.mapTo(&form, QPoint(0, 0)), widget.size()};
}

// What shows on a form and isn't only a holder of other controls.
std::vector<QWidget*> Shown(const ChildForm& form) {
  std::vector<QWidget*> shown;
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    const bool control = qobject_cast<QLabel*>(widget) != nullptr ||
                         qobject_cast<EntryBox*>(widget) != nullptr ||
                         qobject_cast<PaintedControl*>(widget) != nullptr ||
                         qobject_cast<QPushButton*>(widget) != nullptr;
    if (control && widget->isVisible()) shown.push_back(widget);
  }
  return shown;
}

// A locked field is as wide as its text; the others as what can be typed there.
bool HasRoomForItsText(const QWidget& widget) {
  if (const auto* box = qobject_cast<const EntryBox*>(&widget)) {
    const int frame = 2 * box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    return box->fontMetrics().horizontalAdvance(box->text().trimmed()) + frame <= box->width();
  }
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const QSize text = label->fontMetrics().size(Qt::TextShowMnemonic, label->text());
    const QSize room = label->size() - 2 * QSize(label->frameWidth(), label->frameWidth());
    if (text.boundedTo(room) != text) return false;
  }
  const bool bar = qobject_cast<const Bar*>(&widget) != nullptr;  // a long one is only nicer
  const QSize least = bar ? widget.minimumSizeHint() : widget.sizeHint();
  return widget.width() >= least.width() && widget.height() >= least.height();
}

bool HasRoomForItsRows(const RecordList& list) {
  for (int row = 0; row < list.topLevelItemCount(); ++row) {
    for (int column = 0; column < list.columnCount(); ++column) {
      const QString text = list.topLevelItem(row)->text(column).trimmed();
      if (list.fontMetrics().horizontalAdvance(text) > list.columnWidth(column)) return false;
    }
  }
  return list.header()->length() <= list.viewport()->width();
}

bool HasRoomForItsTitle(const QGroupBox& frame) {
  return frame.fontMetrics().horizontalAdvance(frame.title()) <= frame.width();
}

// The name of a window stands between its icon and its buttons.
bool HasRoomForItsName(const QMdiSubWindow& window) {
  QStyleOptionTitleBar bar;
  bar.initFrom(&window);
  bar.titleBarFlags = window.windowFlags();
  bar.subControls = QStyle::SC_All;
  bar.rect.setHeight(window.style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, &window));
  const QRect name =
      window.style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, &window);
  return window.fontMetrics().horizontalAdvance(window.windowTitle()) <= name.width();
}

TEST_P(Layout, NoCaptionIsMissing) {
  for (const PageEntry& page : kPageEntries) {
    ForEachTab(page, [&](const ChildForm& form) {
      EXPECT_FALSE(form.windowTitle().trimmed().isEmpty()) << page.form;
      for (const QWidget* widget : Shown(form)) {
        const QVariant text = widget->property("text");
        EXPECT_TRUE(!text.isValid() || !text.toString().trimmed().isEmpty())
            << page.form << " " << NameOf(*widget).toStdString();
      }
      for (const TabPages* tabs : form.findChildren<TabPages*>()) {
        for (int tab = 0; tab < 3; ++tab) EXPECT_NE(tabs->Caption(tab), "") << page.form;
      }
    });
  }
}

TEST_P(Layout, NothingIsCutOff) {
  for (const PageEntry& page : kPageEntries) {
    ForEachTab(page, [&](const ChildForm& form) {
      for (const QWidget* widget : Shown(form)) {
        EXPECT_TRUE(HasRoomForItsText(*widget))
            << page.form << " " << NameOf(*widget).toStdString() << " has " << widget->width()
            << " by " << widget->height();
        EXPECT_TRUE(form.rect().contains(PlaceOn(form, *widget)))
            << page.form << " " << NameOf(*widget).toStdString();
      }
      const auto* window = qobject_cast<const QMdiSubWindow*>(form.parentWidget());
      ASSERT_NE(window, nullptr);
      EXPECT_TRUE(HasRoomForItsName(*window)) << page.form;
      for (const QGroupBox* frame : form.findChildren<QGroupBox*>()) {
        EXPECT_TRUE(!frame->isVisible() || HasRoomForItsTitle(*frame)) << page.form;
      }
      for (const RecordList* list : form.findChildren<RecordList*>()) {
        EXPECT_EQ(list->topLevelItemCount(), 20);
        EXPECT_TRUE(HasRoomForItsRows(*list)) << page.form;
      }
      for (const QTabBar* strip : form.findChildren<QTabBar*>()) {
        EXPECT_GE(strip->width(), strip->sizeHint().width()) << page.form;
      }
    });
  }
}

TEST_P(Layout, TheClockPageIsMeasuredOpen) {
  ForEachTab(kPageEntries[7], [](const ChildForm& form) {
    EXPECT_TRUE(form.findChild<QPushButton*>("Command1")->isEnabled());
    EXPECT_NE(form.findChild<QLabel*>("Label0")->text(), "");
  });
}

TEST_P(Layout, ControlsKeepClearOfEachOther) {
  for (const PageEntry& page : kPageEntries) {
    ForEachTab(page, [&](const ChildForm& form) {
      const std::vector<QWidget*> shown = Shown(form);
      for (std::size_t one = 0; one < shown.size(); ++one) {
        for (std::size_t other = one + 1; other < shown.size(); ++other) {
          EXPECT_FALSE(PlaceOn(form, *shown[one]).intersects(PlaceOn(form, *shown[other])))
              << page.form << " " << NameOf(*shown[one]).toStdString() << " "
              << NameOf(*shown[other]).toStdString();
        }
      }
    });
  }
}

TEST_P(Layout, EachPageFitsTheFrameWithItsTitleBarInView) {
  for (const PageEntry& page : kPageEntries) {
    ForEachTab(page, [&](const ChildForm& form) {
      const QWidget& window = *form.parentWidget();
      const auto* area = program.frame->findChild<QMdiArea*>();
      EXPECT_TRUE(area->rect().contains(window.geometry()))
          << page.form << " " << window.x() << " " << window.y() << " " << window.width() << " "
          << window.height();
    });
  }
}

// Where everything stands on a page, behind each of its tabs too, and where the columns of a list
// begin and end.
std::map<QString, QRect> Places(const ChildForm& form) {
  std::map<QString, QRect> places;
  const QList<TabPages*> rows = form.findChildren<TabPages*>();
  for (int tab = 0; tab < (rows.isEmpty() ? 1 : 3); ++tab) {
    for (TabPages* row : rows) row->SetFront(tab);
    QCoreApplication::processEvents();
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
      if (widget->isVisible() && !widget->objectName().isEmpty()) {
        places[QString("%1 %2").arg(tab).arg(widget->objectName())] = PlaceOn(form, *widget);
      }
    }
  }
  for (const RecordList* list : form.findChildren<RecordList*>()) {
    const QHeaderView& header = *list->header();
    for (int column = 0; column < header.count(); ++column) {
      places[QString("column %1").arg(column)] = {header.sectionPosition(column), 0,
                                                  header.sectionSize(column), 1};
    }
  }
  places["window"] = form.parentWidget()->geometry();
  return places;
}

TEST_P(Layout, NothingMovesWhenItsValuesCome) {
  for (const PageEntry& page : kPageEntries) {
    program.Choose(page.entry);
    const auto* form = program.frame->findChild<ChildForm*>(page.form);
    std::map<QString, QRect> before = Places(*form);
    program.Sweep(200);
    if (QString(page.form) == "FrmAllarmi") before.erase("0 ProgressBar1");  // it has hidden
    const std::map<QString, QRect> after = Places(*form);
    ASSERT_GT(before.size(), 3U) << page.form;
    ASSERT_EQ(after.size(), before.size()) << page.form;
    for (const auto& [what, place] : before) {
      EXPECT_EQ(after.at(what), place) << page.form << " " << what.toStdString();
    }
    form->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_P(Layout, TheCountersOfTheMachineStandUnderTheColumnsAbove) {
  program.Open("MnuContatori");
  const auto* form = program.frame->findChild<ChildForm*>("FrmContatori");
  const auto place = [&](const char* name, int i) {
    return PlaceOn(*form, *form->findChild<QWidget*>(QString("%1(%2)").arg(name).arg(i)));
  };
  QWidget& window = *form->parentWidget();
  for (const QSize& more : {QSize(0, 0), QSize(200, 100)}) {
    window.resize(window.size() + more);
    QCoreApplication::processEvents();
    int column = 0;
    for (const char* caption : {"LabelMess2", "LabelMess3", "LabelMess4"}) {
      EXPECT_NEAR(place("LabelMess1", column).left(), place(caption, 0).left(), 2) << column;
      EXPECT_NEAR(place("Label1", 30 + column).left(), place("Label1", 10 * column).left(), 2)
          << column;
      EXPECT_NEAR(place("Label1", 30 + column).right(), place("Label1", 10 * column).right(), 2)
          << column;
      ++column;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, Layout,
                         testing::Values("Dansk", "Deutsch", "English", "Espanol", "Francais",
                                         "Italiano", "Nederlands", "Norsk", "Portugues", "Svenska"),
                         [](const auto& row) { return row.param; });

}  // namespace
}  // namespace sorvane::test
