#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <QScreen>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <utility>

#include "board/board_tables.h"
#include "board/parameter_access.h"
#include "link/frm_ser.h"
#include "link/link_lamps.h"
#include "pages/frm_info.h"
#include "pages/program_pages.h"
#include "platform/com_port_path.h"
#include "platform/program_path.h"
#include "platform/serial_port.h"
#include "platform/start_program.h"
#include "platform/usb_adapter.h"
#include "shell/controls/program_style.h"
#include "shell/frame/crystal.h"
#include "shell/frame/main_frame.h"
#include "shell/gate/program_gate.h"
#include "shell/gate/qt_dialogs.h"
#include "shell/gate/qt_timer.h"
#include "texts/choices.h"
#include "texts/western_text.h"
#include "version.h"

using namespace sorvane;

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  // Not the display name: Qt would put that behind the title of every box.
  QApplication::setApplicationName("Sorvane");
  QApplication::setStyle(new ProgramStyle);
  // Desktops that pale the menu of a window behind another pale its open entries below the closed
  // ones, and a message box leaves the frame behind it.
  QApplication::setPalette(QApplication::palette(), "QMenuBar");
  QApplication::setWindowIcon(ProgramIcon());
  // The program ends where its rules say so, not with a box that closes before the frame shows.
  QApplication::setQuitOnLastWindowClosed(false);
  const std::filesystem::path program = ProgramPath();
  const std::filesystem::path folder = program.parent_path();

  std::unique_ptr<QtDialogs> dialogs;
  ProgramGate gate(
      {.report = [&](const std::string& text,
                     std::function<void()> then) { dialogs->Report(text, std::move(then)); },
       .leave = [](int exit_code) { QCoreApplication::exit(exit_code); }});
  dialogs = std::make_unique<QtDialogs>(gate);

  BoardTables tables;
  ParameterAccess access(tables);
  LinkLamps lamps;
  const std::unique_ptr<Port> port =
      MakeSerialPort([&](int number) { return ComPortPath(folder, number); },
                     [&](const std::function<void()>& handler) { gate.Run(handler); });
  FrmSer link({.tables = tables,
               .port = *port,
               .lamps = lamps,
               .dialogs = *dialogs,
               .make_timer = MakeQtTimers(gate),
               .folder = folder,
               .end_program = [&] { gate.End(0); }});

  MainFrame frame({.gate = gate,
                   .dialogs = *dialogs,
                   .tables = tables,
                   .access = access,
                   .lamps = lamps,
                   .link = link,
                   .separators = SeparatorsOf(QLocale::system()),
                   .locale = QLocale::system(),
                   .make_timer = MakeQtTimers(gate),
                   .now = [] { return QDateTime::currentDateTime(); },
                   .settings_file = SettingsFile(program),
                   .pages = ProgramPages(QApplication::applicationDisplayName(), kVersion),
                   .find_usb_port = FindSystemUsbPort,
                   .start_program = StartProgram});
  dialogs->SetFrame(&frame);
  // In a large font the pages ask for more than a small screen has; the frame's own title takes
  // some of that, too.
  const QSize title(0, 2 * frame.fontMetrics().height());
  frame.resize(frame.size().boundedTo(frame.screen()->availableSize() - title));

  // Start-up may end the program, which only a running event loop can do.
  QTimer::singleShot(0, &frame, gate.Wrap([&] { frame.Load(); }));
  return QApplication::exec();
}
