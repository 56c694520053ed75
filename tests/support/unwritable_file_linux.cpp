#include <sys/resource.h>

#include <csignal>

#include "support/unwritable_file.h"

namespace sorvane::test {

// The system offers no such thing for one file: all files lose their room.
struct UnwritableFile::Hold {
  rlimit before{};
  void (*handler)(int) = nullptr;
};

UnwritableFile::UnwritableFile(const std::filesystem::path&) : hold_(std::make_unique<Hold>()) {
  getrlimit(RLIMIT_FSIZE, &hold_->before);
  const rlimit none{0, hold_->before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &none);
  hold_->handler = std::signal(SIGXFSZ, SIG_IGN);
}

UnwritableFile::~UnwritableFile() {
  setrlimit(RLIMIT_FSIZE, &hold_->before);
  std::signal(SIGXFSZ, hold_->handler);
}

}  // namespace sorvane::test
