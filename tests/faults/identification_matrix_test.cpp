#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "faults/rig.h"

namespace sorvane::test::faults {
namespace {

constexpr const char* kFaults[] = {
    "silent once",   "silent 3",    "wrong checksum 1", "wrong checksum 4", "wrong checksum 5",
    "short reply 1", "short reply", "extra byte 1",     "extra byte 5",     "slow 2",
    "slow",          "silent",      "late reply 1",     "late reply",       "refuses day 0",
    "unplugged",
};
constexpr int kSpans[] = {4, 3300};
constexpr int kMostFiringsInASecond = 36;

// Each of the seven questions meets each fault.
class Identification : public testing::TestWithParam<std::tuple<int, const char*, Rig::Wire>> {
 protected:
  // Half of the records repeat their frames after a timeout: where an earlier connection left the
  // sweep decides what a timeout does.
  static std::vector<IndexRecord> Rows() {
    std::vector<IndexRecord> rows = PlainRows(60);
    rows[2].divider = 2;
    return rows;
  }

  // The box that stands is answered: by Retry, so that the connection comes to stand once the fault
  // is over, or where a port is missing by OK and another try.
  static void AnswerAndGoOn(Rig& rig) {
    if (rig.model.Box().empty()) return;
    if (rig.model.Box() == "Error com") {
      rig.AnswerBox(Answer::kOk);
      rig.Disconnect();
      rig.Connect();
    } else {
      rig.AnswerBox(Answer::kRetry);
    }
  }

  static bool MayMislead(const std::string& fault, Rig::Wire wire) {
    return fault.starts_with("late reply") ||
           (fault.starts_with("extra byte") && wire == Rig::Wire::kByteByByte);
  }

  void Play(bool after_another, int later, int span) {
    const int question = std::get<0>(GetParam());
    const char* const fault = std::get<1>(GetParam());
    const Rig::Wire wire = std::get<2>(GetParam());
    std::int64_t firings = 0;
    Link link({.parameters = Rows(), .timers = Rig::Counted(firings)});
    Rig rig(link, Rows(), wire);
    if (after_another) {
      rig.Connect();
      ASSERT_TRUE(rig.RunUntil([&] { return rig.model.At() == LinkModel::Stage::kStanding; }));
      rig.Watch(3);
      rig.Fault("silent");
      rig.Run(300);
      ASSERT_EQ(rig.model.Position(), 3);
      rig.Fault("none");
      rig.Disconnect();
    }
    const std::int64_t before = rig.Frames();
    rig.Connect();
    ASSERT_TRUE(rig.RunUntil([&] { return rig.Frames() - before >= question; }));
    rig.Run(later);
    rig.Fault(fault);
    const std::int64_t end = rig.Now() + span;
    while (rig.Now() < end && rig.IsWell() && rig.model.Ended() == 0) {
      const std::int64_t before_step = firings;
      rig.Run(500);
      EXPECT_LE(firings - before_step, kMostFiringsInASecond);
      AnswerAndGoOn(rig);
    }
    rig.Fault("none");
    for (int i = 0; i < 30 && rig.IsWell() && rig.model.Ended() == 0; ++i) {
      if (rig.RunUntil([&] { return rig.model.At() == LinkModel::Stage::kStanding; }, 1500)) break;
      AnswerAndGoOn(rig);
    }
    // An answer that is taken for that to another question makes the board another one.
    if (rig.model.Ended() > 0) {
      EXPECT_TRUE(MayMislead(fault, wire));
      return;
    }
    ASSERT_EQ(rig.model.At(), LinkModel::Stage::kStanding);
    rig.Watch(3);
    rig.Watch(59);
    rig.Run(2500);
    ASSERT_TRUE(rig.GetInStep());
    rig.Run(2500);
    EXPECT_GT(rig.Refreshed()[3], 0);
    EXPECT_GT(rig.Refreshed()[59], 0);
  }
};

TEST_P(Identification, TheConnectionComesToStandOnceTheFaultIsOver) {
  for (const bool after_another : {false, true}) {
    for (const int later : {0, 11, 13}) {
      for (const int span : kSpans) {
        SCOPED_TRACE(std::string(after_another ? "second" : "first") + " connection, " +
                     std::to_string(later) + " ms after the frame, for " + std::to_string(span));
        Play(after_another, later, span);
        if (HasFailure()) return;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Questions, Identification,
                         testing::Combine(testing::Range(1, 8), testing::ValuesIn(kFaults),
                                          testing::Values(Rig::Wire::kByteByByte,
                                                          Rig::Wire::kGathering)),
                         [](const auto& one) {
                           return CaseName("Question" + std::to_string(std::get<0>(one.param)),
                                           std::get<1>(one.param), std::get<2>(one.param));
                         });

}  // namespace
}  // namespace sorvane::test::faults
