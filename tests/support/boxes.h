#pragma once

#include "outside/dialogs.h"

namespace sorvane::test {

// All boxes by which the program speaks; an index file's name may stand before the words of one.
// FakeDialogs takes no other, so that a new box must be put down here, and then in the manuals.
inline const MessageBox kBoxes[] = {
    {"Error com", "ERROR ", kCriticalIcon},
    {"Board Not Ready\nCheck serial !", "Serial", kExclamationIcon + kRetryCancel},
    {"Board\nNot Compatible", "ERROR", kCriticalIcon},
    {"Board Type\nNot Compatible", "ERROR", kCriticalIcon},
    {"Board Software\nNot Compatible", "ERROR", kCriticalIcon},
    {" not found !", "ERROR", kCriticalIcon},
    {"New Board\nOld Program", "ERROR  0", kCriticalIcon},
    {"Reinstall Program", "ERROR  0", kCriticalIcon},
    {"File missing!\nReinstall program", "Error", kCriticalIcon},
    {"Check file message !!!", "Wrong file", kExclamationIcon},
    {"USB port not available\rPlease select a different COM port", "Error", kCriticalIcon},
    {"Please Insert Only Number ", "Error", kCriticalIcon},
};

}  // namespace sorvane::test
