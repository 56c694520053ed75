#include <gtest/gtest.h>

#include <QAction>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "shell/program.h"

namespace sorvane::test {
namespace {

// The files that this process holds open, by the paths that its descriptors lead to.
std::multiset<std::string> OpenFiles() {
  std::multiset<std::string> files;
  for (const auto& each : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code closed_meanwhile;
    const std::filesystem::path file = std::filesystem::read_symlink(each, closed_meanwhile);
    // The descriptor that lists the others is one of them.
    if (!closed_meanwhile && file.filename() != "fd") files.insert(file.string());
  }
  return files;
}

// The files of the program's folder among them.
std::multiset<std::string> OpenFilesOf(const Program& program) {
  std::multiset<std::string> files;
  const std::string folder = program.link.folder.Path().string();
  for (const std::string& file : OpenFiles()) {
    if (file.starts_with(folder)) files.insert(file);
  }
  return files;
}

TEST(OpenFiles, AreSeen) {
  Program program;
  std::ifstream in(program.link.folder.Path() / "W0309.inx");
  EXPECT_EQ(OpenFilesOf(program).size(), 1U);
}

TEST(OpenFiles, AreThoseOfBeforeOnceIndexLanguageAndSettingsAreLoaded) {
  // What the toolkit opens for itself, it opens with the first window.
  { Program().Start(); }
  Program program;
  const auto before = OpenFiles();
  program.Start();
  EXPECT_EQ(OpenFiles(), before);
  program.Connect();
  EXPECT_EQ(OpenFiles(), before);
  program.Choose("smnuLingue(1)");
  program.Choose("mnuCox(2)");
  EXPECT_EQ(OpenFiles(), before);
  EXPECT_EQ(OpenFilesOf(program).size(), 0U);
}

}  // namespace
}  // namespace sorvane::test
