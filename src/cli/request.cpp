#include "cli/request.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "command_line/command_line.h"

namespace sorvane::cli {
namespace {

constexpr int kLongestPause = 86400;

const char* const kFooter =
    "Examples:\n"
    "  sorvane-cli info                            who is at the other end\n"
    "  sorvane-cli backup before.json              keep all that the board holds\n"
    "  sorvane-cli diff before.json -              what has changed since\n"
    "  sorvane-cli -n restore before.json          what putting it back would write\n"
    "  sorvane-cli -o audit.html audit --format html --since before.json\n"
    "                                              a page of what was sold since\n"
    "  sorvane-cli set price.3=1.50 option.free-vend=off\n"
    "  sorvane-cli undo                            take back the last change\n"
    "\n"
    "Exit status: 0 done or equal, 1 differences or findings, 2 usage or bad file,\n"
    "3 no port or no answer, 4 wrong board, machine or revision, 5 not all confirmed,\n"
    "130 interrupted.";

std::string CheckGroup(const std::string& name) {
  if (FindGroup(name)) return {};
  std::string words = "no group is called " + name + "; there are";
  for (int i = 0; i < kGroups; ++i) words += ' ' + std::string(GroupName(static_cast<Group>(i)));
  return words;
}

std::vector<Group> GroupsOf(const std::vector<std::string>& names) {
  std::vector<Group> groups;
  groups.reserve(names.size());
  for (const std::string& name : names) groups.push_back(*FindGroup(name));
  return groups;
}

// In the order of AuditFormat and of Language.
constexpr std::string_view kFormats[] = {"text", "csv", "json", "dts", "html"};
constexpr std::string_view kLanguages[] = {"en", "it"};

CommandLine::Check OneOf(std::span<const std::string_view> words) {
  return [words](const std::string& typed) -> std::string {
    if (std::ranges::find(words, typed) != words.end()) return {};
    std::string wrong = typed + " is none of";
    for (const std::string_view word : words) wrong += ' ' + std::string(word);
    return wrong;
  };
}

// The enumerator of one of the words.
template <typename Value>
Value ValueOf(std::span<const std::string_view> words, const std::string& typed) {
  return static_cast<Value>(std::ranges::find(words, typed) - words.begin());
}

// The options as the line gives them.
struct Typed {
  std::string index_folder;
  std::string output;
  std::string trace;
  std::vector<std::string> only;
  std::vector<std::string> except;
  std::string format = "text";
  std::string language = "en";
  std::string since;
};

void AddOptions(CommandLine& line, Request& request, Typed& typed) {
  line.AddOption("-p,--port", request.port,
                 "device or COM number, instead of port number 1 of the program's folder");
  line.AddOption("-i,--index", typed.index_folder, "folder of the index files");
  line.AddFlag("-n,--dry-run", request.dry_run, "show what would be written, and write nothing");
  line.AddOption("-o,--output", typed.output, "file for the result, instead of standard output");
  line.AddList("--only", typed.only, "GROUPS", CheckGroup,
               "these groups alone, such as prices,coins");
  line.AddList("--except", typed.except, "GROUPS", CheckGroup, "all groups but these");
  line.AddFlag("--identity", request.identity, "put machine and location number back, too");
  line.AddFlag("--password", request.password, "keep the digits of the password, too");
  line.AddFlag("--mirrors", request.mirrors, "keep the board's second copies, too");
  line.AddFlag("--other-revision", request.other_revision,
               "restore by name to a board of another revision");
  line.AddFlag("--partial", request.partial,
               "go on where the board doesn't answer, and restore such a copy");
  line.AddFlag("--comma", request.comma, "write amounts with a comma");
  line.AddOption("--trace", typed.trace, "file for every frame, with its meaning");
  line.AddFlag("-y,--yes", request.yes, "write without asking");
  line.AddFlag("-q,--quiet", request.quiet, "no progress and no words besides results and errors");
  line.AddFlag("--json", request.json, "the result as one JSON object");
}

// A command and where its arguments go.
struct Row {
  Command command;
  CommandLine* line;
};

std::vector<Row> AddCommands(CommandLine& line, Request& request, Typed& typed) {
  std::vector<Row> rows;
  const auto add = [&](Command command, const char* name, const char* help) -> CommandLine& {
    CommandLine& added = line.AddCommand(name, help);
    rows.push_back({command, &added});
    return added;
  };
  add(Command::kPorts, "ports", "list the serial ports");
  add(Command::kInfo, "info", "tell who the board is");
  add(Command::kBackup, "backup", "keep all that the board holds as a snapshot")
      .AddOptionalArguments("FILE", request.arguments, 1, "file of the snapshot");
  add(Command::kGet, "get", "show values by name")
      .AddArguments("NAME", request.arguments, "such as price.3; names lists them");
  CommandLine& audit = add(Command::kAudit, "audit", "show what the machine has counted");
  audit.AddOptionalArguments("FILE", request.arguments, 1, "a snapshot instead of the board");
  audit.AddOption("--format", typed.format, "FORMAT", OneOf(kFormats),
                  "text, csv, json, dts (EVA DTS 6.1) or html");
  audit.AddOption("--language", typed.language, "LANGUAGE", OneOf(kLanguages), "of html: en or it");
  audit.AddOption("--since", typed.since, "an earlier snapshot, to tell what has changed");
  CommandLine& watch = add(Command::kWatch, "watch", "show values whenever they change");
  watch.AddArguments("NAME", request.arguments, "such as vends.total");
  watch.AddNumber("--every", request.every, {.least = 0, .most = kLongestPause},
                  "seconds between two looks");
  add(Command::kDiff, "diff", "compare two snapshots, or one with the board")
      .AddArguments("FILE", request.arguments, 2, "two snapshots; - is the board");
  add(Command::kCheck, "check", "look for faults in a snapshot")
      .AddArguments("FILE", request.arguments, 1, "the snapshot");
  add(Command::kNames, "names", "list all names")
      .AddOptionalArguments("GROUP", request.arguments, 1, "of this group alone");
  add(Command::kSet, "set", "change values by name")
      .AddArguments("NAME=VALUE", request.arguments, "such as price.3=1.50");
  add(Command::kRestore, "restore", "put a snapshot's settings back")
      .AddArguments("FILE", request.arguments, 1, "the snapshot");
  add(Command::kUndo, "undo", "put back the newest copy of this machine");
  CommandLine& clock = line.AddCommand("clock", "the board's clock");
  rows.push_back({Command::kClockSet, &clock.AddCommand("set", "set it to this computer's time")});
  return rows;
}

}  // namespace

std::optional<Request> ReadRequest(int argc, const char* const* argv, const std::string& version,
                                   int& exit_code) {
  Request request;
  Typed typed;
  CommandLine line(
      "Keeps, compares, puts back and hands over what the board of a vending machine holds.",
      "sorvane-cli");
  line.SetVersion(version);
  line.SetFooter(kFooter);
  AddOptions(line, request, typed);
  const std::vector<Row> rows = AddCommands(line, request, typed);
  if (!line.Read(argc, argv, exit_code)) return std::nullopt;
  for (const Row& row : rows) {
    if (row.line->IsChosen()) request.command = row.command;
  }
  request.index_folder = typed.index_folder;
  request.output = typed.output;
  request.trace = typed.trace;
  request.only = GroupsOf(typed.only);
  request.except = GroupsOf(typed.except);
  request.audit_format =
      request.json ? AuditFormat::kJson : ValueOf<AuditFormat>(kFormats, typed.format);
  request.audit_language = ValueOf<Language>(kLanguages, typed.language);
  request.since = typed.since;
  return request;
}

}  // namespace sorvane::cli
