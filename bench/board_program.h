#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "bench/program_folder.h"
#include "board/board_tables.h"
#include "board/parameter_access.h"
#include "link/frm_ser.h"
#include "link/link_lamps.h"
#include "outside/dialogs.h"
#include "platform/serial_port.h"
#include "shell/frame/main_frame.h"
#include "shell/gate/program_gate.h"
#include "simulator/board_process.h"

class QAction;

namespace sorvane::bench {

// The whole program within this process, as its own main function puts it together, and the shipped
// SorvaneBoard at the other end of a pseudo-terminal. A box, or the end of the program, is an error
// of the measure.
class BoardProgram {
 public:
  struct Setup {
    std::vector<std::string> board = {};  // arguments of SorvaneBoard
    std::chrono::milliseconds tick{40};   // of the sweep
  };

  explicit BoardProgram(const Setup& setup);

  // Runs the event loop until condition holds. Throws std::runtime_error where a box has come up or
  // it takes too long.
  void RunUntil(const std::function<bool()>& condition) const;

  // Chooses a menu entry by its name.
  void Choose(const QString& entry) const;

  // Connects and waits until the connection stands.
  void Connect() const;

  // Hands a reply to the pages, as the sweep does.
  void Notify(const Reply& reply);

  // Called for each reply of the board, before the pages are told.
  std::function<void(const Reply&)> on_reply;

  BoardTables tables;

 private:
  struct NoBoxes : Dialogs {
    explicit NoBoxes(std::string& trouble) : text(trouble) {}
    void Show(const MessageBox& box, std::function<void(Answer)>) override { text = box.text; }
    std::string& text;
  };

  QAction& Entry(const QString& name) const;

  ProgramFolder folder_;
  simulator::BoardProcess board_;
  std::string trouble_;
  NoBoxes boxes_{trouble_};
  ProgramGate gate_;
  ParameterAccess access_{tables};
  LinkLamps lamps_;
  std::unique_ptr<Port> port_;
  FrmSer link_;
  MainFrame frame_;
};

}  // namespace sorvane::bench
