#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/child.h"
#include "bench/clocks.h"
#include "bench/measures.h"
#include "bench/program_folder.h"
#include "simulator/board_process.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.15;
constexpr double kMemoryAim = 1.3;
constexpr int kRepeats = 11;
constexpr int kBaud = 19200;
constexpr int kBitsOfByte = 10;
constexpr double kMilliseconds = 1000;

// The program on a board at the speed of the wire.
class Desk {
 public:
  Desk()
      : board_({"--quiet", "--baud", std::to_string(kBaud), "--index", SORVANE_PROGRAM_FOLDER,
                "--link", (folder_.Path() / "COM1").string()}) {
    board_.NextLine();  // the line is up
  }

  // A command line of the program, as a shell takes it.
  std::vector<std::string> Words(const std::string& arguments) const {
    return {"/bin/sh", "-c",
            "exec " SORVANE_CLI_PROGRAM " --port " + (folder_.Path() / "COM1").string() + " " +
                arguments};
  }

  std::vector<std::string> Environment() const {
    return {"PATH=/usr/bin:/bin", "LC_ALL=C.UTF-8", "XDG_DATA_HOME=" + folder_.Path().string()};
  }

  // The time that a command line takes, in milliseconds.
  double Time(const std::string& arguments) const {
    const double from = WallTime();
    Child child(Words(arguments), Environment());
    child.Finish();
    return (WallTime() - from) * kMilliseconds;
  }

  // The time that the bytes of a command line take on the wire, by its own account of them.
  double WireTime(const std::string& arguments) const {
    const std::filesystem::path trace = folder_.Path() / "trace.txt";
    Child child(Words(arguments + " --trace " + trace.string()), Environment());
    child.Finish();
    return kMilliseconds * kBitsOfByte * static_cast<double>(CountBytes(trace)) / kBaud;
  }

  std::string File(const char* name) const { return (folder_.Path() / name).string(); }

 private:
  // Lines are a time, a direction, and bytes of two digits up to two blanks and words.
  static std::size_t CountBytes(const std::filesystem::path& trace) {
    std::ifstream lines(trace);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream bytes(line.substr(line.find_first_of("<>") + 1, std::string::npos));
      std::string text = bytes.str();
      text = text.substr(0, text.find("  "));
      bytes.str(text);
      for (std::string byte; bytes >> byte;) ++count;
    }
    if (count == 0) throw std::runtime_error("no byte was on the wire");
    return count;
  }

  ProgramFolder folder_;
  simulator::BoardProcess board_;
};

// The most memory that a program has had in use when it writes its result, in MiB: the pipe of its
// output is too small for that and is read only then.
double PeakMemory(const std::vector<std::string>& words,
                  const std::vector<std::string>& environment) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const int smallest = fcntl(ends[1], F_SETPIPE_SZ, 1);
  if (smallest < 0) throw std::runtime_error("the pipe can't be made small");
  std::vector<std::string> into = words;
  into.back() += " >&" + std::to_string(ends[1]);
  double peak = 0;
  {
    Child child(into, environment, ends[1]);
    close(ends[1]);
    pollfd readable{.fd = ends[0], .events = POLLIN, .revents = 0};
    constexpr int kLimit = 60000;  // milliseconds
    if (poll(&readable, 1, kLimit) != 1) throw std::runtime_error("nothing was written");
    peak = child.PeakMemory();
    std::array<char, 4096> piece{};
    while (read(ends[0], piece.data(), piece.size()) > 0) {
    }
    child.Finish();
  }
  close(ends[0]);
  return peak;
}

}  // namespace

std::vector<Result> MeasureBackup() {
  const Desk desk;
  const std::string backup = "--except audit,alarms backup " + desk.File("copy.json");
  // What differs between two backups alone is the clock, which a restore leaves as it is.
  const std::string restore = "--yes restore " + desk.File("copy.json");
  const auto time = [&](const std::string& arguments) {
    const double wire = desk.WireTime(arguments);
    return Interleave(
        kRepeats, [&] { return desk.Time(arguments); }, [wire] { return wire; });
  };
  Result kept{"backup", "its bytes on the wire", kAim, "ms", time(backup)};
  Result put_back{"restore of the same", "its bytes on the wire", kAim, "ms", time(restore)};
  const auto printed = desk.Words("backup");
  const std::vector<std::string> bare = {"/bin/sh", "-c", "exec " SORVANE_BARE_CORE};
  Result memory{"memory of a backup", "empty program of Qt Core", kMemoryAim, "MiB",
                Interleave(
                    kRepeats, [&] { return PeakMemory(printed, desk.Environment()); },
                    [&] { return PeakMemory(bare, desk.Environment()); })};
  return {kept, put_back, memory};
}

}  // namespace sorvane::bench
