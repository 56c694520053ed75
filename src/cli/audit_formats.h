#pragma once

#include <string>

#include "cli/audit_data.h"
#include "cli/audit_tables.h"

namespace sorvane::cli {

// What a person reads on a terminal, in English.
std::string AuditText(const AuditData& data, char mark);

// A line for each figure and each alarm, always with the same columns; lines end in CR LF and
// fields stand in quotation marks where they must, as RFC 4180 has it.
std::string AuditCsv(const AuditData& data, char mark);

// One object.
std::string AuditJson(const AuditData& data);

// The vending trade's data transfer standard, EVA DTS 6.1. docs/dts.md tells what stands where, and
// what is left out.
std::string AuditDts(const AuditData& data);

// A page that needs nothing from outside: no script, no picture, no letters of its own.
std::string AuditHtml(const AuditData& data, const AuditManner& manner);

}  // namespace sorvane::cli
