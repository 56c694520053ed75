#pragma once

#include <QList>
#include <cstdint>

class QGridLayout;
class QLabel;
class QWidget;

namespace sorvane {

class Page;
class Toggle;

// One switch of a byte of flags.
struct FlagRow {
  int label;           // index of the label, LabelMess1
  const char* toggle;  // "SwitchX1"
  int index;
  int message = 0;        // of the caption; 0 for the fixed text
  const char* text = "";  // the fixed one
  int number = 0;         // behind the caption, after a blank; 0 for none
  int mask;               // the switch's bits in the byte
};

// The switches of one byte of flags. A switch that the user turns changes its own bit in the byte
// as it last came from the board and writes the whole of it.
class FlagSwitches {
 public:
  // flags is the page's variable for the byte.
  FlagSwitches(Page& page, int32_t parameter, int32_t mirror, int16_t& flags);

  // parent is the page or what stands on it.
  void Add(QWidget& parent, const FlagRow& row);

  // i counts the switches in the order in which they were added.
  QLabel* Label(int i) const { return switches_.at(i).label; }
  Toggle* Switch(int i) const { return switches_.at(i).toggle; }

  void LoadCaptions();

  // Takes the byte over from a reply; Updating is true.
  void ShowFlags(int16_t flags);

  // Lays some of the switches out as rows of label and switch, under the two heads.
  struct Span {
    int first;
    int count;
  };
  void LayOut(QGridLayout& grid, const Span& span, QLabel* no, QLabel* yes);

 private:
  struct Added {
    FlagRow row;
    QLabel* label;
    Toggle* toggle;
  };

  void OnChange(const Toggle& toggle, int mask);

  Page& page_;
  int32_t parameter_;
  int32_t mirror_;
  int16_t& flags_;
  QList<Added> switches_;
};

}  // namespace sorvane
