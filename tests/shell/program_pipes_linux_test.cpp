#include <gtest/gtest.h>

#include <QAction>
#include <filesystem>

#include "shell/program.h"
#include "support/watched_pipe.h"

// Pipes in the place of files of the program folder: whoever opened one would wait for its other
// end, before there is a window.
namespace sorvane::test {
namespace {

class PipeInPlaceOf {
 public:
  PipeInPlaceOf(const Program& program, const std::string& file)
      : pipe_(Cleared(program.link.folder.Path() / file)) {}
  ~PipeInPlaceOf() { EXPECT_FALSE(pipe_.WasOpened()); }
  PipeInPlaceOf(const PipeInPlaceOf&) = delete;
  PipeInPlaceOf& operator=(const PipeInPlaceOf&) = delete;

 private:
  static std::filesystem::path Cleared(const std::filesystem::path& file) {
    std::filesystem::remove(file);
    return file;
  }

  WatchedPipe pipe_;
};

TEST(Pipe, InPlaceOfTheSettingsCountsAsNone) {
  Program program({.settings = ""});
  const PipeInPlaceOf pipe(program, "Sorvane.ini");
  program.Start();
  EXPECT_TRUE(program.frame->isVisible());
  EXPECT_TRUE(program.Entry("mnuCox(1)").isChecked());
  EXPECT_TRUE(program.reports.empty());
}

TEST(Pipe, InPlaceOfTheSettingsEndsTheProgramWhenTheyAreSaved) {
  Program program({.settings = ""});
  const PipeInPlaceOf pipe(program, "Sorvane.ini");
  program.Start();
  program.Choose("mnuCox(2)");
  EXPECT_EQ(program.reports,
            std::vector<std::string>{"Run-time error '75':\n\nPath/File access error"});
}

TEST(Pipe, IsNoLanguage) {
  Program program({.language_files = false});
  const PipeInPlaceOf pipe(program, "Alfa.lng");
  program.Start();
  program.link.dialogs.Expect("File missing!\nReinstall program", "Error", 16);
}

TEST(Pipe, ThatALanguageHasBecomeEndsTheProgramWhenItIsChosen) {
  Program program;
  program.Start();
  const PipeInPlaceOf pipe(program, "Delta.lng");
  program.Choose("smnuLingue(3)");
  EXPECT_EQ(program.reports, std::vector<std::string>{"Run-time error '53':\n\nFile not found"});
}

TEST(Pipe, InPlaceOfTheFirstLevelCountsAsMissing) {
  Program program;
  const PipeInPlaceOf pipe(program, "W0309.inx");
  program.Start();
  program.link.dialogs.Expect(" not found !", "ERROR", 16);
}

TEST(Pipe, InPlaceOfTheSecondLevelCountsAsMissing) {
  Program program;
  const PipeInPlaceOf pipe(program, "W0309AA00.inx");
  program.Start();
  program.link.dialogs.Expect("W0309AA00.inx not found !", "ERROR", 16);
}

}  // namespace
}  // namespace sorvane::test
