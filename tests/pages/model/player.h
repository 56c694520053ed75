#pragma once

#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "pages/model/machine.h"
#include "pages/model/page_model.h"
#include "shell/program.h"

namespace sorvane::test::model {

// A page of the program, and how to make the model of it.
struct PageUnderTest {
  const char* form;
  const char* entry;
  std::unique_ptr<PageModel> (*make)(Machine& machine, QChar separator);
};

inline void PrintTo(const PageUnderTest& page, std::ostream* out) { *out << page.form; }

// Does the same random things to a page of the program and to its model, and compares the two after
// each. The same seed does the same things.
class Player {
 public:
  Player(const PageUnderTest& page, unsigned seed);
  ~Player();

  // A failure of the test at the first step after which the two differ.
  void Play(int steps);

 private:
  // Each does one thing, or nothing where it isn't possible now, and says what it has done.
  std::string Step();
  std::string LetTimePass();
  std::string ChangeBoard();
  std::string TypeAndConfirm();
  std::string TypeOnly();
  std::string Confirm();
  std::string MoveBar();
  std::string UseSwitch();
  std::string MoveFocus();
  std::string BringTabToFront();
  std::string ChooseEntryAgain();
  std::string CloseAndOpen();
  std::string AnswerBox();

  void OpenPage();
  void SetBoard(int parameter);
  void Sweep(int steps);
  void GiveFocus(const std::string& control);
  void Replace(const std::string& field, const QString& text);

  std::size_t Random(std::size_t count) { return random_() % count; }
  template <typename T>
  T PickOne(const std::vector<T>& all) {
    return all[Random(all.size())];
  }
  // A control of these kinds that the user can reach now; empty if there is none.
  std::string PickControl(const std::vector<Control::Kind>& kinds);

  // In what the page differs from its model; empty if in nothing.
  std::string Differences();
  std::string ControlDifferences();
  std::string RecordDifferences();
  std::string FrameDifferences();

  const PageUnderTest page_;
  const QString form_;
  const unsigned seed_;
  std::mt19937 random_;
  Program program_;
  Machine machine_;
  std::unique_ptr<PageModel> model_;
  std::map<std::string, QWidget*> widgets_;
  std::vector<std::string> done_;
};

}  // namespace sorvane::test::model
