#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <sstream>

#include "pages/model/player.h"
#include "shell/controls/tab_pages.h"

namespace sorvane::test::model {
namespace {

using Kind = Control::Kind;

// Notes each thing in which the page and its model differ.
class Notes {
 public:
  template <typename T>
  void Compare(const std::string& what, const T& is, const T& expected) {
    if (is == expected) return;
    words_ << "  " << what << " is " << ::testing::PrintToString(is) << ", not "
           << ::testing::PrintToString(expected) << "\n";
  }
  void CompareText(const std::string& what, const QString& is, const QString& expected) {
    Compare(what, is.toStdString(), expected.toStdString());
  }
  std::string Words() const { return words_.str(); }

 private:
  std::ostringstream words_;
};

}  // namespace

std::string Player::Differences() {
  return ControlDifferences() + RecordDifferences() + FrameDifferences();
}

std::string Player::ControlDifferences() {
  Notes notes;
  for (const auto& [name, control] : model_->Controls()) {
    QWidget& widget = *widgets_.at(name);
    notes.Compare(name + " open", widget.isEnabled(), model_->IsOpen(name));
    switch (control.kind) {
      case Kind::kField:
        notes.CompareText(name, dynamic_cast<QLineEdit&>(widget).text(), control.text);
        notes.CompareText(name + " saved text", widget.property("savedText").toString(),
                          control.saved);
        break;
      case Kind::kBar:
      case Kind::kSlider:
        notes.Compare(name, widget.property("position").toInt(), control.position);
        break;
      case Kind::kToggle:
        notes.Compare(name + " on", widget.property("checked").toBool(), control.on);
        break;
      case Kind::kLabel:
        if (control.shows_text) {
          notes.CompareText(name, widget.property("text").toString(), control.text);
        }
        break;
      case Kind::kButton:
        break;
    }
  }
  for (const auto& [name, tabs] : model_->AllTabs()) {
    const auto& widget = dynamic_cast<TabPages&>(*widgets_.at(name));
    notes.Compare(name + " open", widget.isEnabled(), tabs.open);
    notes.Compare(name + " front", widget.Front(), tabs.front);
    for (std::size_t tab = 0; tab < tabs.tab_open.size(); ++tab) {
      notes.Compare(name + " tab " + std::to_string(tab) + " open",
                    widget.IsTabOpen(static_cast<int>(tab)), bool{tabs.tab_open[tab]});
    }
  }
  if (!model_->Focus().empty()) {
    const QWidget* focus = QApplication::focusWidget();
    notes.CompareText("focus", focus == nullptr ? "none" : focus->objectName(),
                      QString::fromStdString(model_->Focus()));
  }
  notes.Compare("boxes", program_.link.dialogs.Standing().size(),
                std::size_t{model_->Box() ? 1U : 0U});
  notes.Compare("reports", program_.reports, {});
  return notes.Words();
}

std::string Player::RecordDifferences() {
  Notes notes;
  std::vector<int> value;
  for (int parameter = 1; parameter <= Machine::kRecords; ++parameter) {
    const ParameterRecord& record = program_.link.Record(parameter);
    const Machine::Record& expected = machine_.At(parameter);
    bool same = record.At(5) == expected.watchers && record.At(6) == expected.flags;
    value.clear();
    for (std::size_t i = 0; i < expected.value.size(); ++i) {
      value.push_back(record.At(8 + static_cast<int>(i)));
      same = same && value[i] == expected.value[i];
    }
    if (same) continue;
    const std::string name = "parameter " + std::to_string(parameter);
    notes.Compare(name + " watchers", int{record.At(5)}, expected.watchers);
    notes.Compare(name + " flags", int{record.At(6)}, expected.flags);
    notes.Compare(name + " bytes", value, {expected.value.begin(), expected.value.end()});
  }
  return notes.Words();
}

std::string Player::FrameDifferences() {
  Notes notes;
  notes.Compare("sent frames", program_.link.wire.Frames(), machine_.frames);
  program_.link.wire.Forget();
  machine_.frames.clear();
  return notes.Words();
}

}  // namespace sorvane::test::model
