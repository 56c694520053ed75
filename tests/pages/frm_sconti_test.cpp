#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "shell/page/child_form.h"
#include "shell/program.h"

namespace sorvane::test {
namespace {

const QString kPage = "FrmSconti";

// The discounts page over a connected board with two decimals and ten selections. The discount of
// row i is 100 * (i + 1) + 5: 105, 205 and so on.
class Sconti : public testing::Test {
 protected:
  explicit Sconti(Separators separators = {'.', ','}) : program({.separators = separators}) {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(22, 2);
    for (int i = 0; i < 10; ++i) {
      program.link.SetBoardNumber(43 + i, static_cast<uint32_t>(100 * (i + 1) + 5));
    }
    program.Connect();
  }

  void Open() {
    program.Open("MnuSconti");
    program.link.wire.Forget();
  }

  void ClosePage() {
    program.frame->findChild<QWidget*>(kPage)->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // Has the board answer a parameter once more.
  void AskAgain(int parameter) {
    program.link.access.WatchParameter(parameter);
    program.Sweep(3);
  }

  QString Text(int row) { return program.Text(kPage, QString("Text1(%1)").arg(row)); }
  bool IsRowOpen(int row) {
    const QString index = QString("(%1)").arg(row);
    const bool text = program.Find(kPage, "Text1" + index).isEnabled();
    EXPECT_EQ(program.Find(kPage, "HScroll1" + index).isEnabled(), text);
    return text;
  }
  void Type(int row, const QString& text) {
    program.Type(kPage, QString("Text1(%1)").arg(row), text);
  }

  // Parameter 43 + row lies at address 0, 0, 43 + row, two bytes; a write of value to it.
  static Bytes Write(int row, int value) {
    const auto low = static_cast<uint8_t>(value % 256);
    const auto high = static_cast<uint8_t>(value / 256);
    const auto address = static_cast<uint8_t>(43 + row);
    return {129, 0, 0, address, low, high, static_cast<uint8_t>(129 + address + low + high)};
  }

  Program program;
};

class ScontiWithComma : public Sconti {
 protected:
  ScontiWithComma() : Sconti({',', '.'}) {}
};

TEST_F(Sconti, ShowsTheTenDiscountsThatTheBoardHolds) {
  Open();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Text(i), QString("%1.05").arg(i + 1));
  EXPECT_EQ(program.Position(kPage, "HScroll1(0)"), 105 - 32768);
  EXPECT_EQ(program.Position(kPage, "HScroll1(9)"), 1005 - 32768);
}

TEST_F(ScontiWithComma, ShowsAmountsWithTheSeparatorOfTheLocale) {
  Open();
  EXPECT_EQ(Text(0), "1,05");
}

TEST_F(Sconti, AsksForTheParametersInTheOrderOfTheTable) {
  program.Choose("MnuSconti");
  program.Sweep(13);
  program.link.wire.Expect({0, 0, 0, 2, 2});
  program.link.wire.Expect({0, 0, 0, 22, 22});
  for (uint8_t k = 43; k <= 52; ++k) {
    program.link.wire.Expect({1, 0, 0, k, static_cast<uint8_t>(k + 1)});
  }
  program.link.wire.ExpectNothing();
}

TEST_F(Sconti, IsEmptyAndClosedUntilRepliesCome) {
  program.Choose("MnuSconti");
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Text(i), "");
    EXPECT_FALSE(IsRowOpen(i));
  }
  EXPECT_EQ(program.Position(kPage, "HScroll1(3)"), -32767);
}

TEST_F(Sconti, OpensOnceTheSelectionsAndTheFirstDiscountHaveBeenAnswered) {
  program.Choose("MnuSconti");
  program.Sweep(2);  // parameters 2 and 22
  EXPECT_FALSE(IsRowOpen(0));
  program.Sweep(1);  // parameter 43, and none of 44 to 52
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(IsRowOpen(i));
}

TEST_F(Sconti, CaptionsAreNumberedFromOne) {
  Open();
  EXPECT_EQ(program.Find<QLabel>(kPage, "LabelMess1(0)").text(), "Alfa 36 1");
  EXPECT_EQ(program.Find<QLabel>(kPage, "LabelMess1(9)").text(), "Alfa 36 10");
  EXPECT_EQ(program.frame->findChild<QWidget*>(kPage)->windowTitle(), "Alfa 4");
}

TEST_F(Sconti, HasRoomForAllThatItShows) {
  Open();
  const auto* page = program.frame->findChild<ChildForm*>(kPage);
  EXPECT_GE(page->width(), page->minimumSizeHint().width());
  EXPECT_GE(page->height(), page->minimumSizeHint().height());
}

TEST_F(Sconti, ADiscountThatIsAnsweredBeforeTheDecimalsIsNotShown) {
  program.Choose("MnuSconti");
  program.Sweep(1);
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 22 fails
  program.Sweep(1);
  program.Sweep(10);
  EXPECT_EQ(program.link.Value(43), (Bytes{105, 0}));
  EXPECT_EQ(Text(0), "");
  EXPECT_EQ(program.Position(kPage, "HScroll1(0)"), -32767);
}

TEST_F(Sconti, TheDecimalsBringWhatWasAnsweredBeforeThem) {
  program.Choose("MnuSconti");
  program.Sweep(1);
  program.link.board.SpoilChecksum(5);
  program.Sweep(11);
  program.Sweep(4);  // the next pass reaches parameter 22 again
  EXPECT_EQ(Text(0), "1.05");
}

TEST_F(Sconti, DecimalsThatThePageHasAlreadyRedrawNothing) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "7");
  AskAgain(22);
  EXPECT_EQ(program.link.notices.size(), 0U);  // the frame has taken the notices over
  program.link.wire.Expect({0, 0, 0, 22, 22});
  EXPECT_EQ(Text(0), "7");
}

TEST_F(Sconti, NewDecimalsDrawAllFieldsAnew) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "7");
  program.link.SetBoardNumber(22, 1);
  AskAgain(22);
  EXPECT_EQ(Text(0), "10.5");
  EXPECT_EQ(Text(9), "100.5");
}

TEST_F(Sconti, DecimalsAboveFourLeaveTheFieldsEmptyWhileTheBarsMove) {
  program.link.SetBoardNumber(22, 5);
  Open();
  EXPECT_EQ(Text(0), "");
  EXPECT_EQ(program.Position(kPage, "HScroll1(0)"), 105 - 32768);
}

TEST_F(Sconti, ATypedAmountIsWrittenAndShownWhenTheReplyComes) {
  Open();
  Type(2, "12.5");
  EXPECT_EQ(Text(2), "12.5");
  EXPECT_EQ(program.Position(kPage, "HScroll1(2)"), 1250 - 32768);
  program.Sweep(2);
  program.link.wire.Expect(Write(2, 1250));
  EXPECT_EQ(Text(2), "12.50");
  EXPECT_EQ(program.link.BoardValue(45), (Bytes{226, 4}));  // 4 * 256 + 226
}

TEST_F(ScontiWithComma, ACommaSeparatesDecimalsToo) {
  Open();
  Type(2, "12,5");
  program.Sweep(2);
  program.link.wire.Expect(Write(2, 1250));
  EXPECT_EQ(Text(2), "12,50");
}

TEST_F(Sconti, ACommaSeparatesDecimalsInALocaleWithAPoint) {
  Open();
  Type(2, "12,5");
  program.Sweep(2);
  program.link.wire.Expect(Write(2, 1250));
}

TEST_F(Sconti, AnAmountOfTwoWithASeparatorIsTaken) {
  Open();
  Type(0, "2,0");
  program.Sweep(2);
  program.link.wire.Expect(Write(0, 200));
}

TEST_F(ScontiWithComma, AnAmountOfTwoWithASeparatorIsTaken) {
  Open();
  Type(0, "2,0");
  program.Sweep(2);
  program.link.wire.Expect(Write(0, 200));
}

TEST_F(Sconti, TheHighestAmountIsTaken) {
  Open();
  Type(4, "655,35");
  program.Sweep(2);
  program.link.wire.Expect(Write(4, 65535));
  EXPECT_EQ(Text(4), "655.35");
}

TEST_F(Sconti, AnAmountAboveTheHighestIsRefusedInSilence) {
  Open();
  Type(4, "655,36");
  EXPECT_EQ(Text(4), "5.05");
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
  program.Sweep(3);
  program.link.wire.ExpectNothing();
}

TEST_F(Sconti, LettersTurnTheFieldRedBehindTheMessage) {
  Open();
  Type(0, "abc");
  program.link.dialogs.Expect("Please Insert Only Number ", "Error", 16);
  const QPalette palette = program.Find<QLineEdit>(kPage, "Text1(0)").palette();
  EXPECT_EQ(palette.color(QPalette::Base), QColor(255, 0, 0));
  EXPECT_EQ(Text(0), "abc");
}

TEST_F(Sconti, AfterTheMessageTheOldTextComesBackOnWhite) {
  Open();
  Type(0, "abc");
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text(0), "1.05");
  const auto& box = program.Find<QLineEdit>(kPage, "Text1(0)");
  EXPECT_EQ(box.palette().color(QPalette::Base), QApplication::palette(&box).color(QPalette::Base));
  program.Sweep(3);
  program.link.wire.ExpectNothing();
}

TEST_F(Sconti, AReplyThatLandsWhileTheMessageStandsIsShownAndComesBack) {
  Open();
  Type(0, "abc");
  program.link.SetBoardNumber(43, 777);
  AskAgain(43);
  EXPECT_EQ(Text(0), "7.77");
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text(0), "7.77");
}

TEST_F(Sconti, AFieldThatClosesWhileItsMessageStandsIsRedUntilTheMessageGoes) {
  const auto ground = [this] {
    const auto& field = program.Find(kPage, "Text1(4)");
    return field.palette().color(QPalette::Base);
  };
  Open();
  program.link.SetBoardNumber(2, 3);
  AskAgain(2);
  const QColor closed = ground();
  program.link.SetBoardNumber(2, 10);
  AskAgain(2);
  Type(4, "abc");
  program.link.SetBoardNumber(2, 3);
  AskAgain(2);
  ASSERT_FALSE(IsRowOpen(4));
  EXPECT_EQ(ground(), QColor(255, 0, 0));
  program.link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(Text(4), "5.05");
  EXPECT_EQ(ground(), closed);
  program.link.SetBoardNumber(2, 10);
  AskAgain(2);
  EXPECT_EQ(ground(), QApplication::palette("QLineEdit").color(QPalette::Active, QPalette::Base));
}

TEST_F(Sconti, ASignIsRefusedInSilence) {
  Open();
  Type(0, "-5");
  EXPECT_EQ(Text(0), "1.05");
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

TEST_F(Sconti, EnterInAnEmptyFieldBringsTheOldTextBackInSilence) {
  Open();
  Type(0, "");
  EXPECT_EQ(Text(0), "1.05");
  EXPECT_TRUE(program.link.dialogs.Shown().empty());
}

TEST_F(Sconti, TheAmountThatStandsAlreadyIsNotWritten) {
  Open();
  Type(0, "1.05");
  program.Sweep(3);
  program.link.wire.ExpectNothing();
  EXPECT_EQ(Text(0), "1.05");
}

TEST_F(Sconti, AnAmountThatNoVariableHoldsOnceScaledEndsTheProgram) {
  program.link.SetBoardNumber(22, 4);
  Open();
  Type(0, "999999");  // 9999990000
  EXPECT_EQ(program.reports, std::vector<std::string>{"Run-time error '6':\n\nOverflow"});
  EXPECT_TRUE(program.gate.IsShut());
}

TEST_F(Sconti, EveryStepOfTheBarIsAWrite) {
  Open();
  auto& bar = program.Find(kPage, "HScroll1(1)");
  bar.setFocus();
  QTest::keyClick(&bar, Qt::Key_Right);
  program.Sweep(2);
  QTest::keyClick(&bar, Qt::Key_Right);
  program.Sweep(2);
  QTest::keyClick(&bar, Qt::Key_PageDown);
  program.Sweep(2);
  program.link.wire.Expect(Write(1, 206));
  program.link.wire.Expect(Write(1, 207));
  program.link.wire.Expect(Write(1, 307));
}

TEST_F(Sconti, TheTextFollowsTheBarOnlyWithTheReply) {
  Open();
  auto& bar = program.Find(kPage, "HScroll1(1)");
  bar.setFocus();
  QTest::keyClick(&bar, Qt::Key_Right);
  EXPECT_EQ(Text(1), "2.05");
  program.Sweep(2);
  EXPECT_EQ(Text(1), "2.06");
}

TEST_F(Sconti, AReplyWritesNothing) {
  Open();
  program.Sweep(20);
  program.link.wire.ExpectNothing();
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_F(Sconti, TheFieldEmptiesWhenItGetsTheFocus) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "");
  EXPECT_EQ(Text(0), "");
}

TEST_F(Sconti, WhatWasTypedAndNotConfirmedIsGoneWhenTheFocusMovesOn) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "9");
  program.TypeOnly(kPage, "Text1(1)", "");
  EXPECT_EQ(Text(0), "1.05");
  program.Sweep(3);
  program.link.wire.ExpectNothing();
}

TEST_F(Sconti, AReplyOverwritesWhatIsBeingTyped) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "9");
  program.link.SetBoardNumber(43, 250);
  AskAgain(43);
  EXPECT_EQ(Text(0), "2.50");
}

TEST_F(Sconti, AFieldTakesSixCharacters) {
  Open();
  program.TypeOnly(kPage, "Text1(0)", "1234567");
  EXPECT_EQ(Text(0), "123456");
}

TEST_F(Sconti, OnlyAsManyRowsOpenAsThereAreSelections) {
  program.link.SetBoardNumber(2, 3);
  Open();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(IsRowOpen(i), i < 3) << i;
}

TEST_F(Sconti, NoSelectionsOpenNoRow) {
  program.link.SetBoardNumber(2, 0);
  Open();
  for (int i = 0; i < 10; ++i) EXPECT_FALSE(IsRowOpen(i));
}

TEST_F(Sconti, MoreSelectionsThanRowsEndTheProgram) {
  program.link.SetBoardNumber(2, 11);
  Open();
  EXPECT_EQ(program.reports, std::vector<std::string>{
                                 "Run-time error '340':\n\nControl array element does not exist"});
}

TEST_F(Sconti, AReplyOfTheSelectionsClosesAllRowsAndOpensTheFirstOnes) {
  Open();
  program.link.SetBoardNumber(2, 4);
  AskAgain(2);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(IsRowOpen(i), i < 4) << i;
}

TEST_F(Sconti, ARowThatClosesWhileItIsBeingEditedLosesWhatWasTyped) {
  Open();
  program.TypeOnly(kPage, "Text1(7)", "9");
  program.link.SetBoardNumber(2, 4);
  AskAgain(2);
  EXPECT_EQ(Text(7), "8.05");
  for (int i = 0; i < 10; ++i) EXPECT_NE(Text(i), "") << i;
}

// Every reply of the selections closes all rows first, though they open again at once.
TEST_F(Sconti, ARowThatStaysOpenLosesWhatWasTypedToo) {
  program.link.SetBoardNumber(2, 9);
  Open();
  for (const std::uint32_t selections : {9U, 10U}) {
    program.TypeOnly(kPage, "Text1(7)", "9");
    program.link.SetBoardNumber(2, selections);
    AskAgain(2);
    EXPECT_EQ(Text(7), "8.05") << selections;
    EXPECT_TRUE(IsRowOpen(7)) << selections;
  }
}

// Each time the rows wait for the first discount anew.
TEST_F(Sconti, AFirstDiscountThatIsBeingWrittenHoldsTheRowsClosedAfterAReplyOfTheSelections) {
  Open();
  program.link.access.WriteParameter(43, 500);
  program.link.SetBoardNumber(2, 7);
  program.link.access.WatchParameter(2);
  program.Sweep(1);
  for (int i = 0; i < 10; ++i) EXPECT_FALSE(IsRowOpen(i)) << i;
  program.Sweep(1);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(IsRowOpen(i), i < 7) << i;
}

TEST_F(Sconti, ARawValueBeyondTheBarShowsAsItsEnd) {
  // A four-byte discount: the bar and the text stop at 65535.
  program.link.Record(43).At(3) = 3;
  program.link.SetBoard(43, {0, 0, 1, 0});
  Open();
  EXPECT_EQ(Text(0), "655.35");
  EXPECT_EQ(program.Position(kPage, "HScroll1(0)"), 32767);
}

TEST_F(Sconti, APageOpenedTwiceHasOneSetOfWatchers) {
  Open();
  program.Choose("MnuSconti");
  EXPECT_EQ(program.link.Record(43).At(5), 1);
  EXPECT_EQ(program.link.Record(22).At(5), 1);
}

TEST_F(Sconti, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  for (const int index : {2, 22, 43, 52}) {
    EXPECT_EQ(program.link.Record(index).At(5), 0) << index;
    EXPECT_EQ(program.link.Record(index).At(6) & 7, 0) << index;
  }
}

TEST_F(Sconti, APageOpenedAgainStartsWithItsStartValues) {
  Open();
  ClosePage();
  EXPECT_FALSE(program.IsOpen(kPage));
  program.Choose("MnuSconti");
  EXPECT_EQ(Text(0), "");
  EXPECT_FALSE(IsRowOpen(0));
}

TEST_F(Sconti, NoFieldHasTheFocusWhenThePageOpens) {
  Open();
  for (int i = 0; i < 10; ++i) {
    EXPECT_FALSE(program.Find(kPage, QString("Text1(%1)").arg(i)).hasFocus()) << i;
  }
}

TEST_F(Sconti, AWriteThatIsPendingWhenThePageClosesIsSentWhenThePageOpensAgain) {
  Open();
  Type(0, "3.00");
  ClosePage();
  program.Sweep(3);
  program.link.wire.ExpectNothing();
  program.Open("MnuSconti");
  EXPECT_EQ(program.link.BoardValue(43), (Bytes{44, 1}));
}

TEST_F(Sconti, FourBytesForTheNumberOfSelectionsOverflowItsVariable) {
  program.link.Record(2).At(3) = 3;
  program.link.SetBoard(2, {0, 0, 1, 0});
  Open();
  EXPECT_EQ(program.reports, std::vector<std::string>{"Run-time error '6':\n\nOverflow"});
}

TEST_F(Sconti, ATextForTheNumberOfSelectionsIsATypeMismatch) {
  program.link.Record(2).At(3) = 4;
  program.link.SetBoard(2, {'1', '0', ' ', ' ', ' '});
  Open();
  EXPECT_EQ(program.reports, std::vector<std::string>{"Run-time error '13':\n\nType mismatch"});
}

}  // namespace
}  // namespace sorvane::test
