#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "cli/audit/audit_fixture.h"
#include "cli/audit/dts_reader.h"
#include "cli/audit_formats.h"
#include "cli/dts_text.h"
#include "cli/snapshot_file.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::ElementsAre;
using testing::IsEmpty;

DtsFile Written(const Snapshot& snapshot) { return ReadDts(AuditDts(Gathered(snapshot))); }

TEST(DtsTest, SumOfTheDigitsIsThatOfTheBooks) {
  EXPECT_EQ(DtsSum("123456789"), 0xBB3D);
  EXPECT_EQ(DtsSum(""), 0);
  EXPECT_EQ(DtsSum(std::string(4, '\0')), 0);
  EXPECT_EQ(DtsSum("\x01"), 0xC0C1);
}

TEST(DtsTest, SumIsThatOfALongDivision) {
  // Not the larger generator: Qt has it too, compiled otherwise, and on Windows each would be taken
  // for the other's.
  std::minstd_rand random(85);
  for (int i = 0; i < 200; ++i) {
    std::string bytes;
    for (std::size_t n = random() % 60; n > 0; --n) bytes += static_cast<char>(random() % 256);
    ASSERT_EQ(DtsSum(bytes), DividedSum(bytes)) << i;
  }
}

// The reader that the tests below trust.
TEST(DtsTest, ReaderFindsEveryByteThatIsNotTheSame) {
  const std::string good = FileText(GoldenFile("audit.dts"));
  EXPECT_THAT(ReadDts(good).faults, IsEmpty());
  for (std::size_t i = 0; i < good.size(); ++i) {
    std::string bad = good;
    bad[i] = bad[i] == '7' ? '8' : '7';
    // The sender may be any.
    const bool sender = i >= 4 && i < 14;
    EXPECT_EQ(ReadDts(bad).faults.empty(), sender) << i;
    bad.erase(i, 1);
    EXPECT_FALSE(ReadDts(bad).faults.empty()) << i;
  }
}

TEST(DtsTest, WholeMachineIsReadBack) {
  const DtsFile file = Written(Machine());
  EXPECT_THAT(file.faults, IsEmpty());
  EXPECT_THAT(file.Named("ID1"), ElementsAre(ElementsAre("ID1", "100234", "", "", "152")));
  EXPECT_THAT(file.Named("ID4"), ElementsAre(ElementsAre("ID4", "2")));
  EXPECT_THAT(file.Named("ID5"), ElementsAre(ElementsAre("ID5", "261122", "133000")));
  EXPECT_THAT(file.Named("VA1"), ElementsAre(ElementsAre("VA1", "339330", "2140", "56830", "356")));
  EXPECT_EQ(file.Named("PA1").size(), 10U);
  EXPECT_THAT(file.Named("PA1").at(8), ElementsAre("PA1", "9", "250"));
  EXPECT_THAT(file.Named("PA2").at(8), ElementsAre("PA2", "96"));
  EXPECT_THAT(file.Named("PA4").at(8), ElementsAre("PA4", "1"));
  EXPECT_EQ(file.Named("EA1").size(), 20U);
  EXPECT_THAT(file.Named("EA1").front(), ElementsAre("EA1", "OBC_3", "261121", "1642"));
}

TEST(DtsTest, VendsFollowTheirSelection) {
  const DtsFile file = Written(Machine());
  std::string order;
  for (const DtsSegment& segment : file.segments) order += segment.front() + ' ';
  EXPECT_THAT(order, testing::StartsWith("DXS ST ID1 ID4 ID5 VA1 PA1 PA2 PA4 PA1 PA2 PA4 "));
  EXPECT_THAT(order, testing::EndsWith("EA1 EA1 G85 SE DXE "));
}

TEST(DtsTest, WhatIsNotKnownIsLeftOut) {
  Snapshot machine = Machine();
  machine.decimals = 5;
  machine.time = "noon";
  for (const char* name : {"price.1", "selection-vends.1", "free-vends.2", "takings.resettable",
                           "vends.resettable", "alarm.7.day"}) {
    Drop(machine, name);
  }
  const DtsFile file = Written(machine);
  EXPECT_THAT(file.faults, IsEmpty());
  EXPECT_THAT(file.Named("ID4"), IsEmpty());
  EXPECT_THAT(file.Named("ID5"), IsEmpty());
  EXPECT_THAT(file.Named("VA1"), ElementsAre(ElementsAre("VA1", "339330", "2140")));
  EXPECT_THAT(file.Named("PA1").front(), ElementsAre("PA1", "1"));
  EXPECT_EQ(file.Named("PA2").size(), 9U);
  EXPECT_EQ(file.Named("PA4").size(), 9U);
  EXPECT_THAT(file.Named("EA1"), IsEmpty());
}

TEST(DtsTest, DecimalsOfAnyAmountAreTold) {
  Snapshot machine = Machine();
  for (const int decimals : {0, 4}) {
    machine.decimals = decimals;
    EXPECT_THAT(Written(machine).Named("ID4"),
                ElementsAre(ElementsAre("ID4", std::to_string(decimals))));
  }
}

TEST(DtsTest, AlarmWithoutADateHasNoTimeEither) {
  Snapshot machine = Machine();
  const std::uint32_t newest = NumberOf(machine.Find("alarm.newest")->raw);
  const auto first = [&](const Record& record) {
    PutRecord(machine, static_cast<int>(newest), record);
    return Written(machine).Named("EA1").front();
  };
  EXPECT_THAT(first({5, 9, 7, 3, 26, 42}), ElementsAre("EA1", "EJB_10", "260307", "0905"));
  EXPECT_THAT(first({5, 9, 0, 0, 26, 42}), ElementsAre("EA1", "EJB_10"));
  EXPECT_THAT(first({60, 9, 7, 3, 26, 42}), ElementsAre("EA1", "EJB_10", "260307"));
}

TEST(DtsTest, AlarmWithoutAnEventCodeIsLeftOut) {
  Snapshot machine = Machine();
  const std::uint32_t newest = NumberOf(machine.Find("alarm.newest")->raw);
  Put(machine, "alarm." + std::to_string(newest) + ".code", 0);
  const DtsFile file = Written(machine);
  EXPECT_THAT(file.faults, IsEmpty());
  EXPECT_EQ(file.Named("EA1").size(), 19U);
}

TEST(DtsTest, WhatDividesFieldsCannotStandWithinOne) {
  AuditData data = Gathered(Machine());
  data.alarms->front().event = "A*B\r\nC\xC3\xA8<~";
  const DtsFile file = ReadDts(AuditDts(data));
  EXPECT_THAT(file.faults, IsEmpty());
  EXPECT_EQ(file.Named("EA1").front().at(1), "A B  C  <~");
}

TEST(DtsTest, SumAndCountHoldForAnyFields) {
  std::minstd_rand random(1);
  for (int i = 0; i < 200; ++i) {
    DtsText text("ABC0000000");
    for (std::size_t n = random() % 30; n > 0; --n) {
      std::vector<std::string> fields = {"XX1"};
      for (std::size_t f = random() % 5; f > 0; --f) {
        fields.emplace_back(random() % 9, static_cast<char>(random() % 256));
      }
      text.Add(fields);
    }
    ASSERT_THAT(ReadDts(text.Finish()).faults, IsEmpty()) << i;
  }
}

}  // namespace
}  // namespace sorvane::test
