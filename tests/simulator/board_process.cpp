#include "simulator/board_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace sorvane::simulator {
namespace {

constexpr int kPatience = 10000;  // milliseconds

bool WaitFor(int descriptor, short events) {
  pollfd watched{descriptor, events, 0};
  return poll(&watched, 1, kPatience) == 1;
}

// The board of this build, or another that the environment names.
std::string BoardProgram() {
  const char* other = std::getenv("SORVANE_BOARD_PROGRAM");
  return other != nullptr ? other : SORVANE_BOARD_PROGRAM;
}

}  // namespace

OtherProcess::OtherProcess(pid_t number)
    : number_(number), process_(static_cast<int>(syscall(SYS_pidfd_open, number, 0))) {
  if (process_.Number() < 0) throw std::runtime_error("no such process");
}

bool OtherProcess::Ends() const { return WaitFor(process_.Number(), POLLIN); }

BoardProcess::BoardProcess(const std::vector<std::string>& arguments) {
  std::array<int, 2> input{};
  std::array<int, 2> output{};
  if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  input_.emplace(input[1]);
  output_.emplace(output[0]);
  const Descriptor board_input(input[0]);
  const Descriptor board_output(output[1]);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, board_input.Number(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, board_output.Number(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, board_output.Number(), STDERR_FILENO);

  std::vector<std::string> words = {BoardProgram()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const int error = posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("the board can't be started");
}

BoardProcess::~BoardProcess() {
  if (ended_) return;
  std::optional<OtherProcess> guard;
  if (const pid_t number = Guard(); number != 0) guard.emplace(number);
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
  if (guard) guard->Ends();
}

std::string BoardProcess::NextLine() {
  std::size_t end = rest_.find('\n');
  while (end == std::string::npos) {
    std::array<char, 4096> piece{};
    if (!WaitFor(output_->Number(), POLLIN)) return "(nothing)";
    const ssize_t count = read(output_->Number(), piece.data(), piece.size());
    if (count <= 0) return "(nothing)";
    rest_.append(piece.data(), static_cast<std::size_t>(count));
    end = rest_.find('\n');
  }
  std::string line = rest_.substr(0, end);
  rest_.erase(0, end + 1);
  return line;
}

void BoardProcess::Type(const std::string& line) { TypeUnfinished(line + '\n'); }

void BoardProcess::TypeUnfinished(const std::string& typed) {
  if (write(input_->Number(), typed.data(), typed.size()) != static_cast<ssize_t>(typed.size())) {
    throw std::runtime_error("the board takes no input");
  }
}

bool BoardProcess::OutputEnds() {
  char character = 0;
  return WaitFor(output_->Number(), POLLIN) && read(output_->Number(), &character, 1) == 0;
}

pid_t BoardProcess::Guard() const {
  const std::string process = "/proc/" + std::to_string(pid_);
  std::ifstream children(process + "/task/" + std::to_string(pid_) + "/children");
  pid_t guard = 0;
  children >> guard;
  return guard;
}

void BoardProcess::Signal(int signal) const { kill(pid_, signal); }

std::optional<int> BoardProcess::Exit() {
  if (!OtherProcess(pid_).Ends()) return std::nullopt;
  int status = 0;
  ended_ = waitpid(pid_, &status, 0) == pid_;
  if (!ended_ || !WIFEXITED(status)) return std::nullopt;
  return WEXITSTATUS(status);
}

PcPort::PcPort(const std::filesystem::path& link)
    : port_(open(link.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {}

void PcPort::Send(const Bytes& bytes) {
  if (write(port_.Number(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
    throw std::runtime_error("the line takes no bytes");
  }
}

Bytes PcPort::Receive(std::size_t count) {
  Bytes bytes;
  while (bytes.size() < count && WaitFor(port_.Number(), POLLIN)) {
    Bytes piece(count - bytes.size());
    const ssize_t got = read(port_.Number(), piece.data(), piece.size());
    if (got <= 0) break;
    bytes.insert(bytes.end(), piece.begin(), piece.begin() + got);
  }
  return bytes;
}

bool PcPort::Vanishes() {
  pollfd watched{port_.Number(), 0, 0};
  return poll(&watched, 1, kPatience) == 1 && (watched.revents & POLLHUP) != 0;
}

}  // namespace sorvane::simulator
