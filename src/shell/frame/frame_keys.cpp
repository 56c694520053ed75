#include "shell/frame/frame_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QShortcut>

#include "shell/gate/guarded_connect.h"

namespace sorvane {
namespace {

// Has the menu bar take a press of Alt, its own key: it then knows where the keyboard came from.
void PressAlt(QMainWindow& frame) {
  QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
  QCoreApplication::sendEvent(&frame, &press);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
  QCoreApplication::sendEvent(&frame, &release);
}

}  // namespace

void AddFrameKeys(ProgramGate& gate, QMainWindow& frame, QMdiArea& area,
                  const std::function<void()>& show_manual) {
  const auto add = [&](const QKeySequence& key, auto action) {
    // A key with two meanings would have none; a child window may close by this one already.
    if (QKeySequence::keyBindings(QKeySequence::Close).contains(key)) return;
    ConnectGuarded(gate, new QShortcut(key, &frame), &QShortcut::activated, &frame, action);
  };
  add(Qt::Key_F1, show_manual);
  add(Qt::Key_Help, show_manual);
  add(Qt::Key_F10, [&frame] { PressAlt(frame); });
  add(Qt::CTRL | Qt::Key_F6, [&area] { area.activateNextSubWindow(); });
  add(Qt::CTRL | Qt::SHIFT | Qt::Key_F6, [&area] { area.activatePreviousSubWindow(); });
  add(Qt::CTRL | Qt::Key_F4, [&area] { area.closeActiveSubWindow(); });
}

}  // namespace sorvane
