#pragma once

#include <QString>

namespace sorvane {

// Words that explain a control. No language file has a line for them: they stand in the two
// languages of the manual, in English for all that aren't Italian.
enum class Hint {
  kNotConfirmed,     // of a field's text
  kByBarAlone,       // of a field in which nothing can be typed that counts
  kWorksAllTheSame,  // of a grey label whose switch isn't closed
  kClockUnknown,     // of the closed tabs of the clock
  kOtherSystem,      // of the closed tabs of the payment systems
  kTransmit,         // of the three lamps
  kReceive,
  kLineError,
  kNoPage,  // of the Windows menu with no page open
};

QString HintText(Hint hint, bool italian);

}  // namespace sorvane
