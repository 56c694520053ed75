#include "texts/file_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "texts/file_texts.h"

namespace sorvane {
namespace {

using test::TempFolder;
using test::WriteText;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

void WriteEmpty(const TempFolder& folder, std::initializer_list<std::filesystem::path> names) {
  for (const std::filesystem::path& name : names) WriteText(folder, name, "");
}

TEST(FileList, NamesComeInOrderWithoutRegardToCase) {
  const TempFolder folder;
  WriteEmpty(folder,
             {"delta.lng", "Charlie.lng", "bravo.lng", "Alpha.lng", "_e.lng", u8"Écho.lng"});
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"),
              ElementsAre("Alpha.lng", "bravo.lng", "Charlie.lng", "delta.lng", "_e.lng",
                          "\xC9"
                          "cho.lng"));
}

TEST(FileList, TheExtensionMatchesWithoutRegardToCase) {
  const TempFolder folder;
  WriteEmpty(folder, {"a.LNG", "b.Lng", "c.lng"});
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"), ElementsAre("a.LNG", "b.Lng", "c.lng"));
}

TEST(FileList, OtherExtensionsAreLeftOut) {
  const TempFolder folder;
  WriteEmpty(folder, {"a.lng", "a.lng~", "a.lngx", "alng", "lng", "a.inx"});
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"), ElementsAre("a.lng"));
}

TEST(FileList, FoldersAreLeftOut) {
  const TempFolder folder;
  WriteEmpty(folder, {"a.lng"});
  std::filesystem::create_directory(folder.Path() / "b.lng");
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"), ElementsAre("a.lng"));
}

TEST(FileList, NamesOutsideTheSetAreLeftOut) {
  const TempFolder folder;
  WriteEmpty(folder, {"a.lng", u8"Русский.lng"});
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"), ElementsAre("a.lng"));
}

#ifndef _WIN32  // Wine can't make such a file.
TEST(FileList, NamesThatAreNoTextAreLeftOut) {
  const TempFolder folder;
  WriteEmpty(folder, {"a.lng", test::NameThatIsNoText()});
  EXPECT_THAT(ListFiles(folder.Path(), ".lng"), ElementsAre("a.lng"));
}
#endif

TEST(FileList, AMissingFolderHoldsNone) {
  const TempFolder folder;
  EXPECT_THAT(ListFiles(folder.Path() / "none", ".lng"), IsEmpty());
}

TEST(FileList, AFileIsFoundByItsNameInOtherCase) {
  const TempFolder folder;
  WriteEmpty(folder, {"xItaliano.lng", "ITALIANO.LNG"});
  EXPECT_TRUE(std::filesystem::equivalent(FindFile(folder.Path(), "Italiano.lng"),
                                          folder.Path() / "ITALIANO.LNG"));
}

TEST(FileList, AFileOfExactlyTheNameGoesFirst) {
  const TempFolder folder;
  WriteEmpty(folder, {"A.lng", "a.lng"});
  EXPECT_EQ(FindFile(folder.Path(), "a.lng"), folder.Path() / "a.lng");
}

TEST(FileList, AMissingFileKeepsItsName) {
  const TempFolder folder;
  EXPECT_EQ(FindFile(folder.Path(), "a.lng"), folder.Path() / "a.lng");
}

}  // namespace
}  // namespace sorvane
