#pragma once

#include <filesystem>

namespace sorvane::test {

// A look at whether anybody opens a file, a device or a pipe.
class OpenWatch {
 public:
  explicit OpenWatch(const std::filesystem::path& file);
  ~OpenWatch();
  OpenWatch(const OpenWatch&) = delete;
  OpenWatch& operator=(const OpenWatch&) = delete;

  // Whether it has been opened since the watch was made.
  bool WasOpened() const;

 private:
  int watch_;
};

// A pipe with a name in the place of a file. Its other end is there, so that opening it alone keeps
// nobody waiting.
class WatchedPipe {
 public:
  explicit WatchedPipe(const std::filesystem::path& file);
  ~WatchedPipe();
  WatchedPipe(const WatchedPipe&) = delete;
  WatchedPipe& operator=(const WatchedPipe&) = delete;

  bool WasOpened() const { return watch_.WasOpened(); }

 private:
  int end_;
  OpenWatch watch_;
};

}  // namespace sorvane::test
