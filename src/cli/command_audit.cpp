#include <QDateTime>
#include <string>

#include "board/parameter.h"
#include "cli/audit_formats.h"
#include "cli/audit_words.h"
#include "cli/commands.h"
#include "cli/connected_board.h"
#include "cli/snapshot_file.h"

namespace sorvane::cli {
namespace {

// What the audit is made of. The page tells the settings, too.
bool IsAudited(const CatalogueEntry& entry, AuditFormat format) {
  if (format == AuditFormat::kHtml) {
    return entry.role == Role::kSetting || entry.group == Group::kAudit ||
           entry.group == Group::kAlarms;
  }
  switch (entry.group) {
    case Group::kAudit:
    case Group::kAlarms:
    case Group::kPrices:
    case Group::kCoins:
    case Group::kBanknotes:
      return true;
    default:
      return entry.number == parameter::kSelections;
  }
}

Snapshot Take(const Task& task) {
  const Request& request = task.request;
  if (!request.arguments.empty()) return ReadSnapshot(request.arguments.front(), task.catalogue);
  const auto entries = ChosenEntries(task.catalogue, request, [&](const CatalogueEntry& entry) {
    return IsAudited(entry, request.audit_format);
  });
  ConnectedBoard board(request, task.around, task.catalogue);
  return board.Take(entries, {.partial = request.partial}, task.console);
}

std::string Formatted(const AuditData& data, const Request& request) {
  switch (request.audit_format) {
    case AuditFormat::kText:
      return AuditText(data, request.Mark());
    case AuditFormat::kCsv:
      return AuditCsv(data, request.Mark());
    case AuditFormat::kJson:
      return AuditJson(data);
    case AuditFormat::kDts:
      return AuditDts(data);
    case AuditFormat::kHtml:
      break;
  }
  const bool comma = request.comma || request.audit_language == Language::kItalian;
  return AuditHtml(data, {.language = request.audit_language, .mark = comma ? ',' : '.'});
}

// These two have no place for words.
bool HasNoRemarks(AuditFormat format) {
  return format == AuditFormat::kCsv || format == AuditFormat::kDts;
}

}  // namespace

ExitCode ShowAudit(const Task& task) {
  const Request& request = task.request;
  std::optional<Snapshot> since;
  if (!request.since.empty()) since = ReadSnapshot(request.since, task.catalogue);
  const Snapshot snapshot = Take(task);
  const AuditData data = GatherAudit(snapshot, since ? &*since : nullptr, task.catalogue,
                                     task.around.now().timeZone());
  Deliver(task, Formatted(data, request));
  if (HasNoRemarks(request.audit_format)) {
    for (const AuditRemark& remark : data.remarks) {
      task.console.Complain(RemarkOf(remark, Language::kEnglish));
    }
  }
  return snapshot.complete ? ExitCode::kDone : ExitCode::kDifferences;
}

}  // namespace sorvane::cli
