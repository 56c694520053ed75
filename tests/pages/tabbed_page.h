#pragma once

#include <QLineEdit>
#include <QRect>
#include <QTabBar>
#include <QTest>

#include "pages/page_tests.h"
#include "shell/controls/tab_pages.h"

namespace sorvane::test {

inline constexpr const char* kInvalidPropertyValue =
    "Run-time error '380':\n\nInvalid property value";

// A page whose controls stand behind tabs. What stands behind a tab in the back can't be reached:
// bring the tab to the front first.
class TabbedPageTest : public PageTest {
 protected:
  TabbedPageTest(const QString& form, const QString& entry, Separators separators)
      : PageTest(form, entry, separators), tabbed_form_(form) {}

  TabPages& Tabs(const QString& name) { return program.Find<TabPages>(tabbed_form_, name); }
  QTabBar& Strip(const QString& name) { return *Tabs(name).findChild<QTabBar*>(); }

  // A click of the user's on a tab, which may be closed.
  void ClickTab(const QString& name, int tab) {
    QTabBar& strip = Strip(name);
    QTest::mouseClick(&strip, Qt::LeftButton, Qt::NoModifier, strip.tabRect(tab).center());
  }
  std::vector<bool> OpenTabs(const QString& name) {
    std::vector<bool> open;
    for (int tab = 0; tab < Strip(name).count(); ++tab) open.push_back(Tabs(name).IsTabOpen(tab));
    return open;
  }
  std::vector<QString> TabCaptions(const QString& name) {
    std::vector<QString> captions;
    for (int tab = 0; tab < Strip(name).count(); ++tab) captions.push_back(Tabs(name).Caption(tab));
    return captions;
  }

  bool IsVisible(const QString& control) { return program.Find(tabbed_form_, control).isVisible(); }
  // A click in the middle of a control that the user can see.
  void ClickSeen(const QString& control) {
    ASSERT_TRUE(IsVisible(control)) << control.toStdString() << " can't be seen";
    Click(control);
  }
  // Puts a text in the place of what stands in a field, key by key; and Enter.
  void ReplaceOnly(const QString& field, const QString& text) {
    ASSERT_TRUE(IsVisible(field)) << field.toStdString() << " can't be seen";
    TypeOnly(field, "");
    auto& box = program.Find<QLineEdit>(tabbed_form_, field);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
  }
  void Replace(const QString& field, const QString& text) {
    ReplaceOnly(field, text);
    Press(field, Qt::Key_Return);
  }

  QString SavedText(const QString& field) { return Property(field, "savedText").toString(); }
  QVariant Property(const QString& control, const char* name) {
    return program.Find(tabbed_form_, control).property(name);
  }
  int Byte(int parameter) { return program.link.Value(parameter).at(0); }

 private:
  const QString tabbed_form_;
};

}  // namespace sorvane::test
