#pragma once

#include <filesystem>
#include <string>

namespace sorvane::test {

// Whether two paths, links followed, lead to the same device. Each file system for terminals has a
// /dev/pts/0; so their names don't tell.
bool IsSameDevice(const std::filesystem::path& one, const std::filesystem::path& other);

// In words, the processes that have a terminal open besides this one and its children; none, and no
// terminal at that path, make no words.
std::string StrangersAt(const std::filesystem::path& terminal);

}  // namespace sorvane::test
