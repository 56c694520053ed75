#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "board/board_tables.h"
#include "board/identification.h"
#include "link/link_engine.h"
#include "link/link_lamps.h"
#include "link/link_state.h"
#include "link/sweep.h"
#include "outside/dialogs.h"
#include "outside/port.h"
#include "outside/timer.h"

namespace sorvane {

// The box of an index file that can't be loaded; name is empty where the second-level file's name
// wasn't built yet.
MessageBox IndexFileBox(const std::string& name);

// The connection to the board, a form without a face: it owns the serial port's events, the link
// engine, the sweep and the five timers. Loading it opens the port, asks the board who it is, loads
// the index file that fits and starts the sweep. Each step is posted, so that the window stays
// alive all along, and no step runs inside the port's receive event.
class FrmSer {
 public:
  struct Outside {
    BoardTables& tables;
    Port& port;
    LinkLamps& lamps;
    Dialogs& dialogs;
    TimerMaker make_timer;
    std::filesystem::path folder;       // of the program, where the index files lie
    std::function<void()> end_program;  // closes all files and ends; nothing runs after it
  };

  explicit FrmSer(Outside outside);

  // The load has come to its end: the sweep runs, or ConnectAbandoned is true. Not called where the
  // program ended or the form was unloaded meanwhile.
  std::function<void()> on_loaded;
  // Tells every open page of a reply.
  std::function<void(const Reply&)> reply_notice;

  // Starts the connection, on port number 1 whatever the user chose. Does nothing if the form is
  // loaded or loading.
  void Load();

  // Stops the timers and closes the port, in whatever state; a running load is given up and nothing
  // more comes of it. Does nothing if the form isn't loaded.
  void Unload();

  bool IsLoaded() const { return stage_ != Stage::kUnloaded; }

  // Set when the port couldn't be opened or the user gave up. The main frame clears it.
  bool ConnectAbandoned = false;

  const LinkState& State() const { return state_; }

  // What the board last told of itself.
  const Identification& Told() const { return identification_; }

 private:
  enum class Stage { kUnloaded, kOpening, kWaiting, kBox, kLoading, kStanding };

  void OnTick();             // Timer1
  void OnIdentifyTimeout();  // Timer5
  void OnStep();             // the step that was posted
  void Post();

  void OpenPort();
  void ConnectBoard();
  void AskSystemParameter();
  void EndWait();
  void TakeSystemParameter(uint8_t value);
  void LoadSecondLevelFile();
  void FinishLoad();
  void AskAgain();
  void PortLost();
  void ShowPortError();

  // Runs a step of the connection; an error in it is the box of the index files, and the end.
  void Guarded(const std::function<void()>& step);
  // Runs a step of the load itself, which has a handler of its own. Returns whether to go on.
  bool LoadStep(const std::function<void()>& step);
  void ShowAndEnd(const MessageBox& box);

  Outside out_;
  LinkState state_;
  Sweep sweep_;
  LinkEngine engine_;
  std::unique_ptr<Timer> timer1_;  // sweep tick, 40 ms
  std::unique_ptr<Timer> timer5_;  // limit of identification's wait, 2000 ms
  std::unique_ptr<Timer> step_;    // posts the next step
  Stage stage_ = Stage::kUnloaded;
  std::size_t asked_ = 0;  // which of the system parameters is being asked
  Identification identification_;
  std::string index_name_;
};

}  // namespace sorvane
