#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <map>
#include <optional>
#include <system_error>

#include "platform/serial_ports.h"

namespace sorvane {
namespace {

namespace fs = std::filesystem;

template <typename Action>
void ForEach(const fs::path& folder, const Action& action) {
  std::error_code error;  // what is listed may go meanwhile
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    action(entry->path());
  }
}

// A terminal with a driver behind it: the places of ports that the computer doesn't have bear the
// driver's name alone.
bool IsPresent(const fs::path& terminal) {
  std::ifstream type(terminal / "type");
  int uart = 1;
  type >> uart;
  std::error_code error;
  return uart != 0 && fs::exists(terminal / "device", error);
}

// The names under which adapters are found again, whatever the order of plugging in.
std::map<std::string, std::string> NamesById() {
  std::map<std::string, std::string> names;
  ForEach("/dev/serial/by-id", [&](const fs::path& link) {
    std::error_code error;
    names[fs::canonical(link, error).string()] = link.string();
  });
  return names;
}

bool IsSameDevice(const fs::path& one, const struct stat& other) {
  struct stat status {};
  return stat(one.c_str(), &status) == 0 && S_ISCHR(status.st_mode) &&
         status.st_rdev == other.st_rdev;
}

std::string NameOf(const fs::path& process) {
  std::ifstream file(process / "comm");
  std::string name;
  std::getline(file, name);
  return name;
}

}  // namespace

std::vector<SerialPortEntry> ListSerialPorts() {
  const auto by_id = NamesById();
  std::vector<SerialPortEntry> ports;
  ForEach("/sys/class/tty", [&](const fs::path& terminal) {
    if (!IsPresent(terminal)) return;
    const std::string device = "/dev/" + terminal.filename().string();
    const auto id = by_id.find(device);
    ports.push_back({device, id == by_id.end() ? std::string() : id->second});
  });
  std::ranges::sort(ports, {}, &SerialPortEntry::name);
  return ports;
}

std::string PortTrouble(const fs::path& device) {
  struct stat wanted {};
  if (stat(device.c_str(), &wanted) != 0) {
    return errno == ENOENT ? "there is no such device" : std::string();
  }
  if (!S_ISCHR(wanted.st_mode)) return "it is no device";
  if (faccessat(AT_FDCWD, device.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
    return errno == EACCES ? "you may not use it" : std::string();
  }
  std::string holders;
  ForEach("/proc", [&](const fs::path& process) {
    const std::string number = process.filename().string();
    if (number.find_first_not_of("0123456789") != std::string::npos) return;
    if (number == std::to_string(getpid())) return;
    bool holds = false;
    ForEach(process / "fd",
            [&](const fs::path& open) { holds = holds || IsSameDevice(open, wanted); });
    if (!holds) return;
    holders +=
        (holders.empty() ? "held by " : ", ") + NameOf(process) + " (process " + number + ')';
  });
  return holders;
}

}  // namespace sorvane
