#include "pages/page_tests.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVariant>
#include <algorithm>

#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

constexpr int kParameters = 419;

Bytes WithSum(Bytes frame) {
  int sum = 0;
  for (const uint8_t byte : frame) sum += byte;
  frame.push_back(static_cast<uint8_t>(sum % 256));
  return frame;
}

}  // namespace

QString Indexed(const char* array, int index) { return QString("%1(%2)").arg(array).arg(index); }

Bytes ReadFrame(int parameter, int size) {
  return WithSum({static_cast<uint8_t>(size - 1), 0, static_cast<uint8_t>(parameter / 256),
                  static_cast<uint8_t>(parameter % 256)});
}

Bytes WriteFrame(int parameter, std::uint32_t value, int size) {
  Bytes frame{static_cast<uint8_t>(128 + size - 1), 0, static_cast<uint8_t>(parameter / 256),
              static_cast<uint8_t>(parameter % 256)};
  for (int i = 0; i < size; ++i, value /= 256) frame.push_back(static_cast<uint8_t>(value % 256));
  return WithSum(frame);
}

PageTest::PageTest(const QString& form, const QString& entry, Separators separators)
    : program({.separators = separators}), form_(form), entry_(entry) {
  program.Connect();
}

void PageTest::Open() {
  program.Open(entry_);
  program.link.wire.Forget();
}

void PageTest::ClosePage() {
  auto* page = program.frame->findChild<ChildForm*>(form_);
  ASSERT_NE(page, nullptr) << form_.toStdString() << " isn't open";
  page->parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void PageTest::AskAgain(int parameter) {
  program.link.access.WatchParameter(parameter);
  program.Sweep(3);
  program.link.wire.Forget();
}

void PageTest::BoardSays(int parameter, std::uint32_t value) {
  program.link.SetBoardNumber(parameter, value);
  AskAgain(parameter);
}

void PageTest::SetNumbers(int first, const std::vector<std::uint32_t>& values) {
  for (const std::uint32_t value : values) program.link.SetBoardNumber(first++, value);
}

void PageTest::Resize(int parameter, const Bytes& value) {
  program.link.Record(parameter).At(3) = static_cast<uint8_t>(value.size() - 1);
  program.link.SetBoard(parameter, value);
}

void PageTest::Wait(int milliseconds) {
  program.gate.Run([&] { program.link.clock.Advance(milliseconds); });
}

void PageTest::SetClock(const QTime& time) {
  const auto start = program.link.clock.Now();
  program.now = [this, time, start] {
    return QDateTime(QDate(2026, 3, 5), time).addMSecs((program.link.clock.Now() - start).count());
  };
}

void PageTest::TypeOnly(const QString& field, const QString& text) {
  auto& box = program.Find<QLineEdit>(form_, field);
  if (box.hasFocus()) {
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
  }
  program.TypeOnly(form_, field, text);
}

void PageTest::Type(const QString& field, const QString& text) {
  TypeOnly(field, text);
  Press(field, Qt::Key_Return);
}

void PageTest::PressFocused(const QString& control, int key) {
  program.Find(form_, control).setFocus();
  Press(control, key);
}

void PageTest::Click(const QString& control) {
  QTest::mouseClick(&program.Find(form_, control), Qt::LeftButton);
}

std::vector<QString> PageTest::Texts(const char* fields, int count) {
  std::vector<QString> all;
  for (int i = 0; i < count; ++i) all.push_back(Text(Indexed(fields, i)));
  return all;
}

std::vector<int> PageTest::Positions(const char* bars, int count) {
  std::vector<int> all;
  for (int i = 0; i < count; ++i) all.push_back(Position(Indexed(bars, i)));
  return all;
}

int PageTest::Minimum(const QString& bar) {
  return program.Find(form_, bar).property("minimum").toInt();
}

int PageTest::Maximum(const QString& bar) {
  return program.Find(form_, bar).property("maximum").toInt();
}

bool PageTest::IsOn(const QString& toggle) {
  return program.Find(form_, toggle).property("checked").toBool();
}

QString PageTest::Caption(const QString& label) {
  return program.Find<QLabel>(form_, label).text();
}

QString PageTest::Title() const {
  const auto* page = program.frame->findChild<ChildForm*>(form_);
  return page == nullptr ? "not open" : page->windowTitle();
}

bool PageTest::IsCentred(const QString& field) {
  return program.Find<QLineEdit>(form_, field).alignment().testFlag(Qt::AlignHCenter);
}

int PageTest::Left(const QString& control) {
  return program.Find(form_, control).mapToGlobal(QPoint(0, 0)).x();
}

int PageTest::Top(const QString& control) {
  return program.Find(form_, control).mapToGlobal(QPoint(0, 0)).y();
}

int PageTest::FocusedFields() const {
  const QList<QLineEdit*> fields = program.frame->findChildren<QLineEdit*>();
  return static_cast<int>(std::count_if(fields.begin(), fields.end(),
                                        [](const QLineEdit* field) { return field->hasFocus(); }));
}

QColor PageTest::Ground(const QString& field) {
  return program.Find<QLineEdit>(form_, field).palette().color(QPalette::Base);
}

bool PageTest::IsWhite(const QString& field) {
  const auto& box = program.Find<QLineEdit>(form_, field);
  return Ground(field) == QApplication::palette(&box).color(QPalette::Base);
}

void PageTest::ExpectFirstRowsOpen(int count, const std::vector<const char*>& arrays, CallSite at) {
  const testing::ScopedTrace trace(at.file, at.line, "rows");
  for (const char* array : arrays) {
    for (int i = 0; i < 10; ++i) EXPECT_EQ(IsEnabled(Indexed(array, i)), i < count) << array << i;
  }
}

void PageTest::ExpectRoom() const {
  const auto* page = program.frame->findChild<ChildForm*>(form_);
  ASSERT_NE(page, nullptr) << form_.toStdString() << " isn't open";
  EXPECT_GE(page->width(), page->minimumSizeHint().width());
  EXPECT_GE(page->height(), page->minimumSizeHint().height());
}

void PageTest::ExpectRefused(const QString& field, const QString& typed, const QString& old,
                             CallSite at) {
  const testing::ScopedTrace trace(at.file, at.line, typed.toStdString());
  Type(field, typed);
  EXPECT_EQ(Text(field), old);
  EXPECT_TRUE(IsWhite(field));
  EXPECT_TRUE(WasSilent());
  EXPECT_THAT(Pending(), testing::IsEmpty());
}

void PageTest::ExpectOnlyNumbersMessage(const QString& field, const QString& old, CallSite at) {
  const testing::ScopedTrace trace(at.file, at.line, field.toStdString());
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  EXPECT_EQ(Ground(field), kRed);
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text(field), old);
  EXPECT_TRUE(IsWhite(field));
  EXPECT_THAT(Pending(), testing::IsEmpty());
}

std::vector<int> PageTest::Watched() {
  std::vector<int> all;
  for (int k = 1; k <= kParameters; ++k) all.insert(all.end(), program.link.Record(k).At(5), k);
  return all;
}

std::vector<int> PageTest::Pending() {
  std::vector<int> all;
  for (int k = 0; k <= kParameters; ++k) {
    if (program.link.Record(k).At(6) >= 128) all.push_back(k);
  }
  return all;
}

void PageTest::ExpectSent(const std::vector<Bytes>& frames, CallSite at) {
  program.Sweep(static_cast<int>(frames.size()) + 3);
  for (const Bytes& frame : frames) program.link.wire.Expect(frame, at);
  program.link.wire.ExpectNothing(at);
}

void PageTest::ExpectReport(const char* text) const {
  EXPECT_THAT(program.reports, testing::ElementsAre(text));
  EXPECT_TRUE(program.gate.IsShut());
}

}  // namespace sorvane::test
