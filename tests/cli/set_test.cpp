#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct Setting : testing::Test, Workshop {};

TEST_F(Setting, AnAmountIsScaledByTheDecimalsAndGoesToBothPlaces) {
  EXPECT_EQ(Type({"set", "price.3=1.50", "--yes"}), 0);
  EXPECT_EQ(Board("price.3"), 150U);
  EXPECT_EQ(BoardAt(393), 150U);
  EXPECT_EQ(out, "price.3: 0.00 -> 1.50\nconfirmed price.3\n");
}

TEST_F(Setting, AmountsTakeBothMarksAndShowTheOneThatIsAskedFor) {
  EXPECT_EQ(Type({"set", "price.3=1,5", "--yes", "--comma"}), 0);
  EXPECT_EQ(out, "price.3: 0,00 -> 1,50\nconfirmed price.3\n");
}

TEST_F(Setting, ABitIsChangedWithinItsByteAndTheByteWrittenWhole) {
  SetBoard("options", 0xC2);
  EXPECT_EQ(Type({"set", "option.free-vend=on", "option.immediate-change=off", "-y"}), 0);
  EXPECT_EQ(Board("options"), 0x83U);
  EXPECT_EQ(BoardAt(355), 0x83U);
  EXPECT_EQ(out, "options: 194 -> 131\nconfirmed options\n");
}

TEST_F(Setting, AProductIsWrittenToItsOwnPlaceAlone) {
  SetBoard("product.3", 1);
  EXPECT_EQ(Type({"set", "product.3=9", "-y"}), 0);
  EXPECT_EQ(Board("product.3"), 9U);
  EXPECT_EQ(Board("selections"), 10U);
}

TEST_F(Setting, TheDecimalsGoFirstAndToTheirSecondCopy) {
  EXPECT_EQ(Type({"set", "language=3", "decimals=1", "-y"}), 0);
  EXPECT_EQ(out, "decimals: 2 -> 1\nlanguage: 0 -> 3\nconfirmed decimals\nconfirmed language\n");
  EXPECT_EQ(BoardAt(22), 1U);
}

TEST_F(Setting, AValueThatStandsIsNotWritten) {
  EXPECT_EQ(Type({"set", "selections=10", "-y"}), 0);
  EXPECT_EQ(board.Writes(), 2) << "the second copy holds another value";
  EXPECT_EQ(out, "selections: 10 -> 10 (second copy)\nconfirmed selections\n");
  EXPECT_EQ(Type({"set", "selections=10", "-y"}), 0);
  EXPECT_THAT(out, IsEmpty());
  EXPECT_EQ(err, "nothing differs\n");
  EXPECT_THAT(Type({"undo", "-y"}), 0) << "a write without a difference has kept no copy";
}

TEST_F(Setting, ValuesOutsideTheRangeAreRefusedBeforeAnythingIsWritten) {
  for (const char* wrong :
       {"price.3=655.36", "price.3=-1", "price.3=1.505", "price.3=", "price.3=x", "price.3=.5",
        "price.3=1.", "selections=4", "selections=11", "motor.timeout=4.9", "machine.number=0",
        "language=99999999999999", "option.free-vend=maybe", "options=256"}) {
    EXPECT_EQ(Type({"set", "language=3", wrong, "-y"}), 2) << wrong;
    EXPECT_THAT(err, HasSubstr("sorvane-cli: ")) << wrong;
  }
  EXPECT_EQ(board.Writes(), 0);
}

TEST_F(Setting, TenthsAreTypedAsSeconds) {
  EXPECT_EQ(Type({"set", "motor.timeout=12.5", "-y"}), 0);
  EXPECT_EQ(Board("motor.timeout"), 125U);
}

TEST_F(Setting, NamesAreLookedUpBeforeTheBoardIsAsked) {
  EXPECT_EQ(Type({"set", "price.11=1", "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("nothing is called price.11; there are price.1, price.2"));
  EXPECT_EQ(frames, 0);
}

TEST_F(Setting, WhatTheMachineRecordsIsNotWritten) {
  EXPECT_EQ(Type({"set", "vends.total=0", "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("vends.total is read only"));
}

TEST_F(Setting, AParameterIsGivenOnce) {
  EXPECT_EQ(Type({"set", "price.1=1", "price.1=2", "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("price.1 is given twice"));
  EXPECT_EQ(Type({"set", "price.1", "-y"}), 2);
  EXPECT_THAT(err, HasSubstr("price.1 lacks =VALUE"));
}

TEST_F(Setting, WithoutAPersonAndWithoutYesNothingIsWritten) {
  EXPECT_EQ(Type({"set", "price.3=1.50"}), 2);
  EXPECT_EQ(board.Writes(), 0);
  EXPECT_THAT(err, HasSubstr("nothing is written"));
}

TEST_F(Setting, APersonIsAskedAndMayRefuse) {
  Answer("n\n");
  EXPECT_EQ(Type({"set", "price.3=1.50"}), 2);
  EXPECT_THAT(err, HasSubstr("1 value is written. Go on? [y/N] "));
  EXPECT_EQ(board.Writes(), 0);
  Answer("y\n");
  EXPECT_EQ(Type({"set", "price.3=1.50", "price.4=2"}), 0);
  EXPECT_THAT(err, HasSubstr("2 values are written. Go on? [y/N] "));
  EXPECT_EQ(Board("price.3"), 150U);
}

TEST_F(Setting, ADryRunShowsThePlanAndWritesNothing) {
  EXPECT_EQ(Type({"-n", "set", "price.3=1.50"}), 1);
  EXPECT_EQ(out, "price.3: 0.00 -> 1.50\n");
  EXPECT_EQ(board.Writes(), 0);
  EXPECT_EQ(Type({"-n", "set", "price.4=0"}), 0);
}

TEST_F(Setting, ACopyIsKeptBeforeTheFirstWrite) {
  on_frame = [this](int, const Bytes& frame) {
    if (frame.front() < 128) return;
    EXPECT_TRUE(std::filesystem::exists(data.Path() / "copies/7/000001.json"));
  };
  EXPECT_EQ(Type({"set", "price.3=1.50", "-y"}), 0);
  EXPECT_THAT(err, HasSubstr("a copy is kept as "));
}

TEST_F(Setting, WhereNoCopyCanBeKeptNothingIsWritten) {
  data.WriteFile("copies", {});
  EXPECT_EQ(Type({"set", "price.3=1.50", "-y"}), 2);
  EXPECT_EQ(board.Writes(), 0);
}

TEST_F(Setting, AWriteThatTheBoardDoesNotTakeIsNamedWithBothValues) {
  on_frame = [this](int, const Bytes& frame) {
    if (frame.front() >= 128) board.StaySilent(1);
  };
  EXPECT_EQ(Type({"set", "price.3=1.50", "price.4=2.00", "-y"}), 5);
  EXPECT_THAT(out, HasSubstr("unsure price.3: wrote 1.50, the board holds 0.00\nunsent price.4\n"));
}

TEST_F(Setting, ASecondCopyThatIsNotTakenIsNamedAndTheRestGoesOn) {
  on_frame = [this](int, const Bytes& frame) {
    if (frame[0] == 129 && frame[2] == 1 && frame[3] == 393 - 256) board.StaySilent(1);
  };
  EXPECT_EQ(Type({"set", "price.3=1.50", "price.4=2.00", "-y"}), 5);
  EXPECT_THAT(out, HasSubstr("confirmed price.4\nunsure price.3: its second copy wasn't taken\n"));
  on_frame = nullptr;
  EXPECT_EQ(Type({"set", "price.3=1.50", "price.4=2.00", "-y"}), 0);
  EXPECT_EQ(out, "price.3: 1.50 -> 1.50 (second copy)\nconfirmed price.3\n");
}

TEST_F(Setting, APulledCableEndsTheWriting) {
  int writes = 0;
  on_frame = [&](int, const Bytes& frame) {
    if (frame.front() >= 128 && ++writes == 4) wire.Vanish();
  };
  EXPECT_EQ(Type({"set", "price.1=1", "price.2=1", "price.3=1", "-y"}), 5);
  EXPECT_THAT(out, HasSubstr("confirmed price.1\n"));
  EXPECT_THAT(out, HasSubstr("unsure price.2: the board doesn't answer\n"));
  EXPECT_THAT(out, HasSubstr("unsent price.3\n"));
}

TEST_F(Setting, AnInterruptedRunEndsTheRunningWriteAndTellsTheRest) {
  int writes = 0;
  on_frame = [&](int, const Bytes& frame) { writes += frame.front() >= 128 ? 1 : 0; };
  interrupted = [&] { return writes > 0; };
  EXPECT_EQ(Type({"set", "price.1=1", "price.2=1", "-y"}), 130);
  EXPECT_EQ(BoardAt(391), 100U) << "the second copy is written, too";
  EXPECT_THAT(out, HasSubstr("confirmed price.1\nunsent price.2\n"));
}

TEST_F(Setting, TheOutcomeIsOneJsonObjectOnRequest) {
  EXPECT_EQ(Type({"--json", "set", "price.3=1.50", "-y"}), 0);
  EXPECT_EQ(
      out,
      "{\"plan\": [\n  \"price.3\"\n], \"left-behind\": [\n], \"confirmed\": [\n  \"price.3\"\n], "
      "\"unsure\": [\n], \"unsent\": [\n]}\n");
}

TEST_F(Setting, APersonSeesThePlanWhereverTheResultGoes) {
  const std::string asked = "price.3: 0.00 -> 1.50\n1 value is written. Go on? [y/N] ";
  Answer("n");
  EXPECT_EQ(Type({"--json", "set", "price.3=1.50"}), 2);
  EXPECT_THAT(err, StartsWith(asked));
  EXPECT_EQ(Type({"-o", File("plan.txt"), "set", "price.3=1.50"}), 2);
  EXPECT_THAT(err, StartsWith(asked));
  EXPECT_EQ(Type({"set", "price.3=1.50"}), 2);
  EXPECT_EQ(out, "price.3: 0.00 -> 1.50\n");
  EXPECT_THAT(err, StartsWith("1 value is written."));
}

TEST_F(Setting, EachWriteMovesTheBar) {
  watched = true;
  EXPECT_EQ(Type({"set", "price.3=1.50", "price.4=2", "-y"}), 0);
  EXPECT_THAT(err, HasSubstr("\rwriting [###############               ] 1/2"));
  EXPECT_THAT(err, HasSubstr("\rwriting [##############################] 2/2"));
}

TEST_F(Setting, AReportThatFindsNoRoomStandsAmongTheErrors) {
  room = 30;
  EXPECT_EQ(Type({"set", "price.3=1.50", "-y"}), 2);
  EXPECT_EQ(Board("price.3"), 150U);
  EXPECT_THAT(err, HasSubstr("the standard output can't be written\nconfirmed price.3\n"));
  room = 0;
  EXPECT_EQ(Type({"--json", "set", "price.3=1.75", "-y"}), 2);
  EXPECT_EQ(Board("price.3"), 175U);
  EXPECT_THAT(err, HasSubstr("the standard output can't be written\nconfirmed price.3\n"));
}

TEST_F(Setting, AnUnsureWriteEndsAsOneWhereItsReportFindsNoRoom) {
  room = 30;
  on_frame = [this](int, const Bytes& frame) {
    if (frame.front() >= 128) wire.Vanish();
  };
  EXPECT_EQ(Type({"set", "price.3=1.50", "-y"}), 5);
  EXPECT_THAT(err, HasSubstr("unsure price.3: the board doesn't answer\n"));
}

TEST_F(Setting, DigitsOfThePasswordStayHidden) {
  EXPECT_EQ(Type({"set", "password.1=4", "-y"}), 0);
  EXPECT_EQ(Board("password.1"), 4U);
  EXPECT_EQ(out, "password.1: * -> *\nconfirmed password.1\n");
  EXPECT_THAT(err, HasSubstr("without the password, which undo won't bring back"));
}

TEST_F(Setting, TheClockGetsTheTimeOfTheComputer) {
  SetBoard("clock.day", 1);
  SetBoard("clock.month", 1);
  EXPECT_EQ(Type({"clock", "set", "-y"}), 0);
  EXPECT_EQ(Board("clock.hours"), 14U);
  EXPECT_EQ(Board("clock.minutes"), 30U);
  EXPECT_EQ(Board("clock.day"), 22U);
  EXPECT_EQ(Board("clock.month"), 11U);
  EXPECT_EQ(Board("clock.year"), 26U);
  EXPECT_THAT(out, Not(HasSubstr("unsure")));
}

}  // namespace
}  // namespace sorvane::test
