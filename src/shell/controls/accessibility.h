#pragma once

#include <QVariant>

class QWidget;

namespace sorvane {

// Makes the roles, states and values of the controls that paint themselves known to assistive
// technology. Called by each of them as it is made; again does nothing.
void InstallAccessibility();

// Tells assistive technology, if any listens, that a control has a new value, or that it is now
// checked (lit) or no longer.
void TellValueChange(QWidget& control, const QVariant& value);
void TellCheckChange(QWidget& control);

}  // namespace sorvane
