#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "support/least_rights.h"
#include "support/run_time_errors.h"
#include "support/scarce_memory.h"
#include "support/unwritable_file.h"
#include "support/watched_pipe.h"
#include "texts/choices.h"
#include "texts/file_texts.h"
#include "texts/language_files.h"
#include "texts/line_reader.h"
#include "texts/save_file.h"

// Files that Windows doesn't have: pipes, devices, links, and rights by mode.
namespace sorvane {
namespace {

using test::ErrorOf;
using test::LeastRights;
using test::NamesIn;
using test::ReadText;
using test::TempFolder;
using test::WatchedPipe;
using test::WriteText;
using ::testing::ElementsAre;

namespace fs = std::filesystem;

constexpr std::size_t kEndless = std::size_t{64} << 20;  // bytes

struct stat StatusOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
  return status;
}

fs::perms RightsOf(const fs::path& file) { return fs::status(file).permissions(); }

TEST(LineReaderKinds, APipeIsNeverOpened) {
  const TempFolder folder;
  const WatchedPipe pipe(folder.Path() / "f");
  EXPECT_EQ(ErrorOf([&] { LineReader(folder.Path() / "f"); }), ErrorCode::kFileNotFound);
  EXPECT_FALSE(pipe.WasOpened());
}

TEST(LineReaderKinds, ADeviceIsNoFile) {
  EXPECT_EQ(ErrorOf([&] { LineReader("/dev/zero"); }), ErrorCode::kFileNotFound);
}

TEST(LineReaderKinds, ALinkToAFileIsRead) {
  const TempFolder folder;
  WriteText(folder, "f", "one\r\n");
  fs::create_symlink("f", folder.Path() / "link");
  EXPECT_EQ(LineReader(folder.Path() / "link").ReadLine(), "one");
}

// The process's own memory is a file of which nothing can be read at the beginning.
TEST(LineReaderKinds, AFileThatFailsWhileItIsReadIsAnError) {
  LineReader file("/proc/self/mem");
  EXPECT_EQ(ErrorOf([&] { file.ReadLine(); }), ErrorCode::kFileNotFound);
}

TEST(LanguageFileKinds, ALineWithoutEndCostsNoMemory) {
  const TempFolder folder;
  WriteText(folder, "A.lng", "one\r\n");
  fs::resize_file(folder.Path() / "A.lng", kEndless);
  MessageTable messages;
  const test::ScarceMemory memory(kEndless / 64);
  EXPECT_EQ(ErrorOf([&] { LoadLanguageFile(folder.Path(), "A.lng", messages); }),
            ErrorCode::kOverflow);
  EXPECT_EQ(messages[1], "one");
}

TEST(SettingsKinds, AFileWithoutEndReadsAsFarAsItsSecondLine) {
  const TempFolder folder;
  WriteText(folder, "A.lng", "");
  WriteText(folder, "Sorvane.ini", "Com=3\r\nLingua=\r\n");
  fs::resize_file(folder.Path() / "Sorvane.ini", kEndless);
  Choices choices(folder.Path() / "Sorvane.ini");
  const test::ScarceMemory memory(kEndless / 64);
  EXPECT_TRUE(choices.ReadSettings());
  EXPECT_EQ(choices.PortNumber, 3);
}

TEST(SaveFileKinds, APipeIsNeverOpened) {
  const TempFolder folder;
  const WatchedPipe pipe(folder.Path() / "f");
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  EXPECT_FALSE(pipe.WasOpened());
  EXPECT_TRUE(fs::is_fifo(folder.Path() / "f"));
}

// A device of its own, in a folder where nothing else can be put: whatever goes wrong here, the
// devices of the machine are out of reach.
TEST(SaveFileKinds, ADeviceIsNeverOpened) {
  const TempFolder folder;
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_EQ(unlockpt(terminal), 0);
  const fs::path device = ptsname(terminal);
  fs::create_symlink(device, folder.Path() / "f");
  const test::OpenWatch watch(device);
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  EXPECT_EQ(fs::read_symlink(folder.Path() / "f"), device);
  EXPECT_FALSE(watch.WasOpened());
  close(terminal);
}

TEST(SaveFileKinds, ALinkStaysOneAndItsFileIsWritten) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "kept");
  WriteText(folder, "kept/file", "old");
  fs::create_symlink("kept/file", folder.Path() / "second");
  fs::create_symlink(folder.Path() / "second", folder.Path() / "first");
  SaveFile(folder.Path() / "first", "new");
  EXPECT_EQ(ReadText(folder, "kept/file"), "new");
  EXPECT_EQ(fs::read_symlink(folder.Path() / "first"), folder.Path() / "second");
  EXPECT_EQ(fs::read_symlink(folder.Path() / "second"), "kept/file");
  EXPECT_THAT(NamesIn(folder), ElementsAre("first", "kept", "second"));
}

TEST(SaveFileKinds, ALinkToNothingGetsItsFile) {
  const TempFolder folder;
  fs::create_symlink("file", folder.Path() / "link");
  SaveFile(folder.Path() / "link", "new");
  EXPECT_TRUE(fs::is_symlink(folder.Path() / "link"));
  EXPECT_EQ(ReadText(folder, "file"), "new");
}

TEST(SaveFileKinds, AFileIsReachedOverAsManyLinksAsTheSystemFollows) {
  const TempFolder folder;
  WriteText(folder, "0", "old");
  for (int i = 1; i <= 40; ++i) {
    fs::create_symlink(std::to_string(i - 1), folder.Path() / std::to_string(i));
  }
  SaveFile(folder.Path() / "40", "new");
  EXPECT_EQ(ReadText(folder, "0"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.Path() / "1"));
}

TEST(SaveFileKinds, ALinkInACircleIsAnErrorAndStays) {
  const TempFolder folder;
  fs::create_symlink("f", folder.Path() / "f");
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  EXPECT_TRUE(fs::is_symlink(folder.Path() / "f"));
}

TEST(SaveFileKinds, AFileKeepsItsRightsAndItsOwner) {
  const TempFolder folder;
  for (const unsigned mode : {0600U, 0664U, 0640U}) {
    WriteText(folder, "f", "old");
    fs::permissions(folder.Path() / "f", fs::perms{mode});
    if (geteuid() == 0) {
      ASSERT_EQ(chown((folder.Path() / "f").c_str(), 65534, 65534), 0);
    }
    const struct stat before = StatusOf(folder.Path() / "f");
    SaveFile(folder.Path() / "f", "new");
    const struct stat after = StatusOf(folder.Path() / "f");
    EXPECT_EQ(ReadText(folder, "f"), "new");
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
  }
}

TEST(SaveFileKinds, ANewFileHasTheRightsOfAnyNewFile) {
  const TempFolder folder;
  WriteText(folder, "any", "");
  SaveFile(folder.Path() / "f", "new");
  EXPECT_EQ(RightsOf(folder.Path() / "f"), RightsOf(folder.Path() / "any"));
}

TEST(SaveFileKinds, AFileThatMayNotBeWrittenIsAnErrorAndStays) {
  const TempFolder folder;
  WriteText(folder, "f", "old");
  fs::permissions(folder.Path() / "f", fs::perms{0444});
  const LeastRights rights;
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  EXPECT_EQ(ReadText(folder, "f"), "old");
}

// A folder in which no file can be made.
class ClosedFolderTest : public ::testing::Test {
 protected:
  ClosedFolderTest() {
    WriteText(folder_, "f", "an older content");
    fs::permissions(folder_.Path(), fs::perms{0555});
  }
  ~ClosedFolderTest() override { fs::permissions(folder_.Path(), fs::perms{0755}); }

  TempFolder folder_;
  LeastRights rights_;
};

TEST_F(ClosedFolderTest, AFileIsWrittenInItsPlace) {
  const ino_t before = StatusOf(folder_.Path() / "f").st_ino;
  SaveFile(folder_.Path() / "f", "new");
  EXPECT_EQ(ReadText(folder_, "f"), "new");
  EXPECT_EQ(StatusOf(folder_.Path() / "f").st_ino, before);
  EXPECT_THAT(NamesIn(folder_), ElementsAre("f"));
}

TEST_F(ClosedFolderTest, AFailureInPlaceLeavesTheOldFileToo) {
  {
    const test::UnwritableFile unwritable(folder_.Path() / "f");
    EXPECT_EQ(ErrorOf([&] { SaveFile(folder_.Path() / "f", "new"); }), ErrorCode::kFileAccess);
  }
  EXPECT_EQ(ReadText(folder_, "f"), "an older content");
}

TEST_F(ClosedFolderTest, ANewFileIsAnError) {
  EXPECT_EQ(ErrorOf([&] { SaveFile(folder_.Path() / "g", "new"); }), ErrorCode::kFileAccess);
  EXPECT_THAT(NamesIn(folder_), ElementsAre("f"));
}

TEST_F(ClosedFolderTest, ThatIsOpenBehindTheLinkHasTheFileReplacedThere) {
  const TempFolder open;
  WriteText(open, "file", "old");
  fs::permissions(folder_.Path(), fs::perms{0755});
  fs::create_symlink(open.Path() / "file", folder_.Path() / "link");
  fs::permissions(folder_.Path(), fs::perms{0555});
  SaveFile(folder_.Path() / "link", "new");
  EXPECT_EQ(ReadText(open, "file"), "new");
  EXPECT_THAT(NamesIn(open), ElementsAre("file"));
}

}  // namespace
}  // namespace sorvane
