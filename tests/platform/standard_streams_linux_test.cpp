#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>

#include "platform/pseudo_terminal.h"
#include "platform/standard_streams.h"

namespace sorvane::test {
namespace {

// A standard stream that leads to a file while it lives.
class Led {
 public:
  Led(int stream, const std::filesystem::path& file) : stream_(stream), before_(dup(stream)) {
    const int opened = open(file.c_str(), O_RDWR | O_NOCTTY);
    dup2(opened, stream);
    close(opened);
  }
  ~Led() {
    dup2(before_, stream_);
    close(before_);
  }
  Led(const Led&) = delete;
  Led& operator=(const Led&) = delete;

 private:
  const int stream_;
  const int before_;
};

TEST(StandardStreams, AreATechniciansWhereTheyLeadToATerminal) {
  struct Row {
    bool input;
    bool error;
  };
  const PseudoTerminal terminal;
  for (const Row& row : {Row{false, false}, Row{false, true}, Row{true, false}, Row{true, true}}) {
    const Led input(STDIN_FILENO, row.input ? terminal.Device() : "/dev/null");
    const Led error(STDERR_FILENO, row.error ? terminal.Device() : "/dev/null");
    EXPECT_EQ(CanAsk(), row.input && row.error);
    EXPECT_EQ(IsErrorWatched(), row.error);
  }
}

TEST(StandardStreams, AnEndIsWantedOnceASignalAsksForIt) {
  for (const int wanted : {SIGINT, SIGTERM}) {
    EXPECT_EXIT(
        {
          const bool before = IsEndWanted();
          raise(wanted);
          _exit(!before && IsEndWanted() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
  }
}

}  // namespace
}  // namespace sorvane::test
