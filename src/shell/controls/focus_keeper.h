#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace sorvane {

class ProgramGate;

// Opens a control for the user, or closes it: any widget of a page, a frame with controls in it
// included. It is the only way in which a page closes what can hold the focus: the focus of a
// closed control goes to the page itself, never to a next field, and an entry box that held it has
// lost it.
void SetOpen(QWidget& control, bool open);

// Tells the entry boxes of one page when they get and lose the focus. A page makes one; it is a
// child of the page widget and lives as long.
//
// A move to another control of the same page is a loss, and so is another page in front; coming
// back from that one is a new gain. While a box, a menu or another program is in front the entry
// box keeps what is being typed, and coming back to it is no gain. A click on the page's bare
// ground is no move: the control that had the focus has it again.
//
// The page widget takes the focus of a page that is opened, so that no field gets it unasked, but
// it takes no part in the order of Tab. What only holds controls (frames, scroll areas) must have
// the focus policy Qt::NoFocus.
class FocusKeeper : public QObject {
  Q_OBJECT

 public:
  FocusKeeper(ProgramGate& gate, QWidget* page);

  // Another page has come to the front; the page's host tells.
  void Leave();

  // Takes the focus from control, or from what stands inside it. Part of SetOpen.
  void Release(QWidget& control);

 private:
  void MoveTo(QWidget* now);
  void TellLoss();

  QWidget& page_;
  QPointer<QWidget> holder_;  // the control of the page that had the focus last
  bool lost_ = false;         // it has been told that it lost it
};

}  // namespace sorvane
