#pragma once

#include <QIcon>
#include <QImage>

class QPainter;

namespace sorvane {

// Draws the program's sign in white: a snow crystal around the origin whose arms have the given
// length. It reaches a twentieth of that further.
void DrawCrystal(QPainter& painter, double length);

// The edges of the program's icon in pixels, all that desktops ask for.
inline constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

// The program's icon in one size: a snow crystal on a blue ground. Needs no application object.
QImage IconImage(int size);

// The same in all sizes.
QIcon ProgramIcon();

}  // namespace sorvane
