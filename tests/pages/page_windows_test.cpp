#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>

#include "shell/page/child_form.h"
#include "shell/program.h"

// What all pages have in common as windows of the frame.
namespace sorvane::test {
namespace {

// A language whose lines all hold an ampersand and what looks like a mark of rich text.
std::string OddLanguage() {
  std::string text;
  for (int line = 1; line <= 102; ++line) {
    text += line == 16 ? ";-- odd\r\n" : "<b>A & B</b>\r\n";
  }
  return text;
}

// What a label shows for its text: behind a buddy two ampersands stand for one.
QString ShownText(const QLabel& label) {
  EXPECT_EQ(label.textFormat(), Qt::PlainText) << label.objectName().toStdString();
  QString text = label.text();
  return label.buddy() == nullptr ? text : text.replace("&&", "\1").remove('&').replace('\1', '&');
}

TEST(PageWindows, CaptionsShowAsTheyStandInTheLanguageFile) {
  Program program;
  program.WriteText("Alfa.lng", OddLanguage());
  program.Connect();
  for (const auto& [entry, form] : kPageEntries) {
    program.Choose(entry);
    for (const QLabel* label :
         program.frame->findChild<ChildForm*>(form)->findChildren<QLabel*>()) {
      if (!label->text().contains('&')) continue;
      EXPECT_TRUE(ShownText(*label).contains("<b>A & B</b>"))
          << form << " " << label->objectName().toStdString();
    }
  }
}

TEST(PageWindows, AWindowThatTheUserEnlargedStaysAsLargeWhenItComesToTheFront) {
  Program program;
  program.Connect();
  program.Choose("MnuAllarmi");
  QWidget& window = *program.frame->findChild<ChildForm*>("FrmAllarmi")->parentWidget();
  const QSize large = window.size() + QSize(40, 30);
  window.resize(large);
  program.Choose("MnuPassword");
  program.Choose("MnuAllarmi");
  EXPECT_EQ(window.size(), large);
}

TEST(PageWindows, AWindowGrowsWithTheCaptionsOfAnotherLanguage) {
  Program program;
  std::string wide;
  for (int line = 1; line <= 102; ++line) {
    wide += line == 16 ? ";-- wide\r\n" : "A caption that is longer than all others\r\n";
  }
  program.WriteText("Bravo.lng", wide);
  program.Connect();
  program.Choose("MnuTotali");
  QWidget& window = *program.frame->findChild<ChildForm*>("FrmTotali")->parentWidget();
  const int width = window.width();
  program.Choose("smnuLingue(1)");
  EXPECT_GT(window.width(), width);
}

TEST(PageWindows, ABoxThatIsAnsweredAfterItsPageHasGoneDoesNoHarm) {
  Program program;
  program.Connect();
  program.Open("MnuImpostazioni");
  program.Type("FrmImposta", "Text1(1)", "x");
  program.frame->findChild<ChildForm*>("FrmImposta")->parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_FALSE(program.gate.IsShut());
}

}  // namespace
}  // namespace sorvane::test
