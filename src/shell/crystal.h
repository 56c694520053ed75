#pragma once

#include <QIcon>
#include <QPainterPath>

namespace sorvane {

// The program's sign, a snow crystal around the origin whose arms have the given length.
QPainterPath Crystal(double length);

// The program's icon: the sign on a blue ground, in all sizes that desktops ask for.
QIcon ProgramIcon();

}  // namespace sorvane
