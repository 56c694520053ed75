#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane {

// The names of the files in folder that end in extension, such as ".lng", without regard to case,
// and in the order of their names without regard to case: on every system as a Windows file system
// lists them. Folders are left out, and so are names that the western set can't write. None if
// there is no such folder.
std::vector<std::string> ListFiles(const std::filesystem::path& folder, std::string_view extension);

// The path of the file called name in folder. Where there is none of exactly this name, but one
// that differs in case only, it is that file's path.
std::filesystem::path FindFile(const std::filesystem::path& folder, std::string_view name);

}  // namespace sorvane
