#pragma once

#include <chrono>
#include <string>

namespace sorvane::cli {

// A moment as "2026-11-22T12:30:05Z". Done without Qt, whose time zones take more memory than a
// whole snapshot.
std::string UtcText(std::chrono::sys_seconds moment);

}  // namespace sorvane::cli
