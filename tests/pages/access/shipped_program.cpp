#include "pages/access/shipped_program.h"

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QWindow>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "board/parameter.h"
#include "shell/controls/tab_pages.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

constexpr int kTabs = 3;  // of a row

Program::Setup InLanguage(const std::string& language, Program::Setup setup) {
  setup.language_files = false;
  setup.settings = "Com=1\r\nLingua=" + language + "\r\n";
  return setup;
}

}  // namespace

ShippedProgram::ShippedProgram(const std::string& language, Setup setup)
    : Program(InLanguage(language, std::move(setup))) {
  const std::string file = language + ".lng";
  std::ifstream in(std::filesystem::path(SORVANE_DATA_FOLDER) / "languages" / file,
                   std::ios::binary);
  if (!in) throw std::runtime_error(file + " is missing");
  WriteText(file, {std::istreambuf_iterator<char>(in), {}});
  link.SetBoardNumber(parameter::kSelections, 10);
  link.SetBoardNumber(parameter::kOptions, option::kEqualProducts);
  link.SetBoardNumber(parameter::kDecimals, 2);
  link.SetBoardNumber(parameter::kClockDay, 5);
  link.SetBoardNumber(parameter::kPaymentSystem, 3);
  Connect();
}

ChildForm& ShippedProgram::OpenPage(const PageEntry& page) {
  Open(page.entry);
  Sweep(100);  // the alarms take more than a page of fields
  return *frame->findChild<ChildForm*>(page.form);
}

void ShippedProgram::AskAgain(int parameter) {
  link.access.WatchParameter(parameter);
  Sweep(3);
}

void ShippedProgram::ClosePage(ChildForm& form) {
  form.parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void ShippedProgram::ForEachPage(
    const std::function<void(const PageEntry& page, ChildForm& form)>& look) {
  for (const PageEntry& page : kPageEntries) {
    ChildForm& form = OpenPage(page);
    ForEachTab(form, [&] { look(page, form); });
    ClosePage(form);
  }
}

void ForEachTab(ChildForm& form, const std::function<void()>& look) {
  const QList<TabPages*> rows = form.findChildren<TabPages*>();
  if (rows.isEmpty()) look();
  for (TabPages* row : rows) {
    for (int tab = 0; tab < kTabs; ++tab) {
      row->SetFront(tab);
      QCoreApplication::processEvents();
      look();
    }
    row->SetFront(0);
  }
}

QWidget* Focus() { return QApplication::focusWidget(); }

void PressKey(const Program& program, int key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(program.frame->windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void TypeText(const Program& program, const QString& text) {
  for (const QChar c : text) {
    QTest::sendKeyEvent(QTest::Click, program.frame->windowHandle(), Qt::Key_unknown, QString(c),
                        Qt::NoModifier);
  }
}

std::string NameOf(const QWidget* widget) {
  if (widget == nullptr) return "nothing";
  const std::string name = widget->objectName().toStdString();
  return name.empty() ? widget->metaObject()->className() : name;
}

}  // namespace sorvane::test
