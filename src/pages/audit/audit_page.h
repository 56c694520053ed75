#pragma once

#include <QMap>
#include <cstdint>
#include <span>
#include <vector>

#include "shell/page/page.h"

class QGridLayout;

namespace sorvane {

// A value that the board has recorded, under its caption. A row stands for count rows whose
// parameters, control indexes and numbers follow one another.
struct AuditRow {
  const char* caption = "LabelMess1";
  int caption_index = 0;
  int message;
  int number = 0;  // behind the caption, after a blank, of the first row; 0 for none
  int value;       // control index of the value, Label1
  int32_t parameter;
  int count = 1;
};

inline constexpr int kNoFrame = -1;

// The rows that stand together, at a cell of the page.
struct AuditGroup {
  int frame = kNoFrame;  // control index of the frame around them, Frame1
  std::span<const AuditRow> rows;
  int row;
  int column;
  bool across = false;  // side by side over the whole width of the page, instead of one by one
};
// A page that only reads: each reply stands in a bordered box behind its caption, as a plain
// number.
class AuditPage : public Page {
 public:
  // groups outlive the page.
  AuditPage(const PageServices& services, const char* form_name, int title_message,
            std::span<const AuditGroup> groups);

 protected:
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

  // The box of a parameter, or nullptr.
  QLabel* Value(int32_t parameter) const { return values_.value(parameter); }

 private:
  struct Caption {
    QLabel* label;
    int message;
    int number;
  };

  void AddGroup(QGridLayout& cells, const AuditGroup& group);
  // The room between two columns of a group that lies across the page: what stands between those of
  // the groups above it.
  static int GapAcross(const QGridLayout& cells, const QWidget& group, const QGridLayout& grid);
  // Adds a row's caption and value behind those that stand in the grid, so many side by side as
  // there are columns.
  void AddRow(QGridLayout& grid, QWidget& parent, const AuditRow& row, int i, int columns);
  // All captions are as wide as the widest, so that groups below each other stand in line.
  void AlignCaptions();

  int title_message_;
  std::vector<Caption> captions_;
  QMap<int32_t, QLabel*> values_;  // by parameter
};

}  // namespace sorvane
