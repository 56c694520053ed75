#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/audit_data.h"
#include "cli/request.h"

namespace sorvane::cli {

// How a person reads the data.
struct AuditManner {
  Language language = Language::kEnglish;
  char mark = '.';  // of amounts
};

struct AuditColumn {
  std::string heading;
  bool figures = false;
};

struct AuditCell {
  std::string text;
  std::optional<uint32_t> bar = {};  // a count that is drawn, too
};

// A table whose first column names the rows. One without a heading for it has no headings at all.
struct AuditTable {
  std::string title;
  std::vector<AuditColumn> columns;
  std::vector<std::vector<AuditCell>> rows;  // each as long as the columns
  bool wide = false;                         // beside no other table
};

// All of the audit but the settings.
std::vector<AuditTable> AuditTables(const AuditData& data, const AuditManner& manner);

// A table for each group of settings of which there are any.
std::vector<AuditTable> SettingTables(const AuditData& data, const AuditManner& manner);

// "2026-03-07" and "09:05".
std::string DayText(const AuditDate& date);
std::string TimeText(const AuditTime& time);

}  // namespace sorvane::cli
