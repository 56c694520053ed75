#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "pages/access/shipped_program.h"
#include "pages/access/spoken.h"
#include "shell/controls/bar.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/record_list.h"
#include "shell/controls/slider.h"
#include "shell/controls/tab_pages.h"
#include "shell/controls/toggle.h"
#include "shell/page/child_form.h"

// What the pages tell assistive technology: which controls there are, what they are called, how
// they stand.
namespace sorvane::test {
namespace {

using Role = QAccessible::Role;

// The role of what can be read or reached on a page; none for what only holds other controls.
std::optional<Role> RoleOf(const QWidget& widget) {
  if (qobject_cast<const EntryBox*>(&widget) != nullptr) return Role::EditableText;
  if (qobject_cast<const Bar*>(&widget) != nullptr) return Role::Slider;
  if (qobject_cast<const Slider*>(&widget) != nullptr) return Role::Slider;
  if (qobject_cast<const Toggle*>(&widget) != nullptr) return Role::CheckBox;
  if (qobject_cast<const QPushButton*>(&widget) != nullptr) return Role::Button;
  if (qobject_cast<const QTabBar*>(&widget) != nullptr) return Role::PageTabList;
  if (qobject_cast<const RecordList*>(&widget) != nullptr) return Role::Tree;
  if (qobject_cast<const QProgressBar*>(&widget) != nullptr) return Role::ProgressBar;
  if (qobject_cast<const ClockFace*>(&widget) != nullptr) return Role::StaticText;
  if (qobject_cast<const QLabel*>(&widget) != nullptr) return Role::StaticText;
  return {};
}

std::vector<QWidget*> Controls(const ChildForm& form) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    if (RoleOf(*widget)) controls.push_back(widget);
  }
  return controls;
}

std::string Place(const PageEntry& page, const QWidget& widget) {
  return std::string(page.form) + " " + NameOf(&widget);
}

// The label that a value belongs to, by its relation.
QWidget* LabelOf(QWidget& value) {
  for (const auto& [other, relation] : Of(value).relations(QAccessible::Label)) {
    if (relation.testFlag(QAccessible::Label)) return static_cast<QWidget*>(other->object());
  }
  return nullptr;
}

class PageAccess : public testing::TestWithParam<const char*> {
 protected:
  ShippedProgram program{GetParam()};
};

TEST_P(PageAccess, EveryControlHasTheRoleOfWhatItIs) {
  program.ForEachPage([](const PageEntry& page, const ChildForm& form) {
    for (QWidget* control : Controls(form)) {
      EXPECT_EQ(Of(*control).role(), *RoleOf(*control)) << Place(page, *control);
    }
  });
}

TEST_P(PageAccess, EveryControlIsSaidInWords) {
  program.ForEachPage([](const PageEntry& page, const ChildForm& form) {
    for (QWidget* control : Controls(form)) {
      const auto* label = qobject_cast<QLabel*>(control);
      const bool shows_nothing = label != nullptr && label->text().isEmpty();
      const QString name = Said(*control);
      EXPECT_EQ(name.trimmed().isEmpty(), shows_nothing) << Place(page, *control);
      EXPECT_NE(name, control->objectName()) << Place(page, *control);
      EXPECT_FALSE(name.contains("&&")) << Place(page, *control);
    }
  });
}

TEST_P(PageAccess, TheNameOfAControlTellsItFromAllOthersOfItsPage) {
  std::set<QString> looked_at;
  program.ForEachPage([&](const PageEntry& page, const ChildForm& form) {
    if (!looked_at.insert(page.form).second) return;
    std::map<std::pair<Role, QString>, std::string> names;
    for (QWidget* control : Controls(form)) {
      if (qobject_cast<QLabel*>(control) != nullptr) continue;
      const auto [first, is_new] =
          names.try_emplace({Of(*control).role(), Said(*control)}, NameOf(control));
      EXPECT_TRUE(is_new) << Place(page, *control) << " and " << first->second << ": "
                          << Said(*control).toStdString();
    }
  });
}

TEST_P(PageAccess, AValueThatIsOnlyReadBelongsToACaptionOfItsOwn) {
  int values = 0;
  program.ForEachPage([&](const PageEntry& page, const ChildForm& form) {
    std::set<QString> captions;
    for (QLabel* value : form.findChildren<QLabel*>()) {
      if (value->frameShape() == QFrame::NoFrame) continue;
      ++values;
      QWidget* caption = LabelOf(*value);
      ASSERT_NE(caption, nullptr) << Place(page, *value);
      EXPECT_TRUE(captions.insert(Said(*caption)).second) << Place(page, *value);
      EXPECT_EQ(Said(*value), value->text()) << Place(page, *value);
    }
  });
  EXPECT_EQ(values, 9 + 33 + 16 + 16);
}

TEST_P(PageAccess, StatesAgreeWithTheWidgets) {
  program.ForEachPage([](const PageEntry& page, const ChildForm& form) {
    for (QWidget* control : Controls(form)) {
      const QAccessible::State state = Of(*control).state();
      EXPECT_EQ(state.disabled, !control->isEnabled()) << Place(page, *control);
      EXPECT_EQ(state.invisible, !control->isVisible()) << Place(page, *control);
      EXPECT_EQ(state.focusable, control->focusPolicy() != Qt::NoFocus) << Place(page, *control);
      EXPECT_EQ(state.focused, control->hasFocus()) << Place(page, *control);
      if (const auto* box = qobject_cast<EntryBox*>(control)) {
        EXPECT_EQ(state.readOnly, box->isReadOnly()) << Place(page, *control);
      }
      if (const auto* toggle = qobject_cast<Toggle*>(control)) {
        EXPECT_TRUE(state.checkable) << Place(page, *control);
        EXPECT_EQ(state.checked, toggle->IsChecked()) << Place(page, *control);
      }
    }
  });
}

TEST_P(PageAccess, BarsAndSlidersSayTheirValueAndTheirRange) {
  program.ForEachPage([](const PageEntry& page, const ChildForm& form) {
    for (QWidget* control : Controls(form)) {
      if (Of(*control).role() != Role::Slider) continue;
      QAccessibleValueInterface* value = Of(*control).valueInterface();
      ASSERT_NE(value, nullptr) << Place(page, *control);
      EXPECT_EQ(value->minimumStepSize(), 1) << Place(page, *control);
      if (const auto* bar = qobject_cast<Bar*>(control)) {
        const int spoken = value->currentValue().toInt() - bar->Position();
        EXPECT_EQ(value->minimumValue(), bar->Minimum() + spoken) << Place(page, *control);
        EXPECT_EQ(value->maximumValue(), bar->Maximum() + spoken) << Place(page, *control);
        EXPECT_GE(value->minimumValue().toInt(), 0) << Place(page, *control);
      } else {
        const QStringList labels = control->property("labels").toStringList();
        EXPECT_EQ(value->currentValue(), control->property("position")) << Place(page, *control);
        EXPECT_EQ(value->minimumValue(), 0) << Place(page, *control);
        EXPECT_EQ(value->maximumValue(), labels.size() - 1) << Place(page, *control);
        EXPECT_EQ(Of(*control).text(QAccessible::Value), labels[value->currentValue().toInt()]);
      }
    }
  });
}

TEST_P(PageAccess, TabsAreSaidByTheirCaptions) {
  int tabs = 0;
  program.ForEachPage([&](const PageEntry& page, const ChildForm& form) {
    for (const TabPages* row : form.findChildren<TabPages*>()) {
      QAccessibleInterface& strip = Of(*row->findChild<QTabBar*>());
      for (int tab = 0; tab < 3; ++tab, ++tabs) {
        EXPECT_EQ(strip.child(tab)->role(), Role::PageTab) << page.form;
        EXPECT_EQ(strip.child(tab)->text(QAccessible::Name), row->Caption(tab)) << page.form;
      }
    }
  });
  EXPECT_EQ(tabs, 3 * 3 + 2 * 6 * 3);  // three fronts of one row, and three each of two rows
}

TEST_P(PageAccess, ThePageThatHasTheKeyboardIsSaidByItsTitle) {
  for (const PageEntry& page : kPageEntries) {
    ChildForm& form = program.OpenPage(page);
    EXPECT_NE(Said(form), "") << page.form;
    EXPECT_EQ(Said(form), form.windowTitle()) << page.form;
    ShippedProgram::ClosePage(form);
  }
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, PageAccess, testing::ValuesIn(kShippedLanguages),
                         [](const auto& row) { return row.param; });

}  // namespace
}  // namespace sorvane::test
