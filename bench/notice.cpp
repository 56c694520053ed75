#include <QCoreApplication>
#include <QEvent>
#include <map>
#include <stdexcept>

#include "bench/board_program.h"
#include "bench/clocks.h"
#include "bench/measures.h"
#include "board/parameter.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 0.025;
constexpr int kRepeats = 15;
constexpr double kTick = 40e3;  // microseconds

constexpr const char* kPages[] = {
    "MnuPassword", "MnuImpostazioni", "MnuPrezzi",   "MnuSconti", "MnuPagamento",
    "Mnutasti",    "MnuColonne",      "MnuOrologio", "MnuTotali", "MnuContatori",
    "MnuMonete",   "MnuBanconote",    "MnuAllarmi",
};

// Counts what is painted.
class PaintCounter : public QObject {
 public:
  int painted = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++painted;
    return QObject::eventFilter(watched, event);
  }
};

// Whether the neighbour of a value may be none that a board has: a count of selections, parts of
// dates, and the alarm ring.
bool MustStay(int32_t index) {
  const bool alarm = index >= parameter::kAlarmRing && index <= parameter::kAlarmPointer;
  return alarm || index == parameter::kSelections || index == parameter::kClockDay ||
         index == parameter::kClockMonth;
}

// Opens all pages and returns the last reply of each parameter that they watch.
std::vector<Reply> OpenAllPages(BoardProgram& program) {
  std::map<int32_t, Reply> replies;
  program.on_reply = [&](const Reply& reply) { replies[reply.index] = reply; };
  program.Connect();
  for (const char* page : kPages) program.Choose(page);
  // The last record that any page watches.
  const auto all_fresh = [&] {
    for (int32_t i = 0; i < program.tables.RecordCount(0); ++i) {
      const uint8_t flags = program.tables.ParameterTable(i, 0).At(position::kFlags);
      if ((flags & flag::kWatched) != 0 && (flags & flag::kFresh) == 0) return false;
    }
    return true;
  };
  program.RunUntil(all_fresh);
  program.on_reply = {};
  std::vector<Reply> all;
  all.reserve(replies.size());
  for (const auto& [index, reply] : replies) all.push_back(reply);
  return all;
}

// Hands the pages a reply of each parameter and has them paint it. Returns the mean of all.
double Notify(BoardProgram& program, const std::vector<Reply>& replies) {
  double time = 0;
  for (const Reply& reply : replies) {
    const double from = ThreadTime();
    program.Notify(reply);
    QCoreApplication::processEvents();
    time += ThreadTime() - from;
  }
  return time / static_cast<double>(replies.size()) * 1e6;
}

}  // namespace

std::vector<Result> MeasureNotice() {
  // The tick is short, so that the pages fill soon.
  BoardProgram program({.tick = std::chrono::milliseconds(1)});
  std::vector<Reply> replies = OpenAllPages(program);

  PaintCounter counter;
  QCoreApplication::instance()->installEventFilter(&counter);
  Notify(program, replies);
  QCoreApplication::instance()->removeEventFilter(&counter);
  if (counter.painted == 0) throw std::runtime_error("nothing was painted");

  // Each round brings other values than the one before it, so that there is something to paint.
  const auto ours = [&] {
    for (Reply& reply : replies) {
      if (!MustStay(reply.index)) reply.bytes.front() ^= 1;
    }
    return Notify(program, replies);
  };
  return {{"notice", "the tick of 40 ms", kAim, "us",
           Interleave(kRepeats, ours, [] { return kTick; })}};
}

}  // namespace sorvane::bench
