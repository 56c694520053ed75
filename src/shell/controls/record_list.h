#pragma once

#include <QList>
#include <QStringList>
#include <QTreeWidget>

namespace sorvane {

// A list of records in columns that only reads. Rows are selected by mouse and keyboard, Ctrl+C
// copies the selected ones as lines with tabs between the columns, and columns can be resized.
class RecordList : public QTreeWidget {
  Q_OBJECT

 public:
  // It asks for the room of rows rows. Its columns are as wide as the texts of widest, one for each
  // of them, and don't move when rows come; the last one takes what is left.
  RecordList(const QStringList& columns, const QStringList& widest, int rows, QWidget* parent);

  // Shows these rows in place of the present ones. What is selected, current and in view stays so
  // by its row.
  void SetRows(const QList<QStringList>& rows);

  // The selected rows as they are copied.
  QString SelectedText() const;

  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int RowHeight() const;

  int rows_;
};

}  // namespace sorvane
