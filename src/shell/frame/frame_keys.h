#pragma once

#include <functional>

class QMainWindow;
class QMdiArea;

namespace sorvane {

class ProgramGate;

// Keys for those who work without a mouse, where the toolkit doesn't have them on all desktops: F10
// goes to the menu bar and back, Ctrl+F6 and Ctrl+Shift+F6 to the next and the previous child
// window, Ctrl+F4 closes the one in front. F1 and the key for help show the manual.
void AddFrameKeys(ProgramGate& gate, QMainWindow& frame, QMdiArea& area,
                  const std::function<void()>& show_manual);

}  // namespace sorvane
