#include "cli/audit_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/audit/audit_fixture.h"
#include "cli/audit_formats.h"
#include "cli/failure.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint32_t kMost = 4294967295U;

std::vector<int> NumbersOf(const std::vector<AuditSelection>& selections) {
  std::vector<int> numbers;
  for (const AuditSelection& selection : selections) numbers.push_back(selection.number);
  return numbers;
}

// A machine of six selections that has vended from no other.
Snapshot SixSelections() {
  Snapshot machine = Machine();
  Put(machine, "selections", 6);
  for (int n = 7; n <= 10; ++n) {
    for (const char* name : {"selection-vends.", "free-vends.", "motor-blocks."}) {
      Put(machine, name + std::to_string(n), 0);
    }
  }
  return machine;
}

TEST(AuditDataTest, WholeMachineLeavesNothingToRemark) {
  const AuditData data = Gathered(Machine());
  EXPECT_THAT(data.remarks, IsEmpty());
  for (const AuditNumber* number : data.Numbers()) EXPECT_TRUE(number->now) << number->entry->name;
}

TEST(AuditDataTest, EveryFigureOfTheCatalogueIsToldOnce) {
  const AuditData data = Gathered(Machine());
  std::vector<std::string> told;
  for (const AuditNumber* number : data.Numbers()) told.push_back(number->entry->name);
  std::size_t figures = 0;
  for (const CatalogueEntry& entry : TheCatalogue().Entries()) {
    const bool figure = entry.group == Group::kAudit || entry.group == Group::kPrices ||
                        entry.group == Group::kCoins;
    EXPECT_EQ(std::ranges::count(told, entry.name), figure ? 1 : 0) << entry.name;
    figures += figure ? 1 : 0;
  }
  EXPECT_EQ(told.size(), figures);
}

TEST(AuditDataTest, SelectionsThatTheMachineDoesNotHaveAreNotTold) {
  EXPECT_THAT(NumbersOf(Gathered(SixSelections()).selections), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(Gathered(SixSelections()).motors.size(), 6U);
}

TEST(AuditDataTest, SelectionThatHasVendedIsToldWhateverTheMachineHasNow) {
  Snapshot machine = SixSelections();
  Put(machine, "selection-vends.8", 1);
  Put(machine, "free-vends.9", 1);
  Put(machine, "motor-blocks.10", 1);
  // Two numbers whose sum is 0 in four bytes.
  Put(machine, "selection-vends.10", kMost);
  Put(machine, "free-vends.10", 1);
  EXPECT_THAT(NumbersOf(Gathered(machine).selections), ElementsAre(1, 2, 3, 4, 5, 6, 8, 9, 10));
  EXPECT_EQ(Gathered(machine).motors.back().number, 10);
  EXPECT_EQ(Gathered(machine).motors.size(), 7U);
}

TEST(AuditDataTest, MotorWithoutASelectionAndWithoutACountIsNotTold) {
  Snapshot machine = SixSelections();
  std::erase_if(machine.values,
                [](const HeldValue& held) { return held.name == "motor-blocks.8"; });
  EXPECT_EQ(Gathered(machine).motors.size(), 6U);
}

TEST(AuditDataTest, AllTenSelectionsAreToldWhereTheirNumberIsNotKnown) {
  Snapshot machine = SixSelections();
  Drop(machine, "selections");
  EXPECT_EQ(Gathered(machine).selections.size(), 10U);
}

TEST(AuditDataTest, AcceptedBanknotesAreTheBitsOfBothBytes) {
  Snapshot machine = Machine();
  Put(machine, "banknotes.low", 0x81);
  Put(machine, "banknotes.high", 0x40);
  std::vector<int> accepted;
  for (const AuditBanknote& banknote : Gathered(machine).banknotes) {
    if (banknote.accepted.value()) accepted.push_back(banknote.channel);
  }
  EXPECT_THAT(accepted, ElementsAre(1, 8, 15));
  Drop(machine, "banknotes.high");
  EXPECT_TRUE(Gathered(machine).banknotes.at(7).accepted);
  EXPECT_FALSE(Gathered(machine).banknotes.at(8).accepted);
}

TEST(AuditDataTest, ValueThatIsMissingIsNotANought) {
  Snapshot machine = Machine();
  Drop(machine, "vends.total");
  machine.complete = false;
  const AuditData data = Gathered(machine);
  EXPECT_FALSE(Figure(data, "vends.total").now);
  EXPECT_THAT(NotesOf(data), ElementsAre(AuditNote::kIncomplete));
  EXPECT_THAT(AuditText(data, '.'),
              HasSubstr("\n  vends                          -         356\n"));
  EXPECT_THAT(AuditCsv(data, '.'),
              HasSubstr("figure,vends.total,\"vends, not resettable\",,,\r\n"));
  EXPECT_THAT(AuditJson(data), HasSubstr(R"({"name": "vends.total", "raw": null, "shown": null,)"));
  EXPECT_THAT(AuditDts(data), HasSubstr("\r\nVA1*339330**56830*356\r\n"));
  EXPECT_THAT(AuditHtml(data, {}),
              HasSubstr(R"(<th scope="row">vends</th><td class="figure">-</td>)"));
}

TEST(AuditDataTest, MachineOfWhichNothingIsHeldIsToldAllTheSame) {
  Snapshot machine = Machine();
  machine.values.clear();
  machine.complete = false;
  const AuditData data = Gathered(machine);
  EXPECT_THAT(NotesOf(data), ElementsAre(AuditNote::kAlarmsNotHeld, AuditNote::kIncomplete));
  EXPECT_THAT(AuditText(data, '.'), HasSubstr("Note: the board hasn't answered all"));
  EXPECT_THAT(AuditJson(data), HasSubstr("\"alarms\": null}"));
  EXPECT_THAT(AuditDts(data), Not(HasSubstr("VA1")));
}

TEST(AuditDataTest, AmountsAreDrawnWithTheDecimalsOfTheBoard) {
  Snapshot machine = Machine();
  const auto takings = [&](int decimals) {
    machine.decimals = decimals;
    const AuditData data = Gathered(machine);
    return data.Shown(Figure(data, "takings.total"), 339330, ',');
  };
  EXPECT_EQ(takings(0), "339330");
  EXPECT_EQ(takings(1), "33933,0");
  EXPECT_EQ(takings(4), "33,9330");
  EXPECT_EQ(takings(5), "339330");
  EXPECT_THAT(NotesOf(Gathered(machine)), ElementsAre(AuditNote::kNoDecimals));
  machine.decimals = 4;
  EXPECT_THAT(NotesOf(Gathered(machine)), IsEmpty());
}

TEST(AuditDataTest, GreatestCountIsToldWhole) {
  Snapshot machine = Machine();
  for (const char* name : {"takings.total", "vends.total", "selection-vends.1"}) {
    Put(machine, name, kMost);
  }
  const AuditData data = Gathered(machine);
  EXPECT_THAT(AuditText(data, '.'), HasSubstr("42949672.95"));
  EXPECT_THAT(AuditText(data, '.'), HasSubstr("4294967295"));
  EXPECT_THAT(AuditJson(data), HasSubstr("\"raw\": 4294967295, \"shown\": \"42949672.95\""));
  EXPECT_THAT(AuditDts(data), HasSubstr("VA1*4294967295*4294967295*56830*356\r\n"));
  EXPECT_THAT(AuditHtml(data, {}), HasSubstr("<rect width=\"100.0\" height=\"10\"/>"));
}

TEST(AuditDataTest, GrowthIsWhatWasCountedSince) {
  const AuditData data = Gathered(Machine(), MonthBefore());
  EXPECT_EQ(Figure(data, "vends.total").Growth(), 2140U - 1605U);
  EXPECT_EQ(Figure(data, "free-vends.10").Growth(), 0U);
  EXPECT_FALSE(Figure(data, "price.1").Growth());
  EXPECT_EQ(data.since, "2026-10-20T08:00:00Z");
}

TEST(AuditDataTest, GrowthFromNoughtToTheGreatestCountIsNoReset) {
  Snapshot machine = Machine();
  Snapshot before = MonthBefore();
  Put(machine, "visits", kMost);
  Put(before, "visits", 0);
  EXPECT_EQ(Figure(Gathered(machine, before), "visits").Growth(), kMost);
}

TEST(AuditDataTest, CountThatFellIsAResetAndNoNegativeNumber) {
  const AuditData data = Gathered(Machine(), MonthBefore());
  EXPECT_TRUE(Figure(data, "takings.resettable").Fell());
  EXPECT_FALSE(Figure(data, "takings.resettable").Growth());
  ASSERT_THAT(NotesOf(data), ElementsAre(AuditNote::kReset));
  EXPECT_EQ(data.remarks.front().names, "takings.resettable, vends.resettable");
  for (const std::string& text :
       {AuditText(data, '.'), AuditCsv(data, '.'), AuditJson(data), AuditHtml(data, {})}) {
    EXPECT_THAT(text, HasSubstr("reset"));
    EXPECT_THAT(text, Not(HasSubstr("-3000")));
    EXPECT_THAT(text, Not(HasSubstr("-30.00")));
    EXPECT_THAT(text, Not(HasSubstr("42949")));
  }
}

TEST(AuditDataTest, CountThatNobodyCanResetAsFarAsIsKnownIsNamedByItself) {
  Snapshot before = MonthBefore();
  Put(before, "vends.total", kMost);
  Put(before, "power-ons", 1000);
  const AuditData data = Gathered(Machine(), before);
  ASSERT_THAT(NotesOf(data), ElementsAre(AuditNote::kReset, AuditNote::kUnexpectedlyLow));
  EXPECT_EQ(data.remarks.back().names, "vends.total, power-ons");
}

TEST(AuditDataTest, FigureThatWasNotHeldBeforeIsNotCompared) {
  Snapshot before = MonthBefore();
  Drop(before, "visits");
  const AuditData data = Gathered(Machine(), before);
  EXPECT_FALSE(Figure(data, "visits").before);
  EXPECT_FALSE(Figure(data, "visits").Growth());
  EXPECT_THAT(AuditText(data, '.'), HasSubstr("visits of a technician     14       -\n"));
}

TEST(AuditDataTest, SnapshotOfAnotherMachineIsRefused) {
  Snapshot before = MonthBefore();
  before.machine = 100235;
  try {
    Gathered(Machine(), before);
    ADD_FAILURE() << "taken";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kWrongBoard);
    EXPECT_THAT(failure.what(), HasSubstr("100235"));
    EXPECT_THAT(failure.what(), HasSubstr("100234"));
  }
}

TEST(AuditDataTest, SnapshotOfALaterTimeIsTold) {
  const AuditData data = Gathered(MonthBefore(), Machine());
  EXPECT_THAT(NotesOf(data), Contains(AuditNote::kEarlierIsLater));
  EXPECT_FALSE(Figure(data, "vends.total").Growth());
  Snapshot same = Machine();
  EXPECT_THAT(NotesOf(Gathered(same, same)), IsEmpty());
}

TEST(AuditDataTest, AmountsOfOtherDecimalsAreNotCompared) {
  Snapshot before = MonthBefore();
  before.decimals = 3;
  const AuditData data = Gathered(Machine(), before);
  EXPECT_THAT(NotesOf(data), Contains(AuditNote::kOtherDecimals));
  EXPECT_FALSE(Figure(data, "takings.total").Growth());
  EXPECT_EQ(Figure(data, "vends.total").Growth(), 535U);
}

TEST(AuditDataTest, TimeIsToldOnTheClockOfTheComputer) {
  EXPECT_THAT(AuditText(Gathered(Machine()), '.'), HasSubstr("2026-11-22 13:30\n"));
  Snapshot machine = Machine();
  machine.time = "one day";
  EXPECT_THAT(AuditText(Gathered(machine), '.'), HasSubstr("one day\n"));
}

TEST(AuditDataTest, SettingsAreThoseThatStandNowhereElse) {
  std::vector<std::string> names;
  for (const AuditSetting& setting : Gathered(Machine()).settings) {
    names.push_back(setting.named.Name());
  }
  EXPECT_THAT(names, Contains("discount.3"));
  EXPECT_THAT(names, Contains("option.free-vend"));
  for (const char* name : {"price.1", "coin.1", "banknotes.low", "banknote.1", "options",
                           "machine.number", "clock.day", "password.1", "language.name.0"}) {
    EXPECT_THAT(names, Not(Contains(name)));
  }
}

TEST(AuditDataTest, DigitsOfThePasswordAreNeverTold) {
  Snapshot machine = Machine();
  for (int n = 1; n <= 4; ++n) {
    machine.values.push_back(
        {.number = 410 + n, .name = "password." + std::to_string(n), .raw = {9}, .shown = "9"});
  }
  const AuditData data = Gathered(machine);
  EXPECT_EQ(AuditHtml(data, {}), AuditHtml(Gathered(Machine()), {}));
  EXPECT_EQ(AuditJson(data), AuditJson(Gathered(Machine())));
}

}  // namespace
}  // namespace sorvane::test
