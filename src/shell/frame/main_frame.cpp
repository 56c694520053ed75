#include "shell/frame/main_frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QStatusBar>
#include <exception>

#include "board/board_tables.h"
#include "board/index_file.h"
#include "link/frm_ser.h"
#include "outside/dialogs.h"
#include "shell/frame/background.h"
#include "shell/frame/frame_keys.h"
#include "shell/frame/main_menu.h"
#include "shell/frame/manual_window.h"
#include "shell/frame/page_host.h"
#include "shell/frame/status_panels.h"
#include "shell/gate/program_gate.h"
#include "shell/page/child_form.h"
#include "shell/page/page_sizes.h"
#include "texts/program_words.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

// The program that goes on where this one ends; it lies in the parent folder.
constexpr const char* kSibling = "ARDENZA.EXE";

// Room for every page.
constexpr int kFrameCharacters = 172;
constexpr int kFrameLines = 51;

}  // namespace

MainFrame::MainFrame(Outside outside)
    : out_(std::move(outside)),
      choices_(out_.settings_file),
      services_({
          .tables = out_.tables,
          .access = out_.access,
          .messages = choices_.messages,
          .gate = out_.gate,
          .dialogs = out_.dialogs,
          .separators = out_.separators,
          .locale = out_.locale,
          .make_timer = out_.make_timer,
          .now = out_.now,
          .italian = [this] { return choices_.IsItalian(); },
      }) {
  setObjectName("MDIForm1");
  auto* area = new Background(this);
  setCentralWidget(area);
  menu_ = std::make_unique<MainMenu>(*menuBar(), out_.gate);
  pages_ = std::make_unique<PageHost>(out_.gate, *area, *this);
  AddFrameKeys(out_.gate, *this, *area, [this] { ShowManual(); });
  const QSize pages(page_size::Pixels(kFrameCharacters, *this),
                    kFrameLines * fontMetrics().height());
  resize(pages.expandedTo({menuBar()->sizeHint().width(), 0}));
  statusBar()->setObjectName("StatusBar1");
  statusBar()->setSizeGripEnabled(false);
  panels_ = std::make_unique<StatusPanels>(out_.gate, *statusBar(),
                                           [this] { return choices_.IsItalian(); });

  AssignActions();
  menu_->on_windows = [this](QMenu& menu) {
    pages_->FillWindowsMenu(menu, HintText(Hint::kNoPage, choices_.IsItalian()));
  };
  menu_->Enable(MenuEntry::kConnect, false);
  out_.link.on_loaded = [this] { OnConnected(); };
  out_.link.reply_notice = [this](const Reply& reply) { pages_->ReplyNotice(reply); };
}

MainFrame::~MainFrame() = default;

void MainFrame::Load() {
  std::filesystem::current_path(choices_.Folder());
  menu_->EnableBoardEntries(false);
  if (!choices_.ReadSettings() || !choices_.CeckLingue()) {
    ShowAndEnd(NoLanguageBox());
    return;
  }
  menu_->ShowMarks(choices_.marks);
  SetBoardDefaults(out_.tables);
  show();
  menu_->InitMenu(choices_.messages);
  if (!LoadIndexTables()) return;
  panels_->InitStatusPanels(out_.lamps);
  setWindowTitle(QApplication::applicationDisplayName());
  menu_->Enable(MenuEntry::kConnect, true);
}

bool MainFrame::LoadIndexTables() {
  BoardTables& tables = out_.tables;
  std::string name;
  try {
    LoadFirstLevel(tables, choices_.Folder());
    tables.BoardPresent(tables.BoardIndex) = true;
    tables.IndexType = tables.BoardTypeNumber;
    tables.IndexSoftware = tables.BoardSoftwareNumber;
    tables.IndexRevision = tables.BoardRevisionNumber;
    LoadSecondLevel(tables, choices_.Folder(), name);
    return true;
  } catch (const std::exception&) {  // also for want of memory
    ShowAndEnd(IndexFileBox(name));
    return false;
  }
}

void MainFrame::AssignActions() {
  menu_->Do(MenuEntry::kConnect, [this](int) { Connect(); });
  menu_->Do(MenuEntry::kLanguage, [this](int entry) { ChooseLanguage(entry); });
  menu_->Do(MenuEntry::kPort, [this](int port) { ChoosePort(port); });
  menu_->Do(MenuEntry::kUsb, [this](int) { ChooseUsb(); });
  for (const PageRow& row : out_.pages) {
    menu_->Do(row.entry,
              [this, &row](int) { pages_->Open(row.form, [&] { return row.make(services_); }); });
  }
  menu_->CheckActions();
}

void MainFrame::Connect() {
  if (out_.link.IsLoaded()) return;
  setCursor(Qt::BusyCursor);
  out_.link.Load();
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

void MainFrame::ChoosePort(int port) {
  choices_.ChooseCox(static_cast<uint8_t>(port));
  menu_->ShowMarks(choices_.marks);
}

void MainFrame::ChooseUsb() {
  const bool found = choices_.ChooseUsb(out_.find_usb_port);
  menu_->ShowMarks(choices_.marks);
  if (!found) out_.dialogs.Show(NoUsbPortBox(), [](Answer) {});
}

void MainFrame::ChooseLanguage(int entry) {
  const bool fits = choices_.ChooseLanguage(entry);
  menu_->ShowMarks(choices_.marks);
  if (fits) {
    FinishLanguageChoice();
  } else {
    out_.dialogs.Show(WrongFileBox(), [this](Answer) { FinishLanguageChoice(); });
  }
}

void MainFrame::FinishLanguageChoice() {
  menu_->InitMenu(choices_.messages);
  choices_.SaveSettings();
  pages_->Refresh();
}

void MainFrame::ShowManual() {
  if (!manual_) manual_ = std::make_unique<ManualWindow>();
  manual_->ShowChapter(pages_->FrontForm(), choices_.IsItalian());
}

void MainFrame::closeEvent(QCloseEvent* event) {
  event->accept();
  // While a box stands whose answer ends the program, closing is that answer and nothing more.
  if (!out_.dialogs.IsEnding()) out_.gate.Run([this] { Exit(); });
  out_.gate.End(0);
}

void MainFrame::Exit() {
  pages_->CloseAll();
  try {
    choices_.SaveSettings();
    out_.link.Unload();
    StartSibling();
  } catch (const std::exception&) {
    // Whatever fails here leads straight to the end, in silence.
    return;
  }
}

void MainFrame::StartSibling() {
  std::filesystem::current_path(choices_.Folder());
  std::filesystem::current_path("..");
  out_.start_program(std::filesystem::current_path() / kSibling);
}

void MainFrame::ShowAndEnd(const MessageBox& box) {
  out_.dialogs.ShowLast(box, [this] { out_.gate.End(0); });
}

}  // namespace sorvane
