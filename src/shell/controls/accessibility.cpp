#include "shell/controls/accessibility.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAccessibleStateChangeEvent>
#include <QAccessibleValueChangeEvent>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

#include "shell/controls/bar.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/lamp.h"
#include "shell/controls/slider.h"
#include "shell/controls/toggle.h"

namespace sorvane {
namespace {

// A control with a whole number that the user can change: the bar and the slider.
class Valued : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit Valued(QWidget* control) : QAccessibleWidget(control, QAccessible::Slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QVariant minimumStepSize() const override { return 1; }
};

class BarInterface final : public Valued {
 public:
  explicit BarInterface(Bar* bar) : Valued(bar), bar_(*bar) {}

  QVariant currentValue() const override { return Spoken(bar_.Position()); }
  QVariant minimumValue() const override { return Spoken(bar_.Minimum()); }
  QVariant maximumValue() const override { return Spoken(bar_.Maximum()); }
  void setCurrentValue(const QVariant& value) override {
    bar_.MoveByUser(value.toInt() - bar_.SpokenOffset());
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? currentValue().toString() : Valued::text(kind);
  }

 private:
  int Spoken(int position) const { return position + bar_.SpokenOffset(); }

  Bar& bar_;
};

class SliderInterface final : public Valued {
 public:
  explicit SliderInterface(Slider* slider) : Valued(slider), slider_(*slider) {}

  QVariant currentValue() const override { return slider_.Position(); }
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return static_cast<int>(slider_.Labels().size()) - 1; }
  void setCurrentValue(const QVariant& value) override { slider_.MoveByUser(value.toInt()); }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? slider_.Labels()[slider_.Position()] : Valued::text(kind);
  }

 private:
  Slider& slider_;
};

class ToggleInterface final : public QAccessibleWidget {
 public:
  explicit ToggleInterface(Toggle* toggle)
      : QAccessibleWidget(toggle, QAccessible::CheckBox), toggle_(*toggle) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = toggle_.IsChecked();
    return state;
  }
  QStringList actionNames() const override {
    return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action == toggleAction()) return toggle_.TurnOverByUser();
    QAccessibleWidget::doAction(action);
  }

 private:
  Toggle& toggle_;
};

// A control that only shows something. What it shows stands in its name, behind the words for it:
// desktops know no role of a clock or a lamp, and read no value of a text.
class Display : public QAccessibleWidget {
 public:
  explicit Display(QWidget* control) : QAccessibleWidget(control, QAccessible::StaticText) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
  }
};

class ClockInterface final : public Display {
 public:
  explicit ClockInterface(ClockFace* clock) : Display(clock), clock_(*clock) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) return clock_.Text();
    const QString words = Display::text(kind);
    return kind == QAccessible::Name ? (words + ' ' + clock_.Text()).trimmed() : words;
  }

 private:
  ClockFace& clock_;
};

class LampInterface final : public Display {
 public:
  explicit LampInterface(Lamp* lamp) : Display(lamp), lamp_(*lamp) {}

  QString text(QAccessible::Text kind) const override {
    const char* state = lamp_.IsLit() ? "on" : "off";
    if (kind == QAccessible::Value) return state;
    const QString words = Display::text(kind);
    return kind == QAccessible::Name ? words + ": " + state : words;
  }

 private:
  Lamp& lamp_;
};

QAccessibleInterface* InterfaceOf(const QString&, QObject* object) {
  if (auto* bar = qobject_cast<Bar*>(object)) return new BarInterface(bar);
  if (auto* slider = qobject_cast<Slider*>(object)) return new SliderInterface(slider);
  if (auto* toggle = qobject_cast<Toggle*>(object)) return new ToggleInterface(toggle);
  if (auto* clock = qobject_cast<ClockFace*>(object)) return new ClockInterface(clock);
  if (auto* lamp = qobject_cast<Lamp*>(object)) return new LampInterface(lamp);
  return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(InterfaceOf); }

void TellValueChange(QWidget& control, const QVariant& value) {
  QAccessibleValueChangeEvent event(&control, value);
  QAccessible::updateAccessibility(&event);
}

void TellCheckChange(QWidget& control) {
  QAccessible::State changed;
  changed.checked = true;
  QAccessibleStateChangeEvent event(&control, changed);
  QAccessible::updateAccessibility(&event);
}

void TellNameChange(QWidget& control) {
  QAccessibleEvent event(&control, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

}  // namespace sorvane
