#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

#include "outside/dialogs.h"

class QMessageBox;
class QWidget;

namespace sorvane {

class ProgramGate;

// Message boxes of the platform. They are not modal in Qt's sense, since that would shut the
// frame's close control as well; while one stands, a filter keeps keys and clicks from all other
// widgets.
class QtDialogs : public QObject, public Dialogs {
 public:
  explicit QtDialogs(ProgramGate& gate);
  ~QtDialogs() override;

  // Boxes stand over this window while it is visible.
  void SetFrame(QWidget* frame) { frame_ = frame; }

  void Show(const MessageBox& box, std::function<void(Answer)> answered) override;

  // Shows the report of a run-time error, also behind a shut gate.
  void Report(const std::string& text, std::function<void()> then);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMessageBox* Make(const MessageBox& box);
  void Present(QMessageBox* box);
  bool BelongsToBox(const QWidget* widget) const;

  ProgramGate& gate_;
  QPointer<QWidget> frame_;
  std::vector<QPointer<QMessageBox>> standing_;  // the last one is in front
};

}  // namespace sorvane
