#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sorvane::test {

// How the values of a field look, what is typed to get them, and the bar beside the field. The
// board has two decimals unless the field says otherwise.
struct ValueForm {
  // In raw values, but for the start. A large step of 0 isn't laid down anywhere.
  struct BarBounds {
    int minimum;
    int maximum;
    int offset;  // of a raw value over its position
    int start;   // position before any reply
    int large_step;
  };
  // A raw value, and its text with a point and with a comma in the locale.
  struct Pair {
    int raw;
    const char* text;
    const char* text_with_comma;
  };

  BarBounds bar = {};
  Pair shown;
  Pair typed = {};
  std::vector<const char*> refused = {};  // without a word, in both locales
  int limit = 0;        // characters that can be typed; 0 where nothing lays them down
  int asked_first = 0;  // the parameter that is answered anew before the user types; 0 for none
};

enum class Typing {
  kTaken,
  kLocked,       // the text can't be edited
  kGoesNowhere,  // it can, and nothing comes of it
};

// A field of a page, with the bar beside it if it has one.
struct FieldRow {
  const char* form;
  const char* entry;
  const char* tabs;  // the tab control that it stands on, or nullptr
  int tab;
  std::string text;
  std::string bar;  // empty for none
  int parameter;
  int mirror;    // 0 for none
  int shown_by;  // the parameter whose replies the field shows
  Typing typing;
  bool waits;  // half a second passes before a typed value is written
  const ValueForm* value;
};

// A switch that stands for one bit of a byte, or the position of a slider.
struct SwitchRow {
  const char* form;
  const char* entry;
  const char* tabs;
  int tab;
  std::string control;
  int parameter;
  int mirror;

  // Bytes of the board that show as off and as on.
  int off;
  int on;
  // What is written when the switch is turned on from the first, and off from the second.
  int written_on;
  int written_off;
};

struct SliderRow {
  const char* form;
  const char* entry;
  const char* tabs;
  int tab;
  std::string control;
  int parameter;
  int mirror;

  int position;
  int reply;    // a byte of the board that shows as this position
  int from;     // another byte, which shows as the position beside it
  int written;  // when the user moves from there to this position
};

// All fields, switches and slider positions of the settings pages.
std::vector<FieldRow> FieldRows();
std::vector<SwitchRow> SwitchRows();
std::vector<SliderRow> SliderRows();

// How a failed test names its row.
void PrintTo(const SwitchRow& row, std::ostream* out);
void PrintTo(const SliderRow& row, std::ostream* out);

}  // namespace sorvane::test
