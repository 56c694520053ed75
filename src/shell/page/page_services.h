#pragma once

#include <QDateTime>
#include <QLocale>
#include <functional>

#include "board/formats.h"
#include "outside/timer.h"

namespace sorvane {

class BoardTables;
class Dialogs;
class MessageTable;
class ParameterAccess;
class ProgramGate;

// What every page is handed; all of it outlives the pages.
struct PageServices {
  BoardTables& tables;
  ParameterAccess& access;
  const MessageTable& messages;
  ProgramGate& gate;
  Dialogs& dialogs;
  Separators separators;
  QLocale locale;                  // the system's, for dates
  TimerMaker make_timer;           // pages get at it by way of page_timer.h
  std::function<QDateTime()> now;  // the PC's clock, local time
  std::function<bool()> italian;   // whether that is the program's language
};

}  // namespace sorvane
