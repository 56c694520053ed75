#include "texts/save_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_time_errors.h"
#include "support/unwritable_file.h"
#include "texts/file_texts.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using test::NamesIn;
using test::ReadText;
using test::TempFolder;
using test::WriteText;
using ::testing::ElementsAre;

TEST(SaveFile, MakesANewFile) {
  const TempFolder folder;
  SaveFile(folder.Path() / "f", "new\r\n");
  EXPECT_EQ(ReadText(folder, "f"), "new\r\n");
  EXPECT_THAT(NamesIn(folder), ElementsAre("f"));
}

TEST(SaveFile, TakesThePlaceOfALongerAndOfAShorterFile) {
  const TempFolder folder;
  WriteText(folder, "f", "an older and longer content");
  SaveFile(folder.Path() / "f", "new");
  EXPECT_EQ(ReadText(folder, "f"), "new");
  SaveFile(folder.Path() / "f", "longer again");
  EXPECT_EQ(ReadText(folder, "f"), "longer again");
  EXPECT_THAT(NamesIn(folder), ElementsAre("f"));
}

TEST(SaveFile, ThatFailsLeavesTheOldFileWholeAndNothingBesideIt) {
  const TempFolder folder;
  WriteText(folder, "f", "an older content");
  {
    const test::UnwritableFile unwritable(folder.Path() / "f");
    EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  }
  EXPECT_EQ(ReadText(folder, "f"), "an older content");
  EXPECT_THAT(NamesIn(folder), ElementsAre("f"));
}

TEST(SaveFile, InPlaceOfAFolderIsAnError) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path() / "f");
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "f"));
  EXPECT_THAT(NamesIn(folder), ElementsAre("f"));
}

TEST(SaveFile, InAMissingFolderIsAnError) {
  const TempFolder folder;
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "none" / "f", "new"); }),
            ErrorCode::kFileAccess);
}

}  // namespace
}  // namespace sorvane
