#pragma once

#include <QApplication>
#include <QFont>

namespace sorvane::test {

// The size of the program's letters in points, where the run asks for one.
struct Letters {
  Letters() {
    QFont font = QApplication::font();
    const int points = qEnvironmentVariableIntValue("SORVANE_LETTERS");
    if (points > 0) font.setPointSize(points);
    QApplication::setFont(font);
  }
};

}  // namespace sorvane::test
