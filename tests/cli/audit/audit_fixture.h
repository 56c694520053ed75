#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/audit_data.h"
#include "cli/snapshot.h"
#include "support/call_site.h"

namespace sorvane::test {

const Catalogue& TheCatalogue();

// A file of the folder of right answers.
std::filesystem::path GoldenFile(const std::string& name);

// A machine's audit and settings, and what it had counted a month before: three quarters of it, but
// for the resettable totals of takings and vends, which were reset in between.
cli::Snapshot Machine();
cli::Snapshot MonthBefore();

// Lets a snapshot hold a value in the size that it has there.
void Put(cli::Snapshot& snapshot, const std::string& name, std::uint32_t raw);
// Takes a value away.
void Drop(cli::Snapshot& snapshot, const std::string& name);

// One record of the alarm ring.
struct Record {
  std::uint32_t minute;
  std::uint32_t hour;
  std::uint32_t day;
  std::uint32_t month;
  std::uint32_t year;  // since 2000
  std::uint32_t code;
};
void PutRecord(cli::Snapshot& snapshot, int q, const Record& record);

// The audit on a computer whose clock is an hour ahead of UTC.
cli::AuditData Gathered(const cli::Snapshot& snapshot);
cli::AuditData Gathered(const cli::Snapshot& snapshot, const cli::Snapshot& since);

// The notes of the remarks, in their order.
std::vector<cli::AuditNote> NotesOf(const cli::AuditData& data);

// The figure of a name.
const cli::AuditNumber& Figure(const cli::AuditData& data, const std::string& name);

// Fails unless text is what the file holds, byte by byte; leaves it in the current folder then.
void ExpectGolden(const std::string& file, const std::string& text, CallSite at = CallSite::Here());

}  // namespace sorvane::test
