#include "cli/copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/failure.h"
#include "cli/snapshot_file.h"
#include "support/index_files.h"

namespace sorvane::cli {
namespace {

struct KeptCopies : testing::Test {
  test::TempFolder folder;
  Copies copies{folder.Path() / "sorvane" / "copies"};

  static Snapshot OfTime(int n) {
    Snapshot snapshot;
    snapshot.time = std::to_string(n);
    return snapshot;
  }
  std::string NewestOf(uint32_t machine) const {
    const auto file = copies.Newest(machine);
    return file ? ReadSnapshot(*file, Catalogue()).time : "none";
  }
  std::ptrdiff_t CountOf(const char* machine) const {
    const std::filesystem::directory_iterator entries(folder.Path() / "sorvane" / "copies" /
                                                      machine);
    return std::distance(begin(entries), end(entries));
  }
};

TEST_F(KeptCopies, TheNewestOfAMachineIsFound) {
  EXPECT_EQ(NewestOf(7), "none");
  copies.Keep(OfTime(1), 7);
  copies.Keep(OfTime(2), 7);
  copies.Keep(OfTime(3), 8);
  EXPECT_EQ(NewestOf(7), "2");
  EXPECT_EQ(NewestOf(8), "3");
  EXPECT_EQ(NewestOf(9), "none");
}

TEST_F(KeptCopies, TheLastTwentyOfEachMachineStay) {
  for (int n = 1; n <= 25; ++n) copies.Keep(OfTime(n), 7);
  copies.Keep(OfTime(1), 8);
  EXPECT_EQ(CountOf("7"), 20);
  EXPECT_EQ(CountOf("8"), 1);
  EXPECT_EQ(NewestOf(7), "25");
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "sorvane/copies/7/000005.json"));
  EXPECT_TRUE(std::filesystem::exists(folder.Path() / "sorvane/copies/7/000006.json"));
}

TEST_F(KeptCopies, OtherFilesAreLeftAlone) {
  const auto first = copies.Keep(OfTime(1), 7);
  test::TempFolder elsewhere;
  WriteOwnFile(first.parent_path() / "zzz.json", "");
  WriteOwnFile(first.parent_path() / "000009.txt", "");
  EXPECT_EQ(copies.Keep(OfTime(2), 7).filename(), "000002.json");
  EXPECT_EQ(NewestOf(7), "2");
  EXPECT_EQ(CountOf("7"), 4);
}

TEST_F(KeptCopies, AFolderThatCanNotBeMadeIsTold) {
  folder.WriteFile("sorvane", {});
  EXPECT_THROW(copies.Keep(OfTime(1), 7), Failure);
}

}  // namespace
}  // namespace sorvane::cli
