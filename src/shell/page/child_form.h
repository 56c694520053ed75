#pragma once

#include <QEvent>
#include <QWidget>

namespace sorvane {

struct Reply;

// What stands inside a child window of the main frame. Its objectName is the form's name, its
// window title the caption. The host calls the five operations below, each through the gate; a form
// is loaded and unloaded exactly once, and a form that is opened again is a new one.
class ChildForm : public QWidget {
 public:
  explicit ChildForm(const QString& form_name) {
    setObjectName(form_name);
    // A ground of its own: what is painted on the form doesn't bring the window's title bar with
    // it.
    setAutoFillBackground(true);
  }

  virtual void Load() = 0;
  virtual void Activate() {}    // it has come to the front
  virtual void Deactivate() {}  // another form has come to the front
  virtual void Unload() {}
  virtual void ReplyNotice(const Reply&) {}

 protected:
  // A form that has the keyboard is said by its caption.
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::WindowTitleChange) setAccessibleName(windowTitle());
    QWidget::changeEvent(event);
  }
};

}  // namespace sorvane
