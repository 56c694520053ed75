#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "board/errors.h"
#include "link/frm_ser.h"
#include "shell/page/child_form.h"
#include "shell/program.h"
#include "support/unwritable_file.h"

namespace sorvane::test {
namespace {

const char* const kBoardEntries[] = {"MnuPassword",  "MnuImpostazioni", "MnuPrezzi", "MnuSconti",
                                     "MnuPagamento", "MnuSet",          "Mnutasti",  "MnuColonne",
                                     "MnuOrologio",  "MnuVendite",      "MnuTotali", "MnuContatori",
                                     "MnuMonete",    "MnuBanconote",    "MnuAllarmi"};

void ExpectBoardEntries(Program& program, bool enabled) {
  for (const char* entry : kBoardEntries) {
    EXPECT_EQ(program.Entry(entry).isEnabled(), enabled) << entry;
  }
}

// The board is silent, and the user cancels.
void ConnectAndGiveUp(Program& program) {
  program.link.board.SwitchOff();
  program.Start();
  program.Choose("mnuConnect");
  program.gate.Run([&] { program.link.clock.Advance(2000); });
  program.link.dialogs.Answer(Answer::kCancel);
}

TEST(StartUp, EndsInAnIdleFrame) {
  Program program;
  program.Start();
  EXPECT_TRUE(program.frame->isVisible());
  EXPECT_EQ(program.frame->windowTitle(), "Sorvane");
  EXPECT_TRUE(program.Entry("mnuConnect").isEnabled());
  ExpectBoardEntries(program, false);
  EXPECT_EQ(program.link.wire.OpenAttempts(), 0);
}

TEST(StartUp, ConnectIsShutUntilItsEnd) {
  Program program;
  EXPECT_FALSE(program.Entry("mnuConnect").isEnabled());
}

TEST(StartUp, LoadsTheDefaultIndexFilesSoThatPagesHaveRecords) {
  Program program;
  program.Start();
  EXPECT_EQ(program.link.tables.RecordCount(0), 419);
  EXPECT_TRUE(program.link.tables.BoardPresent(0));
}

TEST(StartUp, WithoutALanguageFileTheFrameDoesNotShow) {
  Program program({.language_files = false});
  program.Start();
  program.link.dialogs.Expect("File missing!\nReinstall program", "Error", 16);
  EXPECT_FALSE(program.frame->isVisible());
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(StartUp, WithoutALanguageFileNoSettingsAreSavedAndNoSiblingStarts) {
  Program program({.language_files = false, .settings = "Com=2\r\nLingua=Alfa\r\n"});
  program.Start();
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=2\r\nLingua=Alfa\r\n");
  EXPECT_TRUE(program.started.empty());
}

TEST(StartUp, WithoutTheFirstLevelFileTheBoxHasAnEmptyName) {
  Program program;
  program.link.folder.RemoveFile("W0309.inx");
  program.Start();
  EXPECT_TRUE(program.frame->isVisible());
  program.link.dialogs.Expect(" not found !", "ERROR", 16);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(StartUp, WithoutTheSecondLevelFileTheBoxNamesIt) {
  Program program;
  program.link.folder.RemoveFile("W0309AA00.inx");
  program.Start();
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
}

TEST(StartUp, SettingsThatCannotBeSavedEndTheProgramWithTheReport) {
  // With fewer than ten language files the language is dropped, and that is saved.
  Program program;
  program.link.folder.RemoveFile("Lima.lng");
  {
    const UnwritableFile settings(program.link.folder.Path() / "Sorvane.ini");
    program.Start();
  }
  EXPECT_EQ(program.reports,
            std::vector<std::string>{"Run-time error '75':\n\nPath/File access error"});
  EXPECT_FALSE(program.frame->isVisible());
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Alfa\r\n");
}

TEST(Menu, CaptionsComeFromTheMessages) {
  Program program;
  program.Start();
  EXPECT_EQ(program.Entry("MnuPassword").text(), "Alfa 1");
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Alfa 4");
  EXPECT_EQ(program.Entry("Mnutasti").text(), "Alfa 6");
  EXPECT_EQ(program.Entry("MnuAllarmi").text(), "Alfa 14");
  EXPECT_EQ(program.Entry("mnuLingue").text(), "Alfa 15");
}

TEST(Menu, OtherCaptionsAreTheSameInAllLanguages) {
  Program program;
  program.Start();
  EXPECT_EQ(program.Entry("mnuConnect").text(), "Connect");
  EXPECT_EQ(program.Entry("MnuSet").text(), "Set ");
  EXPECT_EQ(program.Entry("mnuWL").text(), "Windows");
  EXPECT_EQ(program.Entry("mnuCom").text(), "COM");
  EXPECT_EQ(program.Entry("mnuCox(3)").text(), "COM&3");
  EXPECT_EQ(program.Entry("mnuUSB").text(), "&USB");
  EXPECT_EQ(program.Entry("mnuVer").text(), "?");
  EXPECT_TRUE(program.Entry("M2").isSeparator());
}

TEST(Menu, StandsInItsOrder) {
  Program program;
  QStringList names;
  for (const QAction* action : program.frame->menuBar()->actions()) names << action->objectName();
  EXPECT_EQ(names.join(' ').toStdString(),
            "mnuConnect MnuPassword MnuImpostazioni MnuPrezzi MnuSconti MnuPagamento MnuSet "
            "MnuOrologio MnuVendite MnuAllarmi mnuLingue mnuWL mnuCom mnuVer");
}

TEST(Menu, EachEntryOpensItsPage) {
  Program program;
  program.Connect();
  for (const auto& [entry, form] : kPageEntries) {
    EXPECT_FALSE(program.IsOpen(form)) << form;
    program.Choose(entry);
    EXPECT_TRUE(program.IsOpen(form)) << form;
  }
}

TEST(Menu, ThePortOfTheSettingsIsChecked) {
  Program program({.settings = "Com=3\r\nLingua=\r\n"});
  program.Start();
  EXPECT_FALSE(program.Entry("mnuCox(1)").isChecked());
  EXPECT_TRUE(program.Entry("mnuCox(3)").isChecked());
}

TEST(Menu, ChoosingAPortMovesTheMarkAndSaves) {
  Program program;
  program.Start();
  program.Choose("mnuCox(4)");
  EXPECT_FALSE(program.Entry("mnuCox(1)").isChecked());
  EXPECT_TRUE(program.Entry("mnuCox(4)").isChecked());
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=4\r\nLingua=Alfa\r\n");
}

TEST(Menu, ChoosingThePortInUseKeepsItsMark) {
  Program program;
  program.Start();
  program.Choose("mnuCox(1)");
  EXPECT_TRUE(program.Entry("mnuCox(1)").isChecked());
}

TEST(Menu, ThePortOfTheUsbAdapterIsSavedByItsNumber) {
  Program program({.usb_port = "COM12"});
  program.Start();
  program.Choose("mnuUSB");
  EXPECT_TRUE(program.Entry("mnuUSB").isChecked());
  EXPECT_FALSE(program.Entry("mnuCox(1)").isChecked());
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=12\r\nLingua=Alfa\r\n");
}

TEST(Menu, WithoutAnAdapterNothingStaysCheckedAndNothingIsSaved) {
  Program program;
  program.Start();
  program.Choose("mnuUSB");
  program.link.dialogs.Expect("USB port not available\rPlease select a different COM port", "Error",
                              16);
  EXPECT_FALSE(program.Entry("mnuUSB").isChecked());
  for (int i = 1; i <= 4; ++i) {
    EXPECT_FALSE(program.Entry(QString("mnuCox(%1)").arg(i)).isChecked());
  }
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Alfa\r\n");
}

TEST(Menu, AnotherPortIsChosenAndPortOneIsOpenedAllTheSame) {
  struct Choice {
    const char* entry;
    const char* usb_port;
  };
  constexpr Choice kChoices[] = {{"mnuCox(2)", ""},
                                 {"mnuCox(3)", ""},
                                 {"mnuUSB", "COM16"},
                                 {"mnuUSB", "COM0"},
                                 {"mnuUSB", "COM255"}};
  for (const auto& [entry, usb_port] : kChoices) {
    Program program({.usb_port = usb_port});
    program.Start();
    program.Choose(entry);
    program.Connect();  // opening any other number is a failure
    EXPECT_EQ(program.link.wire.Opens(), 1) << entry << " " << usb_port;
  }
}

TEST(Connection, OpensTheBoardEntries) {
  Program program;
  program.Connect();
  ExpectBoardEntries(program, true);
  EXPECT_TRUE(program.Entry("mnuConnect").isEnabled());
  EXPECT_EQ(program.Entry("mnuConnect").text(), "Connect");
}

TEST(Connection, ASecondChoiceChangesNothing) {
  Program program;
  program.Connect();
  const int opens = program.link.wire.OpenAttempts();
  program.Choose("mnuConnect");
  EXPECT_EQ(program.frame->cursor().shape(), Qt::ArrowCursor);
  program.Sweep(5);
  EXPECT_EQ(program.link.wire.OpenAttempts(), opens);
  program.link.wire.ExpectNothing();
  ExpectBoardEntries(program, true);
}

TEST(Connection, ShowsABusyCursorWhileItIsBeingMade) {
  Program program;
  program.link.board.SwitchOff();
  program.Start();
  program.Choose("mnuConnect");
  EXPECT_EQ(program.frame->cursor().shape(), Qt::BusyCursor);
  program.gate.Run([&] { program.link.clock.Advance(2000); });
  program.link.dialogs.Answer(Answer::kCancel);
  EXPECT_EQ(program.frame->cursor().shape(), Qt::ArrowCursor);
}

TEST(Connection, AnAbandonedAttemptLeavesTheEntriesShut) {
  Program program;
  ConnectAndGiveUp(program);
  ExpectBoardEntries(program, false);
  EXPECT_FALSE(program.link.ser.IsLoaded());
  EXPECT_FALSE(program.link.ser.ConnectAbandoned);
  EXPECT_FALSE(program.link.wire.PortOpen());
}

TEST(Connection, TheNextAttemptOpensThePortAfresh) {
  Program program;
  ConnectAndGiveUp(program);
  const int opens = program.link.wire.Opens();
  program.link.board.SwitchOn();
  program.Connect();
  EXPECT_EQ(program.link.wire.Opens(), opens + 1);
  ExpectBoardEntries(program, true);
}

TEST(Connection, AWrongBoardEndsWithoutSavingOrASibling) {
  Program program({.settings = "Com=2\r\nLingua=Alfa\r\n"});
  program.link.SetSystem(12, 17);
  program.Start();
  program.Choose("mnuConnect");
  program.gate.Run([&] { program.link.clock.Advance(0); });
  program.link.dialogs.Expect("Board\nNot Compatible", "ERROR", 16);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(program.link.ended, 1);
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=2\r\nLingua=Alfa\r\n");
  EXPECT_TRUE(program.started.empty());
}

TEST(Exit, SavesTheSettingsAndStartsTheSiblingOfTheParentFolder) {
  Program program;
  program.Start();
  program.WriteText("Sorvane.ini", "");
  program.Close();
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=1\r\nLingua=Alfa\r\n");
  const auto parent = std::filesystem::canonical(program.link.folder.Path()).parent_path();
  ASSERT_EQ(program.started.size(), 1U);
  EXPECT_EQ(std::filesystem::canonical(program.started[0].parent_path()), parent);
  EXPECT_EQ(program.started[0].filename(), "ARDENZA.EXE");
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(Exit, ClosesThePortAndStopsTheTimers) {
  Program program;
  program.Connect();
  program.Close();
  EXPECT_FALSE(program.link.wire.PortOpen());
  EXPECT_EQ(program.link.clock.Armed(), 0);
}

TEST(Exit, UnloadsTheOpenPages) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Close();
  EXPECT_EQ(program.link.Record(43).At(5), 0);
}

TEST(Exit, HappensOnceThoughTheFrameIsClosedTwice) {
  Program program;
  program.Start();
  program.Close();
  program.Close();
  EXPECT_EQ(program.started.size(), 1U);
}

TEST(Exit, AnErrorOnTheWayLeadsStraightToTheEnd) {
  Program program;
  program.Start();
  program.link.folder.RemoveFile("Sorvane.ini");
  std::filesystem::create_directory(program.link.folder.Path() / "Sorvane.ini");
  program.Close();
  EXPECT_TRUE(program.started.empty());
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
  EXPECT_TRUE(program.reports.empty());
  EXPECT_EQ(program.exits, std::vector<int>{0});
}

TEST(Exit, NeitherSavesNorStartsASiblingAfterARunTimeError) {
  Program program({.settings = "Com=2\r\nLingua=Alfa\r\n"});
  program.Start();
  program.gate.Run([] { throw RuntimeError(ErrorCode::kOverflow); });
  program.Close();
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=2\r\nLingua=Alfa\r\n");
  EXPECT_TRUE(program.started.empty());
  EXPECT_EQ(program.exits, std::vector<int>{1});
}

TEST(Exit, NeitherSavesNorStartsASiblingAfterAnInternalFault) {
  Program program({.settings = "Com=2\r\nLingua=Alfa\r\n"});
  program.Start();
  program.gate.Run([&] { program.link.access.WriteParameter(0, 1); });
  EXPECT_EQ(program.exits, std::vector<int>{1});
  EXPECT_TRUE(program.reports.empty());
  program.Close();
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=2\r\nLingua=Alfa\r\n");
  EXPECT_TRUE(program.started.empty());
}

TEST(Gate, NothingRunsBehindAnError) {
  Program program;
  program.Connect();
  program.gate.Run([] { throw RuntimeError(ErrorCode::kOverflow); });
  bool ran = false;
  program.gate.Run([&] { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_EQ(program.reports.size(), 1U);
}

TEST(Pages, StandSideBySide) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Choose("mnuVer");
  EXPECT_TRUE(program.IsOpen("FrmSconti"));
  EXPECT_TRUE(program.IsOpen("FrmInfo"));
}

TEST(Pages, AnEntryBringsItsOpenPageToTheFront) {
  Program program;
  program.Connect();
  program.Open("MnuSconti");
  program.Choose("mnuVer");
  program.Choose("MnuSconti");
  auto* area = program.frame->findChild<QMdiArea*>();
  EXPECT_EQ(area->activeSubWindow()->widget()->objectName(), "FrmSconti");
  EXPECT_EQ(area->subWindowList().size(), 2);
}

TEST(Pages, AnEntryBringsItsMinimizedPageBack) {
  Program program;
  program.Connect();
  program.Choose("MnuSconti");
  QWidget& window = *program.frame->findChild<ChildForm*>("FrmSconti")->parentWidget();
  window.showMinimized();
  program.Choose("MnuPrezzi");
  ASSERT_TRUE(window.isMinimized());
  program.Choose("MnuSconti");
  EXPECT_FALSE(window.isMinimized());
  EXPECT_TRUE(window.isVisible());
}

TEST(Pages, AMinimizedPageKeepsItsSizeWhenTheLanguageChanges) {
  Program program;
  program.Connect();
  program.Choose("MnuSconti");
  QWidget& window = *program.frame->findChild<ChildForm*>("FrmSconti")->parentWidget();
  window.showMinimized();
  const QSize small = window.size();
  program.Choose("smnuLingue(1)");
  EXPECT_TRUE(window.isMinimized());
  EXPECT_EQ(window.size(), small);
}

TEST(Lamps, StandBehindATextOnTheStatusBar) {
  Program program;
  program.Start();
  const auto* bar = program.frame->findChild<QStatusBar*>("StatusBar1");
  ASSERT_EQ(bar, program.frame->statusBar());
  for (int panel = 1; panel <= 4; ++panel) {
    EXPECT_NE(bar->findChild<QWidget*>(QString("Panel(%1)").arg(panel)), nullptr) << panel;
  }
}

TEST(Lamps, TheTextOfTheLinkStandsInTheStatusLineUntilTheNextReply) {
  Program program;
  program.Connect();
  program.link.lamps.SetText("line 2");
  const auto shown = [&program] {
    for (const QLabel* label : program.frame->findChildren<QLabel*>()) {
      if (label->text() == "line 2") return true;
    }
    return false;
  };
  EXPECT_TRUE(shown());
  program.Open("MnuSconti");
  EXPECT_FALSE(shown());
}

TEST(Pages, StandInTheMiddleOfTheFrameALittleAboveIt) {
  Program program;
  program.Connect();
  program.frame->resize(1000, 800);
  for (const char* entry : {"mnuVer", "MnuSconti"}) {
    program.Choose(entry);
    auto* window = program.frame->findChild<QMdiArea*>()->activeSubWindow();
    const QSize frame = program.frame->frameGeometry().size();
    // 40 twips are 2.67 pixels.
    EXPECT_NEAR(window->y(), frame.height() * 0.85 / 2 - window->height() / 2.0 + 2.67, 1);
    EXPECT_NEAR(window->x(), frame.width() / 2.0 - window->width() / 2.0, 1);
  }
}

TEST(Info, ShowsTitleAndRevisionAndTakesNoNotices) {
  Program program;
  program.Connect();
  program.Choose("mnuVer");
  program.Open("MnuSconti");  // replies come while it stands
  auto* info = program.frame->findChild<ChildForm*>("FrmInfo");
  EXPECT_EQ(info->windowTitle(), "Info");
  EXPECT_EQ(info->findChild<QLabel*>("Label1")->text(), "Sorvane");
  EXPECT_EQ(info->findChild<QLabel*>("Label2")->text(), "Rev. 1.0.0");
}

}  // namespace
}  // namespace sorvane::test
