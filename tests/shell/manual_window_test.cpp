#include "shell/frame/manual_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "shell/program.h"

namespace sorvane::test {
namespace {

struct ManualTest : testing::Test {
  ManualWindow window;
  QTextBrowser& text = *window.findChild<QTextBrowser*>();

  void Follow(const char* link) { text.setSource(text.source().resolved(QUrl(link))); }

  // The words at the top of the window.
  QString Top() { return text.cursorForPosition({50, 5}).block().text(); }
};

TEST_F(ManualTest, OpensAtItsBeginningWhereNoFormIsNamed) {
  window.ShowChapter("", false);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.windowTitle().toStdString(), "Sorvane: the technician's manual");
  EXPECT_EQ(Top().toStdString(), "Sorvane: the technician's manual");
}

TEST_F(ManualTest, OpensAtTheChapterOfAForm) {
  window.ShowChapter("FrmPrezzi", false);
  EXPECT_EQ(Top().toStdString(), "Prices");
  window.ShowChapter("FrmAllarmi", false);
  EXPECT_EQ(Top().toStdString(), "Alarms");
  window.ShowChapter("FrmPrezzi", true);
  EXPECT_EQ(Top().toStdString(), "Prezzi");
}

TEST_F(ManualTest, AllWordsOfTheManualAreThere) {
  for (const bool italian : {false, true}) {
    window.ShowChapter("", italian);
    QFile file(italian ? ":/manual/it.md" : ":/manual/en.md");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int paragraphs = 0;
    const QString shown = text.toPlainText();
    static const QRegularExpression plain("^[A-Z][\\w ,]{20,}");
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
      const auto words = plain.match(line);
      if (!words.hasMatch()) continue;
      ++paragraphs;
      EXPECT_TRUE(shown.contains(words.captured())) << words.captured().toStdString();
    }
    EXPECT_GT(paragraphs, 40);
    EXPECT_FALSE(shown.contains("<a id"));
  }
}

TEST_F(ManualTest, LinksLeadToHeadingsAndToTheOtherLanguage) {
  window.ShowChapter("", false);
  Follow("#before-you-change-anything-keep-a-copy");
  EXPECT_EQ(Top().toStdString(), "Before you change anything: keep a copy");
  Follow("it.md");
  EXPECT_EQ(window.windowTitle().toStdString(), "Sorvane: manuale del tecnico");
}

TEST_F(ManualTest, NothingReachesOverItsSide) {
  window.ShowChapter("", false);
  EXPECT_TRUE(QTest::qWaitFor([&] { return text.horizontalScrollBar()->maximum() == 0; }));
}

TEST_F(ManualTest, EscapeClosesIt) {
  window.ShowChapter("", false);
  QTest::keyClick(&text, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

// The window of the manual, or nullptr while it isn't shown.
QWidget* Manual() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "Manual" && window->isVisible()) return window;
  }
  return nullptr;
}

// What stands at the top of the manual.
std::string ManualChapter() {
  auto* text = Manual()->findChild<QTextBrowser*>();
  return text->cursorForPosition({50, 5}).block().text().toStdString();
}

TEST(HelpKey, ShowsTheManualAtItsBeginningWhereNoPageIsOpen) {
  Program program;
  program.Start();
  EXPECT_EQ(Manual(), nullptr);
  QTest::keyClick(program.frame.get(), Qt::Key_F1);
  ASSERT_NE(Manual(), nullptr);
  EXPECT_EQ(ManualChapter(), "Sorvane: the technician's manual");
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

TEST(HelpKey, ShowsTheChapterOfThePageInFront) {
  Program program;
  program.Connect();
  program.Open("MnuPrezzi");
  program.Open("MnuAllarmi");
  QTest::keyClick(program.frame.get(), Qt::Key_Help);
  ASSERT_NE(Manual(), nullptr);
  EXPECT_EQ(ManualChapter(), "Alarms");
  program.Choose("MnuPrezzi");
  QTest::keyClick(&program.Find("FrmPrezzi", "Text1(0)"), Qt::Key_F1);
  EXPECT_EQ(ManualChapter(), "Prices");
}

TEST(HelpKey, TheManualGoesWithTheProgram) {
  {
    Program program;
    program.Start();
    QTest::keyClick(program.frame.get(), Qt::Key_F1);
    ASSERT_NE(Manual(), nullptr);
  }
  EXPECT_EQ(Manual(), nullptr);
}

}  // namespace
}  // namespace sorvane::test
