#include <gtest/gtest.h>

#include <QAccessibleValueInterface>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTabBar>
#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

#include "board/alarm_ring.h"
#include "board/errors.h"
#include "board/parameter.h"
#include "pages/access/shipped_program.h"
#include "pages/access/spoken.h"
#include "pages/frm_info.h"
#include "pages/program_pages.h"
#include "shell/controls/bar.h"
#include "shell/page/child_form.h"
#include "support/boxes.h"
#include "texts/western_text.h"

// Writes what the manuals must tell of, as the running program has it, into lists.json in the
// current folder.
namespace sorvane::test {
namespace {

constexpr int kSaleModes = 3;
constexpr int16_t kAlarmCodes = 51;

QString Plain(QString caption) { return caption.remove('&').trimmed(); }

// All that stands on a page as words, on hidden tabs too.
void AddWords(ChildForm& form, QSet<QString>& words) {
  QList<QWidget*> widgets = form.findChildren<QWidget*>();
  widgets.append(&form);
  for (const QWidget* widget : widgets) {
    for (const char* name : {"windowTitle", "title", "text"}) {
      words.insert(Plain(widget->property(name).toString()));
    }
    for (const QString& label : widget->property("labels").toStringList()) words.insert(label);
    const auto* tabs = qobject_cast<const QTabBar*>(widget);
    for (int i = 0; tabs != nullptr && i < tabs->count(); ++i) words.insert(tabs->tabText(i));
  }
}

// The lowest and highest value of each bar of a page, by the name that is read for it.
QJsonObject Ranges(ChildForm& form) {
  QJsonObject ranges;
  for (Bar* bar : form.findChildren<Bar*>()) {
    QAccessibleValueInterface& value = *Of(*bar).valueInterface();
    ranges[Said(*bar)] = QJsonArray{value.minimumValue().toInt(), value.maximumValue().toInt()};
  }
  return ranges;
}

// Takes each way through the menu, and looks at each page that it opens.
class Reader {
 public:
  explicit Reader(const std::string& language) : program_(language) {
    Read(program_.frame->menuBar()->actions(), {});
  }

  QJsonObject Lists() const {
    QStringList words = words_.values();
    words.sort();
    return {{"pages", pages_}, {"ranges", ranges_}, {"words", QJsonArray::fromStringList(words)}};
  }

 private:
  void Read(const QList<QAction*>& entries, const QStringList& way) {
    for (QAction* entry : entries) {
      const QStringList here = way + QStringList(Plain(entry->text()));
      words_.insert(here.back());
      if (entry->menu() != nullptr) Read(entry->menu()->actions(), here);
      // Languages and ports have marks, and open no page.
      if (entry->menu() == nullptr && !entry->isCheckable()) Open(*entry, here);
    }
  }

  void Open(QAction& entry, const QStringList& way) {
    program_.Open(entry.objectName());
    program_.Sweep(100);
    for (const PageRow& row : ProgramPages("Sorvane", Version{1, 0, 0})) {
      auto* form = program_.frame->findChild<ChildForm*>(row.form);
      if (form == nullptr) continue;
      pages_[row.form] = way.join(" > ");
      ranges_[row.form] = Ranges(*form);
      for (int mode = 0; mode < kSaleModes; ++mode) {
        program_.link.SetBoardNumber(parameter::kSaleMode, static_cast<std::uint32_t>(mode));
        program_.AskAgain(parameter::kSaleMode);
        AddWords(*form, words_);
      }
      ShippedProgram::ClosePage(*form);
    }
  }

  ShippedProgram program_;
  QJsonObject pages_;
  QJsonObject ranges_;
  QSet<QString> words_;
};

QJsonArray Forms() {
  QJsonArray forms;
  for (const PageRow& row : ProgramPages("Sorvane", Version{1, 0, 0})) forms.append(row.form);
  return forms;
}

// Lines of the boxes, without the name that stands before the words of one.
QJsonArray Boxes() {
  QJsonArray boxes;
  for (const MessageBox& box : kBoxes) {
    QString text = FromWestern(box.text);
    QJsonArray lines;
    for (const QString& line : text.replace('\r', '\n').split('\n')) lines.append(line.trimmed());
    boxes.append(lines);
  }
  return boxes;
}

QJsonObject Errors() {
  const std::string unknown = RuntimeError(static_cast<ErrorCode>(0)).what();
  QJsonObject errors;
  for (int number = 1; number <= std::numeric_limits<int16_t>::max(); ++number) {
    const RuntimeError error(static_cast<ErrorCode>(number));
    if (error.what() != unknown) errors[QString::number(number)] = error.what();
  }
  return errors;
}

// What the report of an error begins with.
QString ReportOf(const std::function<void()>& handler) {
  QString first;
  ProgramGate gate({.report = [&](const std::string& text,
                                  const auto&) { first = QString::fromStdString(text); },
                    .leave = [](int) {}});
  gate.Run(handler);
  return first.section('\n', 0, 0);
}

QJsonArray Alarms() {
  QJsonArray alarms;
  for (int16_t code = 0; code < kAlarmCodes; ++code) alarms.append(Plain(AlarmText(code)));
  return alarms;
}

TEST(Lists, AreWrittenAsTheProgramHasThem) {
  QFile file(QDir::current().filePath("lists.json"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  QJsonObject languages;
  for (const char* language : {"English", "Italiano"}) {
    languages[language] = Reader(language).Lists();
  }
  const QJsonArray reports = {
      ReportOf([] { throw RuntimeError(ErrorCode::kInvalidPropertyValue); }),
      ReportOf([] { throw std::runtime_error("another"); })};
  const QByteArray lists = QJsonDocument(QJsonObject{{"forms", Forms()},
                                                     {"languages", languages},
                                                     {"boxes", Boxes()},
                                                     {"errors", Errors()},
                                                     {"reports", reports},
                                                     {"alarms", Alarms()}})
                               .toJson();
  EXPECT_EQ(file.write(lists), lists.size());
}

}  // namespace
}  // namespace sorvane::test
