#include <QLabel>
#include <QTest>

#include "pages/page_tests.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

struct Counter {
  int label;  // Label1
  int parameter;
  int frame;  // Frame1
  const char* caption;
  const char* text;
};
constexpr Counter kCounters[] = {
    {0, 320, 0, "LabelMess2(0)", "Alfa 71 1"},  {1, 321, 0, "LabelMess2(1)", "Alfa 71 2"},
    {2, 322, 0, "LabelMess2(2)", "Alfa 71 3"},  {3, 323, 0, "LabelMess2(3)", "Alfa 71 4"},
    {4, 324, 0, "LabelMess2(4)", "Alfa 71 5"},  {5, 325, 0, "LabelMess2(5)", "Alfa 71 6"},
    {6, 326, 0, "LabelMess2(6)", "Alfa 71 7"},  {7, 327, 0, "LabelMess2(7)", "Alfa 71 8"},
    {8, 328, 0, "LabelMess2(8)", "Alfa 71 9"},  {9, 329, 0, "LabelMess2(9)", "Alfa 71 10"},
    {10, 330, 1, "LabelMess3(0)", "Alfa 72 1"}, {11, 331, 1, "LabelMess3(1)", "Alfa 72 2"},
    {12, 332, 1, "LabelMess3(2)", "Alfa 72 3"}, {13, 333, 1, "LabelMess3(3)", "Alfa 72 4"},
    {14, 334, 1, "LabelMess3(4)", "Alfa 72 5"}, {15, 335, 1, "LabelMess3(5)", "Alfa 72 6"},
    {16, 336, 1, "LabelMess3(6)", "Alfa 72 7"}, {17, 337, 1, "LabelMess3(7)", "Alfa 72 8"},
    {18, 338, 1, "LabelMess3(8)", "Alfa 72 9"}, {19, 339, 1, "LabelMess3(9)", "Alfa 72 10"},
    {20, 340, 2, "LabelMess4(0)", "Alfa 73 1"}, {21, 341, 2, "LabelMess4(1)", "Alfa 73 2"},
    {22, 342, 2, "LabelMess4(2)", "Alfa 73 3"}, {23, 343, 2, "LabelMess4(3)", "Alfa 73 4"},
    {24, 344, 2, "LabelMess4(4)", "Alfa 73 5"}, {25, 345, 2, "LabelMess4(5)", "Alfa 73 6"},
    {26, 346, 2, "LabelMess4(6)", "Alfa 73 7"}, {27, 347, 2, "LabelMess4(7)", "Alfa 73 8"},
    {28, 348, 2, "LabelMess4(8)", "Alfa 73 9"}, {29, 349, 2, "LabelMess4(9)", "Alfa 73 10"},
    {30, 352, 3, "LabelMess1(0)", "Alfa 68"},   {31, 350, 3, "LabelMess1(1)", "Alfa 69"},
    {32, 351, 3, "LabelMess1(2)", "Alfa 70"},
};

// The counters page over a board whose counter k holds k thousand and seven: 320007, 321007 and so
// on.
class Contatori : public PageTest {
 protected:
  Contatori() : PageTest("FrmContatori", "MnuContatori", kPoint) {
    for (int k = 320; k <= 352; ++k) SetNumbers(k, {static_cast<std::uint32_t>(k * 1000 + 7)});
  }

  QString Value(int label) { return Caption(Indexed("Label1", label)); }
  std::vector<QString> Values() {
    std::vector<QString> all;
    for (int i = 0; i < 33; ++i) all.push_back(Value(i));
    return all;
  }
};

TEST_F(Contatori, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames;
  for (int k = 320; k <= 352; ++k) frames.push_back(ReadFrame(k, 4));
  ExpectSent(frames);
}

TEST_F(Contatori, HoldsEachOfItsParametersOnce) {
  Open();
  std::vector<int> all;
  for (int k = 320; k <= 352; ++k) all.push_back(k);
  EXPECT_EQ(Watched(), all);
}

TEST_F(Contatori, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (int k = 320; k <= 352; ++k) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_F(Contatori, EveryCounterStandsBehindItsCaption) {
  Open();
  for (const Counter& counter : kCounters) {
    EXPECT_EQ(Value(counter.label), QString::number(counter.parameter) + "007") << counter.label;
    EXPECT_EQ(Caption(counter.caption), counter.text) << counter.label;
    const QString label = Indexed("Label1", counter.label);
    EXPECT_EQ(Top(label) + program.Find("FrmContatori", label).height() / 2,
              Top(counter.caption) + program.Find("FrmContatori", counter.caption).height() / 2)
        << counter.label;
    EXPECT_GT(Left(label), Left(counter.caption)) << counter.label;
  }
}

TEST_F(Contatori, EveryCounterStandsInItsGroup) {
  OpenUnanswered();
  for (const Counter& counter : kCounters) {
    for (int frame = 0; frame < 4; ++frame) {
      const QWidget& group = program.Find("FrmContatori", Indexed("Frame1", frame));
      const QWidget& label = program.Find("FrmContatori", Indexed("Label1", counter.label));
      const QWidget& caption = program.Find("FrmContatori", counter.caption);
      EXPECT_EQ(group.isAncestorOf(&label), frame == counter.frame) << counter.label;
      EXPECT_EQ(group.isAncestorOf(&caption), frame == counter.frame) << counter.caption;
    }
  }
}

TEST_F(Contatori, SelectionsAndMotorsStandOneBelowTheOther) {
  OpenUnanswered();
  for (int i = 1; i < 30; ++i) {
    if (i % 10 == 0) continue;
    EXPECT_GT(Top(Indexed("Label1", i)), Top(Indexed("Label1", i - 1))) << i;
  }
}

TEST_F(Contatori, CountersOfTheMachineStandSideBySideBelow) {
  OpenUnanswered();
  EXPECT_GT(Top("Label1(30)"), Top("Label1(29)"));
  for (int i = 31; i < 33; ++i) {
    EXPECT_EQ(Top(Indexed("Label1", i)), Top("Label1(30)")) << i;
    EXPECT_GT(Left(Indexed("Label1", i)), Left(Indexed("Label1", i - 1))) << i;
  }
}

TEST_F(Contatori, TitleAndCaptionsFollowTheLanguage) {
  Open();
  EXPECT_EQ(Title(), "Alfa 11");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Title(), "Bravo 11");
  for (const Counter& counter : kCounters) {
    EXPECT_EQ(Caption(counter.caption), QString(counter.text).replace("Alfa", "Bravo"));
  }
  EXPECT_EQ(Value(0), "320007");
}

TEST_F(Contatori, ValuesAreEmptyUntilTheirRepliesCome) {
  OpenUnanswered();
  for (int i = 0; i < 33; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(1);  // parameter 320
  EXPECT_EQ(Value(0), "320007");
  for (int i = 1; i < 33; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(29);  // as far as 349
  EXPECT_EQ(Value(29), "349007");
  for (int i = 30; i < 33; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(1);
  EXPECT_EQ(Value(31), "350007");
  EXPECT_EQ(Value(30), "");
  EXPECT_EQ(Value(32), "");
  program.Sweep(1);
  EXPECT_EQ(Value(32), "351007");
  EXPECT_EQ(Value(30), "");
  program.Sweep(1);
  EXPECT_EQ(Value(30), "352007");
}

TEST_F(Contatori, EveryValueIsABorderedBox) {
  OpenUnanswered();
  for (int i = 0; i < 33; ++i) {
    const auto& box = program.Find<QLabel>("FrmContatori", Indexed("Label1", i));
    EXPECT_NE(box.frameShape(), QFrame::NoFrame) << i;
    EXPECT_GT(box.frameWidth(), 0) << i;
  }
}

TEST_F(Contatori, HighestCounterShowsWholeAndWithoutSeparators) {
  for (int k = 320; k <= 352; ++k) SetNumbers(k, {4294967295});
  Open();
  for (int i = 0; i < 33; ++i) EXPECT_EQ(Value(i), "4294967295") << i;
}

TEST_F(Contatori, CounterOfZeroShowsAZero) {
  SetNumbers(325, {0});
  Open();
  EXPECT_EQ(Value(5), "0");
}

TEST_F(Contatori, CountersAreTakenInTheWidthOfTheirRecords) {
  Resize(320, {200});
  Resize(321, {255, 255});
  Resize(322, {0, 0, 1});
  Open();
  EXPECT_EQ(Value(0), "200");
  EXPECT_EQ(Value(1), "65535");
  EXPECT_EQ(Value(2), "65536");
}

TEST_F(Contatori, LongerValueShowsAsTheTextThatItIs) {
  MakeText(333);
  Open();
  EXPECT_EQ(Value(13), "seven");
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(Contatori, NewReplyTakesThePlaceOfTheOld) {
  Open();
  BoardSays(352, 12);
  BoardSays(349, 1000000);
  EXPECT_EQ(Value(30), "12");
  EXPECT_EQ(Value(29), "1000000");
}

TEST_F(Contatori, DecimalsAndSelectionsPlayNoPart) {
  SetNumbers(2, {3});
  SetNumbers(22, {2});
  Open();
  const std::vector<QString> before = Values();
  AskAgain(22);
  AskAgain(2);
  EXPECT_EQ(Values(), before);
  for (const Counter& counter : kCounters) {
    EXPECT_TRUE(program.Find("FrmContatori", Indexed("Label1", counter.label)).isVisible());
    EXPECT_TRUE(program.Find("FrmContatori", counter.caption).isVisible());
  }
}

TEST_F(Contatori, RepliesOfTheNeighboursAreIgnored) {
  Open();
  const std::vector<QString> before = Values();
  for (const int k : {319, 353, 1, 110, 410}) AskAgain(k);
  EXPECT_EQ(Values(), before);
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(Contatori, NothingIsSentWhateverTheUserDoes) {
  Open();
  for (const Counter& counter : kCounters) {
    for (const QString& name : {Indexed("Label1", counter.label), QString(counter.caption)}) {
      Click(name);
      QTest::mouseDClick(&program.Find("FrmContatori", name), Qt::LeftButton);
      for (const int key : {Qt::Key_7, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace}) {
        Press(name, key);
      }
    }
  }
  auto* page = program.frame->findChild<ChildForm*>("FrmContatori");
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_F5, Qt::Key_Delete, Qt::Key_0}) {
    QTest::keyClick(page, key);
  }
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
  EXPECT_EQ(Value(0), "320007");
  EXPECT_TRUE(WasSilent());
}

TEST_F(Contatori, PageOpenedAgainIsEmptyUntilTheBoardAnswersAnew) {
  Open();
  ClosePage();
  EXPECT_FALSE(program.IsOpen("FrmContatori"));
  OpenUnanswered();
  for (int i = 0; i < 33; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(33);
  EXPECT_EQ(Value(30), "352007");
}

TEST_F(Contatori, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

}  // namespace
}  // namespace sorvane::test
