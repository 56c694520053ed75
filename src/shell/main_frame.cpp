#include "shell/main_frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QStatusBar>
#include <exception>

#include "board/board_tables.h"
#include "board/index_file.h"
#include "link/dialogs.h"
#include "link/frm_ser.h"
#include "shell/background.h"
#include "shell/child_form.h"
#include "shell/frame_keys.h"
#include "shell/language_files.h"
#include "shell/main_menu.h"
#include "shell/page_host.h"
#include "shell/page_sizes.h"
#include "shell/program_gate.h"
#include "shell/status_panels.h"
#include "shell/western_text.h"

namespace sorvane {
namespace {

// The program that goes on where this one ends; it lies in the parent folder.
constexpr const char* kSibling = "ARDENZA.EXE";

// Room for every page.
constexpr int kFrameCharacters = 172;
constexpr int kFrameLines = 51;

// The index in an entry's name, such as 2 in "mnuCox(2)".
int IndexIn(const QString& entry) { return entry.section('(', 1).section(')', 0, 0).toInt(); }

}  // namespace

MainFrame::MainFrame(Outside outside)
    : out_(std::move(outside)), services_{out_.tables, out_.access,     messages_,
                                          out_.gate,   out_.dialogs,    out_.separators,
                                          out_.locale, out_.make_timer, out_.now} {
  setObjectName("MDIForm1");
  auto* area = new Background(this);
  setCentralWidget(area);
  menu_ = std::make_unique<MainMenu>(*menuBar(), out_.gate);
  pages_ = std::make_unique<PageHost>(out_.gate, *area, *this);
  AddFrameKeys(out_.gate, *this, *area);
  const QSize pages(page_size::Pixels(kFrameCharacters, *this),
                    kFrameLines * fontMetrics().height());
  resize(pages.expandedTo({menuBar()->sizeHint().width(), 0}));
  statusBar()->setObjectName("StatusBar1");
  statusBar()->setSizeGripEnabled(false);
  panels_ = std::make_unique<StatusPanels>(*statusBar());

  menu_->on_chosen = [this](const QString& entry) { OnChosen(entry); };
  menu_->on_windows = [this](QMenu& menu) { pages_->FillWindowsMenu(menu); };
  menu_->Enable("mnuConnect", false);
  out_.link.on_loaded = [this] { OnConnected(); };
  out_.link.reply_notice = [this](const Reply& reply) { pages_->ReplyNotice(reply); };
}

MainFrame::~MainFrame() = default;

void MainFrame::Load() {
  std::filesystem::current_path(out_.folder);
  menu_->EnableBoardEntries(false);
  if (!ReadSettings(out_.settings_file, settings_, marks_) ||
      !CeckLingue(out_.folder, settings_, marks_, messages_)) {
    ShowAndEnd(NoLanguageBox());
    return;
  }
  menu_->ShowMarks(marks_);
  SetBoardDefaults(out_.tables);
  show();
  menu_->InitMenu(messages_);
  if (!LoadIndexTables()) return;
  panels_->InitStatusPanels(out_.lamps);
  setWindowTitle(QApplication::applicationDisplayName());
  menu_->Enable("mnuConnect", true);
}

bool MainFrame::LoadIndexTables() {
  BoardTables& tables = out_.tables;
  std::string name;
  try {
    LoadFirstLevel(tables, out_.folder);
    tables.BoardPresent(tables.BoardIndex) = true;
    tables.IndexType = tables.BoardTypeNumber;
    tables.IndexSoftware = tables.BoardSoftwareNumber;
    tables.IndexRevision = tables.BoardRevisionNumber;
    LoadSecondLevel(tables, out_.folder, name);
    return true;
  } catch (const std::exception&) {  // also for want of memory
    ShowAndEnd(IndexFileBox(name));
    return false;
  }
}

void MainFrame::OnChosen(const QString& entry) {
  if (entry == "mnuConnect") {
    Connect();
  } else if (entry == "mnuUSB") {
    ChooseUsb();
  } else if (entry.startsWith("mnuCox")) {
    ChooseCox(static_cast<uint8_t>(IndexIn(entry)), out_.settings_file, settings_, marks_);
    menu_->ShowMarks(marks_);
  } else if (entry.startsWith("smnuLingue")) {
    ChooseLanguage(IndexIn(entry));
  } else {
    OpenPage(entry);
  }
}

void MainFrame::Connect() {
  if (out_.link.IsLoaded()) return;
  setCursor(Qt::BusyCursor);
  out_.link.Load(settings_.PortNumber);
}

void MainFrame::OnConnected() {
  unsetCursor();
  if (out_.link.ConnectAbandoned) {
    out_.link.ConnectAbandoned = false;
    out_.link.Unload();
  } else {
    menu_->EnableBoardEntries(true);
  }
}

void MainFrame::OpenPage(const QString& entry) {
  for (const PageRow& row : out_.pages) {
    if (entry == row.menu_entry) pages_->Open(row.form, [&] { return row.make(services_); });
  }
}

void MainFrame::ChooseUsb() {
  const bool found = sorvane::ChooseUsb(out_.find_usb_port, out_.settings_file, settings_, marks_);
  menu_->ShowMarks(marks_);
  if (!found) out_.dialogs.Show(NoUsbPortBox(), [](Answer) {});
}

void MainFrame::ChooseLanguage(int entry) {
  const bool fits = sorvane::ChooseLanguage(entry, out_.folder, settings_, marks_, messages_);
  menu_->ShowMarks(marks_);
  if (fits) {
    FinishLanguageChoice();
  } else {
    out_.dialogs.Show(WrongFileBox(), [this](Answer) { FinishLanguageChoice(); });
  }
}

void MainFrame::FinishLanguageChoice() {
  menu_->InitMenu(messages_);
  SaveSettings(out_.settings_file, settings_, marks_);
  pages_->Refresh();
}

void MainFrame::closeEvent(QCloseEvent* event) {
  event->accept();
  // While a box stands whose answer ends the program, closing is that answer and nothing more.
  if (!ending_ && !out_.link.IsEnding()) out_.gate.Run([this] { Exit(); });
  out_.gate.End(0);
}

void MainFrame::Exit() {
  pages_->CloseAll();
  try {
    SaveSettings(out_.settings_file, settings_, marks_);
    out_.link.Unload();
    StartSibling();
  } catch (const std::exception&) {
    // Whatever fails here leads straight to the end, in silence.
    return;
  }
}

void MainFrame::StartSibling() {
  std::filesystem::current_path(out_.folder);
  std::filesystem::current_path("..");
  out_.start_program(std::filesystem::current_path() / kSibling);
}

void MainFrame::ShowAndEnd(const MessageBox& box) {
  ending_ = true;
  out_.dialogs.Show(box, [this](Answer) { out_.gate.End(0); });
}

}  // namespace sorvane
