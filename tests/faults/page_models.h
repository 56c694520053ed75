#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "faults/rig.h"

namespace sorvane::test::faults {

// What a control of a page shows.
struct Control {
  bool open = true;
  std::optional<std::string> text;  // of a field, and of a label that the page changes
  std::optional<int> position;      // of a bar or slider
  int minimum = 0;
  int maximum = 0;
};

// A second account of a page over the model of the link: what replies do to its controls. It shares
// no code with the program.
class PageModel {
 public:
  explicit PageModel(Rig& rig) : rig_(rig) {}
  virtual ~PageModel() = default;
  PageModel(const PageModel&) = delete;
  PageModel& operator=(const PageModel&) = delete;

  // A page that is opened has all its start values.
  void Open();
  // A reply has landed, and the page is told of it. None comes to a page that isn't open.
  void Take(const LinkModel::Notice& notice);

  const std::map<std::string, Control>& Controls() const { return controls_; }

 protected:
  virtual std::vector<int> Watched() const = 0;
  virtual void Build() = 0;
  virtual void OnReply(int parameter, int value) = 0;
  virtual void AfterReply() = 0;

  void AddField(const std::string& name) { controls_[name].text = ""; }
  void AddBar(const std::string& name, int minimum, int maximum, int start);
  Control& At(const std::string& name) { return controls_.at(name); }
  // Moves a bar to a position or to the end that is nearest. Returns whether it has moved.
  bool SetBar(const std::string& bar, int position);

  // What the page itself does to the table.
  void Write(int parameter, int value);
  int Read(int parameter) const { return static_cast<int>(rig_.model.Read(parameter)); }
  bool IsFresh(int parameter) const { return rig_.model.Of(parameter).fresh; }

  static std::string Name(const char* array, int index);

  Rig& rig_;
  std::map<std::string, Control> controls_;
};

// The clock page, on which nobody types.
class ClockModel : public PageModel {
 public:
  using PageModel::PageModel;

 protected:
  std::vector<int> Watched() const override;
  void Build() override;
  void OnReply(int parameter, int value) override;
  void AfterReply() override;

 private:
  void Probe();
  void OpenAll(bool open);
  void ShowPart(const char* text, const char* bar, int index, int value);

  bool fitted_ = false;
  bool probe_start_ = true;
  bool probe_check_ = true;
  int saved_day_ = 0;
  int day_ = 0;
  int month_ = 0;
  int year_ = 0;
  int hours_ = 0;
  int minutes_ = 0;
};

// The prices page, with a point in its locale.
class PricesModel : public PageModel {
 public:
  using PageModel::PageModel;

  bool IsRowOpen(int row) { return !Controls().empty() && At(Name("Text1", row)).open; }
  // An amount is typed into a price's field, and Enter.
  void Type(int row, const std::string& text);

 protected:
  std::vector<int> Watched() const override;
  void Build() override;
  void OnReply(int parameter, int value) override;
  void AfterReply() override;

 private:
  void ShowPair(const char* text, const char* bar, int row, int raw);
  void OpenRows(int end, bool open);

  int decimals_ = 255;
  int selections_ = 0;
  bool price_seen_ = false;  // parameter 23 was fresh once together with parameter 2
  bool item_seen_ = false;   // and so was 33
  // The price's field in which the focus stands, and what comes back when it is closed.
  std::optional<int> focus_;
  std::string saved_;
};

}  // namespace sorvane::test::faults
