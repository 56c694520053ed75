#include "shell/controls/focus_keeper.h"

#include <QApplication>
#include <QWidget>
#include <utility>

#include "shell/controls/entry_box.h"
#include "shell/gate/guarded_connect.h"

namespace sorvane {
namespace {

bool Holds(const QWidget& control, const QWidget* widget) {
  return widget != nullptr && control.isAncestorOf(widget);  // a widget counts as its own ancestor
}

FocusKeeper* KeeperOf(const QWidget& control) {
  for (const QWidget* parent = &control; parent != nullptr; parent = parent->parentWidget()) {
    auto* keeper = parent->findChild<FocusKeeper*>(QString(), Qt::FindDirectChildrenOnly);
    if (keeper != nullptr) return keeper;
  }
  return nullptr;
}

}  // namespace

void SetOpen(QWidget& control, bool open) {
  if (!open) {
    if (FocusKeeper* keeper = KeeperOf(control)) keeper->Release(control);
  }
  control.setEnabled(open);
}

FocusKeeper::FocusKeeper(ProgramGate& gate, QWidget* page) : QObject(page), page_(*page) {
  page_.setFocusPolicy(Qt::ClickFocus);
  page_.setFocus();
  ConnectGuarded(gate, qApp, &QApplication::focusChanged, this,
                 [this](QWidget*, QWidget* now) { MoveTo(now); });
}

void FocusKeeper::MoveTo(QWidget* now) {
  if (now == &page_) {
    if (holder_ != nullptr && holder_->isEnabled() && holder_->isVisible()) holder_->setFocus();
    return;
  }
  if (!Holds(page_, now) || (now == holder_ && !lost_)) return;
  TellLoss();
  holder_ = now;
  lost_ = false;
  if (auto* box = qobject_cast<EntryBox*>(now)) box->GotFocus();
}

void FocusKeeper::Leave() { TellLoss(); }

void FocusKeeper::TellLoss() {
  if (std::exchange(lost_, true)) return;
  if (auto* box = qobject_cast<EntryBox*>(holder_.data())) box->LostFocus();
}

void FocusKeeper::Release(QWidget& control) {
  if (Holds(control, holder_)) {
    TellLoss();
    holder_ = nullptr;
  }
  if (Holds(control, page_.window()->focusWidget())) {
    // Also right while a box is in front: the page then has the focus when the box has gone.
    page_.setFocus();
  } else if (Holds(control, page_.focusWidget())) {
    // Another page is in front and keeps the focus; this one only forgets where it was.
    page_.focusWidget()->clearFocus();
  }
}

}  // namespace sorvane
