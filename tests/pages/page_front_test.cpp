#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>

#include "shell/page/child_form.h"
#include "shell/program.h"

// Fields of a page that another page covers.
namespace sorvane::test {
namespace {

// The discounts with 1.25 in the first field, where 12 is being typed.
class PageFront : public testing::Test {
 protected:
  PageFront() {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(22, 2);
    program.link.SetBoardNumber(43, 125);
    program.link.SetBoardNumber(56, 5);
    program.Connect();
    program.Open("MnuSconti");
    program.TypeOnly("FrmSconti", "Text1(0)", "12");
  }

  QWidget& Window(const char* form) {
    return *program.frame->findChild<ChildForm*>(form)->parentWidget();
  }
  QString SavedText(const char* form, const char* field) {
    return program.Find(form, field).property("savedText").toString();
  }
  void ExpectField(const QString& text, const QString& saved, CallSite at = CallSite::Here()) {
    const testing::ScopedTrace trace(at.file, at.line, "field");
    EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), text);
    EXPECT_EQ(SavedText("FrmSconti", "Text1(0)"), saved);
  }
  bool HasFocus() { return program.Find("FrmSconti", "Text1(0)").hasFocus(); }

  Program program;
};

TEST_F(PageFront, WhatIsBeingTypedIsGoneWhenAnotherPageOpens) {
  ExpectField("12", "1.25");
  program.Choose("MnuPrezzi");
  ExpectField("1.25", "1.25");
}

TEST_F(PageFront, APageWithoutFieldsInFrontIsALossToo) {
  program.Choose("mnuVer");
  ExpectField("1.25", "1.25");
}

TEST_F(PageFront, ComingBackByTheMenuEmptiesTheFieldAndSavesWhatItShowed) {
  program.Choose("mnuVer");
  program.link.SetBoardNumber(43, 250);
  program.gate.Run([this] { program.link.access.WatchParameter(43); });
  program.Sweep();
  ExpectField("2.50", "2.50");
  program.Choose("MnuSconti");
  EXPECT_TRUE(HasFocus());
  ExpectField("", "2.50");
}

TEST_F(PageFront, ComingBackByTheWindowsListEmptiesTheField) {
  program.Choose("mnuVer");
  auto* list = program.frame->findChild<QMenu*>("mnuWL");
  emit list->aboutToShow();
  list->actions()[0]->trigger();
  ExpectField("", "1.25");
}

TEST_F(PageFront, ComingBackByTheKeyForTheNextPageEmptiesTheField) {
  program.Choose("mnuVer");
  for (const char* text : {"", "1.25"}) {
    QTest::keyClick(program.frame->windowHandle(), Qt::Key_F6, Qt::ControlModifier);
    ExpectField(text, "1.25");
  }
}

TEST_F(PageFront, ComingBackByAClickOnTheFieldEmptiesIt) {
  program.Choose("mnuVer");
  program.TypeOnly("FrmSconti", "Text1(0)", "");
  ExpectField("", "1.25");
}

TEST_F(PageFront, ComingBackByAClickOnAnotherFieldEmptiesThatOneAlone) {
  program.Choose("mnuVer");
  program.TypeOnly("FrmSconti", "Text1(1)", "");
  ExpectField("1.25", "1.25");
  EXPECT_EQ(program.Text("FrmSconti", "Text1(1)"), "");
}

TEST_F(PageFront, ComingBackBehindAPageThatClosesEmptiesTheField) {
  program.Choose("mnuVer");
  Window("FrmInfo").close();
  EXPECT_TRUE(HasFocus());
  ExpectField("", "1.25");
}

TEST_F(PageFront, AMinimizedPageIsCoveredByTheNextOne) {
  program.Choose("MnuPrezzi");
  program.Choose("MnuSconti");
  QTest::keyClicks(QApplication::focusWidget(), "12");
  ExpectField("12", "1.25");
  Window("FrmSconti").showMinimized();
  program.Choose("MnuPrezzi");
  ExpectField("1.25", "1.25");
  program.Choose("MnuSconti");
  program.TypeOnly("FrmSconti", "Text1(0)", "");
  ExpectField("", "1.25");
}

TEST_F(PageFront, ItsOwnMenuEntryIsNoLoss) {
  program.Choose("MnuSconti");
  ExpectField("12", "1.25");
}

TEST_F(PageFront, AnotherProgramInFrontIsNoLossAndComingBackNoGain) {
  program.Choose("mnuVer");
  program.Choose("MnuSconti");
  QTest::keyClicks(QApplication::focusWidget(), "12");
  {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_FALSE(program.frame->isActiveWindow());
    ExpectField("12", "1.25");
  }
  program.frame->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(program.frame.get()));
  EXPECT_TRUE(HasFocus());
  ExpectField("12", "1.25");
}

TEST_F(PageFront, AFieldThatKeepsItsTextSavesIt) {
  program.Open("MnuOrologio");
  program.TypeOnly("FrmOrologio", "Text1(2)", "7");
  const QString typed = program.Text("FrmOrologio", "Text1(2)");
  program.Choose("MnuSconti");
  const QString shown = program.Text("FrmOrologio", "Text1(2)");
  EXPECT_NE(shown, typed);
  program.gate.Run([this] { program.link.access.WatchParameter(58); });
  program.Sweep();
  EXPECT_EQ(SavedText("FrmOrologio", "Text1(2)") + " " + program.Text("FrmOrologio", "Text1(2)"),
            "0 2000");
  program.Choose("MnuOrologio");
  EXPECT_EQ(SavedText("FrmOrologio", "Text1(2)") + " " + program.Text("FrmOrologio", "Text1(2)"),
            "2000 2000");
}

TEST_F(PageFront, AFieldWithoutARuleKeepsWhatWasTyped) {
  program.link.SetBoardNumber(71, 1);
  program.Open("MnuPagamento");
  auto& coin = program.Find<QLineEdit>("FrmPagamento", "Text4(0)");
  coin.setFocus();
  QTest::keyClicks(&coin, "7");
  const QString typed = coin.text();
  program.Choose("MnuSconti");
  program.Choose("MnuPagamento");
  EXPECT_EQ(coin.text(), typed);
}

TEST_F(PageFront, ALanguageChoiceBringsThePagesToTheFrontInTurn) {
  program.Open("MnuPrezzi");
  program.TypeOnly("FrmPrezzi", "Text1(0)", "34");
  program.Choose("smnuLingue(1)");
  ExpectField("1.25", "1.25");
  EXPECT_TRUE(program.Find("FrmPrezzi", "Text1(0)").hasFocus());
  EXPECT_EQ(program.Text("FrmPrezzi", "Text1(0)"), "");
}

}  // namespace
}  // namespace sorvane::test
