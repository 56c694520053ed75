#include "shell/controls/slider.h"

#include <QFontMetrics>
#include <QImage>
#include <QKeyEvent>
#include <QPalette>
#include <QRect>
#include <algorithm>

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

// The slider in black on white with a blue knob, large.
struct SliderInk : SliderTest {
  SliderInk() {
    QPalette colours(Qt::white);
    colours.setColor(QPalette::Window, Qt::white);
    colours.setColor(QPalette::WindowText, Qt::black);
    colours.setColor(QPalette::Highlight, Qt::blue);
    colours.setColor(QPalette::Disabled, QPalette::Highlight, Qt::darkGreen);
    slider.setPalette(colours);
    QFont large = slider.font();
    large.setPixelSize(40);
    slider.setFont(large);
    slider.resize(slider.sizeHint());
    line = slider.fontMetrics().height();
  }

  QImage Picture() { return slider.grab().toImage(); }
  // The smallest rectangle around all of a colour.
  static QRect AreaOf(const QImage& image, const QColor& colour) {
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == colour) area |= QRect(x, y, 1, 1);
      }
    }
    return area;
  }
  // The middle of a position: a third of the width belongs to each, the room of the focus frame
  // apart.
  int Stop(int position) const {
    const int frame = line / 6;
    return frame + (2 * position + 1) * (slider.width() - 2 * frame) / 6;
  }
  // Where something is drawn in a column, as rows from above.
  static QRect InkIn(const QImage& image, int x) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixelColor(x, y) != Qt::white) ink |= QRect(x, y, 1, 1);
    }
    return ink;
  }

  int line = 0;  // the height of one of text
};

TEST_F(SliderInk, KnobStandsAboveTheNameOfItsPosition) {
  for (int position = 0; position < 3; ++position) {
    slider.SetPosition(position);
    const QRect knob = AreaOf(Picture(), Qt::blue);
    EXPECT_NEAR(knob.center().x(), Stop(position), 3) << position;
    EXPECT_NEAR(knob.width(), 0.9 * line, 4) << position;
    EXPECT_NEAR(knob.height(), 0.9 * line, 4) << position;
    EXPECT_LT(knob.bottom(), slider.height() / 2) << position;
  }
}

TEST_F(SliderInk, KnobThatIsHeldStandsWhereTheMouseIs) {
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(Stop(1), line));
  EXPECT_NEAR(AreaOf(Picture(), Qt::blue).center().x(), Stop(1), 3);
  DragTo(QPoint(Stop(2), line));
  EXPECT_NEAR(AreaOf(Picture(), Qt::blue).center().x(), Stop(2), 3);
}

TEST_F(SliderInk, KnobOfAClosedSliderHasTheColourOfWhatIsClosed) {
  slider.SetOpen(false);
  EXPECT_TRUE(AreaOf(Picture(), Qt::blue).isEmpty());
  EXPECT_NEAR(AreaOf(Picture(), Qt::darkGreen).center().x(), Stop(0), 3);
}

TEST_F(SliderInk, GrooveGoesFromTheFirstStopToTheLastAndIsWiderThere) {
  const QImage image = Picture();
  const int middle = AreaOf(image, Qt::blue).center().y();
  const QColor groove(219, 219, 219);
  for (const int x : {Stop(0) + line, (Stop(0) + Stop(1)) / 2, (Stop(1) + Stop(2)) / 2, Stop(2)}) {
    EXPECT_EQ(image.pixelColor(x, middle), groove) << x;
  }
  EXPECT_EQ(image.pixelColor(Stop(2) + line, middle), Qt::white);
  EXPECT_EQ(image.pixelColor(Stop(0) - line, middle), Qt::white);
  // Between two names, so that the groove alone is in the column.
  slider.SetLabels(",,");
  const QImage bare = Picture();
  const int narrow = InkIn(bare, (Stop(0) + Stop(1)) / 2).height();
  EXPECT_NEAR(narrow, 0.2 * line, 3);
  for (const int position : {1, 2}) {
    const QRect wide = InkIn(bare, Stop(position));
    EXPECT_NEAR(wide.height(), 0.32 * line, 4) << position;
    EXPECT_GT(wide.height(), narrow) << position;
    // Its rim is darker than the groove, wherever between two rows of pixels it lies.
    int rim = 255;
    for (int y = wide.top(); y < wide.top() + 3; ++y) {
      rim = std::min(rim, bare.pixelColor(Stop(position), y).lightness());
    }
    EXPECT_LT(rim, groove.lightness() - 8) << position;
  }
}

TEST_F(SliderInk, EachNameStandsInTheMiddleBelowItsStop) {
  const auto name_area = [this] {
    const QImage image = Picture();
    return AreaOf(image.copy(0, image.height() / 2, image.width(), image.height() / 2), Qt::black);
  };
  for (int position = 0; position < 3; ++position) {
    QStringList names{"", "", ""};
    names[position] = "HHH";
    slider.SetLabels(names.join(','));
    slider.SetPosition(position);
    const QRect name = name_area();
    EXPECT_NEAR(name.center().x(), Stop(position), 4) << position;
    EXPECT_GT(name.width(), line) << position;
  }
  slider.SetLabels(",,");
  EXPECT_TRUE(name_area().isEmpty());
}

TEST_F(SliderInk, NameThatIsTooLongIsCutBehindItsBeginningWithinItsThird) {
  slider.SetLabels(",....HHHHHHHHHHHHHHHHHHHHHHHHHHHHHH,");
  const QImage image = Picture();
  const QRect name = AreaOf(image, Qt::black);
  EXPECT_GE(name.left(), slider.width() / 3 - 1);
  EXPECT_LE(name.right(), 2 * slider.width() / 3 + 1);
  const QRect points =
      AreaOf(image.copy(name.left(), name.top(), line / 2, name.height()), Qt::black);
  EXPECT_LT(points.height(), name.height() / 2);
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

TEST_F(SliderTest, APositionWithoutANameIsTwoLinesWide) {
  const auto width_of = [&](const char* labels) {
    slider.SetLabels(labels);
    return slider.sizeHint().width();
  };
  const int line = QFontMetrics(slider.font()).height();
  EXPECT_NEAR(width_of(",,") - width_of(","), 2 * line, 1);
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
