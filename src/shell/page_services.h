#pragma once

#include <QDateTime>
#include <QLocale>
#include <chrono>
#include <functional>
#include <memory>

#include "board/formats.h"

namespace sorvane {

class BoardTables;
class Dialogs;
class MessageTable;
class ParameterAccess;
class ProgramGate;
class Timer;

// What every page is handed; all of it outlives the pages.
struct PageServices {
  BoardTables& tables;
  ParameterAccess& access;
  const MessageTable& messages;
  ProgramGate& gate;
  Dialogs& dialogs;
  Separators separators;
  QLocale locale;  // the system's, for dates
  // Pages get at it by way of page_timer.h.
  std::function<std::unique_ptr<Timer>(std::chrono::milliseconds, std::function<void()>)>
      make_timer;
  std::function<QDateTime()> now;  // the PC's clock, local time
};

}  // namespace sorvane
