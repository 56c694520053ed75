#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

#include "pages/page_tests.h"

// What a reply costs that brings another value: what shows the value is painted, and nothing is
// laid out anew.
namespace sorvane::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr int kPageful = 170;  // steps of the sweep in which the largest page is read
constexpr int kDay = 56;

// Listens to the events of the whole program while it lives.
class Listener : public QObject {
 public:
  Listener() { QCoreApplication::instance()->installEventFilter(this); }

  std::vector<std::string> laid_out;  // by name or, without one, by class
  std::vector<std::string> painted;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) laid_out.push_back(NameOf(*watched));
    if (event->type() == QEvent::Paint) painted.push_back(NameOf(*watched));
    return QObject::eventFilter(watched, event);
  }

 private:
  static std::string NameOf(const QObject& object) {
    const QString name = object.objectName();
    return name.isEmpty() ? object.metaObject()->className() : name.toStdString();
  }
};

// Lays out and paints until there is nothing left of it.
void ServeEvents() {
  bool done = false;
  while (!done) {
    const Listener listener;
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    done = listener.laid_out.empty() && listener.painted.empty();
  }
}

// A page over a board that has a fitting value everywhere. It has been read, and the lamps burn.
class OpenPage : public PageTest {
 protected:
  explicit OpenPage(const PageEntry& page) : PageTest(page.form, page.entry, kPoint) {
    for (int k = 1; k <= 10; ++k) SetNumbers(k, {8});
    SetNumbers(22, {2});
    for (int k = 23; k <= 58; ++k) SetNumbers(k, {10});
    SetNumbers(71, {3});
    for (int k = 118; k <= 352; ++k) SetNumbers(k, {10});
    OpenUnanswered();
    program.Sweep(kPageful);
    Change(kDay);
  }

  // Lets the board answer with a value that differs in its lowest bit.
  void Change(int parameter) {
    Bytes value = program.link.Value(parameter);
    value.front() ^= 1;
    program.link.SetBoard(parameter, value);
    AskAgain(parameter);
    program.link.access.UnwatchParameter(parameter);
    ServeEvents();
  }
};

class ChangedValue : public OpenPage, public testing::WithParamInterface<PageEntry> {
 protected:
  ChangedValue() : OpenPage(GetParam()) {}
};

TEST_P(ChangedValue, LaysNothingOutAnewAndLeavesTheTitleBarAlone) {
  bool painted = false;
  for (const int k : Watched()) {
    Listener listener;
    Change(k);
    EXPECT_THAT(listener.laid_out, ElementsAre()) << "parameter " << k;
    EXPECT_THAT(listener.painted, Not(Contains("QMdiSubWindow"))) << "parameter " << k;
    painted = painted || !listener.painted.empty();
  }
  EXPECT_TRUE(painted);
  EXPECT_THAT(program.reports, ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Pages, ChangedValue, testing::ValuesIn(kPageEntries),
                         [](const testing::TestParamInfo<PageEntry>& page) {
                           return std::string(page.param.form);
                         });

struct CountersPage : OpenPage {
  CountersPage() : OpenPage({"MnuContatori", "FrmContatori"}) {}
};

TEST_F(CountersPage, PaintsTheBoxOfAChangedValueOnceAndNothingElse) {
  for (int i = 0; i < 30; ++i) {
    Listener listener;
    Change(320 + i);
    EXPECT_THAT(listener.painted, ElementsAre(Indexed("Label1", i).toStdString()));
  }
}

}  // namespace
}  // namespace sorvane::test
