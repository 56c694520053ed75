#include "simulator/options.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <string>

#include "simulator/command_error.h"

namespace sorvane::simulator {
namespace {

std::string CheckFault(const std::string& words) {
  try {
    ParseFault(words);
  } catch (const CommandError& error) {
    return error.what();
  }
  return {};
}

}  // namespace

std::optional<Options> ReadOptions(int argc, const char* const* argv,
                                   const std::filesystem::path& program_folder, int& exit_code) {
  Options options{program_folder, program_folder / "COM1", {}, SerialLine::kUnlimited, {}, false};
  std::string fault = "none";
  bool refuse_day_0 = false;

  CLI::App app("The board of a vending machine, simulated on a pseudo-terminal.", "SorvaneBoard");
  app.footer("While it runs, it takes commands on standard input; help lists them.");
  app.option_defaults()->always_capture_default();
  app.add_option("--type", options.identity.type, "board type")->check(CLI::Range(0, 65535));
  int number = options.identity.number;
  int software = options.identity.software;
  int revision = options.identity.revision;
  app.add_option("--number", number, "board number")->check(CLI::Range(0, 255));
  app.add_option("--software", software, "software number")->check(CLI::Range(0, 255));
  app.add_option("--revision", revision, "revision, which chooses the index file")
      ->check(CLI::Range(0, 255));
  app.add_option("--index", options.index_folder, "folder of the index files");
  app.add_option("--link", options.link, "link under which the program finds the board");
  app.add_option("--baud", options.baud, "speed of the wire in bits a second; 0 is unlimited")
      ->check(CLI::Range(SerialLine::kLowestBaud, SerialLine::kHighestBaud) | CLI::IsMember({0}));
  auto* const fault_option =
      app.add_option("--fault", fault,
                     "fault to begin with, such as \"wrong checksum 2\"; one of " + FaultNames())
          ->check(CheckFault, "FAULT");
  app.add_flag("--refuse-day-0", refuse_day_0, "the same as --fault \"refuses day 0\"")
      ->excludes(fault_option);
  app.add_flag("--quiet", options.quiet, "don't print the exchanges");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    exit_code = app.exit(error);
    return std::nullopt;
  }
  options.identity.number = static_cast<uint8_t>(number);
  options.identity.software = static_cast<uint8_t>(software);
  options.identity.revision = static_cast<uint8_t>(revision);
  options.fault = ParseFault(refuse_day_0 ? "refuses day 0" : fault);
  return options;
}

}  // namespace sorvane::simulator
