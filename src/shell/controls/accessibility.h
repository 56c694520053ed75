#pragma once

#include <QVariant>

class QWidget;

namespace sorvane {

// Makes the roles, states and values of the controls that paint themselves known to assistive
// technology. Called by each of them as it is made; again does nothing.
void InstallAccessibility();

// Tells assistive technology, if any listens, that a control has a new value, that it is now
// checked or no longer, or that its name, which holds what it shows, has changed.
void TellValueChange(QWidget& control, const QVariant& value);
void TellCheckChange(QWidget& control);
void TellNameChange(QWidget& control);

}  // namespace sorvane
