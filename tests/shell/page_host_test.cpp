#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <memory>
#include <utility>

#include "shell/page/child_form.h"
#include "shell/program.h"

namespace sorvane::test {
namespace {

// Notes what the host tells it.
class NotingForm : public ChildForm {
 public:
  NotingForm(const QString& name, QStringList& told) : ChildForm(name), told_(told) {}
  void Load() override { Note("loaded"); }
  void Activate() override { Note("in front"); }
  void Deactivate() override { Note("behind"); }
  void Unload() override { Note("unloaded"); }

 private:
  void Note(const QString& what) { told_ << objectName() + " " + what; }

  QStringList& told_;
};

// The program with two forms of its own, A and B, behind the first two of its entries.
class HostedForms : public testing::Test {
 protected:
  HostedForms() { program.Connect(); }

  PageRow Row(MenuEntry entry, const char* name) {
    return {entry, name,
            [this, name](const PageServices&) { return std::make_unique<NotingForm>(name, told); }};
  }
  void Close(const char* form) {
    program.frame->findChild<ChildForm*>(form)->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QStringList Told() { return std::exchange(told, {}); }

  QStringList told;
  Program program{{.pages = {Row(MenuEntry::kPassword, "A"), Row(MenuEntry::kPrices, "B")}}};
};

TEST_F(HostedForms, AreToldWhenTheyComeToTheFrontAndWhenAnotherOneDoes) {
  program.Choose("MnuPassword");
  EXPECT_EQ(Told(), (QStringList{"A loaded", "A in front"}));
  program.Choose("MnuPrezzi");
  EXPECT_EQ(Told(), (QStringList{"B loaded", "A behind", "B in front"}));
  program.Choose("MnuPassword");
  EXPECT_EQ(Told(), (QStringList{"B behind", "A in front"}));
  program.Choose("MnuPassword");
  EXPECT_EQ(Told(), QStringList());
}

TEST_F(HostedForms, AreToldNothingOnceTheyAreUnloaded) {
  program.Choose("MnuPassword");
  program.Choose("MnuPrezzi");
  Told();
  Close("B");
  EXPECT_EQ(Told(), (QStringList{"B unloaded", "A in front"}));
  Close("A");
  EXPECT_EQ(Told(), QStringList{"A unloaded"});
  program.Choose("MnuPrezzi");
  EXPECT_EQ(Told(), (QStringList{"B loaded", "B in front"}));
}

TEST_F(HostedForms, AreNotBehindAFrameThatIsMinimizedAndComesBack) {
  program.Choose("MnuPassword");
  Told();
  program.frame->showMinimized();
  QWidget other;
  other.show();
  other.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
  program.frame->showNormal();
  program.frame->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(program.frame.get()));
  EXPECT_FALSE(Told().contains("A behind"));
}

}  // namespace
}  // namespace sorvane::test
