#pragma once

#include <filesystem>

namespace sorvane {

// The absolute path of the running program, in the bytes of the file system: links are followed
// where the system does so when it starts a program. There must be an application object.
std::filesystem::path ProgramPath();

}  // namespace sorvane
