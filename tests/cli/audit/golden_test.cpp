#include <gtest/gtest.h>

#include "cli/audit/audit_fixture.h"
#include "cli/audit_formats.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;

// A machine of which all is known, and the same after an earlier visit.
TEST(AuditGoldenTest, Text) {
  ExpectGolden("audit.txt", AuditText(Gathered(Machine()), '.'));
  ExpectGolden("audit-since.txt", AuditText(Gathered(Machine(), MonthBefore()), ','));
}

TEST(AuditGoldenTest, Csv) {
  ExpectGolden("audit.csv", AuditCsv(Gathered(Machine()), '.'));
  ExpectGolden("audit-since.csv", AuditCsv(Gathered(Machine(), MonthBefore()), ','));
}

TEST(AuditGoldenTest, Json) {
  ExpectGolden("audit.json", AuditJson(Gathered(Machine())));
  ExpectGolden("audit-since.json", AuditJson(Gathered(Machine(), MonthBefore())));
}

TEST(AuditGoldenTest, Dts) { ExpectGolden("audit.dts", AuditDts(Gathered(Machine()))); }

TEST(AuditGoldenTest, Html) {
  ExpectGolden("audit.en.html", AuditHtml(Gathered(Machine()), {}));
  ExpectGolden("audit-since.it.html", AuditHtml(Gathered(Machine(), MonthBefore()),
                                                {.language = Language::kItalian, .mark = ','}));
}

// The standard knows nothing of an earlier visit.
TEST(AuditGoldenTest, DtsIsTheSameAfterAnEarlierVisit) {
  ExpectGolden("audit.dts", AuditDts(Gathered(Machine(), MonthBefore())));
}

}  // namespace
}  // namespace sorvane::test
