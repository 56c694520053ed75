#pragma once

#include <cstdint>
#include <optional>

#include "shell/controls/entry_box.h"
#include "texts/text_entry.h"

class QLabel;

namespace sorvane {

class Bar;
class Page;

// How a raw value stands in a field, and how it is typed there.
enum class ValueForm {
  kMoney,   // with the page's decimals
  kPrice,   // as money; but an amount of exactly 2 typed with a separator is refused
  kWhole,   // without decimals
  kShort,   // the same, but what is typed must fit 16 bits with sign
  kTenths,  // raw 125 shows as 12.5, and 120 as 12
};

// Which value the text shows where the bar can't take the one that came.
enum class Shown { kAsItCame, kAsTheBarTook };

// What Enter does with a typed value that may stand.
enum class OnEnter {
  kShows,     // puts it into text and bar; the bar, if it moves, writes
  kMovesBar,  // the bar writes, and the text waits for the reply
  kWrites,    // writes it; for a field without a bar
  kNothing,   // the field can be typed in, and that is all
};

// What stands behind the message of a caption.
enum class Numbering { kNone, kSpaced, kClose };

inline constexpr int32_t kNoMirror = -1;
inline constexpr int kNoLimit = 32767;

// The state of a page that its fields share.
struct FieldState {
  int16_t Decimals = 255;  // of money amounts; 255 stands for not known yet
  int32_t FieldValue = 0;  // the last raw value that was typed
};

// What a bar takes, in its positions.
struct BarSpan {
  int32_t offset = 0;  // raw value = position + offset
  int minimum = 0;
  int maximum = 0;
  std::optional<int> start = {};  // without one: 0, or the end of the range that is nearest to it
  int large_step = 1;
};

// What may be typed.
struct TypedSpan {
  int32_t lowest = 0;  // raw values
  int32_t highest = 0;
  int characters = kNoLimit;  // the most that the field takes
};

// One row of a page's table: a field and the bar that holds the same value. A row stands for count
// rows whose parameters, control indexes and captions follow one another.
struct FieldRow {
  const char* label = nullptr;  // "LabelMess1"; without one the page captions the field by itself
  int first_label = 0;          // control index of the first label
  const char* text = nullptr;   // "Text1"
  const char* bar = nullptr;    // "HScroll1"; a field may have none
  int first = 0;                // control index of the first text and bar
  int count = 1;
  int message = 0;  // of the caption, see namespace message
  Numbering numbering = Numbering::kNone;
  int32_t parameter = 0;       // shown and written
  int32_t mirror = kNoMirror;  // of the first; written after it. An index of 0 is passed over.
  ValueForm form = ValueForm::kWhole;
  Shown shown = Shown::kAsItCame;
  OnEnter on_enter = OnEnter::kShows;
  BarSpan positions = {};
  TypedSpan typed = {};
  FocusRule focus = FocusRule::kEmpties;
  bool locked = false;
  const char* unit = "";  // of the numbers, in UTF-8
};

// The field pair of one parameter: a text, and a bar that holds the same value and writes it at
// every move of the user's. What stands in the text is what the board answered or, by the row's
// rule, what was typed last.
class Field {
 public:
  // index counts from 0 within the row of the table. parent is the page or what stands on it.
  Field(Page& page, QWidget& parent, const FieldRow& row, int index, FieldState& state);
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  QLabel* Label() { return label_; }  // nullptr without one
  EntryBox* Box() { return box_; }
  Bar* GetBar() { return bar_; }  // nullptr without one
  int32_t Parameter() const { return row_.parameter + index_; }

  // The caption of the row's message.
  void LoadCaption();
  // What a screen reader says of text and bar, where the caption isn't the field's own.
  void SetSpokenName(const QString& name);

  // Opens or closes text and bar.
  void SetOpen(bool open);
  // The same with the label.
  void SetRowOpen(bool open);

  // Puts a raw value into the pair; the bar takes what its range has of it. Throws RuntimeError
  // kOverflow where the page's decimals fit no amount.
  void ShowFieldValue(double raw);

 private:
  Entry Parse() const;
  QString TextOf(double raw) const;
  int32_t Mirror() const { return row_.mirror == kNoMirror ? 0 : row_.mirror + index_; }
  QString Range() const;
  QString HintLines() const;
  void OnBarChange();
  void OnEnterKey();
  void Take(int32_t raw);

  Page& page_;
  const FieldRow row_;
  int index_;
  FieldState& state_;
  QLabel* label_ = nullptr;
  EntryBox* box_;
  Bar* bar_ = nullptr;
};

}  // namespace sorvane
