#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "simulator/bytes.h"
#include "simulator/terminal.h"

namespace sorvane::simulator {

// A process of the machine, known by its number while it can't have been given to another.
class OtherProcess {
 public:
  explicit OtherProcess(pid_t number);

  pid_t Number() const { return number_; }

  // Waits for its end; false if it doesn't end in ten seconds.
  bool Ends() const;

 private:
  const pid_t number_;
  const Descriptor process_;
};

// The real SorvaneBoard, started with some arguments; killed at the end if it still runs, and its
// guard waited for. All waiting ends after ten seconds, with what has come by then.
class BoardProcess {
 public:
  explicit BoardProcess(const std::vector<std::string>& arguments);
  ~BoardProcess();
  BoardProcess(const BoardProcess&) = delete;
  BoardProcess& operator=(const BoardProcess&) = delete;

  // The next line of its output, standard error included; "(nothing)" if none comes.
  std::string NextLine();

  // Puts a line on its standard input.
  void Type(const std::string& line);

  // The same without the end of the line.
  void TypeUnfinished(const std::string& typed);

  // Its standard input comes to an end.
  void CloseInput() { input_.reset(); }

  // Waits until nobody is left who could write to its output, from which nothing more may come.
  bool OutputEnds();

  // Nobody reads its output any longer.
  void CloseOutput() { output_.reset(); }

  void Signal(int signal) const;

  pid_t Number() const { return pid_; }

  // The process that outlives it; the number is 0 if it has none.
  pid_t Guard() const;

  // Waits for its end: its exit code, none if it doesn't end or ends by a signal.
  std::optional<int> Exit();

 private:
  pid_t pid_ = 0;
  std::optional<Descriptor> input_;
  std::optional<Descriptor> output_;
  std::string rest_;
  bool ended_ = false;
};

// The PC's end of the line, opened by the link's path. It leaves the terminal's mode as it is.
class PcPort {
 public:
  explicit PcPort(const std::filesystem::path& link);

  bool IsOpen() const { return port_.Number() >= 0; }
  void Send(const Bytes& bytes);

  // Waits for so many bytes; fewer if no more come.
  Bytes Receive(std::size_t count);

  // Waits until the device is gone.
  bool Vanishes();

 private:
  Descriptor port_;
};

}  // namespace sorvane::simulator
