#pragma once

#include <QDateTime>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "outside/port.h"
#include "session/exchange.h"

namespace sorvane::cli {

// A serial port of the computer.
struct ListedPort {
  std::string name;   // as --port takes it
  std::string words;  // what it is; may be empty

  bool operator==(const ListedPort&) const = default;
};

// What the commands need from outside; tests bring their own.
struct Surroundings {
  Port& port;  // closed; its device is chosen already
  WaitFor wait;
  std::function<QDateTime()> now;  // as the computer's own clock shows it
  std::function<std::chrono::sys_seconds()> utc_now;
  std::function<bool()> interrupted;  // the person wants the program to end
  std::function<std::vector<ListedPort>()> list_ports;
  // Why the port can't be opened, in words; empty where the system doesn't tell.
  std::function<std::string()> port_trouble;
  std::string port_name;                // for words
  std::filesystem::path index_folder;   // of the index files
  std::filesystem::path copies_folder;  // for copies made before a write; needn't exist
  std::string program;                  // the program's name and version
};

}  // namespace sorvane::cli
