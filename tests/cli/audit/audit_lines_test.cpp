#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "cli/audit/audit_fixture.h"
#include "cli/audit_formats.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

// The fields of each line of a text with commas, by the rules of RFC 4180.
std::vector<std::vector<std::string>> CsvRows(const std::string& text) {
  std::vector<std::vector<std::string>> rows = {{""}};
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
      rows.back().back() += text[++i];
    } else if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && c == ',') {
      rows.back().emplace_back();
    } else if (!quoted && text.substr(i, 2) == "\r\n") {
      ++i;
      rows.emplace_back(1);
    } else {
      rows.back().back() += c;
    }
  }
  EXPECT_FALSE(quoted);
  EXPECT_EQ(rows.back(), std::vector<std::string>{""}) << "no line end at the end";
  rows.pop_back();
  return rows;
}

TEST(AuditCsvTest, EveryLineHasTheSameColumns) {
  EXPECT_THAT(CsvRows(AuditCsv(Gathered(Machine()), '.')), Each(SizeIs(6)));
  EXPECT_THAT(CsvRows(AuditCsv(Gathered(Machine(), MonthBefore()), ',')), Each(SizeIs(6)));
}

TEST(AuditCsvTest, AmountsWithACommaStayWhole) {
  const auto rows = CsvRows(AuditCsv(Gathered(Machine(), MonthBefore()), ','));
  EXPECT_THAT(rows.at(4), ElementsAre("figure", "takings.total", "takings, not resettable",
                                      "3393,30", "2544,97", "848,33"));
}

TEST(AuditCsvTest, QuotationMarksAndLineEndsStayWithinTheirField) {
  Snapshot machine = Machine();
  machine.time = "a \"b\",\r\nc";
  EXPECT_EQ(CsvRows(AuditCsv(Gathered(machine), '.')).at(3).at(3), machine.time);
}

TEST(AuditCsvTest, AlarmWithoutADateShowsWhatItHas) {
  Snapshot machine = Machine();
  const std::string newest = "alarm." + machine.Find("alarm.newest")->shown;
  Put(machine, newest + ".month", 0);
  const auto alarm = [&] {
    const auto rows = CsvRows(AuditCsv(Gathered(machine), '.'));
    return rows.at(rows.size() - 20);
  };
  EXPECT_THAT(alarm(), ElementsAre("alarm", "OBC_3", "product 3 is empty", "16:42", "", ""));
  Put(machine, newest + ".hour", 24);
  EXPECT_THAT(alarm(), ElementsAre("alarm", "OBC_3", "product 3 is empty", "", "", ""));
}

QJsonObject ObjectOf(const std::string& json) {
  const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json));
  EXPECT_TRUE(document.isObject()) << json;
  return document.object();
}

TEST(AuditJsonTest, WholeIsOneObjectWhateverTheTextsAre) {
  Snapshot machine = Machine();
  machine.program = "a \"b\" \\ <c>\n";
  const QJsonObject audit = ObjectOf(AuditJson(Gathered(machine, MonthBefore())));
  EXPECT_EQ(audit["program"].toString().toStdString(), machine.program);
  EXPECT_EQ(audit["since"].toString(), "2026-10-20T08:00:00Z");
  EXPECT_EQ(audit["figures"].toArray().size(), 8 + 30 + 10 + 22 + 16 + 4);
  EXPECT_EQ(audit["alarms"].toArray().size(), 20);
  EXPECT_EQ(audit["notes"].toArray().size(), 1);
}

TEST(AuditJsonTest, WhatIsNotKnownIsNull) {
  Snapshot machine = Machine();
  const int newest = static_cast<int>(NumberOf(machine.Find("alarm.newest")->raw));
  PutRecord(machine, newest, {60, 9, 0, 0, 0, 0});
  const QJsonObject audit = ObjectOf(AuditJson(Gathered(machine)));
  EXPECT_TRUE(audit["since"].isNull());
  const QJsonObject alarm = audit["alarms"].toArray().first().toObject();
  EXPECT_EQ(alarm["code"].toInt(), 0);
  EXPECT_EQ(alarm["meaning"].toString(), "code 0");
  for (const char* key : {"event", "date", "time"}) EXPECT_TRUE(alarm[key].isNull()) << key;
  const QJsonObject figure = audit["figures"].toArray().first().toObject();
  EXPECT_TRUE(figure["before"].isNull());
  EXPECT_TRUE(figure["growth"].isNull());
}

TEST(AuditTextTest, NoLineEndsInABlank) {
  for (const std::string& text :
       {AuditText(Gathered(Machine()), '.'), AuditText(Gathered(Machine(), MonthBefore()), ',')}) {
    EXPECT_THAT(text, Not(HasSubstr(" \n")));
    EXPECT_THAT(text, Not(HasSubstr("\r")));
  }
}

TEST(AuditTextTest, MachineWithoutAlarmsHasNone) {
  Snapshot machine = Machine();
  const std::string newest = "alarm." + machine.Find("alarm.newest")->shown;
  Put(machine, newest + ".code", 255);
  EXPECT_THAT(AuditText(Gathered(machine), '.'),
              HasSubstr("\nAlarms, the newest first\n  no.  date  time  event  meaning\n  none\n"));
}

TEST(AuditTextTest, AlarmsThatAreNotKnownAreNoMissingAlarms) {
  Snapshot machine = Machine();
  Drop(machine, "alarm.5.code");
  EXPECT_THAT(AuditText(Gathered(machine), '.'), Not(HasSubstr("Alarms, the newest first")));
  EXPECT_THAT(AuditText(Gathered(machine), '.'), HasSubstr("Note: the alarms aren't known"));
}

}  // namespace
}  // namespace sorvane::test
