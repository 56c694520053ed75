#include "shell/gate/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <memory>
#include <optional>
#include <stdexcept>

#include "board/errors.h"
#include "shell/controls/program_style.h"
#include "shell/gate/program_gate.h"

namespace sorvane::test {
namespace {

// A window with a field and a button, over which boxes stand.
class Boxes : public testing::Test {
 protected:
  Boxes()
      : gate({.report = [this](const std::string& text,
                               std::function<void()> then) { dialogs->Report(text, then); },
              .leave = [this](int exit_code) { exit = exit_code; }}),
        dialogs(std::make_unique<QtDialogs>(gate)) {
    auto* column = new QVBoxLayout(&window);
    column->addWidget(&field);
    column->addWidget(&button);
    QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
    dialogs->SetFrame(&window);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  ~Boxes() override {
    dialogs.reset();
    field.setParent(nullptr);
    button.setParent(nullptr);
  }

  void Show(const MessageBox& box) {
    dialogs->Show(box, [this](Answer given) { answer = given; });
  }
  static QMessageBox* Standing() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      if (box != nullptr && box->isVisible()) return box;
    }
    return nullptr;
  }

  QWidget window;
  QLineEdit field;
  QPushButton button{"Button"};
  int clicks = 0;
  std::optional<int> exit;
  std::optional<Answer> answer;
  ProgramGate gate;
  std::unique_ptr<QtDialogs> dialogs;
};

TEST_F(Boxes, ShowTextTitleIconAndOneButton) {
  Show({"Error com", "ERROR ", 16});
  QMessageBox* box = Standing();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->text(), "Error com");
  EXPECT_EQ(box->windowTitle(), "ERROR ");
  EXPECT_EQ(box->icon(), QMessageBox::Critical);
  EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
}

TEST_F(Boxes, WarnWithRetryAndCancel) {
  Show({"Board Not Ready\nCheck serial !", "Serial", 53});
  EXPECT_EQ(Standing()->icon(), QMessageBox::Warning);
  EXPECT_EQ(Standing()->standardButtons(), QMessageBox::Retry | QMessageBox::Cancel);
}

TEST_F(Boxes, BreakTheLineAtALoneCarriageReturn) {
  Show({"first\rsecond", "Error", 16});
  EXPECT_EQ(Standing()->text(), "first\nsecond");
}

TEST_F(Boxes, ShowTextAsItStands) {
  Show({"<b>1 & 2</b>", "Error", 16});
  EXPECT_EQ(Standing()->textFormat(), Qt::PlainText);
}

// A desktop on which the buttons of boxes have pictures.
class PicturesOnButtons : public ProgramStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
    return ProgramStyle::styleHint(hint, option, widget, more);
  }
};

TEST_F(Boxes, HaveButtonsOfWordsAlone) {
  QApplication::setStyle(new PicturesOnButtons);
  Show({"Text", "Title", 53});
  QApplication::setStyle(new ProgramStyle);
  ASSERT_EQ(Standing()->buttons().size(), 2);
  for (const QAbstractButton* one : Standing()->buttons()) {
    EXPECT_TRUE(one->icon().isNull()) << one->text().toStdString();
  }
}

TEST_F(Boxes, HaveASingleLineInTheMiddleOfTheirIcon) {
  Show({"No", "Title", 16});
  const auto* icon = Standing()->findChild<QLabel*>("qt_msgboxex_icon_label");
  const auto* text = Standing()->findChild<QLabel*>("qt_msgbox_label");
  ASSERT_TRUE(icon != nullptr && text != nullptr);
  EXPECT_TRUE(text->alignment().testFlag(Qt::AlignVCenter));
  EXPECT_NEAR(text->geometry().center().y(), icon->geometry().center().y(), 4);
}

TEST_F(Boxes, HaveRoomForTheirTitleBesideIconAndControls) {
  for (const char* title : {"ERROR ", "A title that is much wider than the text of its box"}) {
    Show({"No", title, 16});
    const QFontMetrics metrics = Standing()->fontMetrics();
    EXPECT_GE(Standing()->width(), metrics.horizontalAdvance(title) + 8 * metrics.height());
    QTest::keyClick(Standing(), Qt::Key_Return);
  }
}

TEST_F(Boxes, TakeEnterForRetry) {
  Show({"text", "Serial", 53});
  QTest::keyClick(Standing(), Qt::Key_Return);
  EXPECT_EQ(answer, Answer::kRetry);
  EXPECT_EQ(Standing(), nullptr);
}

TEST_F(Boxes, TakeEscapeForCancel) {
  Show({"text", "Serial", 53});
  QTest::keyClick(Standing(), Qt::Key_Escape);
  EXPECT_EQ(answer, Answer::kCancel);
}

TEST_F(Boxes, WithOneButtonAnswerOk) {
  Show({"text", "Error", 16});
  QTest::keyClick(Standing(), Qt::Key_Escape);
  EXPECT_EQ(answer, Answer::kOk);
}

TEST_F(Boxes, KeepKeysAndClicksFromTheWindow) {
  Show({"text", "Error", 16});
  QTest::keyClicks(&field, "12");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(answer, std::nullopt);
}

TEST_F(Boxes, LetTheWindowTakeKeysAndClicksAfterwards) {
  Show({"text", "Error", 16});
  QTest::keyClick(Standing(), Qt::Key_Return);
  QTest::keyClicks(&field, "12");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(field.text(), "12");
  EXPECT_EQ(clicks, 1);
}

TEST_F(Boxes, LeaveTheWindowItsCloseControl) {
  Show({"text", "Error", 16});
  EXPECT_FALSE(window.isModal());
  EXPECT_FALSE(Standing()->isModal());
  EXPECT_TRUE(window.close());
}

TEST_F(Boxes, ComeToTheFrontAgainWhenTheWindowDoes) {
  Show({"text", "Error", 16});
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() == Standing(); }));
}

TEST_F(Boxes, CloseAMenuThatIsOpen) {
  QMenu menu(&window);
  menu.addAction("entry");
  menu.popup(window.mapToGlobal(QPoint(5, 5)));
  Show({"text", "Error", 16});
  EXPECT_FALSE(menu.isVisible());
}

TEST_F(Boxes, AnsweredBehindAShutGateDoNothing) {
  Show({"text", "Error", 16});
  gate.End(0);
  QTest::keyClick(Standing(), Qt::Key_Return);
  EXPECT_EQ(answer, std::nullopt);
}

TEST_F(Boxes, StandOnOneAnotherAndAreAnsweredOneByOne) {
  Show({"first", "Error", 16});
  QMessageBox* first = Standing();
  Show({"second", "Error", 16});
  QTest::keyClick(first, Qt::Key_Return);  // behind the second one
  EXPECT_EQ(answer, std::nullopt);
  EXPECT_TRUE(first->isVisible());
}

TEST_F(Boxes, TheReportOfARunTimeErrorLeavesWhenItHasBeenRead) {
  gate.Run([] { throw RuntimeError(ErrorCode::kSubscriptOutOfRange); });
  ASSERT_NE(Standing(), nullptr);
  EXPECT_EQ(Standing()->text(), "Run-time error '9':\n\nSubscript out of range");
  EXPECT_EQ(exit, std::nullopt);
  QTest::keyClick(Standing(), Qt::Key_Return);
  EXPECT_EQ(exit, 1);
}

TEST_F(Boxes, TheReportOfAnErrorOfTheSystemHasNoNumber) {
  gate.Run([] { throw std::length_error("too long"); });
  ASSERT_NE(Standing(), nullptr);
  EXPECT_EQ(Standing()->text(), "Run-time error:\n\ntoo long");
  QTest::keyClick(Standing(), Qt::Key_Return);
  EXPECT_EQ(exit, 1);
}

TEST_F(Boxes, AnInternalFaultLeavesWithoutABox) {
  gate.Run([] { throw InternalFault("fault"); });
  EXPECT_EQ(Standing(), nullptr);
  EXPECT_EQ(exit, 1);
}

}  // namespace
}  // namespace sorvane::test
