#include <windows.h>

#include <stdexcept>

#include "support/unwritable_file.h"

namespace sorvane::test {

// Held open by one who shares it for reading only.
struct UnwritableFile::Hold {
  HANDLE file = INVALID_HANDLE_VALUE;
};

UnwritableFile::UnwritableFile(const std::filesystem::path& file)
    : hold_(std::make_unique<Hold>()) {
  hold_->file = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (hold_->file == INVALID_HANDLE_VALUE) throw std::runtime_error("can't open " + file.string());
}

UnwritableFile::~UnwritableFile() { CloseHandle(hold_->file); }

}  // namespace sorvane::test
