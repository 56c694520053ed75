#include <cstdlib>

#include "platform/data_folder.h"

namespace sorvane {
namespace {

std::filesystem::path PathIn(const char* variable) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? "" : text;
}

}  // namespace

// Qt would give the path as text, which the name of a home needn't be, and so another folder.
std::filesystem::path DataFolder() {
  const std::filesystem::path told = PathIn("XDG_DATA_HOME");
  return told.is_absolute() ? told : PathIn("HOME") / ".local" / "share";
}

}  // namespace sorvane
