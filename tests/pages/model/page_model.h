#pragma once

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "pages/model/machine.h"

namespace sorvane::test::model {

// What a control of a page shows and takes. What doesn't belong to its kind keeps its start.
struct Control {
  enum class Kind { kField, kBar, kToggle, kSlider, kLabel, kButton };

  Kind kind = Kind::kLabel;
  bool open = true;
  std::string tabs;  // the tab control on which it stands; empty for none
  int tab = 0;

  // A field, or a label whose text the page changes.
  QString text;
  bool shows_text = false;  // such a label
  QString saved;
  int limit = 0;  // 0: none
  bool locked = false;
  bool saves = true;     // its text, when the focus comes
  bool empties = true;   // when the focus comes
  bool restores = true;  // its saved text, when the focus goes

  // A bar or slider.
  int minimum = 0;
  int maximum = 0;
  int large_step = 0;  // 0: not laid down
  int position = 0;

  bool on = false;  // a toggle
};

struct Tabs {
  bool open = true;
  std::vector<bool> tab_open;
  int front = 0;
};

// What became of a typed text.
struct Parsed {
  enum class Kind { kValue, kRefused, kNotNumeric };
  Kind kind = Kind::kRefused;
  std::int64_t value = 0;
};

// A second account of a settings page: its controls, what the user does to them and what replies
// do. A page of its own kind tells what happens in it. User's actions come only while no box
// stands, and only to controls that IsReachable.
class PageModel {
 public:
  // separator is that of the locale.
  PageModel(Machine& machine, QChar separator) : machine_(machine), separator_(separator) {}
  virtual ~PageModel() = default;
  PageModel(const PageModel&) = delete;
  PageModel& operator=(const PageModel&) = delete;

  // A page that is opened has all its start values.
  void Open();
  void Close();

  // 40 ms pass, with one step of the sweep at their end.
  void Tick();

  void FocusOn(const std::string& control);
  // Keys in the place of what a field holds.
  void Replace(const std::string& field, const QString& text);
  void Enter(const std::string& field);
  void MoveTo(const std::string& control, int position);  // a bar or slider
  void TurnOver(const std::string& toggle);
  virtual void PressButton(const std::string& /*button*/, const QDateTime& /*pc_clock*/) {}
  void BringToFront(const std::string& tabs, int tab);
  void AnswerBox();

  bool IsOpen(const std::string& control) const;
  bool IsReachable(const std::string& control) const;
  const std::string& Focus() const { return focus_; }
  // The field whose box stands.
  const std::optional<std::string>& Box() const { return box_; }
  const std::map<std::string, Control>& Controls() const { return controls_; }
  const std::map<std::string, Tabs>& AllTabs() const { return tabs_; }

  // The parameters that the page holds, in order.
  virtual std::vector<int> Watched() const = 0;
  // Those of them on which the whole page hangs.
  virtual std::vector<int> Pivotal() const = 0;

  // What a test may let happen, so that the program doesn't come to an end: values that the board
  // may come to hold, texts that may be typed, and what may be confirmed or moved now.
  virtual std::vector<int> BoardValues(int parameter) const = 0;
  virtual std::vector<QString> Texts(const std::string& field) const = 0;
  virtual bool MayHold(const std::string& /*field*/, const QString& /*text*/) const { return true; }
  virtual bool MayConfirm(const std::string& /*field*/, const QString& /*text*/) const {
    return true;
  }
  virtual bool MayMove(const std::string& /*bar*/, int /*position*/) const { return true; }

 protected:
  // Makes all controls and sets the variables of the page to their start.
  virtual void Build() = 0;
  virtual void OnReply(int parameter, std::int64_t value) = 0;
  virtual void OnTextReply(int /*parameter*/, const QString& /*text*/) {}
  virtual void AfterReply() {}
  virtual void OnEnter(const std::string& /*field*/) {}
  // The user has moved or turned it, or Enter has; replies don't come here.
  virtual void OnChange(const std::string& /*control*/) {}
  // Called before each step of the sweep, with the time since the start.
  virtual void OnTime(int /*milliseconds*/) {}
  virtual void OnClose() {}

  Control& AddField(const std::string& name, int limit);
  Control& AddBar(const std::string& name, int minimum, int maximum, int start, int large_step);
  Control& AddToggle(const std::string& name);
  Control& AddLabel(const std::string& name);
  Control& At(const std::string& name) { return controls_.at(name); }

  // Opens a control or closes it; a closed one loses the focus.
  void SetOpen(const std::string& control, bool open);
  void SetTabsOpen(const std::string& tabs, bool open);

  // Moves a bar to a position or to the end that is nearest.
  void SetBar(const std::string& bar, std::int64_t position);
  void SetSlider(const std::string& slider, int position);
  void Show(const std::string& field, const QString& text);
  void Restore(const std::string& field);

  // What Enter does with a text that gives no value. True if there is a value.
  bool Take(const std::string& field, const Parsed& parsed);

  // The raw value of a typed amount, and of a whole number.
  static Parsed ParseMoney(const QString& text, int decimals);
  static Parsed ParseWhole(const QString& text);
  // The text of a raw value.
  QString Money(std::int64_t raw, int decimals) const;
  static bool IsNumeric(const QString& text);
  // Whether a typed amount stays within 32 bits.
  static bool IsSmallAmount(const QString& text, std::int64_t decimals);

  static std::string Name(const char* array, int index);
  static int IndexOf(const std::string& name);
  static std::string ArrayOf(const std::string& name);

  int Now() const { return now_; }

  Machine& machine_;
  const QChar separator_;
  std::map<std::string, Tabs> tabs_;

 private:
  void LoseFocus();
  void Deliver(int parameter, const Bytes& value);

  std::map<std::string, Control> controls_;
  std::string focus_;  // empty: the page itself, or a row of tabs
  std::optional<std::string> box_;
  bool updating_ = false;
  int now_ = 0;
};

}  // namespace sorvane::test::model
