#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <optional>

#include "support/strangers.h"

namespace sorvane::test {
namespace {

namespace fs = std::filesystem;

// One process of /proc; what has ended meanwhile has no name and no parent.
struct Process {
  explicit Process(const fs::path& folder) {
    std::ifstream file(folder / "stat");
    std::string text;
    std::getline(file, text, '\0');
    const auto open = text.find('(');
    const auto close = text.rfind(')');
    if (open == std::string::npos || close == std::string::npos) return;
    name = text.substr(open + 1, close - open - 1);
    parent = std::stoi(text.substr(close + 4));  // behind the state, a letter between blanks
  }

  std::string name;
  pid_t parent = 0;
};

// What a process calls the terminal that it has open.
std::optional<fs::path> NameOfOpen(const fs::path& process, const fs::path& terminal) {
  std::error_code error;  // the process may end meanwhile
  fs::directory_iterator entry(process / "fd", error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (IsSameDevice(entry->path(), terminal)) return fs::read_symlink(entry->path(), error);
  }
  return std::nullopt;
}

}  // namespace

bool IsSameDevice(const fs::path& one, const fs::path& other) {
  struct stat first {};
  struct stat second {};
  return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 &&
         S_ISCHR(first.st_mode) && first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::string StrangersAt(const fs::path& terminal) {
  std::string words;
  for (const auto& entry : fs::directory_iterator("/proc")) {
    const std::string number = entry.path().filename();
    if (number.find_first_not_of("0123456789") != std::string::npos) continue;
    if (number == std::to_string(getpid())) continue;
    const auto device = NameOfOpen(entry.path(), terminal);
    if (!device) continue;
    const Process process(entry.path());
    if (process.name.empty() || process.parent == getpid()) continue;
    words += words.empty() ? "a stranger holds the line: " : ", ";
    words += "process " + process.name + " (" + number + ") has " + device->string() + " open";
  }
  return words;
}

}  // namespace sorvane::test
