#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPoint>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "board/errors.h"
#include "shell/gate/program_gate.h"

namespace sorvane {

// A gate that notes what it reports.
struct GateBench {
  std::vector<std::string> reports;
  ProgramGate gate{{[this](const std::string& text, const std::function<void()>& then) {
                      reports.push_back(text);
                      then();
                    },
                    [](int) {}}};
};

// Shows a window and waits until it has the keyboard.
inline void ShowActive(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

// Expects a run-time error with a code from what call does.
template <typename Call>
void ExpectError(ErrorCode code, Call call) {
  try {
    call();
    ADD_FAILURE() << "no error was thrown";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), code);
  }
}

// Clicks with the left button at a share of the control's width, in the middle of its height.
inline void ClickAt(QWidget& control, double share) {
  QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier,
                    QPoint(static_cast<int>(control.width() * share), control.height() / 2));
}

// Clicks with the left button in the middle of a control that may be closed. Returns whether the
// control has taken the click.
inline bool TakesClick(QWidget& control) {
  const QPointF middle(control.width() / 2.0, control.height() / 2.0);
  const QPointF global = control.mapToGlobal(middle);
  QMouseEvent press(QEvent::MouseButtonPress, middle, global, Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, middle, global, Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
  const bool taken = QApplication::sendEvent(&control, &press);
  return QApplication::sendEvent(&control, &release) && taken;
}

}  // namespace sorvane
