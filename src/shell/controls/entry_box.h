#pragma once

#include <QLineEdit>
#include <functional>

namespace sorvane {

class ProgramGate;

// What a field does when it gets the focus and when it loses it.
enum class FocusRule {
  kEmpties,  // gain: the text is saved and the field emptied; loss: the saved text comes back
  kKeeps,    // gain: the text is saved and stays; loss: the saved text comes back
  kNothing,  // neither
};

// A field of one line with a saved text beside its text: the last that the program showed there or,
// while the field is being edited, what it held when the focus came.
//
// The program puts text into it by Show and SetText only; QLineEdit::setText would cut it to the
// limit of characters, which binds the user alone.
//
// A text that the board hasn't confirmed, such as one that is being typed, stands slanted and in an
// ink of its own.
class EntryBox : public QLineEdit {
  Q_OBJECT
  Q_PROPERTY(QString savedText READ SavedText)
  Q_PROPERTY(bool confirmed READ IsConfirmed)

 public:
  EntryBox(ProgramGate& gate, QWidget* parent);

  // Enter was pressed, on the main keys or on the keypad, in a locked field too. The focus stays.
  std::function<void()> on_enter;

  // kEmpties unless it is set.
  void SetFocusRule(FocusRule rule) { focus_rule_ = rule; }

  // The most characters that typing and pasting fill the field to; what is pasted is cut to fit.
  void SetCharacterLimit(int characters);

  // A locked field shows its text and takes Enter, but the text can't be edited.
  void SetLocked(bool locked) { setReadOnly(locked); }

  // Opens or closes the field by the rule of focus_keeper.h.
  void SetOpen(bool open);

  // Text and saved text. It is confirmed if it is what the board holds, as far as is known.
  void Show(const QString& text, bool confirmed = true);
  void SetText(const QString& text);  // the text alone, confirmed
  QString SavedText() const { return saved_text_; }

  bool IsConfirmed() const { return confirmed_; }
  // The text that stands there has become one that is confirmed, or one that isn't.
  std::function<void()> on_standing;

  // Puts the saved text back, on white.
  void Restore();

  // Colour of the field. White is the desktop's field colour; red and green are the same everywhere
  // and bring a colour of the text that can be read on them; a closed field keeps them.
  void SetWhite();
  void SetRed();
  void SetGreen();

  // Called by the page's FocusKeeper.
  void GotFocus();
  void LostFocus();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PutText(const QString& text, bool confirmed);
  void SetConfirmed(bool confirmed);
  void Dress();
  void TightenLimit();

  ProgramGate& gate_;
  FocusRule focus_rule_ = FocusRule::kEmpties;
  int limit_;
  QString saved_text_;
  bool confirmed_ = true;
  bool saved_confirmed_ = true;
  QColor ground_;  // invalid on white
};

}  // namespace sorvane
