#include <QLabel>
#include <ostream>

#include "pages/page_tests.h"
#include "shell/page/child_form.h"

namespace sorvane::test {
namespace {

using testing::IsEmpty;

struct Channels {
  const char* form;
  const char* entry;
  std::vector<int> parameters;
  const char* title;
  const char* captions;
};
const Channels kMonete = {
    "FrmMonete",
    "MnuMonete",
    {288, 289, 290, 291, 292, 293, 294, 295, 296, 297, 298, 299, 300, 301, 302, 303},
    " 12",
    " 75 "};
const Channels kBanconote = {
    "FrmBanconote",
    "MnuBanconote",
    {304, 305, 306, 307, 308, 309, 310, 311, 312, 313, 314, 315, 316, 317, 318, 319},
    " 13",
    " 77 "};

void PrintTo(const Channels& channels, std::ostream* out) { *out << channels.form; }

// The pages of coins and banknotes over a board that has taken k thousand and k of the channel of
// parameter k: 288288, 289289 and so on.
class ChannelPages : public PageTest {
 protected:
  explicit ChannelPages(const Channels& channels)
      : PageTest(channels.form, channels.entry, kPoint) {
    for (int k = 288; k <= 319; ++k) SetNumbers(k, {static_cast<std::uint32_t>(k * 1001)});
  }

  QString Value(int i) { return Caption(Indexed("Label1", i)); }
  QString ValueOn(const Channels& page, int i) {
    return program.Find<QLabel>(page.form, Indexed("Label1", i)).text();
  }
  QString CaptionOn(const Channels& page, int i) {
    return program.Find<QLabel>(page.form, Indexed("LabelMess1", i)).text();
  }
  // Row i of a page holds what the board has under its parameter.
  void ExpectAll(const Channels& page, CallSite at = CallSite::Here()) {
    const testing::ScopedTrace trace(at.file, at.line, page.form);
    for (int i = 0; i < 16; ++i) {
      const int k = page.parameters[static_cast<std::size_t>(i)];
      EXPECT_EQ(ValueOn(page, i), QString("%1%1").arg(k)) << i;
    }
  }
};

// What goes for each of the two.
class ChannelPageTest : public ChannelPages, public testing::WithParamInterface<Channels> {
 protected:
  ChannelPageTest() : ChannelPages(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Pages, ChannelPageTest, testing::Values(kMonete, kBanconote),
                         [](const testing::TestParamInfo<Channels>& page) {
                           return std::string(page.param.form);
                         });

TEST_P(ChannelPageTest, AsksForItsParametersInTheOrderOfTheTable) {
  OpenUnanswered();
  std::vector<Bytes> frames;
  for (const int k : GetParam().parameters) frames.push_back(ReadFrame(k, 4));
  ExpectSent(frames);
}

TEST_P(ChannelPageTest, HoldsEachOfItsParametersOnce) {
  Open();
  EXPECT_EQ(Watched(), GetParam().parameters);
  program.Choose(GetParam().entry);
  EXPECT_EQ(Watched(), GetParam().parameters);
}

TEST_P(ChannelPageTest, ClosingThePageGivesItsParametersBack) {
  Open();
  ClosePage();
  EXPECT_THAT(Watched(), IsEmpty());
  for (const int k : GetParam().parameters) EXPECT_EQ(program.link.Record(k).At(6), 0) << k;
}

TEST_P(ChannelPageTest, EveryRowShowsItsParameter) {
  Open();
  ExpectAll(GetParam());
}

TEST_P(ChannelPageTest, ValuesAreEmptyBorderedBoxesUntilTheirRepliesCome) {
  OpenUnanswered();
  for (int answered = 0; answered < 16; ++answered) {
    for (int i = 0; i < 16; ++i) EXPECT_EQ(Value(i).isEmpty(), i >= answered) << i;
    program.Sweep(1);
  }
  ExpectAll(GetParam());
  for (int i = 0; i < 16; ++i) {
    EXPECT_NE(program.Find<QLabel>(GetParam().form, Indexed("Label1", i)).frameShape(),
              QFrame::NoFrame)
        << i;
  }
}

TEST_P(ChannelPageTest, CaptionsAreNumberedFromOne) {
  OpenUnanswered();
  EXPECT_EQ(Title(), QString("Alfa") + GetParam().title);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", i)),
              QString("Alfa") + GetParam().captions + QString::number(i + 1));
  }
}

TEST_P(ChannelPageTest, AnotherLanguageBringsItsCaptions) {
  Open();
  program.Choose("smnuLingue(9)");
  EXPECT_EQ(Title(), QString("Lima") + GetParam().title);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Caption(Indexed("LabelMess1", i)),
              QString("Lima") + GetParam().captions + QString::number(i + 1));
  }
  ExpectAll(GetParam());
}

TEST_P(ChannelPageTest, EightRowsStandOnTheLeftAndEightOnTheRight) {
  OpenUnanswered();
  for (int i = 0; i < 8; ++i) {
    const QString left = Indexed("Label1", i);
    const QString right = Indexed("Label1", i + 8);
    EXPECT_EQ(Top(left), Top(right)) << i;
    EXPECT_EQ(Left(left), Left("Label1(0)")) << i;
    EXPECT_EQ(Left(right), Left("Label1(8)")) << i;
    EXPECT_GT(Left(Indexed("LabelMess1", i + 8)), Left(left)) << i;
    EXPECT_GT(Left(left), Left(Indexed("LabelMess1", i))) << i;
    EXPECT_GT(Left(right), Left(Indexed("LabelMess1", i + 8))) << i;
    if (i > 0) {
      EXPECT_GT(Top(left), Top(Indexed("Label1", i - 1))) << i;
    }
  }
}

TEST_P(ChannelPageTest, CountsAreNotScaledWhateverTheDecimals) {
  SetNumbers(22, {2});
  Open();
  AskAgain(22);
  ExpectAll(GetParam());
  BoardSays(22, 4);
  ExpectAll(GetParam());
}

TEST_P(ChannelPageTest, HighestCountShowsWholeAndZeroAsAZero) {
  SetNumbers(GetParam().parameters[0], {4294967295, 0});
  SetNumbers(GetParam().parameters[15], {4294967295});
  Open();
  EXPECT_EQ(Value(0), "4294967295");
  EXPECT_EQ(Value(1), "0");
  EXPECT_EQ(Value(15), "4294967295");
}

TEST_P(ChannelPageTest, NewReplyTakesThePlaceOfTheOld) {
  Open();
  BoardSays(GetParam().parameters[7], 1);
  BoardSays(GetParam().parameters[8], 20);
  EXPECT_EQ(Value(7), "1");
  EXPECT_EQ(Value(8), "20");
}

TEST_P(ChannelPageTest, RepliesOfTheNeighboursAreIgnored) {
  Open();
  AskAgain(GetParam().parameters[0] - 1);
  AskAgain(GetParam().parameters[15] + 1);
  for (const int k : {1, 2, 32, 48}) AskAgain(k);
  ExpectAll(GetParam());
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_P(ChannelPageTest, NothingIsSentWhateverTheUserDoes) {
  Open();
  for (int i = 0; i < 16; ++i) {
    for (const char* array : {"Label1", "LabelMess1"}) {
      Click(Indexed(array, i));
      for (const int key : {Qt::Key_7, Qt::Key_Return, Qt::Key_Delete}) {
        Press(Indexed(array, i), key);
      }
    }
  }
  EXPECT_THAT(Pending(), IsEmpty());
  ExpectNothingSent();
  EXPECT_EQ(program.link.board.Writes(), 0);
  EXPECT_TRUE(WasSilent());
  ExpectAll(GetParam());
}

TEST_P(ChannelPageTest, PageOpenedAgainIsEmptyUntilTheBoardAnswersAnew) {
  Open();
  ClosePage();
  OpenUnanswered();
  for (int i = 0; i < 16; ++i) EXPECT_EQ(Value(i), "") << i;
  program.Sweep(18);
  ExpectAll(GetParam());
}

TEST_P(ChannelPageTest, HasRoomForAllThatItShows) {
  Open();
  ExpectRoom();
}

// Both pages side by side.
class BothChannelPages : public ChannelPages {
 protected:
  BothChannelPages() : ChannelPages(kMonete) {}
};

TEST_F(BothChannelPages, ReplyOfACoinIsIgnoredByTheBanknotes) {
  program.Choose("MnuBanconote");
  AskAgain(288);
  program.Sweep(20);
  ExpectAll(kBanconote);
  BoardSays(288, 5);
  BoardSays(303, 6);
  ExpectAll(kBanconote);
}

TEST_F(BothChannelPages, ReplyOfABanknoteIsIgnoredByTheCoins) {
  Open();
  BoardSays(304, 5);
  BoardSays(319, 6);
  ExpectAll(kMonete);
}

TEST_F(BothChannelPages, EachPageTakesItsOwnReplies) {
  program.Choose("MnuMonete");
  program.Choose("MnuBanconote");
  program.Sweep(16);
  ExpectAll(kMonete);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(ValueOn(kBanconote, i), "") << i;
  program.Sweep(16);
  ExpectAll(kMonete);
  ExpectAll(kBanconote);
  BoardSays(303, 7);
  EXPECT_EQ(ValueOn(kMonete, 15), "7");
  ExpectAll(kBanconote);
  BoardSays(303, 303303);
  BoardSays(319, 8);
  EXPECT_EQ(ValueOn(kBanconote, 15), "8");
  ExpectAll(kMonete);
}

TEST_F(BothChannelPages, ClosingTheOneLeavesTheOther) {
  Open();
  program.Open("MnuBanconote");
  EXPECT_EQ(Watched().size(), 32U);
  ClosePage();
  EXPECT_EQ(Watched(), kBanconote.parameters);
  BoardSays(319, 8);
  EXPECT_EQ(ValueOn(kBanconote, 15), "8");
}

TEST_F(BothChannelPages, AnotherLanguageBringsTheCaptionsOfTheOneBehindToo) {
  Open();
  program.Open("MnuBanconote");
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(CaptionOn(kBanconote, 15), "Bravo 77 16");
  EXPECT_EQ(CaptionOn(kMonete, 15), "Bravo 75 16");
  EXPECT_EQ(Title(), "Bravo 12");
  program.Choose("MnuMonete");
  EXPECT_EQ(CaptionOn(kMonete, 0), "Bravo 75 1");
  EXPECT_EQ(Title(), "Bravo 12");
  ExpectAll(kMonete);
  ExpectAll(kBanconote);
}

}  // namespace
}  // namespace sorvane::test
