#include <QApplication>
#include <QLoggingCategory>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "bench/measures.h"

namespace {

using namespace sorvane::bench;

struct MeasureRow {
  const char* name;
  std::vector<Result> (*measure)();
};

constexpr MeasureRow kMeasures[] = {
    {"sweep", MeasureSweep},   {"exchange", MeasureExchange}, {"paced", MeasurePaced},
    {"notice", MeasureNotice}, {"alarms", MeasureAlarms},     {"connecting", MeasureConnecting},
    {"backup", MeasureBackup}, {"start", MeasureStart},       {"idle", MeasureIdle},
};

// Prints what a measure came to. Returns whether nothing has failed.
bool Run(const MeasureRow& row) {
  bool good = true;
  try {
    for (const Result& result : row.measure()) {
      std::printf("%s\n", Line(result).c_str());
      good = good && Judge(result) != Verdict::kFailed;
    }
  } catch (const std::exception& error) {
    std::printf("%s: %s\n", row.name, error.what());
    good = false;
  }
  std::fflush(stdout);
  return good;
}

}  // namespace

// SorvaneBench [MEASURE]...: all measures, or those named. Fails if one does, or if a ratio is
// above twice its aim. Its own windows show nowhere.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // That platform complains of each window that it can't give size hints.
  QLoggingCategory::setFilterRules("default.warning=false");
  const QApplication app(argc, argv);
  const std::vector<std::string> names(argv + 1, argv + argc);
  std::printf("%s\n", Heading().c_str());
  std::size_t run = 0;
  bool good = true;
  for (const MeasureRow& row : kMeasures) {
    if (!names.empty() && std::find(names.begin(), names.end(), row.name) == names.end()) continue;
    ++run;
    good = Run(row) && good;
  }
  return good && run >= names.size() && run > 0 ? 0 : 1;
}
