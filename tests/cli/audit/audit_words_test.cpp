#include "cli/audit_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "board/alarm_ring.h"
#include "cli/audit/audit_fixture.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::HasSubstr;
using testing::Not;

TEST(AuditWordsTest, EveryWordStandsInBothLanguages) {
  for (int i = 0; i <= static_cast<int>(Word::kOff); ++i) {
    const auto word = static_cast<Word>(i);
    EXPECT_FALSE(WordOf(word, Language::kEnglish).empty()) << i;
    EXPECT_FALSE(WordOf(word, Language::kItalian).empty()) << i;
  }
}

TEST(AuditWordsTest, WordsStandInTheirPlaces) {
  EXPECT_EQ(WordOf(Word::kAuditOfMachine, Language::kEnglish), "Audit of machine");
  EXPECT_EQ(WordOf(Word::kTakings, Language::kItalian), "incasso");
  EXPECT_EQ(WordOf(Word::kReset, Language::kItalian), "azzerato");
  EXPECT_EQ(WordOf(Word::kTaken, Language::kEnglish), "taken");
  EXPECT_EQ(WordOf(Word::kNoAlarms, Language::kItalian), "nessun allarme");
  EXPECT_EQ(WordOf(Word::kOff, Language::kEnglish), "off");
}

// Those that a page tells beside figures of its own.
TEST(AuditWordsTest, EverySettingAndCountHasAnItalianTitle) {
  std::set<std::string> italian;
  const AuditData data = Gathered(Machine());
  const auto check = [&](const Named& named) {
    const std::string title = TitleOf(named, Language::kItalian);
    EXPECT_NE(title, TitleOf(named, Language::kEnglish)) << named.Name();
    EXPECT_THAT(title, Not(HasSubstr("#")));
    EXPECT_TRUE(italian.insert(title).second) << title;
  };
  // The same in both languages.
  const std::set<std::string> same = {"option.price-holding"};
  for (const AuditSetting& setting : data.settings) {
    if (!same.contains(setting.named.Name())) check(setting.named);
  }
  for (const AuditNumber& number : data.others) check({.entry = number.entry});
  EXPECT_GT(italian.size(), 70U);
}

TEST(AuditWordsTest, NumberOfASettingStandsInItsTitle) {
  const Named tenth{.entry = TheCatalogue().Find("key.10")};
  EXPECT_EQ(TitleOf(tenth, Language::kItalian), "colonna del tasto 10");
  const Named band{.entry = TheCatalogue().Find("band.2.end.minutes")};
  EXPECT_EQ(TitleOf(band, Language::kItalian), "fascia di sconto 2, fine: minuti");
}

TEST(AuditWordsTest, EveryGroupOfSettingsHasATitle) {
  for (const AuditSetting& setting : Gathered(Machine()).settings) {
    const Group group = setting.named.entry->group;
    EXPECT_NE(TitleOf(group, Language::kEnglish), GroupName(group));
    EXPECT_NE(TitleOf(group, Language::kItalian), GroupName(group));
  }
}

TEST(AuditWordsTest, EveryEventHasAMeaningInBothLanguages) {
  Snapshot machine = Machine();
  for (std::uint32_t code = 0; code <= 50; ++code) {
    for (int q = 0; q < 20; ++q) PutRecord(machine, q, {0, 0, 0, 0, 0, code});
    const AuditAlarm alarm = AlarmsOf(machine).alarms.front();
    const std::string english = MeaningOf(alarm, Language::kEnglish);
    const std::string italian = MeaningOf(alarm, Language::kItalian);
    if (alarm.event.empty()) {
      EXPECT_EQ(english, "code " + std::to_string(code));
      EXPECT_EQ(italian, "codice " + std::to_string(code));
    } else {
      EXPECT_EQ(alarm.event + '_' + italian, std::string(AlarmText(static_cast<int16_t>(code)),
                                                         alarm.event.size() + 1 + italian.size()));
      EXPECT_NE(english, italian);
      EXPECT_THAT(english, Not(HasSubstr("#")));
    }
  }
}

TEST(AuditWordsTest, MeaningHasTheNumberOfTheEvent) {
  EXPECT_EQ(
      MeaningOf(
          {.code = 42, .event = "EJB_10", .words = "blocco motore 10", .date = {}, .time = {}},
          Language::kEnglish),
      "motor 10 is blocked");
}

TEST(AuditWordsTest, RemarksNameWhatTheyAreAbout) {
  const AuditRemark remark{AuditNote::kReset, "takings.resettable"};
  EXPECT_EQ(RemarkOf(remark, Language::kEnglish),
            "lower than at the earlier visit, so reset in between: takings.resettable");
  EXPECT_THAT(RemarkOf(remark, Language::kItalian), HasSubstr("azzerati nel frattempo: takings"));
}

}  // namespace
}  // namespace sorvane::test
