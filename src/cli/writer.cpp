#include "cli/writer.h"

namespace sorvane::cli {
namespace {

// What is known of a write that isn't confirmed.
std::string Known(const PlannedWrite& write, const WriteOutcome& outcome,
                  const NumberStyle& style) {
  const CatalogueEntry& entry = *write.entry;
  switch (outcome.proof) {
    case Proof::kConfirmed:
      break;
    case Proof::kMirrorUnsure:
      return ": its second copy wasn't taken";
    case Proof::kDiffers:
      if (entry.role == Role::kSecret) return ": the board holds another value";
      return ": wrote " + ShownValue(entry, write.to, style) + ", the board holds " +
             ShownValue(entry, outcome.read_back, style);
    case Proof::kUnsure:
      return ": the board doesn't answer";
  }
  return {};
}

std::string Lines(const char* state, const std::vector<std::string>& names) {
  std::string lines;
  for (const std::string& name : names) lines += std::string(state) + name + '\n';
  return lines;
}

}  // namespace

WriteReport SendWrites(Session& session, const WritePlan& plan, const NumberStyle& style,
                       const std::function<bool()>& interrupted, Console& console) {
  WriteReport report;
  bool go_on = true;
  int done = 0;
  for (const PlannedWrite& write : plan.writes) {
    const CatalogueEntry& entry = *write.entry;
    report.interrupted = report.interrupted || (go_on && interrupted());
    if (!go_on || report.interrupted) {
      report.unsent.push_back(entry.name);
      continue;
    }
    console.ShowProgress("writing", ++done, static_cast<int>(plan.writes.size()));
    const WriteOutcome outcome = session.Write(entry.number, entry.mirror, write.to);
    if (outcome.proof == Proof::kConfirmed) {
      report.confirmed.push_back(entry.name);
    } else {
      report.unsure.push_back(entry.name + Known(write, outcome, style));
    }
    go_on = outcome.proof == Proof::kConfirmed || outcome.proof == Proof::kMirrorUnsure;
  }
  return report;
}

std::string ReportLines(const WriteReport& report) {
  return Lines("confirmed ", report.confirmed) + Lines("unsure ", report.unsure) +
         Lines("unsent ", report.unsent);
}

}  // namespace sorvane::cli
