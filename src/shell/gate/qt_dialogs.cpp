#include "shell/gate/qt_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QIcon>
#include <QMessageBox>
#include <QSpacerItem>
#include <QWidget>
#include <utility>

#include "shell/gate/guarded_connect.h"
#include "shell/gate/program_gate.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

Answer ToAnswer(int button) {
  switch (button) {
    case QMessageBox::Retry:
      return Answer::kRetry;
    case QMessageBox::Cancel:
      return Answer::kCancel;
    default:
      return Answer::kOk;
  }
}

// A press, key or wheel that would reach what lies behind a box. Releases pass, so that nothing is
// left pressed.
bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

// Makes a box wide enough for its title beside the icon and the controls of its window: a window
// manager cuts a title that is wider than what it stands above. A single line of text stands in the
// middle of its icon.
void SpreadOut(QMessageBox& box) {
  constexpr int kIconAndControls = 8;  // times the height of a line
  const QFontMetrics metrics = box.fontMetrics();
  const int width =
      metrics.horizontalAdvance(box.windowTitle()) + kIconAndControls * metrics.height();
  auto& grid = dynamic_cast<QGridLayout&>(*box.layout());
  grid.setRowStretch(0, 1);
  grid.addItem(new QSpacerItem(width, 0), grid.rowCount(), 0, 1, grid.columnCount());
}

}  // namespace

QtDialogs::QtDialogs(ProgramGate& gate) : gate_(gate) { qApp->installEventFilter(this); }

QtDialogs::~QtDialogs() {
  qApp->removeEventFilter(this);
  for (const QPointer<QMessageBox>& box : standing_) delete box;
}

void QtDialogs::Show(const MessageBox& box, std::function<void(Answer)> answered) {
  QMessageBox* shown = Make(box);
  ConnectGuarded(gate_, shown, &QMessageBox::finished, this,
                 [answered = std::move(answered)](int button) { answered(ToAnswer(button)); });
  Present(shown);
}

void QtDialogs::Report(const std::string& text, std::function<void()> then) {
  QMessageBox* shown = Make({text, qApp->applicationDisplayName().toStdString(), kCriticalIcon});
  // The gate is shut by now; the end of the program hangs on this one answer.
  ConnectBehindGate(shown, &QMessageBox::finished, this, [then = std::move(then)] { then(); });
  Present(shown);
}

QMessageBox* QtDialogs::Make(const MessageBox& box) {
  const bool has_parent = frame_ && frame_->isVisible();
  auto* shown = new QMessageBox(has_parent ? frame_.data() : nullptr);
  shown->setAttribute(Qt::WA_DeleteOnClose);
  shown->setModal(false);
  shown->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                        Qt::WindowCloseButtonHint);
  shown->setTextFormat(Qt::PlainText);
  QString text = FromWestern(box.text);
  // A lone carriage return breaks the line like a line feed.
  shown->setText(text.replace("\r\n", "\n").replace('\r', '\n'));
  shown->setWindowTitle(FromWestern(box.title));
  shown->setIcon((box.flags & kExclamationIcon) == kExclamationIcon ? QMessageBox::Warning
                                                                    : QMessageBox::Critical);
  if ((box.flags & kRetryCancel) == kRetryCancel) {
    shown->setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel);
    shown->setDefaultButton(QMessageBox::Retry);
    shown->setEscapeButton(QMessageBox::Cancel);
  } else {
    shown->setStandardButtons(QMessageBox::Ok);
  }
  // Desktops have pictures for some of the buttons only.
  for (QAbstractButton* button : shown->buttons()) button->setIcon({});
  SpreadOut(*shown);
  return shown;
}

void QtDialogs::Present(QMessageBox* box) {
  // An open menu holds the mouse, and the box couldn't be reached.
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  std::erase_if(standing_, [](const QPointer<QMessageBox>& old) { return old.isNull(); });
  standing_.push_back(box);
  box->show();
  box->raise();
  box->activateWindow();
}

bool QtDialogs::BelongsToBox(const QWidget* widget) const {
  const QMessageBox* front = standing_.back();
  return widget->window() == front;
}

bool QtDialogs::eventFilter(QObject* watched, QEvent* event) {
  const bool is_input = IsInput(event->type());
  const bool is_activation = event->type() == QEvent::WindowActivate;
  if ((!is_input && !is_activation) || !watched->isWidgetType()) return false;
  while (!standing_.empty() && (standing_.back().isNull() || !standing_.back()->isVisible())) {
    standing_.pop_back();
  }
  if (standing_.empty() || BelongsToBox(static_cast<QWidget*>(watched))) return false;
  if (is_input) return true;
  if (!static_cast<QWidget*>(watched)->isWindow()) return false;
  standing_.back()->raise();
  standing_.back()->activateWindow();
  return false;
}

}  // namespace sorvane
