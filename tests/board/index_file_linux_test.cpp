#include <gtest/gtest.h>

#include "board/errors.h"
#include "board/index_file.h"
#include "support/index_files.h"
#include "support/watched_pipe.h"

namespace sorvane::test {
namespace {

ErrorCode ErrorOfReading(const std::filesystem::path& file) {
  try {
    ReadIndexFile(file, kSecondLevelSize);
  } catch (const RuntimeError& error) {
    return error.Code();
  }
  ADD_FAILURE() << "no error";
  return {};
}

TEST(IndexFileKinds, APipeIsNeverOpened) {
  const TempFolder folder;
  const WatchedPipe pipe(folder.Path() / "W0309AA00.inx");
  EXPECT_EQ(ErrorOfReading(folder.Path() / "W0309AA00.inx"), ErrorCode::kFileNotFound);
  EXPECT_FALSE(pipe.WasOpened());
}

TEST(IndexFileKinds, ALinkToAPipeIsNeverOpened) {
  const TempFolder folder;
  const WatchedPipe pipe(folder.Path() / "pipe");
  std::filesystem::create_symlink("pipe", folder.Path() / "W0309AA00.inx");
  EXPECT_EQ(ErrorOfReading(folder.Path() / "W0309AA00.inx"), ErrorCode::kFileNotFound);
  EXPECT_FALSE(pipe.WasOpened());
}

TEST(IndexFileKinds, ADeviceIsNoFile) {
  EXPECT_EQ(ErrorOfReading("/dev/zero"), ErrorCode::kFileNotFound);
}

TEST(IndexFileKinds, ALinkToAFileIsRead) {
  const TempFolder folder;
  folder.WriteFile("file", SecondLevelBytes(PlainRows(3)));
  std::filesystem::create_symlink("file", folder.Path() / "W0309AA00.inx");
  EXPECT_EQ(ReadIndexFile(folder.Path() / "W0309AA00.inx", kSecondLevelSize), PlainRows(3));
}

TEST(IndexFileKinds, ALinkInACircleIsNotFound) {
  const TempFolder folder;
  std::filesystem::create_symlink("W0309AA00.inx", folder.Path() / "W0309AA00.inx");
  EXPECT_EQ(ErrorOfReading(folder.Path() / "W0309AA00.inx"), ErrorCode::kFileNotFound);
}

}  // namespace
}  // namespace sorvane::test
