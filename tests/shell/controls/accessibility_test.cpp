#include "shell/controls/accessibility.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QAccessibleValueInterface>

#include "shell/controls/bar.h"
#include "shell/controls/bench.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/lamp.h"
#include "shell/controls/slider.h"
#include "shell/controls/toggle.h"

namespace sorvane {
namespace {

struct AccessibilityTest : testing::Test, GateBench {
  static QAccessibleInterface& Of(QWidget& control) {
    control.setAccessibleName("Prezzo 1");
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&control);
    EXPECT_TRUE(interface->text(QAccessible::Name).startsWith("Prezzo 1"));
    return *interface;
  }
};

TEST_F(AccessibilityTest, BarIsASliderWithAValue) {
  Bar bar(gate, nullptr);
  bar.SetRange(1, 31);
  bar.SetPosition(7);
  QAccessibleInterface& interface = Of(bar);
  EXPECT_EQ(interface.role(), QAccessible::Slider);
  EXPECT_EQ(interface.text(QAccessible::Value), "7");
  QAccessibleValueInterface* value = interface.valueInterface();
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->currentValue(), 7);
  EXPECT_EQ(value->minimumValue(), 1);
  EXPECT_EQ(value->maximumValue(), 31);
  EXPECT_EQ(value->minimumStepSize(), 1);
  value->setCurrentValue(1000);
  EXPECT_EQ(bar.Position(), 31);
}

TEST_F(AccessibilityTest, BarSaysTheNumbersThatItsPositionsStandFor) {
  Bar bar(gate, nullptr);
  bar.SetRange(-32768, 32767);
  bar.SetSpokenOffset(32768);
  bar.SetPosition(-32618);
  QAccessibleInterface& interface = Of(bar);
  EXPECT_EQ(interface.text(QAccessible::Value), "150");
  QAccessibleValueInterface* value = interface.valueInterface();
  EXPECT_EQ(value->currentValue(), 150);
  EXPECT_EQ(value->minimumValue(), 0);
  EXPECT_EQ(value->maximumValue(), 65535);
  value->setCurrentValue(200);
  EXPECT_EQ(bar.Position(), -32568);
}

TEST_F(AccessibilityTest, ValueThatIsSetFromOutsideIsAnEventOfTheUser) {
  Bar bar(gate, nullptr);
  bar.on_change = [] { throw RuntimeError(ErrorCode::kOverflow); };
  Of(bar).valueInterface()->setCurrentValue(5);
  EXPECT_TRUE(gate.IsShut());
}

TEST_F(AccessibilityTest, ClosedControlsCantBeChangedFromOutside) {
  Bar bar(gate, nullptr);
  bar.SetOpen(false);
  Of(bar).valueInterface()->setCurrentValue(5);
  EXPECT_EQ(bar.Position(), 0);
  Toggle toggle(gate, nullptr);
  toggle.SetOpen(false);
  Of(toggle).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(toggle.IsChecked());
  EXPECT_TRUE(Of(toggle).state().disabled);
  Slider slider(gate, nullptr);
  slider.SetLabels("SI,NO");
  slider.SetOpen(false);
  Of(slider).valueInterface()->setCurrentValue(1);
  EXPECT_EQ(slider.Position(), 0);
}

TEST_F(AccessibilityTest, ToggleIsACheckBoxWithItsState) {
  Toggle toggle(gate, nullptr);
  QAccessibleInterface& interface = Of(toggle);
  EXPECT_EQ(interface.role(), QAccessible::CheckBox);
  EXPECT_TRUE(interface.state().checkable);
  EXPECT_FALSE(interface.state().checked);
  ASSERT_TRUE(interface.actionInterface()->actionNames().contains(
      QAccessibleActionInterface::toggleAction()));
  interface.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(toggle.IsChecked());
  EXPECT_TRUE(interface.state().checked);
}

TEST_F(AccessibilityTest, ToggleTakesTheFocusWhenItIsAskedTo) {
  Toggle toggle(gate, nullptr);
  ShowActive(toggle);
  toggle.clearFocus();
  Of(toggle).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(toggle.hasFocus());
  EXPECT_FALSE(toggle.IsChecked());
}

TEST_F(AccessibilityTest, BarHasNoTextToEdit) {
  Bar bar(gate, nullptr);
  EXPECT_EQ(Of(bar).editableTextInterface(), nullptr);
  EXPECT_NE(Of(bar).actionInterface(), nullptr);
}

TEST_F(AccessibilityTest, SliderSaysTheNameOfItsPosition) {
  Slider slider(gate, nullptr);
  slider.SetLabels("SI,NO");
  QAccessibleInterface& interface = Of(slider);
  EXPECT_EQ(interface.role(), QAccessible::Slider);
  interface.valueInterface()->setCurrentValue(1);
  EXPECT_EQ(slider.Position(), 1);
  EXPECT_EQ(interface.text(QAccessible::Value), "NO");
  EXPECT_EQ(interface.valueInterface()->currentValue(), 1);
  EXPECT_EQ(interface.valueInterface()->maximumValue(), 1);
}

TEST_F(AccessibilityTest, ClockIsATextThatSaysItsTimeOnceItHasOne) {
  ClockFace clock(nullptr);
  QAccessibleInterface& interface = Of(clock);
  EXPECT_EQ(interface.role(), QAccessible::StaticText);
  EXPECT_EQ(interface.text(QAccessible::Value), "");
  clock.SetTime(7, 30);
  EXPECT_EQ(interface.text(QAccessible::Name), "Prezzo 1 07:30");
  EXPECT_EQ(interface.text(QAccessible::Value), "07:30");
}

TEST_F(AccessibilityTest, LampIsATextThatSaysWhetherItIsLit) {
  Lamp lamp(nullptr);
  lamp.setAccessibleName("Error");
  QAccessibleInterface& interface = *QAccessible::queryAccessibleInterface(&lamp);
  EXPECT_EQ(interface.role(), QAccessible::StaticText);
  lamp.SetImage(3);
  EXPECT_EQ(interface.text(QAccessible::Name), "Error: off");
  lamp.SetImage(6);
  EXPECT_EQ(interface.text(QAccessible::Name), "Error: on");
  EXPECT_EQ(interface.text(QAccessible::Value), "on");
}

}  // namespace
}  // namespace sorvane
