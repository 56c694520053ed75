#include "catalogue/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "index_compiler/index_table.h"
#include "pages/field_table.h"

namespace sorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

IndexTable SampleTable(const std::string& name) {
  std::ifstream in(std::filesystem::path(SAMPLE_TABLES) / name);
  const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  const ParsedTable parsed = ParseIndexTable(text);
  EXPECT_THAT(parsed.errors, IsEmpty()) << name;
  return parsed.table;
}

int SizeOf(const IndexRecord& record) { return record.command % 16 + 1; }

class OfSampleTable : public testing::TestWithParam<const char*> {
 protected:
  const Catalogue catalogue_;
  const IndexTable table_ = SampleTable(GetParam());

  const TableRow& Row(int32_t number) const {
    return table_.rows.at(static_cast<std::size_t>(number - 1));
  }
};

INSTANTIATE_TEST_SUITE_P(, OfSampleTable, testing::Values("W0309AA00.txt", "W0309AA07.txt"));

TEST_P(OfSampleTable, TitlesAreTheNamesOfTheRecords) {
  for (const CatalogueEntry& entry : catalogue_.Entries()) {
    EXPECT_EQ(entry.title, Row(entry.number).name) << entry.number;
  }
}

TEST_P(OfSampleTable, SecondCopiesAreThoseOfTheSameName) {
  int copies = 0;
  for (const CatalogueEntry& entry : catalogue_.Entries()) {
    // The second copy of the decimals is the number that amounts are drawn with, and has its name.
    if (entry.mirror == 0 || entry.name == "decimals") continue;
    ++copies;
    EXPECT_EQ(Row(entry.mirror).name, entry.title + ", second copy");
    EXPECT_EQ(SizeOf(Row(entry.mirror).record), SizeOf(Row(entry.number).record)) << entry.name;
  }
  int of_table = 0;
  for (const TableRow& row : table_.rows) of_table += row.name.ends_with(", second copy") ? 1 : 0;
  EXPECT_EQ(copies, of_table);
}

TEST_P(OfSampleTable, WhatHasNoEntryIsASecondCopyOrShownNowhere) {
  std::set<int32_t> copies;
  for (const CatalogueEntry& entry : catalogue_.Entries()) copies.insert(entry.mirror);
  std::vector<int> unknown;
  for (int number = 1; number <= static_cast<int>(table_.rows.size()); ++number) {
    if (catalogue_.Find(number) == nullptr && !copies.contains(number)) unknown.push_back(number);
  }
  EXPECT_THAT(unknown, ElementsAre(11, 53, 96, 97, 389, 390, 419));
}

TEST_P(OfSampleTable, EveryValueThatMayBeWrittenFitsItsRecord) {
  for (const CatalogueEntry& entry : catalogue_.Entries()) {
    const int size = SizeOf(Row(entry.number).record);
    if (entry.form == Form::kText) {
      EXPECT_GT(size, 4) << entry.name;
    } else {
      ASSERT_LE(size, 4) << entry.name;
      EXPECT_LT(entry.highest, std::uint64_t{1} << (8 * size)) << entry.name;
      EXPECT_LT(entry.lowest, entry.highest) << entry.name;
    }
    if (entry.form == Form::kBits) {
      EXPECT_EQ(size, 1) << entry.name;
    }
  }
}

// The fields that the product pages have are held against a table of their own, typed a second
// time.
TEST(CatalogueAndPages, FieldsHaveTheSameRangesAndSecondCopies) {
  const Catalogue catalogue;
  for (const test::FieldRow& row : test::FieldRows()) {
    const CatalogueEntry* entry = catalogue.Find(row.parameter);
    ASSERT_NE(entry, nullptr) << row.parameter;
    EXPECT_NE(entry->role, Role::kReadOnly) << entry->name;
    if (entry->group == Group::kProducts) {
      EXPECT_EQ(entry->mirror, 0) << "a product goes to its own place alone";
    } else {
      EXPECT_EQ(entry->mirror, row.mirror) << entry->name;
    }
    if (row.bar.empty()) continue;
    EXPECT_EQ(entry->lowest, static_cast<uint32_t>(row.value->bar.minimum)) << entry->name;
    EXPECT_EQ(entry->highest, static_cast<uint32_t>(row.value->bar.maximum)) << entry->name;
  }
}

TEST(CatalogueAndPages, FieldsWithoutABarHaveTheRangeThatIsTyped) {
  const Catalogue catalogue;
  std::map<std::string, std::pair<uint32_t, uint32_t>> ranges;
  for (const test::FieldRow& row : test::FieldRows()) {
    const CatalogueEntry& entry = *catalogue.Find(row.parameter);
    if (row.bar.empty()) ranges[entry.name] = {entry.lowest, entry.highest};
  }
  const std::pair<uint32_t, uint32_t> digit{0, 9};
  EXPECT_THAT(ranges, ElementsAre(std::pair("location.number", std::pair(1, 65535)),
                                  std::pair("machine.number", std::pair(1, 16777215)),
                                  std::pair("password.1", digit), std::pair("password.2", digit),
                                  std::pair("password.3", digit), std::pair("password.4", digit)));
}

TEST(CatalogueAndPages, EveryNumberThatAPersonSetsHasAField) {
  std::set<int32_t> fields;
  for (const test::FieldRow& row : test::FieldRows()) fields.insert(row.parameter);
  for (const test::SwitchRow& row : test::SwitchRows()) fields.insert(row.parameter);
  for (const test::SliderRow& row : test::SliderRows()) fields.insert(row.parameter);
  std::set<int32_t> set;
  const Catalogue catalogue;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    if (entry.role != Role::kReadOnly) set.insert(entry.number);
  }
  EXPECT_EQ(set, fields);
}

TEST(CatalogueAndPages, EachSwitchIsABit) {
  const Catalogue catalogue;
  std::set<std::pair<int, int>> switches;
  for (const test::SwitchRow& row : test::SwitchRows()) {
    switches.insert({row.parameter, row.written_on & ~row.written_off & 255});
    EXPECT_EQ(catalogue.Find(row.parameter)->form, Form::kBits);
    EXPECT_EQ(catalogue.Find(row.parameter)->mirror, row.mirror);
  }
  switches.insert({3, 8});  // that of the slider of the times
  std::set<std::pair<int, int>> bits;
  for (const CatalogueBit& bit : catalogue.Bits()) bits.insert({bit.number, bit.mask});
  EXPECT_EQ(bits, switches);
}

TEST(CatalogueNames, AreEachGivenOnce) {
  const Catalogue catalogue;
  std::set<std::string> names;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
    EXPECT_EQ(catalogue.Find(entry.name), &entry);
  }
  for (const CatalogueBit& bit : catalogue.Bits()) {
    EXPECT_TRUE(names.insert(bit.name).second) << bit.name;
    EXPECT_EQ(catalogue.FindBit(bit.name), &bit);
  }
  for (const std::string& name : names) {
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.-"), std::string::npos)
        << name;
  }
}

TEST(CatalogueNames, AreWhatAPersonWouldType) {
  const Catalogue catalogue;
  EXPECT_EQ(catalogue.Find("price.3")->number, 25);
  EXPECT_EQ(catalogue.Find("clock.day")->number, 56);
  EXPECT_EQ(catalogue.Find("band.2.end.minutes")->number, 66);
  EXPECT_EQ(catalogue.Find("alarm.19.code")->number, 276);
  EXPECT_EQ(catalogue.FindBit("option.free-vend")->mask, 1);
  EXPECT_EQ(catalogue.FindBit("banknote.16")->number, 89);
  EXPECT_EQ(catalogue.FindBit("banknote.16")->mask, 128);
  EXPECT_EQ(catalogue.FindByMirror(391)->name, "price.1");
  EXPECT_EQ(catalogue.FindByMirror(22)->name, "decimals");
  EXPECT_EQ(catalogue.FindByMirror(0), nullptr);
  EXPECT_EQ(catalogue.FindByMirror(1), nullptr);
  EXPECT_EQ(catalogue.Find("price.11"), nullptr);
  EXPECT_EQ(catalogue.Find(22), nullptr);
  EXPECT_EQ(catalogue.FindBit("banknote.17"), nullptr);
}

TEST(CatalogueGroups, AreFoundByTheirNames) {
  for (int i = 0; i < kGroups; ++i) {
    const auto group = static_cast<Group>(i);
    EXPECT_EQ(FindGroup(GroupName(group)), group);
  }
  EXPECT_EQ(GroupName(Group::kMdb), "mdb");
  EXPECT_EQ(GroupName(Group::kAlarms), "alarms");
  EXPECT_EQ(FindGroup("drinks"), std::nullopt);
}

TEST(CatalogueGroups, EachHoldsSomething) {
  std::set<Group> groups;
  const Catalogue catalogue;
  for (const CatalogueEntry& entry : catalogue.Entries()) groups.insert(entry.group);
  EXPECT_EQ(groups.size(), static_cast<std::size_t>(kGroups));
}

TEST(CatalogueRoles, OnlyThePasswordIsSecretAndOnlyTheNumbersTellTheMachine) {
  const Catalogue catalogue;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    EXPECT_EQ(entry.role == Role::kSecret, entry.group == Group::kPassword) << entry.name;
    EXPECT_EQ(entry.role == Role::kIdentity, entry.group == Group::kIdentity) << entry.name;
    EXPECT_EQ(entry.role == Role::kClock, entry.group == Group::kClock) << entry.name;
    const bool recorded =
        entry.group == Group::kAudit || entry.group == Group::kAlarms || entry.form == Form::kText;
    EXPECT_EQ(entry.role == Role::kReadOnly, recorded) << entry.name;
  }
}

}  // namespace
}  // namespace sorvane
