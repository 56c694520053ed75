#pragma once

#include <cstdint>

class QLabel;

namespace sorvane {

class Bar;
class EntryBox;
class Page;

// One row of a page's table: a field and the bar that holds the same value. A row stands for count
// rows whose parameters, control indexes and captions follow one another.
struct FieldRow {
  const char* label;  // "LabelMess1"
  const char* text;   // "Text1"
  const char* bar;    // "HScroll1"
  int count;
  int message;        // the caption: this message, a blank, and the row's number from 1
  int32_t parameter;  // shown and written
  int32_t mirror;     // written with the same value after it; 0 for none
  int32_t offset;     // raw value = bar position + offset
  int minimum;        // of the bar's position
  int maximum;
  int start;
  int large_step;
  int characters;  // the most that can be typed
};

// The field pair of one parameter: the text shows the raw value as money and takes a typed amount,
// and the bar writes. What stands in the text is what the board answered: a bar that moves writes,
// and the text follows with the reply.
class Field {
 public:
  // index counts from 0 within the row of the table. Decimals and FieldValue are the page's.
  Field(Page& page, const FieldRow& row, int index, const int16_t& decimals, int32_t& field_value);
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  QLabel* Label() { return label_; }
  EntryBox* Box() { return box_; }
  Bar* GetBar() { return bar_; }
  int32_t Parameter() const { return row_.parameter + index_; }

  void LoadCaption();
  void SetOpen(bool open);

  // Puts a raw value into the pair: the bar takes it within its range, and the text shows what the
  // bar took. Throws RuntimeError kOverflow where the page's decimals fit no amount.
  void ShowFieldValue(double raw);

 private:
  void OnBarChange();
  void OnEnter();

  Page& page_;
  const FieldRow& row_;
  int index_;
  const int16_t& decimals_;
  int32_t& field_value_;
  QLabel* label_;
  EntryBox* box_;
  Bar* bar_;
};

}  // namespace sorvane
