// What the audit makes of any snapshot, in each of its forms.

#include <QByteArray>
#include <QJsonDocument>
#include <QXmlStreamReader>
#include <cstddef>
#include <cstdint>
#include <string>

#include "any_snapshot.h"
#include "cli/audit/dts_reader.h"
#include "cli/audit_formats.h"
#include "cli/failure.h"
#include "input.h"

namespace sorvane::fuzz {
namespace {

using cli::AuditData;
using cli::Snapshot;

QByteArray Bytes(const std::string& text) {
  return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

// The transmission is whole, and names the machine and each selection that has a price.
void CheckDts(const AuditData& data) {
  const test::DtsFile file = test::ReadDts(cli::AuditDts(data));
  Require(file.faults.empty(), "a transmission has no faults");
  const auto machine = file.Named("ID1");
  Require(machine.size() == 1 && machine.front().at(1) == std::to_string(data.origin.machine),
          "a transmission names its machine");
  Require(file.Named("PA1").size() == data.selections.size(), "each selection has a segment");
}

void CheckPage(const AuditData& data, const cli::AuditManner& manner) {
  QXmlStreamReader reader(Bytes(cli::AuditHtml(data, manner)));
  while (!reader.atEnd()) reader.readNext();
  Require(!reader.hasError(), "a page is well formed");
}

void Run(const Snapshot& snapshot, const Snapshot& since) {
  const AuditData data =
      cli::GatherAudit(snapshot, &since, TheCatalogue(), QTimeZone(QByteArray("UTC")));
  for (const cli::AuditNumber* number : data.Numbers()) {
    const auto growth = number->Growth();
    Require(!growth || (number->before && *number->now - *number->before == *growth),
            "what has grown is the difference");
  }
  Require(!cli::AuditText(data, '.').empty(), "there is a text");
  Require(cli::AuditCsv(data, ',').ends_with("\r\n"), "a table has whole lines");
  Require(QJsonDocument::fromJson(Bytes(cli::AuditJson(data))).isObject(), "an object is JSON");
  CheckDts(data);
  CheckPage(data, {});
}

}  // namespace
}  // namespace sorvane::fuzz

// The first byte says how much of the input is the earlier snapshot, in sixteen bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace sorvane::fuzz;
  Input input(data, size);
  const std::vector<uint8_t> earlier = input.Take(1U + input.Byte() * 16U);
  Input before(earlier.data(), earlier.size());
  sorvane::cli::Snapshot since = AnySnapshot(before);
  const sorvane::cli::Snapshot now = AnySnapshot(input);
  since.machine = now.machine;
  Run(now, since);
  return 0;
}
