#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>
#include <system_error>

#include "simulator/terminal.h"

namespace sorvane::simulator {
namespace {

using testing::MatchesRegex;

// What it says where no more than so many files can be opened.
std::string WordsOfATerminalWith(rlim_t files) {
  rlimit before{};
  getrlimit(RLIMIT_NOFILE, &before);
  const rlimit scarce{static_cast<rlim_t>(Descriptor(dup(0)).Number()) + files, before.rlim_max};
  setrlimit(RLIMIT_NOFILE, &scarce);
  std::string words;
  try {
    const Terminal terminal;
  } catch (const std::system_error& error) {
    words = error.what();
  }
  setrlimit(RLIMIT_NOFILE, &before);
  return words;
}

TEST(Terminal, SaysThatThereIsNoneOrWhichEndCannotBeOpened) {
  EXPECT_EQ(WordsOfATerminalWith(0), "no pseudo-terminal: Too many open files");
  EXPECT_THAT(WordsOfATerminalWith(1), MatchesRegex("/dev/pts/[0-9]+: Too many open files"));
  EXPECT_EQ(WordsOfATerminalWith(2), "");
}

}  // namespace
}  // namespace sorvane::simulator
