#pragma once

#include <QString>
#include <QWidget>
#include <functional>

class QStackedWidget;
class QTabBar;

namespace sorvane {

class ProgramGate;

// Pages of controls behind a row of tabs, one of them in front.
//
// A closed tab can't be brought to the front by the user. That is all that closing a tab does: a
// closed tab that is in front stays there, and the controls behind it stay as open as they were.
// When a tab goes to the back, a control behind it that has the focus gives it to the row of tabs.
class TabPages : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int front READ Front)

 public:
  TabPages(ProgramGate& gate, QWidget* parent);

  // Adds a tab behind the last and returns its page, still empty. The first tab is in front; all
  // are open.
  QWidget* AddTab(const QString& caption);

  // Tabs count from 0; a tab that doesn't exist is RuntimeError kInvalidPropertyValue. Captions
  // show as they are, ampersands included.
  void SetCaption(int tab, const QString& caption);
  QString Caption(int tab) const;
  int Front() const { return front_; }
  void SetFront(int tab);  // a closed tab too
  void SetTabOpen(int tab, bool open);
  bool IsTabOpen(int tab) const;

  // What a closed tab says of itself to the mouse.
  std::function<QString()> closed_hint;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Require(int tab) const;
  void ChooseByUser(int tab);
  void BringToFront(int tab);
  void UpdateHints();

  QTabBar* strip_;
  QStackedWidget* pages_;
  int front_ = -1;  // -1 for no tabs yet
};

}  // namespace sorvane
