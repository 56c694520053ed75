#pragma once

#include <filesystem>

namespace sorvane::test {

// A pipe with a name in the place of a file, and a look at whether anybody opens it. Whoever does
// isn't kept waiting, so that a test comes to its end in either case.
class WatchedPipe {
 public:
  explicit WatchedPipe(const std::filesystem::path& file);
  ~WatchedPipe();
  WatchedPipe(const WatchedPipe&) = delete;
  WatchedPipe& operator=(const WatchedPipe&) = delete;

  // Whether it has been opened since it was made.
  bool WasOpened() const;

 private:
  int end_;
  int watch_;
};

}  // namespace sorvane::test
