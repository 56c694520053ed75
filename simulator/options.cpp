#include "simulator/options.h"

#include <string>

#include "command_line/command_line.h"
#include "simulator/command_error.h"

namespace sorvane::simulator {
namespace {

const CommandLine::Range kByte{.least = 0, .most = 255};

std::string CheckFault(const std::string& words) {
  try {
    ParseFault(words);
  } catch (const CommandError& error) {
    return error.what();
  }
  return {};
}

std::string CheckName(const std::string& file) {
  return file.empty() ? "the file's name is empty" : std::string();
}

}  // namespace

std::optional<Options> ReadOptions(int argc, const char* const* argv,
                                   const std::filesystem::path& program_folder, int& exit_code) {
  Options options;
  options.index_folder = program_folder;
  options.link = program_folder / "COM1";
  std::string fault = "none";
  bool refuse_day_0 = false;

  int type = options.identity.type;
  int number = options.identity.number;
  int software = options.identity.software;
  int revision = options.identity.revision;
  CommandLine line("The board of a vending machine, simulated on a pseudo-terminal.",
                   "SorvaneBoard");
  line.SetVersion(CommandLine::VersionOf("SorvaneBoard"));
  line.SetFooter("While it runs, it takes commands on standard input; help lists them.");
  line.AddNumber("--type", type, {.least = 0, .most = 65535}, "board type");
  line.AddNumber("--number", number, kByte, "board number");
  line.AddNumber("--software", software, kByte, "software number");
  line.AddNumber("--revision", revision, kByte, "revision, which chooses the index file");
  std::string index_folder = options.index_folder.string();
  std::string link = options.link.string();
  std::string snapshot;
  line.AddOption("--load", snapshot, "SNAPSHOT", CheckName,
                 "what the board holds, and its type, software and revision");
  for (const char* const word : {"--type", "--software", "--revision"}) {
    line.Exclude("--load", word);
  }
  line.AddOption("--index", index_folder, "folder of the index files");
  line.AddOption("--link", link, "link under which the program finds the board");
  line.AddNumber("--baud", options.baud,
                 {.least = SerialLine::kLowestBaud, .most = SerialLine::kHighestBaud, .also = {0}},
                 "speed of the wire in bits a second; 0 is unlimited");
  line.AddOption("--fault", fault, "FAULT", CheckFault,
                 "fault to begin with, such as \"wrong checksum 2\"; one of " + FaultNames());
  line.AddFlag("--refuse-day-0", refuse_day_0, "the same as --fault \"refuses day 0\"");
  line.Exclude("--refuse-day-0", "--fault");
  line.AddFlag("--quiet", options.quiet, "don't print the exchanges");

  if (!line.Read(argc, argv, exit_code)) return std::nullopt;
  options.index_folder = index_folder;
  options.link = link;
  options.identity.type = static_cast<uint16_t>(type);
  options.identity.number = static_cast<uint8_t>(number);
  options.identity.software = static_cast<uint8_t>(software);
  options.identity.revision = static_cast<uint8_t>(revision);
  if (!snapshot.empty()) {
    options.snapshot = ReadSnapshot(snapshot);
    options.identity.type = options.snapshot->type;
    options.identity.software = options.snapshot->software;
    options.identity.revision = options.snapshot->revision;
  }
  options.fault = ParseFault(refuse_day_0 ? "refuses day 0" : fault);
  return options;
}

}  // namespace sorvane::simulator
