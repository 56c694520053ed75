#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QMdiArea>
#include <QProgressBar>

#include "pages/access/shipped_program.h"

// What the user sees while something takes its time.
namespace sorvane::test {
namespace {

// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) : widget_(widget) { widget.installEventFilter(this); }

  // Whether the widget is painted when it has to be.
  bool Works() {
    count_ = 0;
    widget_.update();
    QApplication::processEvents();
    return count_ > 0;
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  QWidget& widget_;
  int count_ = 0;
};

// A connection to a board that keeps silent.
class LongConnection : public testing::Test {
 protected:
  LongConnection() {
    program.link.board.SwitchOff();
    program.Start();
    program.Choose("mnuConnect");
    program.gate.Run([this] { program.link.clock.Advance(500); });
  }

  Program program;
};

TEST_F(LongConnection, ShowsABusyCursorAndNothingElse) {
  EXPECT_EQ(program.frame->cursor().shape(), Qt::BusyCursor);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  program.link.dialogs.ExpectNone();
  EXPECT_TRUE(program.frame->findChild<QMdiArea*>()->subWindowList().isEmpty());
  EXPECT_EQ(program.frame->findChild<QProgressBar*>(), nullptr);
  EXPECT_TRUE(program.frame->isEnabled());
}

TEST_F(LongConnection, RepaintsTheWindow) {
  Paints paints(*program.frame);
  EXPECT_TRUE(paints.Works());
  program.frame->resize(program.frame->size() + QSize(10, 10));
  EXPECT_TRUE(paints.Works());
}

TEST_F(LongConnection, AnswersTheMenu) {
  PressKey(program, Qt::Key_F10);
  PressKey(program, Qt::Key_Left);  // to the last entry, behind the first
  PressKey(program, Qt::Key_Return);
  EXPECT_TRUE(program.IsOpen("FrmInfo"));
  program.Choose("mnuCox(2)");
  EXPECT_EQ(program.File("Sorvane.ini"), "Com=2\r\nLingua=Alfa\r\n");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(program.Entry("MnuSconti").text(), "Bravo 4");
}

TEST_F(LongConnection, EndsInItsBoxAfterAll) {
  program.gate.Run([this] { program.link.clock.Advance(1500); });
  program.link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53);
  program.link.dialogs.Answer(Answer::kCancel);
  EXPECT_EQ(program.frame->cursor().shape(), Qt::ArrowCursor);
}

TEST(LongReading, OfTheAlarmsShowsHowFarItIsAndThenTheList) {
  ShippedProgram program("Italiano");
  program.Choose("MnuAllarmi");
  auto& progress = program.Find<QProgressBar>("FrmAllarmi", "ProgressBar1");
  EXPECT_TRUE(progress.isVisible());
  EXPECT_EQ(progress.value(), 0);
  int before = 0;
  for (int i = 0; i < 3; ++i) {
    program.Sweep(50);
    EXPECT_GT(progress.value(), before);
    before = progress.value();
    EXPECT_TRUE(progress.isVisible());
  }
  program.Sweep(20);
  EXPECT_FALSE(progress.isVisible());
}

}  // namespace
}  // namespace sorvane::test
