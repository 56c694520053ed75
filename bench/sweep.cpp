#include "link/sweep.h"

#include <cstdint>
#include <span>
#include <stdexcept>

#include "bench/clocks.h"
#include "bench/measures.h"
#include "board/board_tables.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 1.3;
constexpr int kRepeats = 51;
constexpr int kPasses = 100;

// The most that a table counts; of 33,000 places the rest is never walked.
constexpr int16_t kRecords = INT16_MAX;

// Makes the compiler believe that value is used and that all memory may have changed.
template <typename Value>
void Keep(const Value& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

// The marks of records that nobody polls: never asked for, read once, or read and still watched.
void FillIdle(BoardTables& tables) {
  constexpr uint8_t kIdle[] = {0, flag::kFresh, flag::kFresh | flag::kWatched};
  tables.RecordCount(0) = kRecords;
  for (int32_t i = 0; i < kRecords; ++i) {
    tables.ParameterTable(i, 0).At(position::kFlags) = kIdle[i % 3];
  }
}

double PerPass(double from) { return (ThreadTime() - from) / kPasses * 1e6; }

double PassOfSweep(Sweep& sweep, LinkState& state) {
  const double from = ThreadTime();
  for (int pass = 0; pass < kPasses; ++pass) {
    sweep.SweepStep();
    Keep(state.SweepPosition);
  }
  return PerPass(from);
}

double PlainLoop(const BoardTables& tables) {
  const std::span<const ParameterRecord> records = tables.Records(0).first(kRecords);
  const double from = ThreadTime();
  for (int pass = 0; pass < kPasses; ++pass) {
    uint8_t flags = 0;
    for (const ParameterRecord& record : records) flags |= record.At(position::kFlags);
    Keep(flags);
  }
  return PerPass(from);
}

}  // namespace

std::vector<Result> MeasureSweep() {
  BoardTables tables;
  FillIdle(tables);
  LinkState state;
  Sweep sweep(state, tables);
  int sent = 0;
  sweep.send_frame = [&] { ++sent; };

  const auto samples = Interleave(
      kRepeats, [&] { return PassOfSweep(sweep, state); }, [&] { return PlainLoop(tables); });
  if (sent != 0 || state.SweepPosition != 0) throw std::runtime_error("the table wasn't idle");
  // The last record is in the walk: a mark there is found.
  tables.ParameterTable(kRecords - 1, 0).At(position::kFlags) = flag::kPolled;
  sweep.SweepStep();
  if (sent != 1) throw std::runtime_error("the sweep didn't walk over the whole table");
  return {{"sweep", "loop over the flag bytes", kAim, "us", samples}};
}

}  // namespace sorvane::bench
