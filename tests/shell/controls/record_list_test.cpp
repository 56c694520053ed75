#include "shell/controls/record_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

// A list of three columns with room for five rows, alone in a window.
struct RecordListTest : testing::Test {
  QWidget window;
  RecordList* list =
      new RecordList({"nr.", "name", "value"}, {"20", "a long name 3", "30"}, 5, &window);

  RecordListTest() { (new QVBoxLayout(&window))->addWidget(list); }
  void SetUp() override {
    QApplication::clipboard()->setText("before");
    window.resize(400, 300);
    ShowActive(window);
    list->setFocus();
  }

  // Rows "1", "a1", "10"; "2", "a2", "20" and so on.
  static QList<QStringList> SomeRows(int count, const QString& name = "a") {
    QList<QStringList> rows;
    for (int i = 1; i <= count; ++i) {
      rows << QStringList(
          {QString::number(i), name + QString::number(i), QString::number(i) + "0"});
    }
    return rows;
  }
  QString Cell(int row, int column) const { return list->topLevelItem(row)->text(column); }
  void Select(const std::vector<int>& rows) {
    list->clearSelection();
    for (const int row : rows) list->topLevelItem(row)->setSelected(true);
  }
  std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
      if (list->topLevelItem(i)->isSelected()) rows.push_back(i);
    }
    return rows;
  }
  int Current() const { return list->indexOfTopLevelItem(list->currentItem()); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(list, key, modifiers);
  }
  void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QRect rect = list->visualItemRect(list->topLevelItem(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, rect.center());
  }
  static QStringList Copied() {
    return QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
  }
};

TEST_F(RecordListTest, StartsEmptyUnderItsHeaders) {
  EXPECT_EQ(list->columnCount(), 3);
  EXPECT_EQ(list->headerItem()->text(0), "nr.");
  EXPECT_EQ(list->headerItem()->text(1), "name");
  EXPECT_EQ(list->headerItem()->text(2), "value");
  EXPECT_TRUE(list->header()->isVisible());
  EXPECT_EQ(list->topLevelItemCount(), 0);
}

TEST_F(RecordListTest, ShowsRowsAsTheyAreGiven) {
  list->SetRows({{"2", " two ", "      "}, {"1", "", "x\ty"}});
  ASSERT_EQ(list->topLevelItemCount(), 2);
  EXPECT_EQ(Cell(0, 0), "2");
  EXPECT_EQ(Cell(0, 1), " two ");
  EXPECT_EQ(Cell(0, 2), "      ");
  EXPECT_EQ(Cell(1, 0), "1");
  EXPECT_EQ(Cell(1, 1), "");
  EXPECT_EQ(Cell(1, 2), "x\ty");
}

TEST_F(RecordListTest, RowsAreToldApartByTheirGround) {
  list->SetRows(SomeRows(3));
  const QImage picture = list->viewport()->grab().toImage();
  const auto ground = [&](int row) {
    const QRect place = list->visualItemRect(list->topLevelItem(row));
    return picture.pixelColor(picture.width() - 3, place.center().y());
  };
  EXPECT_NE(ground(0), ground(1));
  EXPECT_EQ(ground(0), ground(2));
}

TEST_F(RecordListTest, ColumnsHaveThreeCharactersOfRoomBesideTheirWidestText) {
  list->SetRows(SomeRows(3, "a long name "));
  const int gap = 3 * list->fontMetrics().averageCharWidth();
  const int with_gap = list->columnWidth(1);
  list->resizeColumnToContents(1);
  EXPECT_EQ(with_gap, list->columnWidth(1) + gap);
}

TEST_F(RecordListTest, NewRowsTakeThePlaceOfAllOldOnes) {
  list->SetRows(SomeRows(12));
  list->SetRows(SomeRows(4, "b"));
  ASSERT_EQ(list->topLevelItemCount(), 4);
  EXPECT_EQ(Cell(0, 1), "b1");
  EXPECT_EQ(Cell(3, 1), "b4");
  list->SetRows({});
  EXPECT_EQ(list->topLevelItemCount(), 0);
  list->SetRows(SomeRows(7, "c"));
  ASSERT_EQ(list->topLevelItemCount(), 7);
  EXPECT_EQ(Cell(6, 1), "c7");
}

TEST_F(RecordListTest, HeadersStayOverNewRows) {
  list->SetRows(SomeRows(3));
  list->SetRows({});
  EXPECT_EQ(list->columnCount(), 3);
  EXPECT_EQ(list->headerItem()->text(1), "name");
}

TEST_F(RecordListTest, AsksForEightyCharacters) {
  EXPECT_EQ(list->sizeHint().width(),
            80 * list->fontMetrics().averageCharWidth() + 2 * list->frameWidth());
}

TEST_F(RecordListTest, AsksForTheRoomOfItsRows) {
  list->SetRows(SomeRows(5));
  window.resize(window.width(), list->sizeHint().height() + window.height() - list->height());
  QApplication::processEvents();
  ASSERT_GE(list->height(), list->sizeHint().height());
  const QRect last = list->visualItemRect(list->topLevelItem(4));
  EXPECT_LE(last.bottom(), list->viewport()->height());
  EXPECT_EQ(list->verticalScrollBar()->maximum(), 0);
}

TEST_F(RecordListTest, MoreRowsAskForMoreRoom) {
  const RecordList longer({"nr.", "name", "value"}, {"20", "a long name 3", "30"}, 6, nullptr);
  EXPECT_GT(longer.sizeHint().height(), list->sizeHint().height());
}

TEST_F(RecordListTest, ControlAndCCopiesTheSelectedRowsWithTabs) {
  list->SetRows(SomeRows(5));
  Select({1, 3});
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), QStringList({"2\ta2\t20", "4\ta4\t40"}));
}

TEST_F(RecordListTest, RowsAreCopiedFromTheTopWhateverTheOrderOfTheirSelection) {
  list->SetRows(SomeRows(5));
  ClickRow(4);
  ClickRow(0, Qt::ControlModifier);
  ClickRow(2, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), QStringList({"1\ta1\t10", "3\ta3\t30", "5\ta5\t50"}));
}

TEST_F(RecordListTest, EmptyCellsKeepTheirPlaceInACopy) {
  list->SetRows({{"1", "", "x"}, {"2", "", ""}});
  Select({0, 1});
  EXPECT_EQ(list->SelectedText().split('\n', Qt::SkipEmptyParts), QStringList({"1\t\tx", "2\t\t"}));
}

TEST_F(RecordListTest, NothingSelectedCopiesNothing) {
  list->SetRows(SomeRows(3));
  Select({});
  EXPECT_EQ(list->SelectedText(), "");
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "before");
}

TEST_F(RecordListTest, OtherKeysCopyNothing) {
  list->SetRows(SomeRows(3));
  Select({1});
  Press(Qt::Key_C);
  Press(Qt::Key_X, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "before");
  EXPECT_EQ(list->topLevelItemCount(), 3);
}

TEST_F(RecordListTest, SelectionStaysOverNewRows) {
  list->SetRows(SomeRows(8));
  Select({1, 4, 5});
  list->SetRows(SomeRows(8, "b"));
  EXPECT_EQ(Selected(), (std::vector<int>{1, 4, 5}));
  EXPECT_EQ(list->SelectedText().section('\n', 0, 0), "2\tb2\t20");
}

TEST_F(RecordListTest, CurrentRowStaysOverNewRows) {
  list->SetRows(SomeRows(8));
  ClickRow(2);
  list->SetRows(SomeRows(8, "b"));
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Selected(), std::vector<int>{2});
  Press(Qt::Key_Down);
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Selected(), std::vector<int>{3});
}

TEST_F(RecordListTest, RowThatIsCurrentAndNotSelectedStaysSo) {
  list->SetRows(SomeRows(8));
  ClickRow(2);
  ClickRow(2, Qt::ControlModifier);
  ASSERT_EQ(Selected(), std::vector<int>{});
  list->SetRows(SomeRows(8, "b"));
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Selected(), std::vector<int>{});
}

TEST_F(RecordListTest, NoRowIsSelectedThatNobodySelected) {
  list->SetRows(SomeRows(8));
  list->SetRows(SomeRows(8, "b"));
  EXPECT_EQ(Selected(), std::vector<int>{});
}

TEST_F(RecordListTest, FewerRowsLoseTheSelectionOfThoseThatAreGone) {
  list->SetRows(SomeRows(8));
  ClickRow(7);
  Select({1, 7});
  list->SetRows(SomeRows(3, "b"));
  EXPECT_EQ(Selected(), std::vector<int>{1});
  list->SetRows(SomeRows(8, "c"));
  EXPECT_EQ(Selected(), std::vector<int>{1});
  Press(Qt::Key_Home);
  EXPECT_EQ(Current(), 0);
}

TEST_F(RecordListTest, NoRowsLoseSelectionAndCurrentRow) {
  list->SetRows(SomeRows(8));
  ClickRow(4);
  list->SetRows({});
  EXPECT_EQ(Current(), -1);
  EXPECT_EQ(list->SelectedText(), "");
  Press(Qt::Key_Down);
  EXPECT_EQ(Current(), -1);
}

TEST_F(RecordListTest, WhatIsInViewStaysOverNewRows) {
  window.resize(window.width(), 150);
  list->SetRows(SomeRows(60));
  QApplication::processEvents();
  list->verticalScrollBar()->setValue(23);
  ASSERT_EQ(list->verticalScrollBar()->value(), 23);
  list->SetRows(SomeRows(60, "b"));
  QApplication::processEvents();
  EXPECT_EQ(list->verticalScrollBar()->value(), 23);
}

TEST_F(RecordListTest, ViewStaysThoughTheCurrentRowIsOutOfIt) {
  window.resize(window.width(), 150);
  list->SetRows(SomeRows(60));
  QApplication::processEvents();
  ClickRow(1);
  list->verticalScrollBar()->setValue(30);
  list->SetRows(SomeRows(60, "b"));
  QApplication::processEvents();
  EXPECT_EQ(list->verticalScrollBar()->value(), 30);
  EXPECT_EQ(Current(), 1);
}

TEST_F(RecordListTest, ColumnsThatWereResizedKeepTheirWidth) {
  list->SetRows(SomeRows(8));
  list->header()->resizeSection(0, 91);
  list->header()->resizeSection(1, 137);
  list->SetRows(SomeRows(12, "a much longer name than any that was here before "));
  QApplication::processEvents();
  EXPECT_EQ(list->columnWidth(0), 91);
  EXPECT_EQ(list->columnWidth(1), 137);
}

TEST_F(RecordListTest, ColumnsThatWereResizedKeepTheirWidthOverAnEmptyList) {
  list->SetRows(SomeRows(8));
  list->header()->resizeSection(0, 91);
  list->SetRows({});
  list->SetRows(SomeRows(8, "b"));
  QApplication::processEvents();
  EXPECT_EQ(list->columnWidth(0), 91);
}

TEST_F(RecordListTest, ColumnsHaveTheirWidthBeforeThereAreRowsAndKeepIt) {
  const std::vector<int> widths = {list->columnWidth(0), list->columnWidth(1),
                                   list->columnWidth(2)};
  EXPECT_GT(widths[1], list->fontMetrics().horizontalAdvance("a long name 3"));
  for (const char* name : {"a", "a long name ", "a name that has no room "}) {
    list->SetRows(SomeRows(3, name));
    QApplication::processEvents();
    EXPECT_EQ(widths,
              (std::vector<int>{list->columnWidth(0), list->columnWidth(1), list->columnWidth(2)}));
  }
}

TEST_F(RecordListTest, ColumnsCanBeResizedByMouse) {
  list->SetRows(SomeRows(8));
  window.resize(600, 300);
  QApplication::processEvents();
  QWidget* header = list->header()->viewport();
  const int before = list->columnWidth(0);
  const int edge = list->header()->sectionViewportPosition(0) + before - 1;
  const int middle = header->height() / 2;
  QTest::mousePress(header, Qt::LeftButton, {}, QPoint(edge, middle));
  QTest::mouseMove(header, QPoint(edge + 25, middle));
  QMouseEvent move(QEvent::MouseMove, QPointF(edge + 25, middle),
                   header->mapToGlobal(QPointF(edge + 25, middle)), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(header, &move);
  QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(edge + 25, middle));
  EXPECT_EQ(list->columnWidth(0), before + 25);
}

TEST_F(RecordListTest, ArrowsMoveTheSelection) {
  list->SetRows(SomeRows(8));
  ClickRow(0);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(Selected(), std::vector<int>{2});
  Press(Qt::Key_Up);
  EXPECT_EQ(Selected(), std::vector<int>{1});
  Press(Qt::Key_End);
  EXPECT_EQ(Selected(), std::vector<int>{7});
  Press(Qt::Key_Down);
  EXPECT_EQ(Selected(), std::vector<int>{7});
  Press(Qt::Key_Home);
  EXPECT_EQ(Selected(), std::vector<int>{0});
}

TEST_F(RecordListTest, ShiftWithArrowsSelectsMoreRows) {
  list->SetRows(SomeRows(8));
  ClickRow(2);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), (std::vector<int>{2, 3, 4}));
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), QStringList({"3\ta3\t30", "4\ta4\t40", "5\ta5\t50"}));
}

TEST_F(RecordListTest, ShiftWithAClickSelectsAllRowsBetween) {
  list->SetRows(SomeRows(5));
  ClickRow(1);
  ClickRow(3, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), (std::vector<int>{1, 2, 3}));
}

TEST_F(RecordListTest, ControlAndASelectsAll) {
  list->SetRows(SomeRows(4));
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Selected(), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(RecordListTest, ClickOnAnyColumnSelectsTheWholeRow) {
  list->SetRows(SomeRows(4));
  const QRect cell = list->visualRect(list->model()->index(2, 2));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell.center());
  EXPECT_EQ(Selected(), std::vector<int>{2});
  EXPECT_EQ(list->SelectedText().trimmed(), "3\ta3\t30");
}

TEST_F(RecordListTest, NoCellCanBeEdited) {
  list->SetRows(SomeRows(4));
  for (int column = 0; column < 3; ++column) {
    const QPoint cell = list->visualRect(list->model()->index(1, column)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    QTest::keyClicks(list, "77");
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_TRUE(list->findChildren<QLineEdit*>().isEmpty()) << column;
  }
  ASSERT_EQ(list->topLevelItemCount(), 4);
  EXPECT_EQ(Cell(1, 0), "2");
  EXPECT_EQ(Cell(1, 1), "a2");
  EXPECT_EQ(Cell(1, 2), "20");
}

TEST_F(RecordListTest, ClickOnAHeaderDoesntSortTheRows) {
  list->SetRows({{"2", "b", "y"}, {"1", "c", "z"}, {"3", "a", "x"}});
  for (int column = 0; column < 3; ++column) {
    const int x = list->header()->sectionViewportPosition(column) + 10;
    QTest::mouseClick(list->header()->viewport(), Qt::LeftButton, {}, QPoint(x, 8));
    EXPECT_EQ(Cell(0, 0), "2");
    EXPECT_EQ(Cell(1, 0), "1");
    EXPECT_EQ(Cell(2, 0), "3");
  }
}

}  // namespace
}  // namespace sorvane
