#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <string>

#include "platform/start_program.h"

namespace sorvane {
namespace {

// How the program is started: in a session of its own, and with nothing to read from or write to.
class Start {
 public:
  Start() {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
    posix_spawn_file_actions_init(&files_);
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&files_, file, "/dev/null", O_RDWR, 0);
    }
  }
  ~Start() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  Start(const Start&) = delete;
  Start& operator=(const Start&) = delete;

  bool Run(std::string program) const {
    const std::array<char*, 2> arguments = {program.data(), nullptr};
    pid_t process = 0;
    return posix_spawn(&process, program.c_str(), &files_, &attributes_, arguments.data(),
                       environ) == 0;
  }

 private:
  posix_spawnattr_t attributes_{};
  posix_spawn_file_actions_t files_{};
};

}  // namespace

// Qt would take the path as text, which the name of a folder needn't be.
bool StartProgram(const std::filesystem::path& program) { return Start().Run(program); }

}  // namespace sorvane
