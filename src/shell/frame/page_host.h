#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QSize;
class QString;

namespace sorvane {

class ChildForm;
class ProgramGate;
struct Reply;

// The child windows of the frame: opens each form once, brings it to the front, tells all of them
// of a reply, and lists them in the Windows menu.
class PageHost : public QObject {
 public:
  using Maker = std::function<std::unique_ptr<ChildForm>()>;

  // area is the frame's middle; frame is the window whose outer size pages are placed by.
  PageHost(ProgramGate& gate, QMdiArea& area, const QWidget& frame);

  // Brings the form of that name to the front, after making and loading it if it isn't open.
  void Open(const QString& form_name, const Maker& make);

  // Hands a reply to every open form, in the order in which they were opened.
  void ReplyNotice(const Reply& reply);

  // Activates every open form in turn and then the one that was active before, so that all take on
  // the language. With no form open it does nothing.
  void Refresh();

  // The name of the form in front; empty where there is none.
  QString FrontForm() const;

  // Unloads and removes all forms.
  void CloseAll();

  // Fills the Windows menu: the open forms in order, numbered, the front one checked. The first
  // nine have their number as access key. With no form open the menu says so in the words of none.
  void FillWindowsMenu(QMenu& menu, const QString& none);

 private:
  class Window;

  Window* Add(std::unique_ptr<ChildForm> form);
  void Show(Window& window);
  // The room that the window's form takes, with all that stands behind its tabs.
  static QSize RoomOf(Window& window);
  // Moves the window to the middle of the frame, a little above it.
  void CenterPage(Window& window) const;
  void OnActivated(QMdiSubWindow* window);
  void OnClosed(Window& window);

  ProgramGate& gate_;
  QMdiArea& area_;
  const QWidget& frame_;
  std::vector<Window*> windows_;  // open ones, in the order of their loading
  Window* front_ = nullptr;       // the one of them that came to the front last
};

}  // namespace sorvane
