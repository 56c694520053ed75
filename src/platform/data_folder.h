#pragma once

#include <filesystem>

namespace sorvane {

// Where this user's programs keep what isn't settings, in the bytes of the file system. Each has a
// folder of its own in it; neither needs to be there.
std::filesystem::path DataFolder();

}  // namespace sorvane
