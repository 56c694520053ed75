#include "bench/program_folder.h"

#include <stdlib.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace sorvane::bench {

namespace fs = std::filesystem;

ProgramFolder::ProgramFolder() {
  std::string name = fs::temp_directory_path() / "sorvane-bench-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder");
  path_ = name;
}

ProgramFolder::~ProgramFolder() {
  std::error_code error;
  fs::current_path(before_, error);
  fs::remove_all(path_, error);
}

void ProgramFolder::CopyProgram() const {
  for (const auto& entry : fs::directory_iterator(SORVANE_PROGRAM_FOLDER)) {
    if (!entry.is_symlink()) fs::copy(entry, path_ / entry.path().filename());
  }
  std::ofstream(path_ / "Sorvane.ini", std::ios::binary) << "Com=1\r\nLingua=English\r\n";
}

void ProgramFolder::LinkPort(const fs::path& device) const {
  fs::create_symlink(device, path_ / "COM1");
}

}  // namespace sorvane::bench
