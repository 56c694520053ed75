#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/write_plan.h"
#include "session/session.h"

namespace sorvane::cli {

// What became of the writes of a plan; together the lists name each of them once.
struct WriteReport {
  std::vector<std::string> confirmed;
  std::vector<std::string> unsure;  // with what is known, in words
  std::vector<std::string> unsent;
  bool interrupted = false;

  bool AllConfirmed() const { return unsure.empty() && unsent.empty(); }
};

// Sends the writes of a plan in their order. After the first that isn't confirmed because the board
// doesn't answer or holds something else, nothing more is sent; a second copy that the board
// doesn't acknowledge is told, and the rest goes on. Where the person wants the end, the running
// write ends first.
WriteReport SendWrites(Session& session, const WritePlan& plan, const NumberStyle& style,
                       const std::function<bool()>& interrupted, Console& console);

// The report in words, a line for each write.
std::string ReportLines(const WriteReport& report);

}  // namespace sorvane::cli
