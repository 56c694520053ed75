#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace sorvane::cli {

enum class Command {
  kPorts,
  kInfo,
  kBackup,
  kGet,
  kAudit,
  kWatch,
  kDiff,
  kCheck,
  kNames,
  kSet,
  kRestore,
  kUndo,
  kClockSet,
};

enum class AuditFormat { kText, kCsv, kJson, kDts, kHtml };

// Of pages that a person reads.
enum class Language { kEnglish, kItalian };

// What a person asked for on the command line.
struct Request {
  Command command = Command::kInfo;
  std::vector<std::string> arguments;

  std::string port;                    // as typed; empty for port number 1
  std::filesystem::path index_folder;  // empty for the program's own
  std::filesystem::path output;        // empty for the standard output
  std::vector<Group> only;             // empty for all that the command takes by itself
  std::vector<Group> except;
  bool dry_run = false;
  bool identity = false;
  bool password = false;
  bool mirrors = false;
  bool other_revision = false;
  bool partial = false;
  bool comma = false;
  std::filesystem::path trace;  // empty for none
  bool yes = false;
  bool quiet = false;
  bool json = false;

  int every = 2;  // of watch, in seconds

  AuditFormat audit_format = AuditFormat::kText;
  Language audit_language = Language::kEnglish;
  std::filesystem::path since;  // an earlier snapshot to compare the audit with; empty for none

  char Mark() const { return comma ? ',' : '.'; }
};

// Reads the command line. Where there is nothing to do, gives nothing and sets exit_code: to 0
// where help or the version was asked for, which it prints, and to that of a wrong command line,
// which it says on standard error.
std::optional<Request> ReadRequest(int argc, const char* const* argv, const std::string& version,
                                   int& exit_code);

}  // namespace sorvane::cli
