#include "bench/child.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace sorvane::bench {
namespace {

std::vector<char*> Pointers(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

Child::Child(std::vector<std::string> words, std::vector<std::string> environment, int kept)
    : name_(words.front()) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, 2, 1);
  if (kept >= 0) posix_spawn_file_actions_adddup2(&actions, kept, kept);
  const int error = posix_spawnp(&pid_, name_.c_str(), &actions, nullptr, Pointers(words).data(),
                                 Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(name_ + " can't be started");
}

Child::~Child() {
  if (pid_ == 0) return;
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
}

void Child::Finish() {
  int status = 0;
  const pid_t ended = waitpid(pid_, &status, 0);
  pid_ = 0;
  if (ended < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw std::runtime_error(name_ + " has failed");
  }
}

double Child::Sum(const char* file, const std::vector<std::string>& names) const {
  std::ifstream lines("/proc/" + std::to_string(pid_) + "/" + file);
  std::string word;
  std::size_t found = 0;
  double sum = 0;
  while (lines >> word) {
    double kilobytes = 0;
    const bool wanted = std::find(names.begin(), names.end(), word) != names.end();
    if (!wanted || !(lines >> kilobytes)) continue;
    ++found;
    sum += kilobytes / 1024;
  }
  if (found != names.size()) throw std::runtime_error("the memory of " + name_ + " can't be read");
  return sum;
}

}  // namespace sorvane::bench
