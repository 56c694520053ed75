#pragma once

#include <filesystem>

namespace sorvane {

// Starts a program, given by its absolute path, in the current folder and without waiting. It runs
// on when this program ends, and inherits none of its open files. Returns whether it started.
bool StartProgram(const std::filesystem::path& program);

}  // namespace sorvane
