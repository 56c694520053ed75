#include "shell/controls/tab_pages.h"

#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <QTabBar>
#include <QVBoxLayout>

#include "board/errors.h"
#include "shell/controls/control_hint.h"
#include "shell/controls/focus_keeper.h"
#include "shell/gate/guarded_connect.h"

namespace sorvane {

TabPages::TabPages(ProgramGate& gate, QWidget* parent)
    : QWidget(parent), strip_(new QTabBar(this)), pages_(new QStackedWidget(this)) {
  strip_->setFocusPolicy(Qt::StrongFocus);
  strip_->setExpanding(false);
  strip_->setDrawBase(false);
  strip_->setUsesScrollButtons(false);
  strip_->setElideMode(Qt::ElideNone);
  const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  pages_->setContentsMargins(frame, frame, frame, frame);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(strip_);
  layout->addWidget(pages_, 1);
  ConnectGuarded(gate, strip_, &QTabBar::currentChanged, this,
                 [this](int tab) { ChooseByUser(tab); });
  new ControlHint(gate, *strip_, [this] {
    UpdateHints();
    return QString();  // each tab has its own
  });
}

QWidget* TabPages::AddTab(const QString& caption) {
  auto* page = new QWidget(pages_);
  pages_->addWidget(page);
  SetCaption(strip_->addTab(QString()), caption);
  return page;
}

void TabPages::SetCaption(int tab, const QString& caption) {
  Require(tab);
  strip_->setTabText(tab, QString(caption).replace('&', "&&"));
}

QString TabPages::Caption(int tab) const {
  Require(tab);
  return strip_->tabText(tab).replace("&&", "&");
}

void TabPages::SetFront(int tab) {
  Require(tab);
  const QSignalBlocker quiet(strip_);
  strip_->setCurrentIndex(tab);
  BringToFront(tab);
}

void TabPages::SetTabOpen(int tab, bool open) {
  Require(tab);
  // The strip moves its current tab away from a tab that is closed; here the front tab stays.
  const QSignalBlocker quiet(strip_);
  strip_->setTabEnabled(tab, open);
  strip_->setCurrentIndex(front_);
}

bool TabPages::IsTabOpen(int tab) const {
  Require(tab);
  return strip_->isTabEnabled(tab);
}

void TabPages::UpdateHints() {
  for (int tab = 0; tab < strip_->count(); ++tab) {
    const bool open = isEnabled() && IsTabOpen(tab);
    strip_->setTabToolTip(tab, open || !closed_hint ? QString() : closed_hint());
  }
}

void TabPages::Require(int tab) const {
  if (tab < 0 || tab >= strip_->count()) throw RuntimeError(ErrorCode::kInvalidPropertyValue);
}

void TabPages::ChooseByUser(int tab) {
  // Clicks and keys pass a closed tab over; assistive technology that presses it doesn't.
  SetFront(strip_->isTabEnabled(tab) ? tab : front_);
}

void TabPages::BringToFront(int tab) {
  if (tab == front_) return;
  front_ = tab;
  // Before the old page is hidden: left to the toolkit, its focus would go to a field of the new
  // one.
  const QWidget* focus = window()->focusWidget();
  if (focus != nullptr && pages_->isAncestorOf(focus)) strip_->setFocus();
  pages_->setCurrentIndex(tab);
}

void TabPages::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionTabWidgetFrame option;
  option.initFrom(this);
  const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, strip_);
  option.rect = pages_->geometry().adjusted(0, -overlap, 0, 0);
  option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  option.shape = strip_->shape();
  option.tabBarSize = strip_->size();
  option.tabBarRect = strip_->geometry();
  option.selectedTabRect = strip_->tabRect(strip_->currentIndex());
  painter.drawPrimitive(QStyle::PE_FrameTabWidget, option);
}

}  // namespace sorvane
