#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace sorvane::test {

// The light of a colour, from 0 for black to 1 for white, as the Web Content Accessibility
// Guidelines reckon it.
inline double Luminance(const QColor& color) {
  const auto part = [](double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

// How far two colours stand apart, from 1 to 21.
inline double Contrast(const QColor& one, const QColor& other) {
  const auto [low, high] = std::minmax({Luminance(one), Luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

}  // namespace sorvane::test
