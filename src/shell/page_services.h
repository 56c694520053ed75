#pragma once

#include "board/formats.h"

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
};

}  // namespace sorvane
