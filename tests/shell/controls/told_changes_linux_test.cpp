#include <QAccessible>
#include <QStringList>

#include "shell/controls/bar.h"
#include "shell/controls/bench.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/lamp.h"
#include "shell/controls/slider.h"
#include "shell/controls/toggle.h"

// What the controls tell assistive technology of their changes. The platform of the tests has none
// that could listen, so these tests stand in its place.
namespace sorvane {
namespace {

QStringList* heard = nullptr;

QString WordsOf(QAccessibleEvent& event) {
  switch (event.type()) {
    case QAccessible::ValueChanged:
      return "value " + static_cast<QAccessibleValueChangeEvent&>(event).value().toString();
    case QAccessible::StateChanged:
      return static_cast<QAccessibleStateChangeEvent&>(event).changedStates().checked ? "checked"
                                                                                      : "state";
    case QAccessible::NameChanged:
      return "name";
    default:
      return "something else";
  }
}

}  // namespace
}  // namespace sorvane

void QAccessible::updateAccessibility(QAccessibleEvent* event) {
  if (sorvane::heard != nullptr) sorvane::heard->append(sorvane::WordsOf(*event));
}

namespace sorvane {
namespace {

struct ToldChangesTest : testing::Test, GateBench {
  ToldChangesTest() { heard = &told; }
  ~ToldChangesTest() override { heard = nullptr; }
  QStringList told;
};

TEST_F(ToldChangesTest, ANewValueOfABarIsToldAsItIsSpoken) {
  Bar bar(gate, nullptr);
  bar.SetRange(0, 10);
  bar.SetSpokenOffset(100);
  for (const int position : {7, 7, 8}) bar.SetPosition(position);
  EXPECT_EQ(told, QStringList({"value 107", "value 108"}));
}

TEST_F(ToldChangesTest, ANewPositionOfASliderIsTold) {
  Slider slider(gate, nullptr);
  slider.SetLabels("SI,NO");
  for (const int position : {1, 1, 0}) slider.SetPosition(position);
  EXPECT_EQ(told, QStringList({"value 1", "value 0"}));
}

TEST_F(ToldChangesTest, ASwitchThatIsTurnedIsTold) {
  Toggle toggle(gate, nullptr);
  for (const bool checked : {true, true, false}) toggle.SetChecked(checked);
  EXPECT_EQ(told, QStringList({"checked", "checked"}));
}

TEST_F(ToldChangesTest, ALampThatLightsOrGoesOutIsTold) {
  Lamp lamp(nullptr);
  for (const int image : {1, 2, 4, 5, 1}) lamp.SetImage(image);
  EXPECT_EQ(told, QStringList({"name", "name"}));
}

TEST_F(ToldChangesTest, ANewTimeIsTold) {
  ClockFace clock(nullptr);
  clock.SetTime(7, 30);
  EXPECT_EQ(told, QStringList({"name"}));
}

}  // namespace
}  // namespace sorvane
