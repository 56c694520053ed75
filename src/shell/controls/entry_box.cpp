#include "shell/controls/entry_box.h"

#include <QApplication>
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

// Of a text that isn't confirmed, on a light and on a dark ground of the desktop's.
const QColor kOpenInk(0, 78, 156);
const QColor kOpenInkOnDark(138, 196, 255);
constexpr int kMiddleLightness = 128;

}  // namespace

EntryBox::EntryBox(ProgramGate& gate, QWidget* parent)
    : QLineEdit(parent), gate_(gate), limit_(kMostCharacters) {
  ConnectGuarded(gate, this, &QLineEdit::textEdited, this, [this](const QString&) {
    TightenLimit();
    SetConfirmed(false);
  });
}

void EntryBox::SetCharacterLimit(int characters) {
  limit_ = characters;
  SetText(text());
}

void EntryBox::SetOpen(bool open) { sorvane::SetOpen(*this, open); }

void EntryBox::Show(const QString& text, bool confirmed) {
  saved_text_ = text;
  saved_confirmed_ = confirmed;
  PutText(text, confirmed);
}

void EntryBox::SetText(const QString& text) { PutText(text, true); }

void EntryBox::PutText(const QString& text, bool confirmed) {
  setMaxLength(kMostCharacters);
  setText(text);
  setMaxLength(std::max(limit_, static_cast<int>(text.size())));
  SetConfirmed(confirmed);
}

void EntryBox::SetConfirmed(bool confirmed) {
  if (confirmed == confirmed_) return;
  confirmed_ = confirmed;
  QFont slant;
  slant.setItalic(!confirmed);
  setFont(confirmed ? QFont() : slant);
  Dress();
  if (on_standing) on_standing();
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
  PutText(saved_text_, saved_confirmed_);
  SetWhite();
}

void EntryBox::SetWhite() {
  ground_ = QColor();
  Dress();
}

void EntryBox::SetRed() {
  ground_ = kRed;
  Dress();
}

void EntryBox::SetGreen() {
  ground_ = kGreen;
  Dress();
}

void EntryBox::Dress() {
  QPalette colors;
  if (ground_.isValid()) {
    colors.setColor(QPalette::Base, ground_);
    colors.setColor(QPalette::Text, Qt::black);
  } else if (!confirmed_) {
    const bool dark = QApplication::palette(this).base().color().lightness() < kMiddleLightness;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      colors.setColor(group, QPalette::Text, dark ? kOpenInkOnDark : kOpenInk);
    }
  }
  setPalette(colors);
}

void EntryBox::GotFocus() {
  if (focus_rule_ == FocusRule::kNothing) return;
  saved_text_ = text();
  saved_confirmed_ = confirmed_;
  if (focus_rule_ == FocusRule::kEmpties) SetText(QString());
}

void EntryBox::LostFocus() {
  if (focus_rule_ == FocusRule::kNothing) return;
  PutText(saved_text_, saved_confirmed_);
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
