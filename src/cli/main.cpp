#include <QCoreApplication>
#include <QDateTime>
#include <chrono>
#include <filesystem>
#include <iostream>

#include "catalogue/catalogue.h"
#include "cli/commands.h"
#include "cli/event_wait.h"
#include "cli/request.h"
#include "cli/version.h"
#include "platform/com_port_path.h"
#include "platform/data_folder.h"
#include "platform/program_path.h"
#include "platform/serial_port.h"
#include "platform/serial_ports.h"
#include "platform/standard_streams.h"

using namespace sorvane;
using namespace sorvane::cli;

namespace {

constexpr int kPortNumber = 1;

// The path that opens a port that a person has named by its device or by its COM number.
std::filesystem::path DeviceOf(const std::string& port, const std::filesystem::path& folder) {
  const bool com = port.size() > 3 && (port.starts_with("COM") || port.starts_with("com")) &&
                   port.find_first_not_of("0123456789", 3) == std::string::npos;
  if (port.empty()) return ComPortPath(folder, kPortNumber);
  return com ? ComPortPath(folder, std::stoi(port.substr(3, 4))) : std::filesystem::path(port);
}

std::vector<ListedPort> ListedPorts() {
  std::vector<ListedPort> ports;
  for (const SerialPortEntry& port : ListSerialPorts()) ports.push_back({port.name, port.words});
  return ports;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName("sorvane");
  SetStreamsPlain();
  int exit_code = 0;
  const auto request = ReadRequest(argc, argv, kProgram, exit_code);
  if (!request) return exit_code;

  const std::filesystem::path folder = ProgramPath().parent_path();
  std::filesystem::path device = DeviceOf(request->port, folder);
  const std::unique_ptr<Port> port = MakeSerialPort(
      [&](int) { return device; }, [](const std::function<void()>& handler) { handler(); });
  port->SetCommPort(kPortNumber);
  const Surroundings around{
      .port = *port,
      .wait = WaitInEventLoop(),
      .now = [] { return QDateTime::currentDateTime(); },
      .utc_now =
          [] { return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()); },
      .interrupted = IsEndWanted,
      .list_ports = ListedPorts,
      .port_trouble = [&] { return PortTrouble(device); },
      .port_name = device.string(),
      .index_folder = request->index_folder.empty() ? folder : request->index_folder,
      .copies_folder = DataFolder() / "sorvane" / "copies",
      .program = kProgram};
  around.interrupted();  // looked after from here on
  Console console({.in = std::cin,
                   .out = std::cout,
                   .err = std::cerr,
                   .asks = CanAsk(),
                   .watched = IsErrorWatched()},
                  request->quiet);
  const Catalogue catalogue;
  return static_cast<int>(RunCommand({*request, around, catalogue, console}));
}
