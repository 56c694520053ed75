#include "pages/model/player.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QTest>
#include <sstream>
#include <utility>

#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"

namespace sorvane::test::model {
namespace {

using Kind = Control::Kind;

constexpr int kTail = 15;  // actions that a failure names

std::string Quoted(const QString& text) { return "\"" + text.toStdString() + "\""; }

}  // namespace

Player::Player(const PageUnderTest& page, unsigned seed)
    : page_(page),
      form_(page.form),
      seed_(seed),
      random_(seed),
      program_({.separators = seed % 2 == 0 ? Separators{'.', ','} : Separators{',', '.'}}),
      model_(page.make(machine_, seed % 2 == 0 ? '.' : ',')) {
  program_.Connect();
  for (const int parameter : model_->Watched()) SetBoard(parameter);
}

Player::~Player() = default;

void Player::Play(int steps) {
  OpenPage();
  done_.push_back("opens the page");
  std::string differences = Differences();
  int step = 0;
  for (; step < steps && differences.empty(); ++step) {
    done_.push_back(Step());
    differences = Differences();
  }
  if (differences.empty()) {
    Sweep(100);
    done_.push_back("lets all be sent");
    differences = Differences();
  }
  // A page on which nothing happens proves nothing.
  EXPECT_GT(program_.link.board.Writes(), steps / 20);
  if (differences.empty()) return;
  std::ostringstream words;
  words << page_.form << ", seed " << seed_ << ", step " << step << ":\n" << differences;
  words << "after these actions:\n";
  for (std::size_t i = done_.size() > kTail ? done_.size() - kTail : 0; i < done_.size(); ++i) {
    words << "  " << done_[i] << "\n";
  }
  ADD_FAILURE() << words.str();
}

std::string Player::Step() {
  if (model_->Box()) {
    const std::size_t number = Random(4);
    return number < 2 ? AnswerBox() : number == 2 ? LetTimePass() : ChangeBoard();
  }
  const std::size_t number = Random(100);
  if (number < 26) return LetTimePass();
  if (number < 38) return ChangeBoard();
  if (number < 57) return TypeAndConfirm();
  if (number < 61) return TypeOnly();
  if (number < 65) return Confirm();
  if (number < 77) return MoveBar();
  if (number < 86) return UseSwitch();
  if (number < 89) return MoveFocus();
  if (number < 97) return BringTabToFront();
  if (number < 98) return ChooseEntryAgain();
  return CloseAndOpen();
}

void Player::OpenPage() {
  program_.Choose(page_.entry);
  model_->Open();
  widgets_.clear();
  for (const auto& [name, control] : model_->Controls()) {
    widgets_[name] = &program_.Find(form_, QString::fromStdString(name));
  }
  for (const auto& [name, tabs] : model_->AllTabs()) {
    widgets_[name] = &program_.Find(form_, QString::fromStdString(name));
  }
}

void Player::Sweep(int steps) {
  program_.Sweep(steps);
  for (int i = 0; i < steps; ++i) model_->Tick();
}

std::string Player::LetTimePass() {
  const int steps = Random(6) == 0 ? 14 : static_cast<int>(Random(4)) + 1;
  Sweep(steps);
  return "lets " + std::to_string(steps) + " steps of the sweep pass";
}

void Player::SetBoard(int parameter) {
  if (machine_.At(parameter).size > 4) {
    const std::string name = "Nome di lingua " + std::string(1, "abcdefgh"[Random(8)]);
    program_.link.SetBoard(parameter, Bytes(name.begin(), name.end()));
    machine_.SetBoardText(parameter, name);
    return;
  }
  const int value = PickOne(model_->BoardValues(parameter));
  program_.link.SetBoardNumber(parameter, static_cast<std::uint32_t>(value));
  machine_.SetBoard(parameter, static_cast<std::uint32_t>(value));
}

std::string Player::ChangeBoard() {
  const int parameter = PickOne(Random(4) == 0 ? model_->Pivotal() : model_->Watched());
  SetBoard(parameter);
  program_.link.access.WatchParameter(parameter);
  program_.link.access.UnwatchParameter(parameter);
  machine_.AskAgain(parameter);
  return "has the board hold another value of " + std::to_string(parameter) + " and be asked";
}

std::string Player::PickControl(const std::vector<Kind>& kinds) {
  std::vector<std::string> fitting;
  for (const auto& [name, control] : model_->Controls()) {
    if (!model_->IsReachable(name)) continue;
    for (const Kind kind : kinds) {
      if (control.kind == kind) fitting.push_back(name);
    }
  }
  return fitting.empty() ? "" : PickOne(fitting);
}

void Player::GiveFocus(const std::string& control) {
  if (model_->Controls().at(control).kind == Kind::kField) {
    QTest::mouseClick(widgets_.at(control), Qt::LeftButton);
  } else {
    widgets_.at(control)->setFocus();
  }
}

void Player::Replace(const std::string& field, const QString& text) {
  GiveFocus(field);
  auto& box = dynamic_cast<QLineEdit&>(*widgets_.at(field));
  box.selectAll();
  if (text.isEmpty()) {
    QTest::keyClick(&box, Qt::Key_Delete);
  } else {
    QTest::keyClicks(&box, text);
  }
  model_->Replace(field, text);
}

std::string Player::TypeOnly() {
  const std::string field = PickControl({Kind::kField});
  if (field.empty()) return LetTimePass();
  const QString text = PickOne(model_->Texts(field));
  if (!model_->MayHold(field, text)) return LetTimePass();
  Replace(field, text);
  return "types " + Quoted(text) + " into " + field;
}

std::string Player::TypeAndConfirm() {
  const std::string field = PickControl({Kind::kField});
  if (field.empty()) return LetTimePass();
  const QString text = PickOne(model_->Texts(field));
  if (!model_->MayConfirm(field, text)) return LetTimePass();
  Replace(field, text);
  QTest::keyClick(widgets_.at(field), Qt::Key_Return);
  model_->Enter(field);
  return "types " + Quoted(text) + " and Enter into " + field;
}

std::string Player::Confirm() {
  const std::string field = model_->Focus();
  if (field.empty() || model_->Controls().at(field).kind != Kind::kField) return MoveFocus();
  const QString text = model_->Controls().at(field).text;
  if (!model_->MayConfirm(field, text)) return LetTimePass();
  QTest::keyClick(widgets_.at(field), Qt::Key_Enter);
  model_->Enter(field);
  return "presses Enter in " + field + ", which holds " + Quoted(text);
}

std::string Player::MoveBar() {
  const std::string bar = PickControl({Kind::kBar});
  if (bar.empty()) return LetTimePass();
  const Control& control = model_->Controls().at(bar);
  struct Move {
    Qt::Key key;
    int target;
  };
  std::vector<Move> moves{{Qt::Key_Left, control.position - 1},
                          {Qt::Key_Right, control.position + 1},
                          {Qt::Key_Right, control.position + 1},
                          {Qt::Key_Home, control.minimum},
                          {Qt::Key_End, control.maximum}};
  if (control.large_step != 0) {
    moves.push_back({Qt::Key_PageUp, control.position - control.large_step});
    moves.push_back({Qt::Key_PageDown, control.position + control.large_step});
  }
  const Move move = PickOne(moves);
  if (!model_->MayMove(bar, move.target)) return LetTimePass();
  GiveFocus(bar);
  QTest::keyClick(widgets_.at(bar), move.key);
  model_->MoveTo(bar, move.target);
  return "moves " + bar + " to " + std::to_string(move.target);
}

std::string Player::UseSwitch() {
  const std::string name = PickControl({Kind::kToggle, Kind::kSlider, Kind::kButton});
  if (name.empty()) return TypeAndConfirm();
  const Control& control = model_->Controls().at(name);
  GiveFocus(name);
  if (control.kind == Kind::kToggle) {
    QTest::keyClick(widgets_.at(name), Qt::Key_Space);
    model_->TurnOver(name);
    return "turns " + name + " over";
  }
  if (control.kind == Kind::kButton) {
    QTest::mouseClick(widgets_.at(name), Qt::LeftButton);
    model_->PressButton(name, program_.now());
    return "presses " + name;
  }
  const bool right = Random(2) == 0;
  const int target = control.position + (right ? 1 : -1);
  QTest::keyClick(widgets_.at(name), right ? Qt::Key_Right : Qt::Key_Left);
  model_->MoveTo(name, target);
  return "moves " + name + " to " + std::to_string(target);
}

std::string Player::MoveFocus() {
  const std::string control = PickControl({Kind::kField, Kind::kField, Kind::kBar, Kind::kToggle});
  if (control.empty() || !model_->MayHold(control, "")) return LetTimePass();
  GiveFocus(control);
  model_->FocusOn(control);
  return "gives the focus to " + control;
}

std::string Player::BringTabToFront() {
  std::vector<std::pair<std::string, int>> tabs;
  for (const auto& [name, all] : model_->AllTabs()) {
    for (std::size_t tab = 0; tab < all.tab_open.size(); ++tab) {
      if (all.open && all.tab_open[tab]) tabs.emplace_back(name, static_cast<int>(tab));
    }
  }
  if (tabs.empty()) return MoveBar();
  const auto [name, tab] = PickOne(tabs);
  dynamic_cast<TabPages&>(*widgets_.at(name)).SetFront(tab);
  model_->BringToFront(name, tab);
  return "brings tab " + std::to_string(tab) + " of " + name + " to the front";
}

std::string Player::ChooseEntryAgain() {
  program_.Choose(page_.entry);
  return "chooses the entry of the open page";
}

std::string Player::CloseAndOpen() {
  program_.frame->findChild<ChildForm*>(form_)->parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  model_->Close();
  EXPECT_FALSE(program_.IsOpen(form_));
  const int steps = static_cast<int>(Random(20));
  for (int i = 0; i < steps; ++i) machine_.Step();
  program_.Sweep(steps);
  OpenPage();
  return "closes the page, and opens it after " + std::to_string(steps) + " steps of the sweep";
}

std::string Player::AnswerBox() {
  program_.link.dialogs.Answer(Answer::kOk);
  model_->AnswerBox();
  return "answers the box";
}

}  // namespace sorvane::test::model
