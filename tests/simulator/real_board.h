#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/board_process.h"
#include "simulator/index_folder.h"
#include "support/strangers.h"

namespace sorvane::simulator {

// A folder in which the real board puts its link.
class RealBoard : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(test::StrangersAt(link_), ""); }

  std::vector<std::string> Arguments(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments = {"--index", folder_.Path(), "--link", link_};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  }

  // The next line says that the line is up.
  void ExpectLine(BoardProcess& board) {
    EXPECT_THAT(board.NextLine(),
                testing::StartsWith("line " + link_.string() + " leads to /dev/pts/"));
  }

  IndexFolder folder_;
  std::filesystem::path link_ = folder_.Path() / "COM1";
};

}  // namespace sorvane::simulator
