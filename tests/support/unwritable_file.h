#pragma once

#include <filesystem>
#include <memory>

namespace sorvane::test {

// While it lives, a file that exists can be read but not written, by an administrator neither.
class UnwritableFile {
 public:
  explicit UnwritableFile(const std::filesystem::path& file);
  ~UnwritableFile();
  UnwritableFile(const UnwritableFile&) = delete;
  UnwritableFile& operator=(const UnwritableFile&) = delete;

 private:
  struct Hold;
  std::unique_ptr<Hold> hold_;
};

}  // namespace sorvane::test
