#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "index_compiler/index_table.h"

namespace sorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<uint8_t> BytesOf(std::string_view text) {
  const ParsedTable parsed = ParseIndexTable(text);
  for (const TableError& error : parsed.errors) ADD_FAILURE() << error.line << ": " << error.words;
  return IndexFileBytes(parsed.table);
}

TEST(TableLanguage, SecondLevelRecordHasNineBytesWithTheAddressTurnedAroundAndSplit) {
  EXPECT_THAT(BytesOf("level 2\n1 | price | 01 12 34 | 2 | 0x23 | 300 | money\n"),
              ElementsAre(0x34, 0x12, 1, 0x23, 0x01, 44, 1, 0, 0));
}

TEST(TableLanguage, FirstLevelRecordHasFiveBytes) {
  EXPECT_THAT(BytesOf("level 1\n1 | revision | 01 12 34 | 1 | 9 |\n"),
              ElementsAre(0x34, 0x12, 0, 9, 0x01));
}

TEST(TableLanguage, NumberBehindASlashIsTheHighNibbleOfTheCommandByte) {
  EXPECT_THAT(BytesOf("level 1\n1 || 00 00 01 | 16/6 | 0 |\n2 || 00 00 02 | 15 / 7 | 0 |"),
              ElementsAre(1, 0, 0x6F, 0, 0, 2, 0, 0x7E, 0, 0));
}

TEST(TableLanguage, TextDefaultIsFilledWithBlanksToFourBytes) {
  EXPECT_THAT(BytesOf("level 2\n1 || 00 00 01 | 16 | 0 | \"IT\" |"),
              ElementsAre(1, 0, 15, 0, 0, 'I', 'T', ' ', ' '));
}

TEST(TableLanguage, GreatestDefaultOfEachSizeFits) {
  EXPECT_THAT(BytesOf("level 2\n"
                      "1 || 00 00 01 | 1 | 0 | 255 |\n"
                      "2 || 00 00 02 | 2 | 0 | 65535 |\n"
                      "3 || 00 00 03 | 3 | 0 | 0xFFFFFF |\n"
                      "4 || 00 00 04 | 4 | 0 | 4294967295 |\n"),
              ElementsAre(1, 0, 0, 0, 0, 255, 0, 0, 0,      //
                          2, 0, 1, 0, 0, 255, 255, 0, 0,    //
                          3, 0, 2, 0, 0, 255, 255, 255, 0,  //
                          4, 0, 3, 0, 0, 255, 255, 255, 255));
}

TEST(TableLanguage, CommentsBlankLinesAndForeignLineEndsAreNoContent) {
  EXPECT_THAT(BytesOf("# a comment | with bars\r\n\r\n  \t\r\nlevel 1\r\n"
                      "   # another\r\n\t1 | a | 00 00 05 | 1 | 0 | note # 1\r\n"),
              ElementsAre(5, 0, 0, 0, 0));
}

TEST(TableLanguage, NamesAndRemarksAreKeptForPeople) {
  const ParsedTable parsed = ParseIndexTable("level 1\n1 | a name | 00 00 05 | 1 | 0 | a remark\n");
  ASSERT_THAT(parsed.table.rows, SizeIs(1));
  EXPECT_EQ(parsed.table.rows[0].name, "a name");
  EXPECT_EQ(parsed.table.rows[0].remark, "a remark");
}

TEST(TableLanguage, TableWithoutRecordsIsAnEmptyIndexFile) {
  EXPECT_THAT(BytesOf("level 2\n"), IsEmpty());
}

TEST(TableLanguage, WrittenTableHasColumnsBelowEachOther) {
  IndexTable table{2, {}};
  table.rows.push_back({"decimals", {0x34, 0x12, 0, 0x04, 0x01, {2, 0, 0, 0}}, "0 to 4"});
  table.rows.push_back({"", {0x40, 0xAB, 0x1F, 0, 0, {'I', 'T', 'A', ' '}}, ""});
  EXPECT_EQ(FormatIndexTable(table),
            "level 2\n"
            "# number | name     | address  | size | divider | default | remark\n"
            "1        | decimals | 01 12 34 | 1    | 0x04    | 2       | 0 to 4\n"
            "2        |          | 00 AB 40 | 16/1 | 0       | \"ITA \"  |\n");
}

TEST(TableLanguage, DefaultOfALongValueThatIsNoPlainTextIsWrittenAsANumber) {
  const auto default_column = [](std::array<uint8_t, 4> bytes) {
    const std::string text = FormatIndexTable({2, {{"", {1, 0, 15, 0, 0, bytes}, ""}}});
    const std::size_t row = text.find("\n1 ");
    const std::size_t end = text.rfind(" |");
    const std::size_t start = text.rfind("| ", end - 1) + 2;
    EXPECT_LT(row, start);
    return text.substr(start, text.find_last_not_of(' ', end - 1) + 1 - start);
  };
  EXPECT_EQ(default_column({'a', '|', 0, 0}), "31841");
  EXPECT_EQ(default_column({'"', ' ', ' ', ' '}), "538976290");
  EXPECT_EQ(default_column({0xE9, ' ', ' ', ' '}), "538976489");
  EXPECT_EQ(default_column({'|', '|', '|', '|'}), "2088533116");
}

}  // namespace
}  // namespace sorvane
