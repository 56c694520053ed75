#include "shell/controls/record_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace sorvane {
namespace {

constexpr int kColumnGap = 3;       // characters of room in a column beside its widest text
constexpr double kRowHeight = 1.3;  // lines of text

}  // namespace

RecordList::RecordList(const QStringList& columns, const QStringList& widest, int rows,
                       QWidget* parent)
    : QTreeWidget(parent), rows_(rows) {
  setColumnCount(static_cast<int>(columns.size()));
  setHeaderLabels(columns);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  header()->setSectionsMovable(false);
  SetRows({widest});
  const int gap = kColumnGap * fontMetrics().averageCharWidth();
  for (int column = 0; column < columnCount() - 1; ++column) {
    resizeColumnToContents(column);
    setColumnWidth(column, columnWidth(column) + gap);
  }
  SetRows({});
}

void RecordList::SetRows(const QList<QStringList>& rows) {
  while (topLevelItemCount() > rows.size()) delete takeTopLevelItem(topLevelItemCount() - 1);
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    if (i == topLevelItemCount()) {
      addTopLevelItem(new QTreeWidgetItem);
      topLevelItem(i)->setSizeHint(0, {0, RowHeight()});
    }
    QTreeWidgetItem& item = *topLevelItem(i);
    for (int column = 0; column < columnCount(); ++column) {
      item.setText(column, rows.at(i).value(column));
    }
  }
  executeDelayedItemsLayout();  // who reads the screen may ask for rows before they are painted
}

QString RecordList::SelectedText() const {
  QStringList lines;
  for (int i = 0; i < topLevelItemCount(); ++i) {
    const QTreeWidgetItem& item = *topLevelItem(i);
    if (!item.isSelected()) continue;
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column) cells.append(item.text(column));
    lines.append(cells.join('\t'));
  }
  return lines.join('\n');
}

int RecordList::RowHeight() const { return qRound(kRowHeight * fontMetrics().height()); }

QSize RecordList::sizeHint() const {
  const int character = fontMetrics().averageCharWidth();
  const int frame = 2 * frameWidth();
  return {80 * character + frame, header()->sizeHint().height() + rows_ * RowHeight() + frame};
}

void RecordList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    if (!selectedItems().isEmpty()) QApplication::clipboard()->setText(SelectedText());
    return;
  }
  QTreeWidget::keyPressEvent(event);
}

}  // namespace sorvane
