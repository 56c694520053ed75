#include "shell/controls/slider.h"

#include <QKeyEvent>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

struct SliderTest : testing::Test, GateBench {
  Slider slider{gate, nullptr};
  std::vector<int> changes;
  SliderTest() {
    slider.SetLabels("Validatore, Executive, MDB");
    slider.resize(slider.sizeHint());
    slider.on_change = [this] { changes.push_back(slider.Position()); };
  }
  void DragTo(const QPoint& to) {
    QMouseEvent event(QEvent::MouseMove, QPointF(to), QPointF(slider.mapToGlobal(to)), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&slider, &event);
  }
};

TEST_F(SliderTest, NamesComeFromATextWithCommas) {
  EXPECT_EQ(slider.Labels(), QStringList({"Validatore", "Executive", "MDB"}));
  EXPECT_EQ(slider.property("position"), 0);
}

TEST_F(SliderTest, KeysMoveByOnePositionAndToTheEnds) {
  QTest::keyClick(&slider, Qt::Key_Right);
  QTest::keyClick(&slider, Qt::Key_Down);
  QTest::keyClick(&slider, Qt::Key_Right);
  QTest::keyClick(&slider, Qt::Key_Left);
  QTest::keyClick(&slider, Qt::Key_Up);
  QTest::keyClick(&slider, Qt::Key_Up);
  QTest::keyClick(&slider, Qt::Key_End);
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_EQ(changes, (std::vector<int>{1, 2, 1, 0, 2, 0}));
}

TEST_F(SliderTest, KeysWithShiftOrOnTheKeypadMoveIt) {
  QTest::keyClick(&slider, Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&slider, Qt::Key_Right, Qt::KeypadModifier);
  EXPECT_EQ(changes, (std::vector<int>{1, 2}));
}

TEST_F(SliderTest, KeysWithCtrlAltOrMetaAreNotItsOwn) {
  slider.SetPosition(1);
  changes.clear();
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    for (const auto key :
         {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}) {
      QKeyEvent press(QEvent::KeyPress, key, modifier);
      QApplication::sendEvent(&slider, &press);
      EXPECT_FALSE(press.isAccepted()) << key << " " << modifier;
    }
  }
  EXPECT_TRUE(changes.empty());
}

TEST_F(SliderTest, ClickGoesToTheNearestPosition) {
  ClickAt(slider, 0.95);
  ClickAt(slider, 0.5);
  ClickAt(slider, 0.5);
  ClickAt(slider, 0.02);
  EXPECT_EQ(changes, (std::vector<int>{2, 1, 0}));
}

TEST_F(SliderTest, DragChangesOnceAtItsRelease) {
  const QPoint start(5, slider.height() / 2);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, start);
  QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier,
                      start + QPoint(slider.width() + 50, 0));
  EXPECT_EQ(changes, std::vector<int>{2});
}

TEST_F(SliderTest, DragShowsTheKnobWhereItIsHeld) {
  const QPoint start(5, slider.height() / 2);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, start);
  const QImage before = slider.grab().toImage();
  DragTo(QPoint(slider.width() - 5, slider.height() / 2));
  EXPECT_NE(slider.grab().toImage(), before);
  EXPECT_TRUE(changes.empty());
}

TEST_F(SliderTest, MouseThatPassesWithoutAPressShowsNothing) {
  const QImage before = slider.grab().toImage();
  DragTo(QPoint(slider.width() - 5, slider.height() / 2));
  EXPECT_EQ(slider.grab().toImage(), before);
}

TEST_F(SliderTest, OtherButtonsDoNothing) {
  const QPoint end(slider.width() - 5, slider.height() / 2);
  const QImage before = slider.grab().toImage();
  QTest::mouseClick(&slider, Qt::RightButton, Qt::NoModifier, end);
  EXPECT_EQ(slider.grab().toImage(), before);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, end);
  QTest::mouseClick(&slider, Qt::RightButton, Qt::NoModifier, end);
  EXPECT_TRUE(changes.empty());
}

TEST_F(SliderTest, ClosingItEndsADrag) {
  const QPoint end(slider.width() - 5, slider.height() / 2);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, end);
  slider.SetOpen(false);
  slider.SetOpen(true);
  QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, end);
  EXPECT_TRUE(changes.empty());
}

TEST_F(SliderTest, SetPositionFailsOutsideThePositions) {
  slider.SetPosition(1);
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { slider.SetPosition(3); });
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { slider.SetPosition(-1); });
  EXPECT_EQ(slider.Position(), 1);
}

TEST_F(SliderTest, ProgramCallsOnChangeOncePerChange) {
  slider.SetPosition(2);
  slider.SetPosition(2);
  EXPECT_EQ(changes, std::vector<int>{2});
}

TEST_F(SliderTest, NewNamesKeepThePosition) {
  slider.SetPosition(1);
  slider.SetLabels("YES,NO");
  EXPECT_EQ(slider.Position(), 1);
  EXPECT_EQ(slider.Labels(), QStringList({"YES", "NO"}));
  EXPECT_EQ(changes, std::vector<int>{1});
}

TEST_F(SliderTest, NamesThatLeaveThePositionWithoutANameFail) {
  slider.SetPosition(2);
  ExpectError(ErrorCode::kInvalidPropertyValue, [this] { slider.SetLabels("SI,NO"); });
  EXPECT_EQ(slider.Labels().size(), 3);
}

TEST_F(SliderTest, EmptyNamesAreStillPositions) {
  slider.SetLabels(",");
  slider.SetPosition(1);
  EXPECT_EQ(slider.Position(), 1);
}

TEST_F(SliderTest, ErrorOfTheHandlerGoesToTheProgramOrToTheGate) {
  slider.on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  ExpectError(ErrorCode::kOverflow, [this] { slider.SetPosition(1); });
  EXPECT_FALSE(gate.IsShut());
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_TRUE(gate.IsShut());
}

TEST_F(SliderTest, BehindAShutGateItStays) {
  gate.End(0);
  ClickAt(slider, 0.95);
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_EQ(slider.Position(), 0);
}

TEST_F(SliderTest, ClosedSliderTakesNoClickButShowsWhatTheProgramSets) {
  EXPECT_TRUE(TakesClick(slider));
  ASSERT_EQ(slider.Position(), 1);
  slider.SetPosition(0);
  slider.SetOpen(false);
  EXPECT_FALSE(TakesClick(slider));
  EXPECT_EQ(slider.Position(), 0);
  slider.SetPosition(2);
  EXPECT_EQ(slider.Position(), 2);
}

}  // namespace
}  // namespace sorvane
