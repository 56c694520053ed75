#pragma once

#include <QFontMetrics>
#include <QWidget>

// The widths of what stands on the pages, in average characters of the font. The room between
// things is the style's.
namespace sorvane::page_size {

inline constexpr int kDigitBox = 4;   // for a single digit
inline constexpr int kTimeBox = 7;    // a part of a date or time
inline constexpr int kNumberBox = 9;  // an amount or number
inline constexpr int kWordBox = 11;   // the same beside words and patterns
inline constexpr int kNameBox = 24;   // the longest name of a language

// The least widths of bars, which share out what a page has left unless it has them fixed.
inline constexpr int kShortBar = 16;
inline constexpr int kBar = 22;
inline constexpr int kLongBar = 30;

inline constexpr int kColumnGap = 2;  // between two columns of fields

// A number of characters in logical pixels, in the font of a control.
inline int Pixels(int characters, const QWidget& control) {
  return characters * control.fontMetrics().averageCharWidth();
}

}  // namespace sorvane::page_size
