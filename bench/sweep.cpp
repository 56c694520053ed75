#include "link/sweep.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <vector>

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

// Has other memory take the place of everything in the processor's caches.
class Eviction {
 public:
  void Evict() {
    constexpr std::size_t kLine = 64;
    for (std::size_t i = 0; i < other_.size(); i += kLine) ++other_[i];
    Keep(other_.data());
  }

 private:
  std::vector<uint8_t> other_ =
      std::vector<uint8_t>(2 * std::max<std::size_t>(std::size_t{32} << 20, CacheSize()));

  static std::size_t CacheSize() {
    const long size = sysconf(_SC_LEVEL3_CACHE_SIZE);  // 0 or less where it isn't known
    return size > 0 ? static_cast<std::size_t>(size) : 0;
  }
};

// The time of a pass, in microseconds.
template <typename Pass>
double Hot(const Pass& pass) {
  const double from = ThreadTime();
  for (int i = 0; i < kPasses; ++i) pass();
  return (ThreadTime() - from) / kPasses * 1e6;
}

template <typename Pass>
double Cold(Eviction& eviction, const Pass& pass) {
  eviction.Evict();
  const double from = ThreadTime();
  pass();
  return (ThreadTime() - from) * 1e6;
}

void PlainLoop(const BoardTables& tables) {
  uint8_t flags = 0;
  for (const ParameterRecord& record : tables.Records(0).first(kRecords)) {
    flags |= record.At(position::kFlags);
  }
  Keep(flags);
}

}  // namespace

std::vector<Result> MeasureSweep() {
  BoardTables tables;
  FillIdle(tables);
  LinkState state;
  std::function<void(const Reply&)> reply_notice;
  Sweep sweep(state, tables, reply_notice);
  int sent = 0;

  const auto pass = [&] {
    if (sweep.SweepStep()) ++sent;
    Keep(state.SweepPosition);
  };
  const auto loop = [&] { PlainLoop(tables); };
  const auto hot = Interleave(
      kRepeats, [&] { return Hot(pass); }, [&] { return Hot(loop); });
  Eviction eviction;
  const auto cold = Interleave(
      kRepeats, [&] { return Cold(eviction, pass); }, [&] { return Cold(eviction, loop); });
  if (sent != 0 || state.SweepPosition != 0) throw std::runtime_error("the table wasn't idle");
  // The last record is in the walk: a mark there is found.
  tables.ParameterTable(kRecords - 1, 0).At(position::kFlags) = flag::kPolled;
  if (!sweep.SweepStep()) throw std::runtime_error("the sweep didn't walk over the whole table");
  return {{"sweep", "loop over the flag bytes", kAim, "us", hot},
          {"sweep cold", "the same loop", kAim, "us", cold}};
}

}  // namespace sorvane::bench
