#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/frame/main_frame.h"
#include "shell/gate/program_gate.h"
#include "support/link_fixture.h"

class QAction;

namespace sorvane::test {

// The pages over a connected board, and the menu entries that open them.
struct PageEntry {
  const char* entry;
  const char* form;
};
inline constexpr PageEntry kPageEntries[] = {
    {"MnuPassword", "FrmPassword"},   {"MnuImpostazioni", "FrmImposta"},
    {"MnuPrezzi", "FrmPrezzi"},       {"MnuSconti", "FrmSconti"},
    {"MnuPagamento", "FrmPagamento"}, {"Mnutasti", "FrmTastiColonna"},
    {"MnuColonne", "FrmColonnaProd"}, {"MnuOrologio", "FrmOrologio"},
    {"MnuTotali", "FrmTotali"},       {"MnuContatori", "FrmContatori"},
    {"MnuMonete", "FrmMonete"},       {"MnuBanconote", "FrmBanconote"},
    {"MnuAllarmi", "FrmAllarmi"},
};

// The whole program on virtual time, but for its event loop, port and boxes: the real main frame
// and pages over the real link, and a board at the other end of the wire whose second-level file
// has all records of a machine. The folder holds ten language files, "Alfa" to "Lima" without
// "Juliett" and "Kilo", whose line n reads "NAME n".
//
//   Program program;
//   program.Connect();
//   program.Open("MnuSconti");
//   program.Type("FrmSconti", "Text1(2)", "12,50");
class Program {
 public:
  struct Setup {
    Separators separators{'.', ','};
    QLocale locale{QLocale::English, QLocale::UnitedKingdom};  // of dates: 05/03/2026
    std::vector<PageRow> pages = {};                           // in place of the program's own
    std::string usb_port = {};                                 // what the look-up finds
    bool language_files = true;
    // Takes the clock's maker of timers and gives the one that the program gets.
    std::function<TimerMaker(TimerMaker)> timers = {};
    std::string settings = "Com=1\r\nLingua=Alfa\r\n";
  };

  Program() : Program(Setup{}) {}
  explicit Program(const Setup& setup);
  ~Program();

  // Loads the main frame and waits until it is the active window, if it shows.
  void Start();
  // Starts if need be and connects; the frames of identification are forgotten.
  void Connect();
  // Chooses a menu entry by its name, as a click does. A failure of the test if it is disabled.
  void Choose(const QString& entry);
  // Chooses a page's entry and lets the sweep ask for all that the page watches.
  void Open(const QString& entry);
  // Lets the sweep make n steps of 40 ms; with none given, as many as a full page takes.
  void Sweep(int n = 80);
  // Closes the frame by its close control.
  void Close();

  // A control of an open form, by the names that both bear. A failure of the test if there is none.
  template <typename Control = QWidget>
  Control& Find(const QString& form, const QString& control) {
    return dynamic_cast<Control&>(FindWidget(form, control));
  }
  bool IsOpen(const QString& form) const;
  QAction& Entry(const QString& name);

  // Gives a field the focus by a click and types into it, key by key.
  void TypeOnly(const QString& form, const QString& field, const QString& text);
  // The same, and Enter.
  void Type(const QString& form, const QString& field, const QString& text);
  void Press(const QString& form, const QString& control, int key);
  QString Text(const QString& form, const QString& field);
  // The position of a bar.
  int Position(const QString& form, const QString& bar);

  // The text of a file of the folder, or "none".
  std::string File(const std::string& name) const;
  void WriteText(const std::string& name, const std::string& text) const;

  // The PC's clock as the program reads it; a test may put another one in its place. It starts at
  // half past ten on 5 March 2026 and goes on with the virtual time of the link.
  std::function<QDateTime()> now = [this] {
    return QDateTime(QDate(2026, 3, 5), QTime(10, 30)).addMSecs(link.clock.Now().count());
  };

  Link link;
  std::vector<std::string> reports;            // of run-time errors
  std::vector<int> exits;                      // exit codes with which the loop was left
  std::vector<std::filesystem::path> started;  // other programs
  ProgramGate gate;
  std::unique_ptr<MainFrame> frame;

 private:
  QWidget& FindWidget(const QString& form, const QString& control);
};

}  // namespace sorvane::test
