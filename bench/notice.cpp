#include <QCoreApplication>
#include <QEvent>
#include <array>
#include <map>
#include <stdexcept>

#include "bench/board_program.h"
#include "bench/clocks.h"
#include "bench/measures.h"
#include "board/parameter.h"

namespace sorvane::bench {
namespace {

constexpr double kAim = 0.005;
constexpr int kRepeats = 15;
constexpr double kTick = 40e3;  // microseconds

// One page of each kind.
struct Page {
  const char* name;
  const char* entry;
};
constexpr std::array<Page, 10> kPages = {{{"password", "MnuPassword"},
                                          {"settings", "MnuImpostazioni"},
                                          {"prices", "MnuPrezzi"},
                                          {"payment", "MnuPagamento"},
                                          {"keys", "Mnutasti"},
                                          {"clock", "MnuOrologio"},
                                          {"totals", "MnuTotali"},
                                          {"counters", "MnuContatori"},
                                          {"coins", "MnuMonete"},
                                          {"alarms", "MnuAllarmi"}}};
constexpr std::array<const char*, 3> kTheirTwins = {"MnuSconti", "MnuColonne", "MnuBanconote"};

// Counts what is painted.
class PaintCounter : public QObject {
 public:
  PaintCounter() { QCoreApplication::instance()->installEventFilter(this); }

  int painted = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++painted;
    return QObject::eventFilter(watched, event);
  }
};

// Whether the neighbour of a value may be none that a board has: a count of selections, and months.
bool MustStay(int32_t index) {
  constexpr int32_t kMonthOfAlarm = 4;
  const int32_t byte = index - parameter::kAlarmRing;
  const bool in_ring = byte >= 0 && byte < parameter::kAlarmBytes;
  return (in_ring && byte % parameter::kAlarmRecordLength == kMonthOfAlarm) ||
         index == parameter::kSelections || index == parameter::kClockMonth;
}

uint8_t Watchers(BoardProgram& program, int32_t index) {
  return program.tables.ParameterTable(index, 0).At(position::kWatchers);
}

bool AllFresh(BoardProgram& program) {
  for (int32_t i = 0; i < program.tables.RecordCount(0); ++i) {
    const uint8_t flags = program.tables.ParameterTable(i, 0).At(position::kFlags);
    if ((flags & flag::kWatched) != 0 && (flags & flag::kFresh) == 0) return false;
  }
  return true;
}

// Opens a page, waits for all replies and returns the parameters that it watches.
std::vector<int32_t> Open(BoardProgram& program, const char* entry) {
  std::vector<uint8_t> before;
  before.reserve(static_cast<std::size_t>(program.tables.RecordCount(0)));
  for (int32_t i = 0; i < program.tables.RecordCount(0); ++i) {
    before.push_back(Watchers(program, i));
  }
  program.Choose(entry);
  program.RunUntil([&] { return AllFresh(program); });
  std::vector<int32_t> watched;
  for (int32_t i = 0; i < program.tables.RecordCount(0); ++i) {
    if (Watchers(program, i) > before.at(static_cast<std::size_t>(i))) watched.push_back(i);
  }
  return watched;
}

// Brings another value with each reply and has the pages paint it. Returns the mean of all, in
// microseconds.
double Notify(BoardProgram& program, std::vector<Reply>& replies) {
  double time = 0;
  for (Reply& reply : replies) {
    if (!MustStay(reply.index)) reply.bytes.front() ^= 1;
    const double from = ThreadTime();
    program.Notify(reply);
    QCoreApplication::processEvents();
    time += ThreadTime() - from;
  }
  return time / static_cast<double>(replies.size()) * 1e6;
}

// The page comes to the front of the others.
Result Measure(BoardProgram& program, const Page& page, std::vector<Reply> replies) {
  program.Choose(page.entry);
  QCoreApplication::processEvents();
  int painted = 0;
  const auto ours = [&] {
    const PaintCounter counter;
    const double mean = Notify(program, replies);
    painted = counter.painted;
    return mean;
  };
  Result result{std::string("notice ") + page.name, "the tick of 40 ms", kAim, "us",
                Interleave(kRepeats, ours, [] { return kTick; })};
  if (painted == 0) throw std::runtime_error("nothing was painted");
  return result;
}

}  // namespace

std::vector<Result> MeasureNotice() {
  // The tick is short, so that the pages fill soon.
  BoardProgram program({.tick = std::chrono::milliseconds(1)});
  std::map<int32_t, Reply> replies;
  program.on_reply = [&](const Reply& reply) { replies[reply.index] = reply; };
  program.Connect();
  std::vector<std::vector<int32_t>> watched;
  watched.reserve(kPages.size());
  for (const Page& page : kPages) watched.push_back(Open(program, page.entry));
  for (const char* entry : kTheirTwins) Open(program, entry);
  program.on_reply = {};

  std::vector<Result> results;
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    std::vector<Reply> of_page;
    of_page.reserve(watched.at(i).size());
    for (const int32_t index : watched.at(i)) of_page.push_back(replies.at(index));
    results.push_back(Measure(program, kPages.at(i), of_page));
  }
  return results;
}

}  // namespace sorvane::bench
