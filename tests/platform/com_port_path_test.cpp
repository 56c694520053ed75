#include "platform/com_port_path.h"

#include <gtest/gtest.h>

#include "support/index_files.h"

namespace sorvane::test {
namespace {

class ComPortPathTest : public ::testing::Test {
 protected:
  void Link(const std::filesystem::path& target, const std::string& name) {
    std::filesystem::create_symlink(target, folder_.Path() / name);
  }

  TempFolder folder_;
};

TEST_F(ComPortPathTest, ALinkInTheFolderIsThePort) {
  Link("/dev/null", "COM1");
  EXPECT_EQ(ComPortPath(folder_.Path(), 1), folder_.Path() / "COM1");
}

TEST_F(ComPortPathTest, ALinkOfAnotherNumberIsAnotherPort) {
  Link("/dev/null", "COM2");
  EXPECT_EQ(ComPortPath(folder_.Path(), 1), "/dev/ttyS0");
  EXPECT_EQ(ComPortPath(folder_.Path(), 2), folder_.Path() / "COM2");
  EXPECT_EQ(ComPortPath(folder_.Path(), 3), "/dev/ttyS2");
}

TEST_F(ComPortPathTest, WithoutALinkItIsTheComputersOwnPort) {
  EXPECT_EQ(ComPortPath(folder_.Path(), 1), "/dev/ttyS0");
}

TEST_F(ComPortPathTest, AFileIsNoLink) {
  folder_.WriteFile("COM1", {});
  EXPECT_EQ(ComPortPath(folder_.Path(), 1), "/dev/ttyS0");
}

TEST_F(ComPortPathTest, ALinkThatLeadsNowhereDoesNotFallBackOnTheComputersPort) {
  Link("/dev/pts/missing", "COM1");
  EXPECT_EQ(ComPortPath(folder_.Path(), 1), folder_.Path() / "COM1");
}

TEST_F(ComPortPathTest, AFolderRelativeToTheCurrentOneGivesAnAbsolutePath) {
  Link("missing", "COM1");
  const std::filesystem::path relative = std::filesystem::relative(folder_.Path());
  EXPECT_TRUE(ComPortPath(relative, 1).is_absolute());
}

}  // namespace
}  // namespace sorvane::test
