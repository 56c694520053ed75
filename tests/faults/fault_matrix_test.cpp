#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>

#include "faults/rig.h"

namespace sorvane::test::faults {
namespace {

// Sixty records; 60 is the last one, which the walk doesn't reach. Those that are not named here
// have two bytes and no divider.
constexpr int kRecords = 60;
constexpr int kText = 12;
constexpr int kDay = 56;
struct Shape {
  int parameter;
  std::uint8_t command;
  std::uint8_t divider;
};
constexpr Shape kShapes[] = {
    {2, 0, 1},                   // one byte, polled in every second pass
    {3, 3, 2},                   // four bytes; a timeout repeats its frames
    {4, 2, 0x23},                // three bytes; so it does here
    {5, 0, 4},                   // one byte, polled in every fifth pass
    {6, 4, 1},                   // a text of five bytes, polled
    {7, 1, 0x30},                // waits for three passes, and is read once
    {8, 0, 2},                   // one byte; a timeout repeats its frames
    {kText, 15, 0},              // a text of sixteen bytes
    {kDay, 0, 0},   {59, 1, 1},  // the last one that the walk reaches, polled
};
constexpr int kWatched[] = {1, 2, 3, 5, 6, 59, 60};

std::vector<IndexRecord> Rows() {
  std::vector<IndexRecord> rows = PlainRows(kRecords);
  for (const Shape& shape : kShapes) {
    rows[static_cast<std::size_t>(shape.parameter - 1)].command = shape.command;
    rows[static_cast<std::size_t>(shape.parameter - 1)].divider = shape.divider;
  }
  return rows;
}

// An exchange that a fault meets: a parameter that is read, or written with a number or a text.
struct Kind {
  const char* name;
  int parameter;
  bool write = false;
  std::uint32_t number = 0;
};
constexpr Kind kKinds[] = {
    {"ReadOnce", 10},
    {"ReadOfOneByte", kDay},
    {"ReadOfAText", kText},
    {"PolledRead", 2},
    {"PolledText", 6},
    {"RepeatedRead", 3},
    {"RepeatedReadOfOneByte", 8},
    {"ReadAfterPasses", 7},
    {"LastRecordBeforeTheEnd", 59},
    {"Write", 10, true, 4660},
    {"WriteOfOneByte", 13, true, 258},
    {"WriteOfDay0", kDay, true, 0},
    {"WriteOfAText", kText, true},
    {"PolledWrite", 5, true, 77},
    {"RepeatedWrite", 3, true, 305419896},
    {"RepeatedWriteThatWaits", 4, true, 70000},
    {"WriteOfTheLastBeforeTheEnd", 59, true, 513},
    {"WriteOfTheLastRecord", 60, true, 9},
};

constexpr const char* kFaults[] = {
    "silent once",      "silent 3",
    "silent",           "wrong checksum 1",
    "wrong checksum 4", "wrong checksum 5",
    "wrong checksum",   "short reply 1",
    "short reply",      "extra byte 1",
    "extra byte 4",     "extra byte",
    "slow 2",           "slow",
    "late reply 1",     "late reply 2",
    "late reply",       "refuses day 0 2",
    "refuses day 0",    "unplugged",
};

// When the fault begins.
enum class Moment { kBeforeTheFrame, kOnTheWayToTheBoard, kWithinTheReply, kAfterTheReply };
constexpr Moment kMoments[] = {Moment::kBeforeTheFrame, Moment::kOnTheWayToTheBoard,
                               Moment::kWithinTheReply, Moment::kAfterTheReply};
// How long it lasts unless it wears off: within an exchange, and beyond some timeouts.
constexpr int kSpans[] = {7, 2300};

// More than the sweep, the lamps, the timeout and the limit of identification can bring.
constexpr int kMostFiringsInASecond = 36;

class Matrix : public testing::TestWithParam<std::tuple<Kind, const char*, Rig::Wire>> {
 protected:
  struct Desk {
    explicit Desk(Rig::Wire wire) : rig(link, Rows(), wire) {}

    std::int64_t firings = 0;
    Link link{Link::Setup{.parameters = Rows(), .timers = Rig::Counted(firings)}};
    Rig rig;
  };

  static void Exchange(Rig& rig, const Kind& kind) {
    if (!kind.write) {
      rig.Watch(kind.parameter);
    } else if (kind.parameter == kText) {
      rig.WriteText(kind.parameter, "Nuovo");
    } else {
      rig.Write(kind.parameter, kind.number);
    }
  }

  static void WaitFor(Rig& rig, Moment moment) {
    const std::int64_t before = rig.Frames();
    if (moment == Moment::kBeforeTheFrame) return;
    // The last record never comes to that.
    rig.RunUntil([&] { return rig.Frames() > before; }, 400);
    if (moment == Moment::kOnTheWayToTheBoard) rig.Run(3);
    if (moment == Moment::kWithinTheReply) rig.Run(13);
    if (moment == Moment::kAfterTheReply) rig.RunUntil([&] { return rig.Quiet(); }, 400);
  }

  // Time passes, with no more timers firing in each second than the rules need.
  static void Pass(Desk& desk, int span) {
    for (; span > 0; span -= 1000) {
      const std::int64_t before = desk.firings;
      desk.rig.Run(std::min(span, 1000));
      EXPECT_LE(desk.firings - before, kMostFiringsInASecond);
    }
  }

  // With the line in order again, every watched value comes anew within as many passes as its
  // divider says.
  static void ExpectFresh(Rig& rig) {
    const std::vector<int> before = rig.Refreshed();
    const int start = rig.model.Passes();
    std::map<int, int> missing;  // and the pass by which it must come
    for (int i = 1; i < kRecords; ++i) {
      const LinkModel::Record& record = rig.model.Of(i);
      if (record.polled && (record.reload > 0 || !record.fresh)) {
        // The pass in which the line came to rest had begun before.
        missing[i] = start + std::max(record.reload, record.wait) + 2;
      }
    }
    int late = 0;
    rig.RunUntil([&] {
      std::erase_if(missing, [&](const auto& each) {
        const auto place = static_cast<std::size_t>(each.first);
        if (rig.Refreshed()[place] == before[place]) return false;
        EXPECT_EQ(rig.link.Record(each.first).At(6) & 1, 1) << "parameter " << each.first;
        return true;
      });
      for (const auto& each : missing) {
        if (rig.model.Passes() > each.second) late = each.first;
      }
      return missing.empty() || late != 0;
    });
    EXPECT_EQ(late, 0) << "a parameter that doesn't come anew";
    EXPECT_TRUE(missing.empty());
  }

  void Play(Moment moment, int span) {
    const auto& [kind, fault, wire] = GetParam();
    Desk desk(wire);
    Rig& rig = desk.rig;
    rig.Connect();
    ASSERT_TRUE(rig.RunUntil([&] { return rig.model.At() == LinkModel::Stage::kStanding; }));
    for (const int parameter : kWatched) rig.Watch(parameter);
    rig.Run(700);
    Exchange(rig, kind);
    WaitFor(rig, moment);
    rig.Fault(fault);
    Pass(desk, span);
    rig.SetBoard(1, {9, 8});
    rig.SetBoard(2, {200});
    rig.Watch(20);
    rig.Fault("none");
    ASSERT_TRUE(rig.GetInStep()) << "the line doesn't come to rest";
    ExpectFresh(rig);
    Pass(desk, 1500);
    ASSERT_TRUE(rig.RunUntil([&] { return rig.Quiet(); }));
    rig.ledger.Close();
    rig.Compare();
    EXPECT_TRUE(rig.link.dialogs.Shown().empty());
  }
};

TEST_P(Matrix, TheProgramDoesAsItsRulesSay) {
  for (const Moment moment : kMoments) {
    for (const int span : kSpans) {
      SCOPED_TRACE("moment " + std::to_string(static_cast<int>(moment)) + ", " +
                   std::to_string(span) + " ms");
      Play(moment, span);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, Matrix,
                         testing::Combine(testing::ValuesIn(kKinds), testing::ValuesIn(kFaults),
                                          testing::Values(Rig::Wire::kByteByByte,
                                                          Rig::Wire::kGathering)),
                         [](const auto& one) {
                           return CaseName(std::get<0>(one.param).name, std::get<1>(one.param),
                                           std::get<2>(one.param));
                         });

}  // namespace
}  // namespace sorvane::test::faults
