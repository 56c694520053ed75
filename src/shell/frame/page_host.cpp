#include "shell/frame/page_host.h"

#include <QAction>
#include <QCloseEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <algorithm>
#include <utility>

#include "shell/gate/guarded_connect.h"
#include "shell/page/child_form.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

// The unit in which forms have always been placed.
constexpr double kTwipsPerPixel = 15;

// Has a window ask all its parts anew for the room that they take. What is behind a tab doesn't
// tell by itself that it has grown.
void UpdateGeometries(QWidget& widget) {
  for (QObject* child : widget.children()) {
    if (child->isWidgetType()) UpdateGeometries(static_cast<QWidget&>(*child));
  }
  if (widget.layout() != nullptr) widget.layout()->activate();
  widget.updateGeometry();
}

// The child window that takes the front for a moment while the open forms are refreshed, so that
// the active one loses it and is activated again.
class UsbForm : public ChildForm {
 public:
  UsbForm() : ChildForm("USB") { setWindowTitle("USB"); }
  void Load() override {}
};

}  // namespace

// A child window of the frame. It holds one form and unloads it when it closes, whoever closes it.
class PageHost::Window : public QMdiSubWindow {
 public:
  Window(PageHost& host, std::unique_ptr<ChildForm> form)
      : QMdiSubWindow(nullptr, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                   Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                   Qt::WindowCloseButtonHint),
        host_(host),
        form_(form.get()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(form.release());
  }

  ChildForm& Form() { return *form_; }

 protected:
  void closeEvent(QCloseEvent* event) override {
    host_.gate_.Run([this] { host_.OnClosed(*this); });
    QMdiSubWindow::closeEvent(event);
  }

 private:
  PageHost& host_;
  ChildForm* form_;
};

PageHost::PageHost(ProgramGate& gate, QMdiArea& area, const QWidget& frame)
    : gate_(gate), area_(area), frame_(frame) {
  ConnectGuarded(gate_, &area_, &QMdiArea::subWindowActivated, this,
                 [this](QMdiSubWindow* window) { OnActivated(window); });
}

void PageHost::Open(const QString& form_name, const Maker& make) {
  const auto open = std::find_if(windows_.begin(), windows_.end(), [&](Window* window) {
    return window->Form().objectName() == form_name;
  });
  if (open != windows_.end()) {
    Show(**open);
    return;
  }
  Window* window = Add(make());
  window->Form().Load();
  window->resize(RoomOf(*window));
  CenterPage(*window);
  Show(*window);
}

PageHost::Window* PageHost::Add(std::unique_ptr<ChildForm> form) {
  auto* window = new Window(*this, std::move(form));
  windows_.push_back(window);
  area_.addSubWindow(window);
  return window;
}

void PageHost::Show(Window& window) {
  if (window.isMinimized()) {
    window.showNormal();
  } else {
    window.show();
  }
  area_.setActiveSubWindow(&window);
}

QSize PageHost::RoomOf(Window& window) {
  UpdateGeometries(window.Form());
  return window.sizeHint();
}

void PageHost::CenterPage(Window& window) const {
  const double frame_height = frame_.frameGeometry().height() * kTwipsPerPixel;
  const double frame_width = frame_.frameGeometry().width() * kTwipsPerPixel;
  const double page_height = window.height() * kTwipsPerPixel;
  const double page_width = window.width() * kTwipsPerPixel;
  const double top = frame_height * 0.85 / 2 - page_height / 2 + 40;
  const double left = frame_width / 2 - page_width / 2;
  window.move(qRound(left / kTwipsPerPixel), qRound(top / kTwipsPerPixel));
}

void PageHost::ReplyNotice(const Reply& reply) {
  const std::vector<Window*> told = windows_;
  for (Window* window : told) window->Form().ReplyNotice(reply);
}

void PageHost::Refresh() {
  auto* active = static_cast<Window*>(area_.activeSubWindow());
  if (active == nullptr) return;
  const std::vector<Window*> shown = windows_;
  Window* usb = Add(std::make_unique<UsbForm>());
  Show(*usb);
  for (Window* window : shown) area_.setActiveSubWindow(window);
  area_.setActiveSubWindow(active);
  usb->close();
}

QString PageHost::FrontForm() const {
  return front_ != nullptr ? front_->Form().objectName() : QString();
}

void PageHost::CloseAll() {
  const std::vector<Window*> open = windows_;
  for (Window* window : open) window->close();
}

void PageHost::FillWindowsMenu(QMenu& menu, const QString& none) {
  constexpr int kAccessKeys = 9;  // a second digit would be the key of another entry
  menu.clear();
  if (windows_.empty()) menu.addAction(none)->setEnabled(false);
  int number = 0;
  for (Window* window : windows_) {
    const QString title = EscapeAmpersands(window->windowTitle());
    const char* mark = ++number <= kAccessKeys ? "&" : "";
    QAction* entry = menu.addAction(QString("%1%2 %3").arg(mark).arg(number).arg(title));
    entry->setCheckable(true);
    entry->setChecked(area_.activeSubWindow() == window);
    ConnectGuarded(gate_, entry, &QAction::triggered, window, [this, window] { Show(*window); });
  }
}

void PageHost::OnActivated(QMdiSubWindow* window) {
  const auto open = std::find(windows_.begin(), windows_.end(), window);
  if (open == windows_.end()) return;
  Window* before = std::exchange(front_, *open);
  if (before != nullptr && before != front_) before->Form().Deactivate();
  (*open)->Form().Activate();
  // Its captions may have grown; a window that the user has enlarged stays as large.
  if (!(*open)->isMinimized()) (*open)->resize((*open)->size().expandedTo(RoomOf(**open)));
}

void PageHost::OnClosed(Window& window) {
  if (front_ == &window) front_ = nullptr;
  if (std::erase(windows_, &window) > 0) window.Form().Unload();
}

}  // namespace sorvane
