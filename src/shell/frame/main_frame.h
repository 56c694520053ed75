#pragma once

#include <QLocale>
#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/frame/page_row.h"
#include "shell/page/page_services.h"
#include "texts/choices.h"

namespace sorvane {

class FrmSer;
class LinkLamps;
class MainMenu;
class ManualWindow;
class PageHost;
class StatusPanels;

// The one window of the program: menu bar, status bar, and the pages as child windows inside it. It
// is the start-up object.
class MainFrame : public QMainWindow {
 public:
  struct Outside {
    ProgramGate& gate;
    Dialogs& dialogs;
    BoardTables& tables;
    ParameterAccess& access;
    LinkLamps& lamps;
    FrmSer& link;
    Separators separators;
    QLocale locale;                       // the system's, for dates
    TimerMaker make_timer;                // of the pages
    std::function<QDateTime()> now;       // the PC's clock, local time
    std::filesystem::path settings_file;  // in the program's folder
    std::vector<PageRow> pages;
    std::function<std::string()> find_usb_port;
    std::function<void(const std::filesystem::path&)> start_program;
  };

  explicit MainFrame(Outside outside);
  ~MainFrame() override;

  // Starts the program, in its fixed order; called once, from the event loop. Nothing is shown
  // where the program ends on the way.
  void Load();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void AssignActions();
  void Connect();
  void OnConnected();
  void ChoosePort(int port);
  void ChooseUsb();
  void ChooseLanguage(int entry);
  void FinishLanguageChoice();
  bool LoadIndexTables();
  void Exit();
  void StartSibling();
  void ShowManual();
  void ShowAndEnd(const MessageBox& box);

  Outside out_;
  Choices choices_;
  PageServices services_;
  std::unique_ptr<MainMenu> menu_;
  std::unique_ptr<PageHost> pages_;
  std::unique_ptr<StatusPanels> panels_;
  std::unique_ptr<ManualWindow> manual_;  // once it has been asked for
};

}  // namespace sorvane
