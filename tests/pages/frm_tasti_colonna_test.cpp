#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

// What the page of keys and columns has to itself. Key i + 1 vends from column 10 - i.
class TastiColonna : public PageTest {
 protected:
  TastiColonna() : PageTest("FrmTastiColonna", "Mnutasti", kPoint) {
    program.link.SetBoardNumber(2, 10);
    SetNumbers(98, {10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  }
};

TEST_F(TastiColonna, TheCopiesAreNotShown) {
  Open();
  BoardSays(401, 5);
  EXPECT_EQ(Text("Text1(0)"), "10");
}

TEST_F(TastiColonna, OnlyAsManyRowsOpenAsThereAreSelections) {
  program.link.SetBoardNumber(2, 4);
  Open();
  ExpectFirstRowsOpen(4, {"LabelMess1", "Text1", "HScroll1"});
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(program.Find("FrmTastiColonna", Indexed("LabelMess1", i)).isVisible()) << i;
  }
}

TEST_F(TastiColonna, TheOptionsCloseNothing) {
  program.link.SetBoardNumber(3, 0);
  Open();
  BoardSays(3, 0);
  ExpectFirstRowsOpen(10, {"LabelMess1", "Text1", "HScroll1"});
}

TEST_F(TastiColonna, EachKeyGoesToItsParameterAndTheCopy) {
  Open();
  for (int i = 0; i < 10; ++i) {
    const int column = i == 5 ? 6 : 5;  // key 6 has column 5 already
    Type(Indexed("Text1", i), QString::number(column));
    const auto value = static_cast<std::uint32_t>(column);
    ExpectSent({WriteFrame(98 + i, value), WriteFrame(401 + i, value)});
  }
}

}  // namespace
}  // namespace sorvane::test
