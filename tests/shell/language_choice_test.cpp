#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "shell/page/child_form.h"
#include "shell/program.h"

namespace sorvane::test {
namespace {

QString FrontForm(Program& program) {
  QMdiSubWindow* window = program.frame->findChild<QMdiArea*>()->activeSubWindow();
  return window == nullptr ? QString() : window->widget()->objectName();
}

TEST(LanguageChoice, ListsTheFilesOfTheFolder) {
  Program program;
  program.Start();
  EXPECT_EQ(program.Entry("smnuLingue(0)").text(), "Alfa");
  EXPECT_EQ(program.Entry("smnuLingue(9)").text(), "Lima");
  EXPECT_TRUE(program.Entry("smnuLingue(9)").isVisible());
  EXPECT_TRUE(program.Entry("smnuLingue(0)").isChecked());
}

TEST(LanguageChoice, EntriesWithoutAFileAreHidden) {
  Program program;
  for (const char* name : {"Golf.lng", "Hotel.lng", "India.lng", "Lima.lng"}) {
    program.link.folder.RemoveFile(name);
  }
  program.Start();
  EXPECT_TRUE(program.Entry("smnuLingue(5)").isVisible());
  EXPECT_FALSE(program.Entry("smnuLingue(6)").isVisible());
}

TEST(LanguageChoice, AnAmpersandInAFileNameIsShownAndIsNoAccessKey) {
  Program program;
  program.WriteText("Alfa & Beta.lng", program.File("Alfa.lng"));
  program.link.folder.RemoveFile("Alfa.lng");
  program.Start();
  EXPECT_EQ(program.Entry("smnuLingue(0)").text(), "Alfa && Beta");
}

TEST(LanguageChoice, ChangesTheMenuMovesTheMarkAndSaves) {
  Program program;
  program.Start();
  program.Choose("smnuLingue(2)");
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Charlie 4");
  EXPECT_FALSE(program.Entry("smnuLingue(0)").isChecked());
  EXPECT_TRUE(program.Entry("smnuLingue(2)").isChecked());
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Charlie\r\n");
}

TEST(LanguageChoice, ChoosingTheLanguageInUseKeepsItsMark) {
  Program program;
  program.Start();
  program.Choose("smnuLingue(0)");
  EXPECT_TRUE(program.Entry("smnuLingue(0)").isChecked());
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
}

TEST(LanguageChoice, OpensNoEntry) {
  Program program;
  program.Start();
  program.Choose("smnuLingue(1)");
  EXPECT_FALSE(program.Entry("MnuSconti").isEnabled());
}

TEST(LanguageChoice, ChangesTheCaptionsOfAllOpenPages) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Choose("mnuVer");
  program.Choose("smnuLingue(1)");
  auto* page = program.frame->findChild<ChildForm*>("FrmSconti");
  EXPECT_EQ(page->windowTitle(), "Bravo 4");
  EXPECT_EQ(page->parentWidget()->windowTitle(), "Bravo 4");
  EXPECT_EQ(page->findChild<QLabel*>("LabelMess1(0)")->text(), "Bravo 36 1");
}

TEST(LanguageChoice, TheActivePageIsActiveAgain) {
  Program program;
  program.Connect();
  program.Choose("mnuVer");
  program.Open("MnuSconti");
  program.Choose("mnuVer");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(FrontForm(program), "FrmInfo");
  program.Choose("MnuSconti");
  program.Choose("smnuLingue(2)");
  EXPECT_EQ(FrontForm(program), "FrmSconti");
  EXPECT_EQ(program.frame->findChild<QMdiArea*>()->subWindowList().size(), 2);
}

TEST(LanguageChoice, ChangesTheActivePageToo) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(program.frame->findChild<ChildForm*>("FrmSconti")->windowTitle(), "Bravo 4");
}

TEST(LanguageChoice, WithoutAPageNothingOpens) {
  Program program;
  program.Start();
  program.Choose("smnuLingue(1)");
  EXPECT_TRUE(program.frame->findChild<QMdiArea*>()->subWindowList().isEmpty());
}

TEST(LanguageChoice, TakesTheFocusFromTheFieldAndGivesItBack) {
  Program program;
  program.link.SetBoardNumber(2, 10);
  program.Connect();
  program.Open("MnuSconti");
  const QString shown = program.Text("FrmSconti", "Text1(0)");
  program.TypeOnly("FrmSconti", "Text1(0)", "12");
  program.Choose("smnuLingue(1)");
  EXPECT_TRUE(program.Find("FrmSconti", "Text1(0)").hasFocus());
  EXPECT_EQ(program.Text("FrmSconti", "Text1(0)"), "");
  EXPECT_NE(shown, "");
  EXPECT_EQ(program.Find("FrmSconti", "Text1(0)").property("savedText"), shown);
}

TEST(LanguageChoice, MakesRoomForLongerCaptions) {
  Program program;
  std::string text = program.File("Bravo.lng");
  text.replace(text.find("Bravo 36"), 8, "Bravo with a caption of some length");
  program.WriteText("Bravo.lng", text);
  program.Connect();
  program.Open("MnuSconti");
  auto* page = program.frame->findChild<ChildForm*>("FrmSconti");
  const int before = page->width();
  program.Choose("smnuLingue(1)");
  EXPECT_GT(page->width(), before);
  EXPECT_GE(page->width(), page->minimumSizeHint().width());
}

TEST(LanguageChoice, AFileThatDoesNotFitIsRefusedWithABox) {
  Program program;
  program.WriteText("Bravo.lng", "one line\r\n");
  program.Start();
  program.Choose("smnuLingue(1)");
  program.link.dialogs.Expect("Check file message !!!", "Wrong file", 48);
  EXPECT_TRUE(program.Entry("smnuLingue(0)").isChecked());
  EXPECT_FALSE(program.Entry("smnuLingue(1)").isChecked());
}

TEST(LanguageChoice, AfterARefusedFileTheOldLanguageStandsAndIsSaved) {
  Program program;
  program.WriteText("Bravo.lng", "one line\r\n");
  program.Connect();
  program.Open("MnuSconti");
  program.WriteText("Sorvane.ini", "");
  program.Choose("smnuLingue(1)");
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.Entry("MnuPassword").text(), "Alfa 1");
  EXPECT_EQ(program.frame->findChild<ChildForm*>("FrmSconti")->windowTitle(), "Alfa 4");
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Alfa\r\n");
  EXPECT_EQ(FrontForm(program), "FrmSconti");
}

TEST(LanguageChoice, TheFirstOneAfterADroppedLanguageEndsTheProgram) {
  Program program;
  program.link.folder.RemoveFile("Lima.lng");
  program.Start();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(program.reports, std::vector<std::string>{"Run-time error '53':\n\nFile not found"});
}

TEST(LanguageChoice, OutlivesARestartWithTenLanguages) {
  Program program({.settings = "Com=1\r\nLingua=Echo\r\n"});
  program.Start();
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Echo 4");
  EXPECT_TRUE(program.Entry("smnuLingue(4)").isChecked());
}

TEST(LanguageChoice, TheTenthLanguageIsSavedLikeAnyOther) {
  Program program;
  program.Start();
  program.Choose("smnuLingue(9)");
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Lima\r\n");
}

TEST(LanguageChoice, TheTenthLanguageDoesNotOutliveARestart) {
  Program program({.settings = "Com=1\r\nLingua=Lima\r\n"});
  program.Start();
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
  EXPECT_TRUE(program.Entry("smnuLingue(0)").isChecked());
}

}  // namespace
}  // namespace sorvane::test
