#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <ostream>
#include <string>

#include "pages/pagamento_page.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What stands open once the board has said some systems, one after the other.
struct Outcome {
  const char* name;
  std::vector<std::uint32_t> systems;
  bool mdb_tabs;
  bool decimals;
  bool timeout;
  bool sale_mode;
  bool price_holding;
  bool change_label;
  bool coins_tab;
  bool notes_tab;
};

void PrintTo(const Outcome& outcome, std::ostream* out) { *out << outcome.name; }

class PagamentoOutcome : public PagamentoPage, public testing::WithParamInterface<Outcome> {
 protected:
  PagamentoOutcome() : PagamentoPage(kMdb) {}
};

INSTANTIATE_TEST_SUITE_P(
    Each, PagamentoOutcome,
    testing::Values(
        // clang-format off
        //                                     mdb    decim. timeo. mode   hold   change coins  notes
        Outcome{"None", {},                    true,  true,  true,  true,  true,  true,  true,  true},
        Outcome{"Zero", {0},                   true,  true,  true,  true,  true,  true,  true,  true},
        Outcome{"Four", {4},                   true,  true,  true,  true,  true,  true,  true,  true},
        Outcome{"Validatore", {1},             false, true,  false, true,  false, false, true,  false},
        Outcome{"Executive", {2},              false, true,  false, false, true,  true,  false, false},
        Outcome{"Mdb", {3},                    true,  false, true,  true,  false, false, false, true},
        Outcome{"ValidatoreThenMdb", {1, 3},   true,  false, true,  true,  false, false, false, true},
        Outcome{"ExecutiveThenMdb", {2, 3},    true,  false, true,  false, false, false, false, true},
        Outcome{"MdbThenValidatore", {3, 1},   false, true,  false, true,  false, false, true,  false},
        Outcome{"MdbThenExecutive", {3, 2},    false, true,  false, false, true,  true,  false, false},
        Outcome{"ExecutiveThenValid", {2, 1},  false, true,  false, true,  false, false, true,  false},
        Outcome{"ExecutiveMdbValid", {2, 3, 1}, false, true, false, true,  false, false, true,  false},
        Outcome{"MdbThenZero", {3, 0},         true,  false, true,  true,  false, false, false, true},
        Outcome{"ExecutiveThenFour", {2, 4},   false, true,  false, false, true,  true,  false, false}
        // clang-format on
        ),
    [](const auto& each) { return each.param.name; });

TEST_P(PagamentoOutcome, OpensAndClosesByTheTable) {
  const Outcome& expected = GetParam();
  OpenUnanswered();
  for (const std::uint32_t system : expected.systems) {
    program.link.SetBoardNumber(71, system);
    program.link.access.WatchParameter(71);
    program.Sweep(80);
  }
  EXPECT_EQ(IsEnabled("SSTab1"), expected.mdb_tabs);
  for (const char* name : {"LabelMess1(44)", "Text5(1)", "HScroll5(1)"}) {
    EXPECT_EQ(IsEnabled(name), expected.decimals) << name;
  }
  for (const char* name : {"LabelMess1(45)", "Text5(2)", "HScroll5(2)"}) {
    EXPECT_EQ(IsEnabled(name), expected.timeout) << name;
  }
  for (const char* name : {"LabelMess1(46)", "Text5(3)", "HScroll5(3)"}) {
    EXPECT_EQ(IsEnabled(name), expected.sale_mode) << name;
  }
  for (const char* name : {"LabelMess1(19)", "SwitchX2(1)"}) {
    EXPECT_EQ(IsEnabled(name), expected.price_holding) << name;
  }
  EXPECT_EQ(IsEnabled("LabelMess1(20)"), expected.change_label);
  EXPECT_THAT(OpenTabs("SSTab2"), ElementsAre(true, expected.notes_tab, expected.coins_tab));
}

TEST_P(PagamentoOutcome, LeavesWhatNoSystemTouches) {
  OpenUnanswered();
  for (const std::uint32_t system : GetParam().systems) {
    program.link.SetBoardNumber(71, system);
    program.link.access.WatchParameter(71);
    program.Sweep(80);
  }
  for (const char* name : {"SwitchX2(0)", "SwitchX2(2)", "LabelMess1(18)", "LabelMess1(43)",
                           "Text5(0)", "HScroll5(0)", "SlswitchX1", "SSTab2"}) {
    EXPECT_TRUE(IsEnabled(name)) << name;
  }
  EXPECT_THAT(OpenTabs("SSTab1"), ElementsAre(true, true, true));
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_EQ(Tabs("SSTab2").Front(), 0);
}

class PagamentoSystem : public PagamentoPage {
 protected:
  PagamentoSystem() : PagamentoPage(kValidatore) {}
};

TEST_F(PagamentoSystem, ClosingATabDoesntMoveTheOneInFront) {
  OpenOn("SSTab2", 2);
  BoardSays(71, 3);
  EXPECT_THAT(OpenTabs("SSTab2"), ElementsAre(true, true, false));
  EXPECT_EQ(Tabs("SSTab2").Front(), 2);
  EXPECT_TRUE(IsVisible("Text4(0)"));
  EXPECT_TRUE(IsEnabled("Text4(0)"));
  BoardSays(71, 2);
  EXPECT_EQ(Tabs("SSTab2").Front(), 2);
}

TEST_F(PagamentoSystem, TheUserReachesTheCoinsButNotTheBanknotesOfAValidatore) {
  Open();
  ClickTab("SSTab2", 1);
  EXPECT_EQ(Tabs("SSTab2").Front(), 0);
  ClickTab("SSTab2", 2);
  EXPECT_EQ(Tabs("SSTab2").Front(), 2);
  EXPECT_TRUE(IsVisible("HScroll4(0)"));
}

TEST_F(PagamentoSystem, TheUserReachesTheBanknotesButNotTheCoinsOfAnMdbSystem) {
  program.link.SetBoardNumber(71, 3);
  Open();
  ClickTab("SSTab2", 2);
  EXPECT_EQ(Tabs("SSTab2").Front(), 0);
  ClickTab("SSTab2", 1);
  EXPECT_TRUE(IsVisible("SwitchX3(0)"));
  ClickTab("SSTab1", 2);
  EXPECT_TRUE(IsVisible("Text3(0)"));
}

TEST_F(PagamentoSystem, TheUserReachesNoTabOfTheMdbSettingsOfAValidatore) {
  Open();
  ClickTab("SSTab1", 1);
  EXPECT_EQ(Tabs("SSTab1").Front(), 0);
  EXPECT_FALSE(IsEnabled("Text1(0)"));
  EXPECT_FALSE(IsEnabled("SwitchX1(0)"));
}

TEST_F(PagamentoSystem, TheSliderStandsAtTheSystemOfTheBoard) {
  Open();
  EXPECT_EQ(SystemPosition(), 0);
  BoardSays(71, 3);
  EXPECT_EQ(SystemPosition(), 2);
  BoardSays(71, 2);
  EXPECT_EQ(SystemPosition(), 1);
}

TEST_F(PagamentoSystem, UnknownSystemsLeaveTheSlider) {
  program.link.SetBoardNumber(71, 2);
  Open();
  for (const std::uint32_t system : {0, 4, 255}) {
    BoardSays(71, system);
    EXPECT_EQ(SystemPosition(), 1) << system;
  }
  Resize(71, {1, 1});  // 257
  AskAgain(71);
  EXPECT_EQ(SystemPosition(), 1);
  EXPECT_TRUE(IsEnabled("SwitchX2(1)"));
  EXPECT_THAT(program.reports, IsEmpty());
}

TEST_F(PagamentoSystem, ChoosingMdbWritesThreeAndThePageIsReshapedAtTheReply) {
  Open();
  PressFocused("SlswitchX1", Qt::Key_End);
  EXPECT_EQ(SystemPosition(), 2);
  EXPECT_FALSE(IsEnabled("SSTab1"));
  EXPECT_THAT(OpenTabs("SSTab2"), ElementsAre(true, false, true));
  ExpectPair(71, 365, 3);
  EXPECT_TRUE(IsEnabled("SSTab1"));
  EXPECT_THAT(OpenTabs("SSTab2"), ElementsAre(true, true, false));
}

TEST_F(PagamentoSystem, EachPositionOfTheSliderIsASystem) {
  Open();
  PressFocused("SlswitchX1", Qt::Key_Right);
  ExpectPair(71, 365, 2);
  program.link.wire.Forget();
  PressFocused("SlswitchX1", Qt::Key_Left);
  ExpectPair(71, 365, 1);
}

TEST_F(PagamentoSystem, AChoiceThatIsLostOnTheLineIsTakenBackByTheNextReply) {
  Open();
  PressFocused("SlswitchX1", Qt::Key_End);
  program.link.board.SpoilChecksum(5);
  program.Sweep(1);
  program.link.SetBoardNumber(71, 1);
  EXPECT_EQ(SystemPosition(), 2);
  program.Sweep(3);
  EXPECT_EQ(SystemPosition(), 0);
  EXPECT_FALSE(IsEnabled("SSTab1"));
}

TEST_F(PagamentoSystem, AFieldThatClosesWhileItIsBeingEditedLosesWhatWasTyped) {
  program.link.SetBoardNumber(71, 3);
  Open();
  TypeOnly("Text5(2)", "7");
  BoardSays(71, 1);
  EXPECT_FALSE(IsEnabled("Text5(2)"));
  EXPECT_EQ(Text("Text5(2)"), "12");
  EXPECT_EQ(FocusedFields(), 0);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoSystem, AFieldOnTabsThatCloseWhileItIsBeingEditedLosesWhatWasTyped) {
  program.link.SetBoardNumber(71, 3);
  Open();
  const QString shown = Text("Text1(0)");
  TypeOnly("Text1(0)", "7");
  BoardSays(71, 1);
  EXPECT_FALSE(IsEnabled("Text1(0)"));
  EXPECT_EQ(Text("Text1(0)"), shown);
  EXPECT_EQ(FocusedFields(), 0);
}

// What is open stays as it is.
TEST_F(PagamentoSystem, AFieldThatStaysOpenKeepsWhatIsBeingTyped) {
  program.link.SetBoardNumber(71, 3);
  Open();
  for (const char* field : {"Text5(2)", "Text1(0)"}) {
    TypeOnly(field, "7");
    BoardSays(71, 3);
    EXPECT_EQ(Text(field), "7");
  }
}

TEST_F(PagamentoSystem, RestoSubitoIsGreyWhileItsSwitchLivesAndWrites) {
  Open();
  EXPECT_FALSE(IsEnabled("LabelMess1(20)"));
  EXPECT_TRUE(IsEnabled("SwitchX2(2)"));
  ClickSeen("SwitchX2(2)");
  EXPECT_TRUE(IsOn("SwitchX2(2)"));
  ExpectPair(3, 355, 253);
  EXPECT_FALSE(IsEnabled("LabelMess1(20)"));
}

TEST_F(PagamentoSystem, RestoSubitoOfAnMdbSystemLivesToo) {
  program.link.SetBoardNumber(71, 3);
  Open();
  EXPECT_FALSE(IsEnabled("LabelMess1(20)"));
  ClickSeen("SwitchX2(2)");
  ExpectPair(3, 355, 253);
}

TEST_F(PagamentoSystem, TheGeneralFieldsLiveWhileTheMdbSettingsAreClosed) {
  program.link.SetBoardNumber(71, 2);
  Open();
  EXPECT_FALSE(IsEnabled("SSTab1"));
  ClickSeen("SwitchX2(1)");
  ExpectPair(3, 355, 191);
  program.link.wire.Forget();
  ClickSeen("SwitchX2(2)");
  ExpectPair(3, 355, 255);
  program.link.wire.Forget();
  Type("Text5(0)", "26");
  ExpectPair(84, 378, 26);
}

}  // namespace
}  // namespace sorvane::test
