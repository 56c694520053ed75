#include "cli/audit/audit_fixture.h"

#include <gtest/gtest.h>

#include <QTimeZone>
#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "cli/snapshot_file.h"
#include "cli/value_text.h"

namespace sorvane::test {
namespace {

cli::HeldValue& Held(cli::Snapshot& snapshot, const std::string& name) {
  const auto found = std::ranges::find(snapshot.values, name, &cli::HeldValue::name);
  if (found == snapshot.values.end()) throw std::invalid_argument("not held: " + name);
  return *found;
}

QTimeZone HourAhead() { return QTimeZone(3600); }

}  // namespace

const Catalogue& TheCatalogue() {
  static const Catalogue catalogue;
  return catalogue;
}

std::filesystem::path GoldenFile(const std::string& name) {
  return std::filesystem::path(SORVANE_GOLDEN_FOLDER) / name;
}

cli::Snapshot Machine() { return cli::ReadSnapshot(GoldenFile("machine.json"), TheCatalogue()); }

cli::Snapshot MonthBefore() { return cli::ReadSnapshot(GoldenFile("before.json"), TheCatalogue()); }

void Put(cli::Snapshot& snapshot, const std::string& name, std::uint32_t raw) {
  cli::HeldValue& held = Held(snapshot, name);
  held.raw = cli::BytesOf(raw, static_cast<int>(held.raw.size()));
  EXPECT_EQ(cli::NumberOf(held.raw), raw) << name << " is of another size";
}

void Drop(cli::Snapshot& snapshot, const std::string& name) {
  Held(snapshot, name);
  std::erase_if(snapshot.values, [&](const cli::HeldValue& held) { return held.name == name; });
}

void PutRecord(cli::Snapshot& snapshot, int q, const Record& record) {
  const std::string name = "alarm." + std::to_string(q) + '.';
  Put(snapshot, name + "minute", record.minute);
  Put(snapshot, name + "hour", record.hour);
  Put(snapshot, name + "day", record.day);
  Put(snapshot, name + "month", record.month);
  Put(snapshot, name + "year", record.year);
  Put(snapshot, name + "code", record.code);
}

cli::AuditData Gathered(const cli::Snapshot& snapshot) {
  return cli::GatherAudit(snapshot, nullptr, TheCatalogue(), HourAhead());
}

cli::AuditData Gathered(const cli::Snapshot& snapshot, const cli::Snapshot& since) {
  return cli::GatherAudit(snapshot, &since, TheCatalogue(), HourAhead());
}

std::vector<cli::AuditNote> NotesOf(const cli::AuditData& data) {
  std::vector<cli::AuditNote> notes;
  for (const cli::AuditRemark& remark : data.remarks) notes.push_back(remark.note);
  return notes;
}

const cli::AuditNumber& Figure(const cli::AuditData& data, const std::string& name) {
  for (const cli::AuditNumber* number : data.Numbers()) {
    if (number->entry->name == name) return *number;
  }
  throw std::invalid_argument("no figure " + name);
}

void ExpectGolden(const std::string& file, const std::string& text, CallSite at) {
  const std::string right = cli::FileText(GoldenFile(file));
  if (text == right) return;
  std::ofstream(file, std::ios::binary) << text;
  const auto [there, here] = std::ranges::mismatch(right, text);
  const auto line = 1 + std::count(right.begin(), there, '\n');
  FailAt(at, file + " differs from line " + std::to_string(line) + " on; it is left in " +
                 std::filesystem::current_path().string());
}

}  // namespace sorvane::test
