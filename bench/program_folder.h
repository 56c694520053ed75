#pragma once

#include <filesystem>

namespace sorvane::bench {

// A folder for a program of its own, removed at the end. A program within this process makes it the
// current one; at the end that is again what it was.
class ProgramFolder {
 public:
  ProgramFolder();
  ~ProgramFolder();
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  // Copies the program folder of the build, but for its line. The settings choose a language.
  void CopyProgram() const;

  // Makes a device port number 1.
  void LinkPort(const std::filesystem::path& device) const;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  std::filesystem::path path_;
};

}  // namespace sorvane::bench
