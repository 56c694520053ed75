#include "index_compiler/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace sorvane {
namespace {

using std::filesystem::path;
using testing::ElementsAre;

std::string Read(const path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

class Commands : public testing::Test {
 protected:
  Commands() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }

  path Write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  // A file name of the test's own folder as it stands in front of an error.
  std::string Name(const std::string& name) { return (folder_ / name).string(); }

  const path folder_ =
      path(SCRATCH_FOLDER) / testing::UnitTest::GetInstance()->current_test_info()->name();
  std::ostringstream errors_;
};

struct Sample {
  path table;
  path index_file;  // built from the table
  int level;
};

const Sample kSamples[] = {
    {path(SAMPLE_TABLES) / "W0309.txt", path(PROGRAM_FOLDER) / "W0309.inx", 1},
    {path(SAMPLE_TABLES) / "W0309AA00.txt", path(PROGRAM_FOLDER) / "W0309AA00.inx", 2},
    {path(SAMPLE_TABLES) / "W0309AA07.txt", path(PROGRAM_FOLDER) / "W0309AA07.inx", 2},
    {path(TEST_TABLES) / "W0309AA99.txt", path(TEST_INDEX_FILES) / "W0309AA99.inx", 2}};

TEST_F(Commands, DecompiledIndexFileCompilesToTheSameBytes) {
  for (const Sample& sample : kSamples) {
    const path table = folder_ / "table.txt";
    const path again = folder_ / "again.inx";
    EXPECT_EQ(DecompileIndex(sample.index_file, sample.level, {}, table, errors_), 0);
    EXPECT_EQ(CompileTable(table, again, errors_), 0);
    EXPECT_FALSE(Read(again).empty());
    EXPECT_EQ(Read(again), Read(sample.index_file)) << sample.table;
  }
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(Commands, IndexFilesOfTheBuildAreThoseOfTheirTables) {
  for (const Sample& sample : kSamples) {
    const path compiled = folder_ / "compiled.inx";
    EXPECT_EQ(CompileTable(sample.table, compiled, errors_), 0);
    EXPECT_EQ(Read(compiled), Read(sample.index_file)) << sample.table;
  }
}

TEST_F(Commands, CompiledBytesAreTheWholeFile) {
  const path table = Write("t.txt", "level 2\n1 | price | 01 12 34 | 2 | 4 | 300 |\n");
  EXPECT_EQ(CompileTable(table, folder_ / "t.inx", errors_), 0);
  EXPECT_THAT(Read(folder_ / "t.inx"), ElementsAre(0x34, 0x12, 1, 4, 1, 44, 1, 0, 0));
}

TEST_F(Commands, TableWithAnErrorLeavesTheIndexFileAlone) {
  const path table = Write("t.txt", "level 1\n\n1 || 00 00 01 | 17 | 0 |\n3 || 00 00 02 | 1 | 0 |");
  const path index_file = Write("t.inx", "old");
  EXPECT_EQ(CompileTable(table, index_file, errors_), 1);
  EXPECT_EQ(Read(index_file), "old");
  EXPECT_EQ(errors_.str(), Name("t.txt") + ":3: size \"17\" is not a number of bytes, 1 to 16\n" +
                               Name("t.txt") +
                               ":4: number 3 where 2 was expected: records are numbered from 1 "
                               "without a gap\n");
}

TEST_F(Commands, CheckTellsTheErrorsOfAllTables) {
  const path good = Write("good.txt", "level 1\n");
  const path bad = Write("bad.txt", "level 7\n");
  const path worse = Write("worse.txt", "");
  EXPECT_EQ(CheckTables({good}, errors_), 0);
  EXPECT_EQ(errors_.str(), "");
  EXPECT_EQ(CheckTables({bad, good, worse}, errors_), 1);
  const std::string words = "unknown level: the first line must be \"level 1\" or \"level 2\"\n";
  EXPECT_EQ(errors_.str(), Name("bad.txt") + ":1: " + words + Name("worse.txt") + ":1: " + words);
}

TEST_F(Commands, NamesAndRemarksOfADecompiledFileComeFromAnotherTable) {
  const path names = Write("n.txt", "level 1\n1 | first | 00 00 09 | 1 | 0 | a remark\n");
  const path index_file = Write("t.inx", std::string("\2\0\0\0\1\3\0\0\0\1", 10));
  EXPECT_EQ(DecompileIndex(index_file, 1, names, folder_ / "t.txt", errors_), 0);
  EXPECT_EQ(Read(folder_ / "t.txt"),
            "level 1\n"
            "# number | name  | address  | size | divider | remark\n"
            "1        | first | 01 00 02 | 1    | 0       | a remark\n"
            "2        |       | 01 00 03 | 1    | 0       |\n");
}

TEST_F(Commands, BrokenRecordsOfAnIndexFileAreToldByTheLinesOfTheNewTable) {
  // Bit 7 of the first command byte is set, the second is 127.
  const path index_file = Write("t.inx", std::string("\1\0\x81\0\0\2\0\x7F\0\0", 10));
  EXPECT_EQ(DecompileIndex(index_file, 1, {}, folder_ / "t.txt", errors_), 1);
  EXPECT_EQ(errors_.str(),
            Name("t.txt") +
                ":3: command nibble \"8\" is not 0 to 7: bit 7 of the command byte is the mark of "
                "a write\n" +
                Name("t.txt") +
                ":4: size \"16/7\" makes the command byte 127, which no record may have\n");
}

TEST_F(Commands, IndexFileWithARestOfARecordIsRefused) {
  const path index_file = Write("t.inx", std::string(23, '\1'));
  EXPECT_EQ(DecompileIndex(index_file, 2, {}, folder_ / "t.txt", errors_), 1);
  EXPECT_EQ(errors_.str(), Name("t.inx") + ": its length is not a multiple of 9 bytes\n");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "t.txt"));
}

TEST_F(Commands, FileThatIsNotThereIsToldByItsName) {
  EXPECT_EQ(CompileTable(folder_ / "none.txt", folder_ / "none.inx", errors_), 1);
  EXPECT_EQ(DecompileIndex(folder_ / "none.inx", 1, {}, folder_ / "t.txt", errors_), 1);
  EXPECT_EQ(errors_.str(),
            Name("none.txt") + ": can't be read\n" + Name("none.inx") + ": can't be read\n");
}

TEST_F(Commands, ASourceIsNotOverwritten) {
  const std::string text = "level 1\n1 || 00 00 01 | 1 | 0 |\n";
  const path table = Write("t.txt", text);
  const std::string words = ": is the source itself, which isn't overwritten\n";
  EXPECT_EQ(CompileTable(table, table, errors_), 1);
  EXPECT_EQ(Read(table), text);
  EXPECT_EQ(errors_.str(), Name("t.txt") + words);

  const path index_file = Write("t.inx", std::string("\2\0\0\0\1", 5));
  EXPECT_EQ(DecompileIndex(index_file, 1, {}, folder_ / "." / "t.inx", errors_), 1);
  EXPECT_EQ(Read(index_file), std::string("\2\0\0\0\1", 5));
  EXPECT_EQ(errors_.str(), Name("t.txt") + words + (folder_ / "." / "t.inx").string() + words);
}

TEST_F(Commands, FolderInPlaceOfATableIsToldByItsName) {
  EXPECT_EQ(CheckTables({folder_}, errors_), 1);
  EXPECT_EQ(errors_.str(), folder_.string() + ": can't be read\n");
}

TEST_F(Commands, FileThatCannotBeWrittenIsToldByItsName) {
  const path table = Write("t.txt", "level 1\n1 || 00 00 01 | 1 | 0 |\n");
  EXPECT_EQ(CompileTable(table, folder_ / "no folder" / "t.inx", errors_), 1);
  EXPECT_EQ(errors_.str(), (folder_ / "no folder" / "t.inx").string() + ": can't be written\n");
}

}  // namespace
}  // namespace sorvane
