#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QString>
#include <QWidget>

namespace sorvane::test {

// A control as assistive technology meets it, and the name that it reads to the user.
inline QAccessibleInterface& Of(QWidget& widget) {
  return *QAccessible::queryAccessibleInterface(&widget);
}
inline QString Said(QWidget& widget) { return Of(widget).text(QAccessible::Name); }

}  // namespace sorvane::test
