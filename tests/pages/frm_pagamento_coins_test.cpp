#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bitset>

#include "pages/pagamento_page.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PagamentoCoins : public PagamentoPage {
 protected:
  PagamentoCoins() : PagamentoPage(kValidatore) {}
};

class PagamentoBanknotes : public PagamentoPage {
 protected:
  PagamentoBanknotes() : PagamentoPage(kMdb) {}

  void OpenNotes() {
    Open();
    ClickTab("SSTab2", 1);
  }
  // The switches that are on, switch 15 first.
  std::string Notes() {
    std::bitset<16> on;
    for (std::size_t k = 0; k < 16; ++k) {
      on[k] = IsOn(Indexed("SwitchX3", static_cast<int>(k)));
    }
    return on.to_string();
  }
};

TEST_F(PagamentoCoins, ShowTheirSixValuesWithTheDecimals) {
  Open();
  EXPECT_THAT(Texts("Text4", 6), ElementsAre("0.05", "0.10", "0.20", "0.50", "1.00", "2.00"));
  EXPECT_THAT(Positions("HScroll4", 6),
              ElementsAre(-32763, -32758, -32748, -32718, -32668, -32568));
}

TEST_F(PagamentoCoins, OneHundredAndFiftyIsOneAndAHalfOrFifteenByTheDecimals) {
  Open();
  BoardSays(92, 150);
  EXPECT_EQ(Text("Text4(2)"), "1.50");
  BoardSays(22, 1);
  EXPECT_EQ(Text("Text4(2)"), "15.0");
  EXPECT_EQ(Position("HScroll4(2)"), -32618);
}

TEST_F(PagamentoCoins, SpanSixteenBitsInStepsOfOneAndAHundred) {
  OpenOn("SSTab2", 2);
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(Minimum(Indexed("HScroll4", i)), -32768);
    EXPECT_EQ(Maximum(Indexed("HScroll4", i)), 32767);
    PressFocused(Indexed("HScroll4", i), Qt::Key_PageDown);
  }
  EXPECT_THAT(Positions("HScroll4", 6),
              ElementsAre(-32663, -32658, -32648, -32618, -32568, -32468));
}

TEST_F(PagamentoCoins, EachStepOfABarIsAWriteToItsParameterAndItsMirror) {
  Open();
  ClickTab("SSTab2", 2);
  PressFocused("HScroll4(5)", Qt::Key_Right);
  ExpectPair(95, 388, 201);
  program.link.wire.Forget();
  Press("HScroll4(5)", Qt::Key_Right);
  ExpectPair(95, 388, 202);
}

TEST_F(PagamentoCoins, AllSixBarsHavePairsOfTheirOwn) {
  OpenOn("SSTab2", 2);
  const std::uint32_t values[] = {6, 11, 21, 51, 101, 201};
  for (int i = 0; i < 6; ++i) {
    program.link.wire.Forget();
    PressFocused(Indexed("HScroll4", i), Qt::Key_Right);
    ExpectPair(90 + i, 383 + i, values[i]);
  }
}

TEST_F(PagamentoCoins, TheEndsOfABarAreZeroAndTheHighestValue) {
  OpenOn("SSTab2", 2);
  PressFocused("HScroll4(0)", Qt::Key_End);
  ExpectPair(90, 383, 65535);
  EXPECT_EQ(Text("Text4(0)"), "655.35");
  program.link.wire.Forget();
  Press("HScroll4(0)", Qt::Key_Home);
  ExpectPair(90, 383, 0);
  EXPECT_EQ(Text("Text4(0)"), "0.00");
}

TEST_F(PagamentoCoins, TheTextFollowsItsBarOnlyWithTheReply) {
  OpenOn("SSTab2", 2);
  PressFocused("HScroll4(1)", Qt::Key_Right);
  EXPECT_EQ(Text("Text4(1)"), "0.10");
  program.Sweep(2);
  EXPECT_EQ(Text("Text4(1)"), "0.11");
}

TEST_F(PagamentoCoins, EnterInACoinFieldDoesNothing) {
  OpenOn("SSTab2", 2);
  Replace("Text4(0)", "7");
  EXPECT_EQ(Text("Text4(0)"), "7");
  Replace("Text4(0)", "abc");
  EXPECT_EQ(Text("Text4(0)"), "abc");
  EXPECT_TRUE(IsWhite("Text4(0)"));
  EXPECT_TRUE(WasSilent());
  EXPECT_EQ(Position("HScroll4(0)"), -32763);
  EXPECT_THAT(Pending(), IsEmpty());
}

TEST_F(PagamentoCoins, TheFocusNeitherEmptiesACoinFieldNorTakesBackWhatWasTyped) {
  OpenOn("SSTab2", 2);
  TypeOnly("Text4(0)", "");
  EXPECT_EQ(Text("Text4(0)"), "0.05");
  ReplaceOnly("Text4(0)", "xyz");
  TypeOnly("Text4(1)", "");
  EXPECT_EQ(Text("Text4(0)"), "xyz");
}

TEST_F(PagamentoCoins, WhatIsTypedInACoinFieldStandsUntilItsNextReply) {
  OpenOn("SSTab2", 2);
  ReplaceOnly("Text4(0)", "9");
  BoardSays(91, 11);
  EXPECT_EQ(Text("Text4(0)"), "9");
  BoardSays(90, 5);
  EXPECT_EQ(Text("Text4(0)"), "0.05");
}

TEST_F(PagamentoCoins, NewDecimalsOverwriteWhatWasTypedInACoinField) {
  OpenOn("SSTab2", 2);
  ReplaceOnly("Text4(5)", "9");
  BoardSays(22, 0);
  EXPECT_EQ(Text("Text4(5)"), "200");
}

TEST_F(PagamentoBanknotes, SwitchesStandByTheBitsOfTwoBytes) {
  Open();
  EXPECT_EQ(Notes(), "1000000000000101");
  BoardSays(88, 170);
  EXPECT_EQ(Notes(), "1000000010101010");
  BoardSays(89, 3);
  EXPECT_EQ(Notes(), "0000001110101010");
}

TEST_F(PagamentoBanknotes, ASwitchWritesItsByteAloneWithItsBitChanged) {
  OpenNotes();
  ClickSeen("SwitchX3(9)");
  ExpectPair(89, 382, 130);
  EXPECT_EQ(Notes(), "1000001000000101");
}

TEST_F(PagamentoBanknotes, TheFirstEightSwitchesBelongToTheFirstByte) {
  OpenNotes();
  ClickSeen("SwitchX3(7)");
  ExpectPair(88, 381, 133);
  program.link.wire.Forget();
  ClickSeen("SwitchX3(0)");
  ExpectPair(88, 381, 132);
}

TEST_F(PagamentoBanknotes, TheLastSwitchIsTheHighestBitOfTheSecondByte) {
  OpenNotes();
  ClickSeen("SwitchX3(15)");
  ExpectPair(89, 382, 0);
}

TEST_F(PagamentoBanknotes, EachSwitchHasItsBit) {
  program.link.SetBoardNumber(88, 0);
  program.link.SetBoardNumber(89, 0);
  OpenNotes();
  const int masks[] = {1, 2, 4, 8, 16, 32, 64, 128};
  for (int k = 0; k < 16; ++k) {
    ClickSeen(Indexed("SwitchX3", k));
    EXPECT_EQ(Byte(k < 8 ? 88 : 89), masks[k % 8]) << k;
    EXPECT_EQ(Byte(k < 8 ? 381 : 382), masks[k % 8]) << k;
    ClickSeen(Indexed("SwitchX3", k));
    EXPECT_EQ(Byte(k < 8 ? 88 : 89), 0) << k;
  }
}

TEST_F(PagamentoBanknotes, SwitchesTurnedBeforeTheReplyAddUp) {
  OpenNotes();
  ClickSeen("SwitchX3(1)");
  ClickSeen("SwitchX3(3)");
  ExpectPair(88, 381, 15);
}

TEST_F(PagamentoBanknotes, ASwitchTurnedBeforeAnyReplyWritesItsBitAlone) {
  OpenUnanswered();
  Tabs("SSTab2").SetFront(1);
  ClickSeen("SwitchX3(10)");
  EXPECT_THAT(Pending(), ElementsAre(89, 382));
  EXPECT_EQ(Byte(89), 4);
  EXPECT_EQ(Byte(382), 4);
}

TEST_F(PagamentoBanknotes, AReplyReachesTheSwitchesOfAClosedTab) {
  program.link.SetBoardNumber(71, 1);
  Open();
  EXPECT_FALSE(Tabs("SSTab2").IsTabOpen(1));
  BoardSays(88, 240);
  EXPECT_EQ(Notes(), "1000000011110000");
  EXPECT_THAT(Pending(), IsEmpty());
}

}  // namespace
}  // namespace sorvane::test
