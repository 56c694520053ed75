#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QString>
#include <QTime>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/program.h"

namespace sorvane::test {

inline constexpr Separators kPoint{'.', ','};
inline constexpr Separators kComma{',', '.'};

// Reports of run-time errors.
inline constexpr const char* kOverflow = "Run-time error '6':\n\nOverflow";
inline constexpr const char* kSubscript = "Run-time error '9':\n\nSubscript out of range";
inline constexpr const char* kTypeMismatch = "Run-time error '13':\n\nType mismatch";
inline constexpr const char* kNoSuchElement =
    "Run-time error '340':\n\nControl array element does not exist";

// Grounds of a field.
inline const QColor kRed(255, 0, 0);
inline const QColor kGreen(0, 255, 0);

// "Text1(3)".
QString Indexed(const char* array, int index);

// The frames for a parameter of the machine, size bytes long.
Bytes ReadFrame(int parameter, int size = 1);
Bytes WriteFrame(int parameter, std::uint32_t value, int size = 1);

// One page of the program over a connected board. Control names are those of the page.
class PageTest : public testing::Test {
 protected:
  PageTest(const QString& form, const QString& entry, Separators separators);

  // Opens the page and lets the board answer; the frames of that are forgotten.
  void Open();
  // Opens the page; nothing has been answered yet.
  void OpenUnanswered() { program.Choose(entry_); }
  void ClosePage();

  // Lets the board answer a parameter once more; its frame is forgotten. The page's own watch of it
  // isn't alone any more.
  void AskAgain(int parameter);
  // The board comes to hold another value, and says so.
  void BoardSays(int parameter, std::uint32_t value);
  // What the board holds under a parameter and under those that follow it.
  void SetNumbers(int first, const std::vector<std::uint32_t>& values);
  // From here on the board has a value of this many bytes under a parameter.
  void Resize(int parameter, const Bytes& value);
  // The same for a text that is no number.
  void MakeText(int parameter) { Resize(parameter, {'s', 'e', 'v', 'e', 'n'}); }

  // Lets time pass, with all that runs in it.
  void Wait(int milliseconds);
  // Sets the PC's clock; it goes on from there.
  void SetClock(const QTime& time);

  // Types into a field, in place of what stands there if the field has the focus already.
  void TypeOnly(const QString& field, const QString& text);
  // The same, and Enter.
  void Type(const QString& field, const QString& text);
  void Press(const QString& control, int key) { program.Press(form_, control, key); }
  // A key on a bar or switch that has the focus.
  void PressFocused(const QString& control, int key);
  void Click(const QString& control);

  QString Text(const QString& field) { return program.Text(form_, field); }
  int Position(const QString& bar) { return program.Position(form_, bar); }
  // Those of the first count controls of an array.
  std::vector<QString> Texts(const char* fields, int count);
  std::vector<int> Positions(const char* bars, int count);
  int Minimum(const QString& bar);
  int Maximum(const QString& bar);
  bool IsOn(const QString& toggle);
  QString Caption(const QString& label);
  QString Title() const;
  bool IsEnabled(const QString& control) { return program.Find(form_, control).isEnabled(); }
  bool IsCentred(const QString& field);
  // The edges of a control, in pixels of the screen.
  int Left(const QString& control);
  int Top(const QString& control);
  // How many fields of the page have the focus.
  int FocusedFields() const;
  QColor Ground(const QString& field);
  bool IsWhite(const QString& field);

  // Of ten rows the first ones are open in each of these arrays, the others closed.
  void ExpectFirstRowsOpen(int count, const std::vector<const char*>& arrays,
                           CallSite at = CallSite::Here());
  // The page has room for all that it shows.
  void ExpectRoom() const;

  // A text that is typed and confirmed gives way to the old one on white, without a word and
  // without a write.
  void ExpectRefused(const QString& field, const QString& typed, const QString& old,
                     CallSite at = CallSite::Here());
  // The message about letters stands, with the field red behind it; once it has been answered the
  // field has its old text on white again, and nothing is written.
  void ExpectOnlyNumbersMessage(const QString& field, const QString& old,
                                CallSite at = CallSite::Here());

  // No box stands or has stood.
  bool WasSilent() const { return program.link.dialogs.Shown().empty(); }

  // All parameters that pages hold, each as often as it is held.
  std::vector<int> Watched();
  // All parameters with a write that no frame has taken yet.
  std::vector<int> Pending();

  // Lets the sweep send what is pending: these frames have gone out since the last that were
  // forgotten, and nothing else.
  void ExpectSent(const std::vector<Bytes>& frames, CallSite at = CallSite::Here());
  void ExpectNothingSent(CallSite at = CallSite::Here()) { ExpectSent({}, at); }
  void ExpectReport(const char* text) const;

  Program program;

 private:
  const QString form_;
  const QString entry_;
};

}  // namespace sorvane::test
