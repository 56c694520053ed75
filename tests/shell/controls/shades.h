#pragma once

#include <QImage>
#include <QString>
#include <algorithm>
#include <cstdlib>

namespace sorvane {

// From white to black.
inline const QString kShades = ".,:-=+*oO#@";

// A picture in these shades, row by row.
inline QString Shades(const QImage& image) {
  QString shades = "\n";
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const double ink = (255 - qGray(image.pixel(x, y))) / 255.0;
      shades += kShades[qRound(ink * static_cast<double>(kShades.size() - 1))];
    }
    shades += '\n';
  }
  return shades;
}

// Soft edges needn't be of the same shade on all systems, but of one that is near.
inline bool AreAlike(const QString& one, const QString& other, int near = 1) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [near](QChar left, QChar right) {
                      return std::abs(kShades.indexOf(left) - kShades.indexOf(right)) <= near;
                    });
}

}  // namespace sorvane
