#include "shell/controls/entry_box.h"

#include <QKeyEvent>
#include <QPalette>
#include <algorithm>

#include "shell/controls/focus_keeper.h"
#include "shell/gate/guarded_connect.h"

namespace sorvane {
namespace {

constexpr int kMostCharacters = 32767;  // that the toolkit's field holds
const QColor kRed(255, 0, 0);
const QColor kGreen(0, 255, 0);

}  // namespace

EntryBox::EntryBox(ProgramGate& gate, QWidget* parent)
    : QLineEdit(parent), gate_(gate), limit_(kMostCharacters) {
  ConnectGuarded(gate, this, &QLineEdit::textEdited, this,
                 [this](const QString&) { TightenLimit(); });
}

void EntryBox::SetCharacterLimit(int characters) {
  limit_ = characters;
  SetText(text());
}

void EntryBox::SetOpen(bool open) { sorvane::SetOpen(*this, open); }

void EntryBox::Show(const QString& text) {
  saved_text_ = text;
  SetText(text);
}

void EntryBox::SetText(const QString& text) {
  setMaxLength(kMostCharacters);
  setText(text);
  setMaxLength(std::max(limit_, static_cast<int>(text.size())));
}

void EntryBox::TightenLimit() {
  // The program's longer text has left room for its own length; what the user takes away from it
  // must not be filled again beyond the limit.
  const int length = std::max(limit_, static_cast<int>(text().size()));
  if (length >= maxLength()) return;
  const int cursor = cursorPosition();
  setMaxLength(length);
  setCursorPosition(cursor);
}

void EntryBox::Restore() {
  SetText(saved_text_);
  SetWhite();
}

void EntryBox::SetWhite() { setPalette(QPalette()); }

void EntryBox::SetRed() { SetGround(kRed); }

void EntryBox::SetGreen() { SetGround(kGreen); }

void EntryBox::SetGround(const QColor& color) {
  QPalette colors;
  colors.setColor(QPalette::Base, color);
  colors.setColor(QPalette::Text, Qt::black);
  setPalette(colors);
}

void EntryBox::GotFocus() {
  if (focus_rule_ == FocusRule::kNothing) return;
  saved_text_ = text();
  if (focus_rule_ == FocusRule::kEmpties) SetText(QString());
}

void EntryBox::LostFocus() {
  if (focus_rule_ == FocusRule::kNothing) return;
  SetText(saved_text_);
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QLineEdit::keyPressEvent(event);
    return;
  }
  if (event->isAutoRepeat()) return;
  gate_.Run([this] {
    if (on_enter) on_enter();
  });
}

}  // namespace sorvane
