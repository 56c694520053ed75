#include <system_error>

#include "platform/program_path.h"

namespace sorvane {

// Qt would give the path as text, which the name of a folder needn't be.
std::filesystem::path ProgramPath() { return std::filesystem::read_symlink("/proc/self/exe"); }

}  // namespace sorvane
