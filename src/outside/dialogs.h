#pragma once

#include <functional>
#include <string>
#include <utility>

namespace sorvane {

// The flags of the platform's message box.
inline constexpr int kCriticalIcon = 16;
inline constexpr int kExclamationIcon = 48;
inline constexpr int kRetryCancel = 5;

struct MessageBox {
  std::string text;  // in the western single-byte set; lines end in a line feed or carriage return
  std::string title;
  int flags = kCriticalIcon;

  bool operator==(const MessageBox&) const = default;
};

enum class Answer { kOk, kRetry, kCancel };

// The boxes by which the program speaks. A standing box keeps the user from everything else but the
// frame's close control; timers and the line go on meanwhile.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // Shows a box and returns at once; answered is called when the user has chosen. A box with one
  // button answers kOk; one with Retry and Cancel takes Escape for kCancel. When the program ends
  // while a box stands, the box goes away and answered is never called.
  virtual void Show(const MessageBox& box, std::function<void(Answer)> answered) = 0;

  // Shows a box with one button whose answer ends the program; end is that answer.
  void ShowLast(const MessageBox& box, std::function<void()> end) {
    ending_ = true;
    Show(box, [end = std::move(end)](Answer) { end(); });
  }

  // Whether such a box has been shown: it stands until the program ends.
  bool IsEnding() const { return ending_; }

 private:
  bool ending_ = false;
};

}  // namespace sorvane
