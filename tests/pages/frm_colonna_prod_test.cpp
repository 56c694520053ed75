#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What the page of columns and products has to itself, over a machine with ten selections and bit 5
// of its options set. Column i + 1 holds product 20 + i.
class ColonnaProd : public PageTest {
 protected:
  ColonnaProd() : PageTest("FrmColonnaProd", "MnuColonne", kPoint) {
    SetNumbers(2, {10, 32});
    SetNumbers(108, {20, 21, 22, 23, 24, 25, 26, 27, 28, 29});
  }

  void ExpectRowsOpen(int count) {
    ExpectFirstRowsOpen(count, {"LabelMess1", "Text1", "HScroll1"});
  }
  void ExpectHeadingsOpen(bool open) {
    EXPECT_EQ(IsEnabled("Label1(0)"), open);
    EXPECT_EQ(IsEnabled("Label1(1)"), open);
  }
};

TEST_F(ColonnaProd, TheHeadingsComeFromTheMessages) {
  OpenUnanswered();
  EXPECT_EQ(Caption("Label1(0)"), "Alfa 43");
  EXPECT_EQ(Caption("Label1(1)"), "Alfa 43");
}

TEST_F(ColonnaProd, AnotherLanguageBringsItsHeadings) {
  Open();
  program.Choose("smnuLingue(1)");
  EXPECT_EQ(Caption("Label1(0)"), "Bravo 43");
  EXPECT_EQ(Caption("Label1(1)"), "Bravo 43");
}

TEST_F(ColonnaProd, TheHeadingsAreOpenUntilRepliesCome) {
  OpenUnanswered();
  ExpectHeadingsOpen(true);
}

TEST_F(ColonnaProd, ATextForTheOptionsEndsTheProgram) {
  MakeText(3);
  Open();
  ExpectReport(kTypeMismatch);
}

// What opens and closes.

TEST_F(ColonnaProd, TheBitOpensAllRowsWhateverTheSelectionsSay) {
  program.link.SetBoardNumber(2, 3);
  OpenUnanswered();
  program.Sweep(1);  // the selections
  ExpectRowsOpen(3);
  program.Sweep(1);  // the options
  ExpectRowsOpen(10);
  ExpectHeadingsOpen(true);
}

TEST_F(ColonnaProd, WithoutTheBitAllRowsEndUpClosedIfTheSelectionsComeFirst) {
  program.link.SetBoardNumber(2, 3);
  program.link.SetBoardNumber(3, 223);  // all bits but the fifth
  Open();
  ExpectRowsOpen(0);
  ExpectHeadingsOpen(false);
}

TEST_F(ColonnaProd, WithoutTheBitTheFirstRowsEndUpOpenIfTheSelectionsComeLast) {
  program.link.SetBoardNumber(2, 3);
  program.link.SetBoardNumber(3, 0);
  OpenUnanswered();
  program.link.board.SpoilChecksum(5);  // the exchange of parameter 2 fails
  program.Sweep(12);
  ExpectRowsOpen(0);
  program.Sweep(2);
  ExpectRowsOpen(3);
  ExpectHeadingsOpen(false);
}

TEST_F(ColonnaProd, TheSelectionsLeaveTheHeadingsOpen) {
  Open();
  BoardSays(2, 0);
  ExpectRowsOpen(0);
  ExpectHeadingsOpen(true);
}

TEST_F(ColonnaProd, TheBitOpensWhatItsAbsenceClosed) {
  program.link.SetBoardNumber(3, 0);
  Open();
  BoardSays(3, 255);
  ExpectRowsOpen(10);
  ExpectHeadingsOpen(true);
}

TEST_F(ColonnaProd, ARowThatTheMissingBitClosesWhileItIsBeingEditedLosesWhatWasTyped) {
  Open();
  TypeOnly("Text1(7)", "9");
  BoardSays(3, 0);
  EXPECT_EQ(Text("Text1(7)"), "27");
}

// What is open stays as it is.
TEST_F(ColonnaProd, TheBitLeavesWhatIsBeingTypedInAnOpenRow) {
  Open();
  TypeOnly("Text1(7)", "9");
  BoardSays(3, 32);
  EXPECT_EQ(Text("Text1(7)"), "9");
}

// The second place that a product is written to.

TEST_F(ColonnaProd, TheFirstRowWritesOneParameterOnly) {
  Open();
  Type("Text1(0)", "50");
  EXPECT_THAT(Pending(), ElementsAre(108));
  EXPECT_EQ(program.link.Value(108), Bytes{50});
  ExpectSent({WriteFrame(108, 50)});
  PressFocused("HScroll1(0)", Qt::Key_Right);
  EXPECT_THAT(Pending(), ElementsAre(108));
  ExpectSent({WriteFrame(108, 51)});
}

TEST_F(ColonnaProd, EachFurtherRowWritesTheParameterOfItsOwnIndexToo) {
  Open();
  for (const int i : {1, 4, 5, 6, 7, 8}) {
    PressFocused(Indexed("HScroll1", i), Qt::Key_Right);
    EXPECT_THAT(Pending(), ElementsAre(i, 108 + i));
    const auto value = static_cast<std::uint32_t>(21 + i);
    ExpectSent({WriteFrame(i, value), WriteFrame(108 + i, value)});
  }
}

TEST_F(ColonnaProd, TheLastRowWritesTheMachineNumberToo) {
  Open();
  Type("Text1(9)", "77");
  EXPECT_THAT(Pending(), ElementsAre(9, 117));
  ExpectSent({WriteFrame(9, 77, 3), WriteFrame(117, 77)});
}

TEST_F(ColonnaProd, TheProductOfTheThirdColumnBecomesTheNumberOfSelections) {
  Open();
  program.Open("Mnutasti");
  program.Open("MnuSconti");
  program.link.wire.Forget();
  program.Choose("MnuColonne");
  Type("Text1(2)", "4");
  EXPECT_THAT(Pending(), ElementsAre(2, 110));
  EXPECT_EQ(program.link.Value(2), Bytes{4});
  ExpectRowsOpen(10);
  ExpectSent({WriteFrame(2, 4), WriteFrame(110, 4)});
  ExpectRowsOpen(4);
  EXPECT_TRUE(program.Find("FrmTastiColonna", "Text1(3)").isEnabled());
  EXPECT_FALSE(program.Find("FrmTastiColonna", "Text1(4)").isEnabled());
  EXPECT_TRUE(program.Find("FrmSconti", "Text1(3)").isEnabled());
  EXPECT_FALSE(program.Find("FrmSconti", "Text1(4)").isEnabled());
}

TEST_F(ColonnaProd, AProductOfTheThirdColumnAboveTheRowsEndsTheProgram) {
  Open();
  Type("Text1(2)", "50");
  EXPECT_THAT(program.reports, IsEmpty());
  program.Sweep(3);
  ExpectReport(kNoSuchElement);
}

TEST_F(ColonnaProd, TheProductOfTheFourthColumnBecomesTheOptions) {
  Open();
  Type("Text1(3)", "64");
  ExpectSent({WriteFrame(3, 64), WriteFrame(111, 64)});
  ExpectRowsOpen(0);
  ExpectHeadingsOpen(false);
  EXPECT_EQ(Text("Text1(3)"), "64");
}

}  // namespace
}  // namespace sorvane::test
